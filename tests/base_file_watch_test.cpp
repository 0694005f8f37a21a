#include <gtest/gtest.h>

#include <array>
#include <thread>

#include <platen/base/file_watch.h>
#include <platen/base/files.h>

#include "tests/support/temporary_file.h"

namespace {

using namespace platen::test;
using platen::FileWatch;
using Step = FileWatch::Step;

constexpr Step kSteps[] = {Step::Open,  Step::Read, Step::ReadToEnd,
                           Step::Write, Step::Seek, Step::Close};

/// What a watch noted, a letter a step, small when the system gave no reason.
std::string Noted(const FileWatch& watch) {
    std::string noted;
    for (const Step step : kSteps) {
        const std::optional<int>& reason = watch.Of(step);
        const char letter = "OREWSC"[static_cast<std::size_t>(step)];
        noted +=
            !reason ? "" : std::string(1, *reason != 0 ? letter : static_cast<char>(letter + 32));
    }
    return noted;
}

TEST(FileWatch, AFailureIsMissedOrToldToAnother) {
    const TemporaryFile file("abc");
    std::array<char, 4> bytes{};
    const FileWatch all;
    void* handle = FILE_none();
    {
        const FileWatch good;
        handle = FILE_open(file.Name(), 0, nullptr);
        FILE_read(handle, bytes.data(), 3);
        FILE_lseek(handle, 0, 2);
        FILE_lseek(handle, 0, 0);
        EXPECT_EQ(Noted(good), "");
        const FileWatch end;
        FILE_read(handle, bytes.data(), 4);
        EXPECT_EQ(Noted(end), "e");
        EXPECT_EQ(Noted(good), "e");
    }
    {
        const FileWatch opening;
        FILE_open("/nonexistent/file", 0, nullptr);
        FILE_creat("/nonexistent/file", 0);
        EXPECT_EQ(Noted(opening), "O");
    }
    {
        const FileWatch writing;
        FILE_write(handle, bytes.data(), 1);
        EXPECT_EQ(Noted(writing), "W");
        std::thread([] { FILE_lseek(FILE_none(), 0, 0); }).join();
        EXPECT_EQ(Noted(writing), "W");
    }
    EXPECT_EQ(Noted(all), "OeW");
    FILE_close(handle);
    FILE_close(FILE_none());
    EXPECT_EQ(Noted(all), "OeW");
    FILE_lseek(handle, 0, 0);
    FILE_close(handle);
    FILE_read(handle, bytes.data(), 1);
    EXPECT_EQ(Noted(all).size(), 6U);
}

}  // namespace
