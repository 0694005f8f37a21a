#include "examples/inspector/image_layout.h"

#include <algorithm>

#include "examples/inspector/tag_values.h"

namespace inspector {
namespace {

using Record = TiffIFDStdDirStruct;

constexpr std::uint16_t kAbsent = 0xFFFF;
constexpr std::uint16_t kUncompressed = 1;
constexpr std::uint16_t kSeparate = 2;
constexpr std::uint16_t kLowBitFirst = 2;

std::string WordFor(std::uint16_t tag, std::uint16_t value) {
    return TagMeaning(tag, value).value_or("code " + std::to_string(value));
}

std::string ProblemOfForm(const Record& record) {
    if (record.TileOffsetsCount != 0 || record.TileWidth != 0) {
        return "The image is stored in tiles, which are not shown.";
    }
    if (record.StripOffsetsCount == 0) {
        return "This directory has no image.";
    }
    if (record.Compression != kAbsent && record.Compression != kUncompressed) {
        return "The image is compressed (" + WordFor(259, record.Compression) +
               "), which is not shown.";
    }
    if (record.ImageWidth <= 0 || record.ImageLength <= 0) {
        return "The directory does not say how large its image is.";
    }
    const std::uint16_t photometric = record.PhotometricInterpretation;
    if (photometric != kAbsent && photometric > static_cast<std::uint16_t>(Colors::Mask)) {
        return "The colours are of a kind that is not shown (PhotometricInterpretation " +
               std::to_string(photometric) + ").";
    }
    return {};
}

/// The common size of all samples in bits, 1 when the file does not say; 0 for sizes that are not
/// shown.
int BitsOf(const Tiff& tiff, short dir) {
    const auto bits = NumbersOf<std::uint16_t>(tiff, 258, dir);
    if (bits.empty()) {
        return 1;
    }
    const bool same = std::ranges::all_of(bits, [&](auto other) { return other == bits[0]; });
    const bool shown =
        same && (bits[0] == 1 || bits[0] == 2 || bits[0] == 4 || bits[0] == 8 || bits[0] == 16);
    return shown ? bits[0] : 0;
}

/// The engine knows RowsPerStrip only as a LONG; otherwise the byte counts tell.
std::int64_t RowsPerStripOf(const Tiff& tiff, short dir, const ImageLayout& layout) {
    const std::int64_t given = tiff.getStdDir()[dir].RowsPerStrip;
    if (given != 0) {
        return std::min(given, layout.length);
    }
    const auto byteCounts = NumbersOf<std::uint32_t>(tiff, 279, dir);
    if (layout.strips.size() == 1 || byteCounts.empty()) {
        return layout.length;
    }
    return std::clamp<std::int64_t>(byteCounts[0] / layout.rowBytes, 1, layout.length);
}

}  // namespace

std::int64_t ImageLayout::RowOffset(std::int64_t row, std::int64_t plane) const {
    const std::int64_t stripsPerPlane = (length + rowsPerStrip - 1) / rowsPerStrip;
    const std::int64_t strip = plane * stripsPerPlane + row / rowsPerStrip;
    if (strip >= static_cast<std::int64_t>(strips.size())) {
        return -1;
    }
    return strips[static_cast<std::size_t>(strip)] + row % rowsPerStrip * rowBytes;
}

ImageLayout LayoutOf(const Tiff& tiff, short dir) {
    const Record& record = tiff.getStdDir()[dir];
    ImageLayout layout;
    layout.problem = ProblemOfForm(record);
    if (!layout.problem.empty()) {
        return layout;
    }
    layout.bits = BitsOf(tiff, dir);
    if (layout.bits == 0) {
        layout.problem = "Samples of this size, or of several sizes, are not shown.";
        return layout;
    }
    if (record.PhotometricInterpretation != kAbsent) {
        layout.colors = static_cast<Colors>(record.PhotometricInterpretation);
    }
    const std::int64_t channels = std::max<std::int64_t>(record.SamplesPerPixel, 1);
    if (layout.colors == Colors::Rgb && channels < 3) {
        layout.problem = "An RGB image needs three samples a pixel, and this one has fewer.";
        return layout;
    }
    layout.separate = record.PlanarConfiguration == kSeparate;
    layout.lowBitFirst = record.FillOrder == kLowBitFirst;
    layout.width = record.ImageWidth;
    layout.length = record.ImageLength;
    layout.samples = layout.separate ? 1 : channels;
    layout.rowBytes = (layout.width * layout.samples * layout.bits + 7) / 8;
    if (layout.rowBytes > tiff.getFileSize()) {
        layout.problem = "A single row of this image is larger than the whole file.";
        return layout;
    }
    layout.strips = NumbersOf<std::uint32_t>(tiff, 273, dir);
    layout.rowsPerStrip = RowsPerStripOf(tiff, dir, layout);
    return layout;
}

}  // namespace inspector
