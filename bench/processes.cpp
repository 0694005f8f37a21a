#include <bench/processes.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include <bench/scratch.h>

namespace platen::bench {
namespace {

constexpr double kMebibyte = 1 << 20;

/// A program with its arguments, and where its output goes.
struct Command {
    std::vector<std::string> words;
    std::string output;
};

struct Usage {
    double milliseconds = 0;  ///< from before its start until after its end
    double mebibytes = 0;     ///< at most resident
};

class OutputTo {
  public:
    explicit OutputTo(const std::string& path) {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, path.c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
    }
    ~OutputTo() { posix_spawn_file_actions_destroy(&m_actions); }
    OutputTo(const OutputTo&) = delete;
    OutputTo& operator=(const OutputTo&) = delete;

    [[nodiscard]] const posix_spawn_file_actions_t* Get() const { return &m_actions; }

  private:
    posix_spawn_file_actions_t m_actions{};
};

Usage Run(Command command) {
    std::vector<char*> words;
    for (std::string& word : command.words) {
        words.push_back(word.data());
    }
    words.push_back(nullptr);
    const OutputTo output(command.output);
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    const int failure =
        posix_spawnp(&child, words[0], output.Get(), nullptr, words.data(), environ);
    if (failure != 0) {
        throw std::system_error(failure, std::generic_category(), command.words[0]);
    }
    int status = 0;
    rusage usage{};
    while (wait4(child, &status, 0, &usage) < 0) {
        if (errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "wait4");
        }
    }
    const std::chrono::duration<double, std::milli> elapsed =
        std::chrono::steady_clock::now() - start;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw std::runtime_error(command.words[0] + " failed");
    }
    return {elapsed.count(), static_cast<double>(usage.ru_maxrss) * 1024 / kMebibyte};
}

Usage Median(std::vector<Usage> runs) {
    const auto middle = runs.begin() + static_cast<std::ptrdiff_t>(runs.size() / 2);
    std::ranges::nth_element(runs, middle, {}, &Usage::milliseconds);
    const Usage most = *std::ranges::max_element(runs, {}, &Usage::mebibytes);
    return {middle->milliseconds, most.mebibytes};
}

struct Pair {
    Usage first;
    Usage second;
};

/// Both commands in turn, after one run of each that does not count.
Pair RunInTurn(const Command& first, const Command& second, int times) {
    std::vector<Usage> firsts;
    std::vector<Usage> seconds;
    for (int i = 0; i <= times; ++i) {
        const Usage one = Run(first);
        const Usage other = Run(second);
        if (i > 0) {
            firsts.push_back(one);
            seconds.push_back(other);
        }
    }
    return {Median(firsts), Median(seconds)};
}

double SizeOf(const std::string& path) {
    return static_cast<double>(std::filesystem::file_size(path)) / kMebibyte;
}

const char* Verdict(bool met) {
    return met ? "met" : "MISSED";
}

void CompareDumps(const std::string& program, const Scratch& scratch) {
    const std::string file =
        scratch.Write("many.tif", {32000, test::PageLayout::ValuesBehind, false});
    const Command dump{{program, "dump", file}, scratch.Path("dump.txt")};
    const Command tiffdump{{"tiffdump", file}, scratch.Path("tiffdump.txt")};
    const Pair usage = RunInTurn(dump, tiffdump, 7);
    const double ratio = usage.second.milliseconds / usage.first.milliseconds;
    std::printf("platen dump, 32,000 pages  %9.2f ms\n", usage.first.milliseconds);
    std::printf("tiffdump, the same file    %9.2f ms   %.1f times; at least 5: %s\n",
                usage.second.milliseconds, ratio, Verdict(ratio >= 5));
    const double fileSize = SizeOf(file);
    const double reportSize = SizeOf(dump.output);
    const double allowed = 3 * fileSize + reportSize + 30;
    std::printf("memory of platen dump      %9.2f MiB  at most %.2f (file %.2f, report %.2f): %s\n",
                usage.first.mebibytes, allowed, fileSize, reportSize,
                Verdict(usage.first.mebibytes <= allowed));
}

void CompareStarts(const std::string& program, const Scratch& scratch) {
    const std::string file = scratch.Write("small.tif", {});
    const Command info{{program, "info", file}, "/dev/null"};
    const Command nothing{{PLATEN_BENCH_NOTHING}, "/dev/null"};
    const Pair usage = RunInTurn(info, nothing, 301);
    const double ratio = usage.first.milliseconds / usage.second.milliseconds;
    std::printf("platen info, one page      %9.3f ms\n", usage.first.milliseconds);
    std::printf("a program of nothing       %9.3f ms   %.2f times; at most 1.5: %s\n",
                usage.second.milliseconds, ratio, Verdict(ratio <= 1.5));
}

}  // namespace

int CompareProcesses(const char* program) {
    const Scratch scratch;
    CompareDumps(program, scratch);
    CompareStarts(program, scratch);
    std::printf("Medians of elapsed time; memory is the most that was resident.\n");
    return 0;
}

}  // namespace platen::bench
