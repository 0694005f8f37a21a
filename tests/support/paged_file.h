#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace platen::test {

/// Where the directories of a file stand, and the values that do not fit in an entry.
enum class PageLayout : std::uint8_t {
    ValuesBehind,  ///< each directory's values right behind it
    ValuesLast,    ///< all directories first, then all values
    Reversed       ///< each directory's values behind it, the first directory last in the file
};

/// A valid file of `pages` directories. Each is a single page of a multi-page RGB image of one
/// pixel: 16 entries in ascending order, of which BitsPerSample (3 SHORT), XResolution and
/// YResolution have their values outside the entry. All share one strip.
struct PagedFile {
    std::uint32_t pages = 1;  ///< at most 65,535
    PageLayout layout = PageLayout::ValuesBehind;
    bool bigEndian = false;

    [[nodiscard]] std::vector<std::uint8_t> Bytes() const;
    /// False when the file could not be written.
    [[nodiscard]] bool Write(const std::string& path) const;

    static constexpr std::uint16_t kEntries = 16;
    static constexpr std::uint32_t kStripOffset = 8;
    static constexpr std::uint32_t kStripBytes = 3;
    /// The numerators' denominator is 10, so that the quotients are whole.
    static constexpr std::uint32_t kResolutionDenominator = 10;
    static constexpr std::uint32_t XResolutionNumerator(std::uint32_t page) {
        return (72 + page % 1000) * kResolutionDenominator;
    }
    static constexpr std::uint32_t YResolutionNumerator(std::uint32_t page) {
        return (300 + page % 700) * kResolutionDenominator;
    }
};

}  // namespace platen::test
