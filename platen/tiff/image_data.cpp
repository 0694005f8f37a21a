#include <platen/tiff/image_data.h>

#include <algorithm>

#include <platen/tiff/file_layout.h>

namespace platen::tiff {
namespace {

std::int64_t SamplesOf(const TiffIFDStdDirStruct& record) {
    return record.SamplesPerPixel == 0 ? 1 : record.SamplesPerPixel;
}

}  // namespace

std::int64_t BytesPerPixel(const TiffIFDStdDirStruct& record) {
    const std::int64_t bits = record.BitsPerSample == nullptr ? 0 : *record.BitsPerSample;
    return SamplesOf(record) * bits / 8;
}

std::int64_t DataSize(const TiffIFDStdDirStruct& record) {
    constexpr std::int64_t kTooLarge = kLargestFile + 1;
    const std::int64_t width = std::max<std::int64_t>(record.ImageWidth, 0);
    const std::int64_t length = std::max<std::int64_t>(record.ImageLength, 0);
    const std::int64_t rowBytes = width * BytesPerPixel(record);
    return rowBytes != 0 && length > kTooLarge / rowBytes ? kTooLarge : rowBytes * length;
}

bool IsRelocated(const TiffIFDStdDirStruct& record) {
    return record.ImageWidth >= 1 && record.ImageLength >= 1 && record.BitsPerSample != nullptr &&
           static_cast<std::int16_t>(*record.BitsPerSample) >= 1 &&
           static_cast<std::int16_t>(SamplesOf(record)) >= 1 && record.StripOffsetsLong != nullptr;
}

}  // namespace platen::tiff
