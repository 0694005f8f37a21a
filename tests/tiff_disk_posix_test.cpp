#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

#include "tests/tiff_copying.h"

namespace {

using namespace platen::test;

/// Answers what `run` gives in a process whose files may not exceed `limit` bytes.
int WithFileLimit(rlim_t limit, const std::function<long()>& run) {
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit most = {limit, limit};
        _exit(setrlimit(RLIMIT_FSIZE, &most) == 0 ? static_cast<int>(run()) + 100 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) - 100 : -100;
}

/// Links and counts are looked at, entries and long values are not.
TEST(WriteNew, AFullDiskIsReportedAtTheWrongPlace) {
    struct Case {
        rlim_t limit;
        int status;
    };
    // Header 0, link 4, data 8, count 16, entries 18, next link 102, four zeros 106, text 110.
    const Case cases[] = {{0, -3}, {4, -3},  {8, -3},  {12, -3}, {16, -3}, {18, 1},
                          {50, 1}, {102, 1}, {106, 1}, {110, 1}, {113, 1}, {117, 1}};
    const Bytes source = SmallFile();
    ReadTiff<> read(source);
    const TemporaryFile whole;
    ASSERT_EQ(ReadTiff<>(source).tiff.WriteNew(whole.Name(), platen::kIntel), 1);
    ASSERT_EQ(whole.Contents().size(), 117U);
    for (const Case& c : cases) {
        const TemporaryFile file;
        const auto copy = [&] { return read.tiff.WriteCopy(file.Name(), platen::kIntel); };
        EXPECT_EQ(WithFileLimit(c.limit, copy), c.status) << c.limit;
        EXPECT_EQ(file.Contents().size(), c.limit);
        EXPECT_EQ(read.file.Contents(), source);
    }
}

/// The last size that fits is begun, which a limit on files then ends; one more byte of pixels or
/// of a long value is refused.
TEST(WriteNew, TheLargestFileIsRefusedOrALargerOneBegun) {
    // Header 8, six entries 78, four zeros 4; a seventh entry 12, and its text.
    constexpr std::uint32_t kLargest = 0x7FFFFFFF - 8 - 78 - 4;
    const TemporaryFile file("precious");
    const auto write = [&](std::uint32_t width, const char* text) {
        Tiff tiff;
        SetImage(tiff, width, 1, 8);
        if (text != nullptr) {
            SetText(tiff, 305, text);
        }
        return WithFileLimit(8, [&] { return tiff.WriteNew(file.Name(), platen::kIntel); });
    };
    EXPECT_EQ(write(kLargest + 1, nullptr), -1);
    EXPECT_EQ(write(kLargest - 12 - 4, "abcd"), -1);
    EXPECT_EQ(file.Contents(), "precious");
    EXPECT_EQ(write(kLargest, nullptr), -3);
    EXPECT_EQ(write(kLargest - 12 - 5, "abcd"), -3);
    EXPECT_EQ(write(kLargest - 12, "abc"), -3) << "a short text stands in its entry";
    Tiff tiff;
    tiff.ReAllocStdTiff();
    SetImage(tiff, 0x40000000, 1, 8, 0);
    SetImage(tiff, 0x40000000, 1, 8, 1);
    EXPECT_EQ(WithFileLimit(8, [&] { return tiff.WriteNew(file.Name(), platen::kIntel); }), -1);
}

TEST(WriteNew, AFullDeviceGoesUnnoticed) {
    ReadTiff<> read(SmallFile());
    EXPECT_EQ(read.tiff.WriteNew("/dev/full", platen::kIntel), -3);
    EXPECT_EQ(read.tiff.WriteCopy("/dev/full", platen::kIntel), -3);
    EXPECT_EQ(read.file.Contents(), SmallFile());
}

TEST_F(Copy, AFullDiskTouchesTheOutputOrLeavesAFile) {
    Put("in.tif", Gray({}));
    Put("out.tif", "precious");
    for (const rlim_t limit : std::vector<rlim_t>{0, 4, 8, 50, 108, 120, 200}) {
        const auto copy = [&] {
            return static_cast<long>(CopyTo("out.tif", platen::kIntel).outcome);
        };
        EXPECT_EQ(WithFileLimit(limit, copy), static_cast<int>(TiffCopy::Outcome::OutputFailed))
            << limit;
    }
    EXPECT_EQ(FileContents(Path("out.tif")), "precious");
    EXPECT_EQ(Files(), 2);
}

}  // namespace
