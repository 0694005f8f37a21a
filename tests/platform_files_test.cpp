#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "tests/platform_model.h"

namespace {

using namespace platen::test;

TEST(Files, AWindowShowsOtherBytesThanTheFile) {
    for (const std::size_t size : {0U, 1U, 4096U, 65536U, 300001U}) {
        const TemporaryFile file(RandomBytes(size, 1));
        const OpenedFile opened(file, OF_READWRITE);
        Model model(opened.handle, file.Contents(), 7);
        model.Run(4000, false);
        model.Run(4000, true);
        EXPECT_TRUE(file.Contents() == model.Expected());
    }
}

TEST(Files, ASeekFromTheEndKeepsWhatOthersHaveReplaced) {
    const TemporaryFile file(std::string(10000, 'a'));
    const OpenedFile opened(file, OF_READ);
    ASSERT_EQ(ReadFrom(opened.handle, 10000), std::string(10000, 'a'));
    file.Overwrite(5000, "bbb");
    file.Resize(6000);
    EXPECT_EQ(_llseek(opened.handle, 0, 2), 6000);
    EXPECT_EQ(_llseek(opened.handle, 5000, 0), 5000);
    EXPECT_EQ(ReadFrom(opened.handle, 4), "bbba");
    file.Resize(0);
    file.Overwrite(0, std::string(20000, 'c'));
    EXPECT_EQ(_llseek(opened.handle, -5000, 2), 15000);
    EXPECT_EQ(ReadFrom(opened.handle, 20000), std::string(5000, 'c'));
}

std::string ReadAt(HFILE file, LONG position, UINT count) {
    _llseek(file, position, 0);
    return ReadFrom(file, count);
}

void WriteAt(HFILE file, LONG position, const std::string& bytes) {
    _llseek(file, position, 0);
    EXPECT_EQ(_lwrite(file, bytes.data(), static_cast<UINT>(bytes.size())), bytes.size());
}

TEST(Files, AChangeThroughAnotherHandleGoesUnseen) {
    const TemporaryFile file(std::string(200000, 'a'));
    const OpenedFile reader(file, OF_READ);
    const OpenedFile both(file, OF_READWRITE);
    const OpenedFile writer(file, OF_WRITE);
    for (const LONG place : {0, 4090, 70000, 199990}) {
        for (const HFILE handle : {reader.handle, both.handle}) {
            ASSERT_EQ(ReadAt(handle, place, 10), "aaaaaaaaaa");
        }
        WriteAt(writer.handle, place + 3, "bcd");
        EXPECT_EQ(ReadAt(reader.handle, place, 10), "aaabcdaaaa") << place;
        EXPECT_EQ(ReadAt(both.handle, place, 10), "aaabcdaaaa") << place;
        WriteAt(both.handle, place + 2, "xy");
        EXPECT_EQ(ReadAt(reader.handle, place, 10), "aaxycdaaaa") << place;
        EXPECT_EQ(ReadAt(both.handle, place, 10), "aaxycdaaaa") << "its own";
    }
    WriteAt(writer.handle, 200000, "more");
    EXPECT_EQ(ReadAt(reader.handle, 199998, 10), "aamore");
    const HFILE created = _lcreat(file.Name(), 0);
    EXPECT_EQ(ReadAt(reader.handle, 0, 10), "") << "the file begins anew";
    WriteAt(created, 0, "new");
    EXPECT_EQ(ReadAt(both.handle, 0, 10), "new");
    CloseHandle(AsHandle(created));
}

TEST(Files, AThreadReadsWhatAnotherHasReplaced) {
    constexpr int kLast = 250;
    const TemporaryFile file(std::string(5000, '\0'));
    std::atomic<int> written = 0;
    std::atomic<int> stale = 0;
    std::atomic<int> begun = 0;
    std::vector<std::thread> readers;
    for (int i = 0; i < 3; ++i) {
        readers.emplace_back([&] {
            const OpenedFile opened(file, OF_READ);
            ReadAt(opened.handle, 4000, 1);
            ++begun;
            for (int least = 0; least < kLast;) {
                least = written;
                const std::string byte = ReadAt(opened.handle, 4000, 1);
                stale += byte.empty() || static_cast<unsigned char>(byte[0]) < least ? 1 : 0;
            }
        });
    }
    const OpenedFile opened(file, OF_WRITE);
    while (begun < 3) {
        std::this_thread::yield();
    }
    for (int i = 1; i <= kLast; ++i) {
        WriteAt(opened.handle, 4000, std::string(1, static_cast<char>(i)));
        written = i;
    }
    for (std::thread& reader : readers) {
        reader.join();
    }
    EXPECT_EQ(stale, 0);
}

TEST(Files, ABadHandleOrNameIsTakenForAFile) {
    const TemporaryFile file("abc");
    const HFILE closed = _lopen(file.Name(), OF_READ);
    ASSERT_NE(closed, HFILE_ERROR);
    EXPECT_EQ(CloseHandle(AsHandle(closed)), TRUE);
    char byte = 0;
    for (const HFILE bad : {closed, -1}) {
        EXPECT_EQ(_lread(bad, &byte, 1), kFailed) << bad;
        EXPECT_EQ(_lwrite(bad, &byte, 1), kFailed) << bad;
        EXPECT_EQ(_llseek(bad, 0, 2), -1) << bad;
    }
    // -1 is left out: as a handle it means the process itself, and closes with success.
    EXPECT_EQ(CloseHandle(AsHandle(closed)), FALSE);
    EXPECT_EQ(_lopen(nullptr, OF_READ), HFILE_ERROR);
    EXPECT_EQ(_lopen("/nonexistent/file", OF_READ), HFILE_ERROR);
    EXPECT_EQ(_lcreat("/nonexistent/file", 0), HFILE_ERROR);
    const std::string folder = std::filesystem::temp_directory_path().string();
    for (const int mode : {OF_READ, OF_WRITE, OF_READWRITE, 0x40}) {
        EXPECT_EQ(_lopen(folder.c_str(), mode), HFILE_ERROR) << "a folder, mode " << mode;
    }
    EXPECT_EQ(_lcreat(folder.c_str(), 0), HFILE_ERROR);
}

TEST(Files, AccessDiffersFromTheModeOrAnOpenTruncates) {
    const struct {
        const char* read;
        int mode;
        UINT written;
    } cases[] = {{"a", OF_READ, kFailed},
                 {"(failed)", OF_WRITE, 1},
                 {"a", OF_READWRITE, 1},
                 {"(failed)", 0x8301, 1}};
    for (const auto& test : cases) {
        const TemporaryFile file("abc");
        const OpenedFile opened(file, test.mode);
        EXPECT_EQ(ReadFrom(opened.handle, 1), test.read) << test.mode;
        EXPECT_EQ(_lwrite(opened.handle, "b", 1), test.written) << test.mode;
        EXPECT_EQ(file.Contents().size(), 3U) << test.mode;
    }
    const TemporaryFile file("abc");
    const HFILE created = _lcreat(file.Name(), 0);
    EXPECT_EQ(file.Contents(), "");
    EXPECT_EQ(_lwrite(created, "xy", 2), 2U);
    EXPECT_EQ(CloseHandle(AsHandle(created)), TRUE);
    EXPECT_EQ(file.Contents(), "xy");
}

TEST(Files, ThreadsDisturbOneAnother) {
    std::vector<std::thread> threads;
    for (unsigned seed = 0; seed < 4; ++seed) {
        threads.emplace_back([seed] {
            const TemporaryFile file(RandomBytes(50000, seed));
            for (unsigned round = 0; round < 20; ++round) {
                const OpenedFile opened(file, OF_READWRITE);
                Model(opened.handle, file.Contents(), seed + round).Run(100, true);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace
