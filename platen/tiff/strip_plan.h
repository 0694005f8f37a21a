#pragma once

#include <cstdint>
#include <vector>

#include <platen/tiff/records.h>

namespace platen::tiff {

/// One run of bytes of an image in the source file.
struct StripRun {
    std::int64_t offset;
    std::int64_t bytes;
};

/// How an uncompressed image lies in its file and will lie in a copy: its strips in the order of
/// planes and rows. The copy holds them back to back, one strip a plane.
struct StripPlan {
    std::vector<StripRun> strips;
    std::int64_t planes = 1;
    std::int64_t planeBytes = 0;
    std::int64_t rows = 0;        ///< of every plane
    std::uint32_t swapBytes = 1;  ///< bytes of a sample that turn with the byte order

    [[nodiscard]] std::int64_t Bytes() const { return planes * planeBytes; }
};

/// The bytes that an image takes whole by its size and samples, wherever they lie; -1 for one that
/// cannot be copied.
std::int64_t PixelBytes(const TiffIFDStdDirStruct& record);

/// Plans a directory's image. `rowsPerStrip` is 0 when the file does not say. Answers null, or why
/// the image cannot be copied faithfully. A directory without strips has no image and no strips.
const char* PlanStrips(const TiffIFDStdDirStruct& record, std::uint32_t rowsPerStrip,
                       std::int64_t fileSize, StripPlan& plan);

}  // namespace platen::tiff
