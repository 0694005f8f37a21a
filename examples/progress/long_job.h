#pragma once

#include <cstdint>
#include <vector>

namespace example {

/// A job long enough to watch: a picture of the Mandelbrot set, computed a row at a time.
class LongJob {
  public:
    static constexpr int kWidth = 720;
    static constexpr int kHeight = 480;

    [[nodiscard]] int Done() const { return m_row; }
    [[nodiscard]] bool IsFinished() const { return m_row == kHeight; }
    /// Computes the next row, some milliseconds of work.
    void Step();

    /// 8-bit gray pixels, kWidth a row; rows that are not computed yet are white.
    [[nodiscard]] const std::vector<std::uint8_t>& Pixels() const { return m_pixels; }

  private:
    int m_row = 0;
    std::vector<std::uint8_t> m_pixels =
        std::vector<std::uint8_t>(static_cast<std::size_t>(kWidth) * kHeight, 0xFF);
};

}  // namespace example
