#pragma once

#include <cstdint>

#include <platen/tiff/records.h>

namespace platen::tiff {

/// Whole bytes a pixel takes; 0 when it takes less than one, or without BitsPerSample.
std::int64_t BytesPerPixel(const TiffIFDStdDirStruct& record);

/// Bytes of the data area that a directory gets; 0 for a size that is not positive. What no file
/// holds counts as little more than a file holds, so that sums of sizes do not overflow.
std::int64_t DataSize(const TiffIFDStdDirStruct& record);

/// Whether the layout relocates the record's first strip offset.
bool IsRelocated(const TiffIFDStdDirStruct& record);

}  // namespace platen::tiff
