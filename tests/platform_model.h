#pragma once

#include <gtest/gtest.h>

#include "tests/platform_reading.h"

namespace platen::test {

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

}  // namespace platen::test
