#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <platen/platform/win32.h>

#include "tests/platform_reading.h"

namespace {

using namespace platen::test;

/// A handle and what the file must hold, through many reads, writes and seeks.
class Model {
  public:
    Model(HFILE file, std::string bytes, unsigned seed)
        : m_file(file), m_bytes(std::move(bytes)), m_random(seed) {}

    void Seek() {
        const auto end = static_cast<LONG>(m_bytes.size());
        LONG target = static_cast<LONG>(m_random() % (m_bytes.size() + 5000));
        if (m_random() % 2 == 0) {  // a neighbour, forwards or backwards
            target = std::max<LONG>(0, m_position + static_cast<LONG>(m_random() % 9000) - 4500);
        }
        const auto origin = static_cast<int>(m_random() % 40 == 0 ? 2 : m_random() % 2);
        const LONG bases[] = {0, m_position, end};
        ASSERT_EQ(_llseek(m_file, target - bases[origin], origin), target);
        m_position = target;
    }

    void Read() {
        const std::size_t at = std::min(m_bytes.size(), static_cast<std::size_t>(m_position));
        const std::string expected = m_bytes.substr(at, Size());
        ASSERT_TRUE(ReadFrom(m_file, static_cast<UINT>(m_size)) == expected)
            << m_size << " bytes at " << m_position;
        m_position += static_cast<LONG>(expected.size());
    }

    void Write() {
        const std::string piece = RandomBytes(std::clamp<std::size_t>(Size(), 1, 3000), m_seed++);
        ASSERT_EQ(_lwrite(m_file, piece.data(), static_cast<UINT>(piece.size())), piece.size());
        const auto at = static_cast<std::size_t>(m_position);
        m_bytes.resize(std::max(m_bytes.size(), at + piece.size()));
        m_bytes.replace(at, piece.size(), piece);
        m_position += static_cast<LONG>(piece.size());
    }

    void Run(int steps, bool writes) {
        for (int i = 0; i < steps && !testing::Test::HasFatalFailure(); ++i) {
            const auto choice = m_random() % 8;
            if (choice < 3) {
                Seek();
            } else if (choice == 3 && writes) {
                Write();
            } else {
                Read();
            }
        }
    }

    [[nodiscard]] const std::string& Expected() const { return m_bytes; }

  private:
    std::size_t Size() {
        constexpr std::size_t kSizes[] = {0,   1,    2,    4,     12,    12,
                                          100, 4095, 5000, 65535, 70000, 140000};
        return m_size = kSizes[m_random() % std::size(kSizes)];
    }

    HFILE m_file;
    std::string m_bytes;
    std::minstd_rand m_random;
    unsigned m_seed = 1;
    LONG m_position = 0;
    std::size_t m_size = 0;
};

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
