#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>

/// The percentage that both progress displays show.
namespace platen {

/// Done of total as a percentage, not clamped. The division comes first, so that some whole
/// percentages land just below: 29 of 100 is 28.999999999999996. Without a meaningful total it is
/// 0.
inline double PercentOf(std::uint32_t done, std::int32_t total) {
    return total <= 0 ? 0.0 : static_cast<double>(done) / total * 100.0;
}

/// The percentage towards zero, reduced to its low 16 bits.
inline std::uint16_t WholePercent(double percent) {
    return static_cast<std::uint16_t>(static_cast<std::int64_t>(percent));
}

using PercentText = std::array<char, 64>;

/// The text shown for a whole percentage, with its terminating zero.
inline PercentText TextOfPercent(int whole) {
    PercentText text = {};
    std::snprintf(text.data(), text.size(), "%3d%% done.  Press ESC to abort.", whole);
    return text;
}

/// How much of a bar that is `width` pixels wide the percentage fills. Beyond 100 percent it is the
/// whole bar.
inline int FilledWidth(int width, double percent) {
    const double filled = std::trunc(width * percent * 0.01);
    return filled < width ? static_cast<int>(filled) : width;
}

}  // namespace platen
