#pragma once

#include <cstdint>

#include <platen/tiff/records.h>

namespace platen::tiff {

/// The one or two 16-bit numbers that a normalised SHORT entry carries itself, in file order, into
/// two places; the second is 0 when the entry carries one. An entry of two or more holds the first
/// in the high half when the file is big-endian.
inline void UnpackWords(const TiffIFDEntryStruct& entry, std::uint16_t order,
                        std::uint16_t (&words)[2]) {
    const auto low = static_cast<std::uint16_t>(entry.ValueOffset);
    const auto high = static_cast<std::uint16_t>(entry.ValueOffset >> 16U);
    const bool lowFirst = order == kIntel || entry.Count == 1;
    words[0] = lowFirst ? low : high;
    words[1] = lowFirst ? high : low;
}

}  // namespace platen::tiff
