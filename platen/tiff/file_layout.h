#pragma once

#include <cstddef>
#include <cstdint>

/// What a file consists of, in bytes (TIFF 6.0, section 2).
namespace platen::tiff {

inline constexpr std::uint16_t kVersion = 42;  ///< the word behind the byte-order mark

inline constexpr std::int32_t kHeaderSize = 8;
inline constexpr std::int32_t kCountSize = 2;   ///< a directory's number of entries
inline constexpr std::int32_t kEntrySize = 12;  ///< one entry
inline constexpr std::int32_t kLinkSize = 4;    ///< where the next directory stands, or 0

/// Where a file ends at the latest: no position of a file handle leads further.
inline constexpr std::int64_t kLargestFile = INT32_MAX;

inline constexpr std::int32_t kTextInEntry = 4;  ///< characters that an entry holds itself

/// What a directory of so many entries takes, without the values that stand elsewhere.
constexpr std::size_t DirectorySize(std::size_t entries) {
    return kCountSize + kEntrySize * entries + kLinkSize;
}

/// The next even number: a copy puts its images and values there (TIFF 6.0, section 2).
template <typename Size>
constexpr Size Even(Size size) {
    return size + size % 2;
}

}  // namespace platen::tiff
