#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <platen/tiff/Tiff.h>

namespace inspector {

/// The values of PhotometricInterpretation that are shown (TIFF 6.0).
enum class Colors : std::uint8_t { WhiteIsZero, BlackIsZero, Rgb, Palette, Mask };

/// How an image's samples lie in its file. Sizes are positive, and a row is no larger than the
/// file.
struct ImageLayout {
    std::string problem;  ///< why the image cannot be shown; the rest is then not set
    Colors colors = Colors::BlackIsZero;
    int bits = 1;               ///< of each sample: 1, 2, 4, 8 or 16
    std::int64_t width = 0;     ///< pixels
    std::int64_t length = 0;    ///< pixels
    std::int64_t samples = 1;   ///< side by side in a row
    std::int64_t rowBytes = 0;  ///< in one plane
    std::int64_t rowsPerStrip = 0;
    bool separate = false;              ///< each channel in a plane of its own
    bool lowBitFirst = false;           ///< of samples smaller than a byte
    std::vector<std::uint32_t> strips;  ///< offsets

    /// Where a row stands in the file; -1 when no strip has it.
    [[nodiscard]] std::int64_t RowOffset(std::int64_t row, std::int64_t plane) const;
};

ImageLayout LayoutOf(const Tiff& tiff, short dir);

}  // namespace inspector
