#include <platen/tiff/strip_plan.h>

#include <algorithm>

#include <platen/tiff/blocks.h>

namespace platen::tiff {
namespace {

using Record = TiffIFDStdDirStruct;

constexpr std::uint16_t kAbsent = 0xFFFF;
constexpr std::uint16_t kUncompressed = 1;
constexpr std::uint16_t kSubsampledColor = 6;
constexpr std::uint16_t kChunky = 1;
constexpr std::uint16_t kSeparate = 2;

/// The offsets or byte counts of a record in either width.
struct Numbers {
    const std::uint16_t* shorts;
    const std::uint32_t* longs;
    std::int64_t count;

    Numbers(const std::uint16_t* narrow, const std::uint32_t* wide, std::uint32_t stored)
        : shorts(wide == nullptr ? narrow : nullptr),
          longs(wide),
          count(wide == nullptr ? HeldElements(narrow, stored) : HeldElements(wide, stored)) {}

    std::int64_t operator[](std::int64_t index) const {
        return longs != nullptr ? std::int64_t{longs[index]} : std::int64_t{shorts[index]};
    }
};

const char* UnsupportedForm(const Record& record) {
    if (record.TileWidth != 0 || record.TileLength != 0 || record.TileOffsetsCount != 0) {
        return "tiled images are not copied";
    }
    if (record.Compression != kAbsent && record.Compression != kUncompressed) {
        return "compressed images are not copied";
    }
    if (record.PhotometricInterpretation == kSubsampledColor) {
        return "YCbCr images are not copied";
    }
    const std::uint16_t planar = record.PlanarConfiguration;
    if (planar != kAbsent && planar != kChunky && planar != kSeparate) {
        return "the PlanarConfiguration is not known";
    }
    return nullptr;
}

/// The bits of every sample, 1 when the file does not say (TIFF 6.0, section 8); 0 when they
/// differ.
std::int64_t CommonBits(const Record& record) {
    const std::uint16_t* bits = record.BitsPerSample;
    const std::uint32_t count = HeldElements(bits, record.BitsPerSampleCount);
    if (count == 0) {
        return 1;
    }
    return std::all_of(bits, bits + count, [bits](std::uint16_t other) { return other == *bits; })
               ? *bits
               : 0;
}

/// Samples of less than two bytes, and packed ones, are a stream of bytes; 0 for an unknown size.
std::uint32_t SwapBytes(std::int64_t bits) {
    if (bits == 24 || bits == 32 || bits == 64 || bits == 16) {
        return static_cast<std::uint32_t>(bits / 8);
    }
    return bits >= 1 && bits < 16 ? 1 : 0;
}

std::int64_t RowsOf(std::uint32_t rowsPerStrip, std::int64_t strips, std::int64_t length,
                    const Numbers& byteCounts, std::int64_t rowBytes) {
    if (rowsPerStrip != 0) {
        return std::min<std::int64_t>(rowsPerStrip, length);
    }
    if (strips == 1 || byteCounts.count == 0) {
        return length;
    }
    return std::max<std::int64_t>(1, byteCounts[0] / rowBytes);
}

/// Adds the strips of all planes, each held against its byte count and the file.
const char* AddStrips(const Numbers& offsets, const Numbers& byteCounts, std::int64_t rowBytes,
                      std::int64_t length, std::int64_t rows, std::int64_t fileSize,
                      StripPlan& plan) {
    const std::int64_t perPlane = (length + rows - 1) / rows;
    if (offsets.count != perPlane * plan.planes ||
        (byteCounts.count != 0 && byteCounts.count != offsets.count)) {
        return "the number of strips does not match the image's rows";
    }
    for (std::int64_t i = 0; i < offsets.count; ++i) {
        const std::int64_t row = i % perPlane * rows;
        const StripRun run = {offsets[i], rowBytes * std::min(rows, length - row)};
        if (byteCounts.count != 0 && byteCounts[i] < run.bytes) {
            return "a strip holds fewer bytes than its rows take";
        }
        if (run.offset + run.bytes > fileSize) {
            return "a strip lies beyond the end of the file";
        }
        plan.strips.push_back(run);
    }
    return nullptr;
}

/// Plans all but the strips.
const char* PlanShape(const Record& record, StripPlan& plan) {
    const std::int64_t bits = CommonBits(record);
    plan.swapBytes = SwapBytes(bits);
    if (plan.swapBytes == 0) {
        return "samples of this size, or of several sizes, are not copied";
    }
    const std::int64_t samples = std::max<std::int64_t>(record.SamplesPerPixel, 1);
    const bool separate = record.PlanarConfiguration == kSeparate;
    plan.planes = separate ? samples : 1;
    const std::int64_t width = record.ImageWidth;
    const std::int64_t length = record.ImageLength;
    if (width <= 0 || length <= 0) {
        return "the image has no size";
    }
    const std::int64_t rowBytes = (width * (separate ? 1 : samples) * bits + 7) / 8;
    if (rowBytes > INT32_MAX / length / plan.planes) {
        return "the image is larger than 2 GiB";
    }
    plan.planeBytes = rowBytes * length;
    plan.rows = length;
    return nullptr;
}

}  // namespace

std::int64_t PixelBytes(const Record& record) {
    StripPlan plan;
    const bool copied = UnsupportedForm(record) == nullptr && PlanShape(record, plan) == nullptr;
    return copied ? plan.Bytes() : -1;
}

const char* PlanStrips(const Record& record, std::uint32_t rowsPerStrip, std::int64_t fileSize,
                       StripPlan& plan) {
    if (const char* reason = UnsupportedForm(record)) {
        return reason;
    }
    const Numbers offsets(record.StripOffsetsShort, record.StripOffsetsLong,
                          record.StripOffsetsCount);
    if (offsets.count == 0) {
        return nullptr;
    }
    const Numbers byteCounts(record.StripByteCountsShort, record.StripByteCountsLong,
                             record.StripByteCountsCount);
    if (const char* reason = PlanShape(record, plan)) {
        return reason;
    }
    const std::int64_t rowBytes = plan.planeBytes / plan.rows;
    const std::int64_t rows =
        RowsOf(rowsPerStrip, offsets.count / plan.planes, plan.rows, byteCounts, rowBytes);
    return AddStrips(offsets, byteCounts, rowBytes, plan.rows, rows, fileSize, plan);
}

}  // namespace platen::tiff
