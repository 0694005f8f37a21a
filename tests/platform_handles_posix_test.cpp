#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include <platen/platform/win32.h>

#include "tests/platform_reading.h"

namespace {

using namespace platen::test;

constexpr LONG kLastPosition = std::numeric_limits<LONG>::max();

TEST(Files, PositionsWrapAtTwoGibibytes) {
    const TemporaryFile file("abc");
    file.Resize((std::size_t{1} << 31U) + 10);
    const OpenedFile opened(file, OF_READ);
    EXPECT_EQ(_llseek(opened.handle, 0, 2), -1);
    EXPECT_EQ(_llseek(opened.handle, -100, 2), kLastPosition - 89);
    EXPECT_EQ(_llseek(opened.handle, kLastPosition, 0), kLastPosition);
    for (const auto& [offset, origin] : {std::pair{1, 1}, {-1, 0}, {0, 3}, {-kLastPosition, 7}}) {
        EXPECT_EQ(_llseek(opened.handle, offset, origin), -1);
        EXPECT_EQ(_llseek(opened.handle, 0, 1), kLastPosition) << "a failed seek moved";
    }
    EXPECT_EQ(ReadFrom(opened.handle, 4), std::string(4, '\0'));
    EXPECT_EQ(_llseek(opened.handle, 0, 0), 0);
    EXPECT_EQ(ReadFrom(opened.handle, 3), "abc");
}

TEST(Files, ANumberIsTakenForAHandleOrAnUnknownModeForAKnownOne) {
    const TemporaryFile file("abc");
    char byte = 0;
    for (const HFILE bad : {-2, 0, 1000, 1 << 20, kLastPosition}) {
        EXPECT_EQ(_lread(bad, &byte, 1), kFailed) << bad;
        EXPECT_EQ(_lwrite(bad, &byte, 1), kFailed) << bad;
        EXPECT_EQ(_llseek(bad, 0, 2), -1) << bad;
        EXPECT_EQ(CloseHandle(AsHandle(bad)), FALSE) << bad;
    }
    EXPECT_EQ(_lopen(file.Name(), 3), HFILE_ERROR);
}

/// A handle that is no standard stream, and is closed when another program starts.
bool IsBehindStreams(HFILE file) {
    return file > STDERR_FILENO && (fcntl(file, F_GETFD) & FD_CLOEXEC) != 0;
}

TEST(Files, AFileTakesThePlaceOfAClosedStream) {
    const TemporaryFile file("abc");
    const pid_t child = fork();
    if (child == 0) {
        close(STDIN_FILENO);
        close(STDOUT_FILENO);
        const HFILE opened = _lopen(file.Name(), OF_READ);
        const HFILE created = _lcreat((file.Path() + ".new").c_str(), 0);
        const bool good = IsBehindStreams(opened) && IsBehindStreams(created) &&
                          ReadFrom(opened, 9) == "abc" && fcntl(STDIN_FILENO, F_GETFD) == -1 &&
                          fcntl(STDOUT_FILENO, F_GETFD) == -1;
        _exit(unlink((file.Path() + ".new").c_str()) == 0 && good ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST(Files, HandlesAboveAThousandShareOrLoseTheirPositions) {
    rlimit limit = {};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
    const rlimit before = limit;
    limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, 2600);
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
    const TemporaryFile file(RandomBytes(2500, 3));
    const std::string bytes = file.Contents();
    std::vector<HFILE> files;
    while (files.size() < 2500 && (files.empty() || files.back() != HFILE_ERROR)) {
        files.push_back(_lopen(file.Name(), OF_READ));
        _llseek(files.back(), static_cast<LONG>(files.size() - 1), 0);
    }
    for (std::size_t i = files.size(); i-- > 0 && files[i] != HFILE_ERROR;) {
        ASSERT_EQ(ReadFrom(files[i], 1), bytes.substr(i, 1)) << i;
        ASSERT_EQ(CloseHandle(AsHandle(files[i])), TRUE) << i;
    }
    setrlimit(RLIMIT_NOFILE, &before);
}

}  // namespace
