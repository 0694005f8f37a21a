#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/hostile_files.h"
#include "tests/tiff_soundness.h"

namespace {

using namespace platen::test;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif
/// The sanitizer's own cost: slower code, shadow memory, freed blocks that are kept a while.
constexpr int kSlack = kSanitized ? 10 : 1;
/// Half of it is enough for code of -O2; a little optimised one on a busy machine takes longer.
constexpr double kMostSeconds = 1.0 * kSlack;

/// 80 MiB; a file that is made to reach every limit at once may take 48 times its size.
long MostKibibytes(const Bytes& bytes) {
    return kSlack * std::max(80L * 1024, 48 * static_cast<long>(bytes.size()) / 1024);
}

struct Cost {
    double seconds = 0;
    long kibibytes = 0;
    bool sound = false;
};

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// Reads in a process of its own, whose time and peak of memory nothing else has part in.
Cost Measure(const Bytes& bytes) {
    int ends[2] = {};
    if (pipe(ends) != 0) {
        return {};
    }
    const pid_t child = fork();
    if (child == 0) {
        rusage before = {};
        rusage after = {};
        getrusage(RUSAGE_SELF, &before);
        const ReadTiff<> read(bytes);
        getrusage(RUSAGE_SELF, &after);
        const Cost cost = {Seconds(after.ru_utime) + Seconds(after.ru_stime) -
                               Seconds(before.ru_utime) - Seconds(before.ru_stime),
                           after.ru_maxrss - before.ru_maxrss, IsSound(read)};
        _exit(write(ends[1], &cost, sizeof(cost)) == sizeof(cost) ? 0 : 1);
    }
    close(ends[1]);
    Cost cost;
    if (read(ends[0], &cost, sizeof(cost)) != sizeof(cost)) {
        cost = {};
    }
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return cost;
}

TEST(Hostile, AFileCostsTimeOrMemory) {
    for (const NamedFile& file : HostileFiles()) {
        const Cost cost = Measure(file.bytes);
        EXPECT_TRUE(cost.sound) << file.name;
        EXPECT_LT(cost.seconds, kMostSeconds) << file.name;
        EXPECT_LT(cost.kibibytes, MostKibibytes(file.bytes)) << file.name;
    }
}

}  // namespace
