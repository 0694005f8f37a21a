#pragma once

#include <bit>
#include <cstdint>

#include <platen/tiff/records.h>

/// Conversions between machine and file byte order. The machine's order is platen::kIntel; for any
/// other word the bytes are reversed.
static_assert(std::endian::native == std::endian::little);

namespace platen::tiff {

constexpr std::uint16_t SwapSHORT(std::uint16_t value, std::uint16_t order) {
    return order == kIntel ? value : static_cast<std::uint16_t>(value << 8 | value >> 8);
}

constexpr std::uint32_t SwapLONG(std::uint32_t value, std::uint16_t order) {
    return order == kIntel ? value : __builtin_bswap32(value);
}

/// Converts both halves in place and gives the converted pair.
constexpr Rational SwapRATIONAL(Rational& value, std::uint16_t order) {
    value.Numerator = SwapLONG(value.Numerator, order);
    value.Denominator = SwapLONG(value.Denominator, order);
    return value;
}

}  // namespace platen::tiff
