#include <bench/readers.h>
#include <platen/base/files.h>
#include <platen/tiff/Tiff.h>

namespace platen::bench {
namespace {

std::uint64_t SumOf(const TiffIFDStdDirStruct& record) {
    if (record.BitsPerSampleCount != 3 || record.BitsPerSample == nullptr ||
        record.StripOffsetsLong == nullptr || record.StripByteCountsLong == nullptr) {
        return 0;
    }
    PageValues page;
    page.newSubfileType = record.NewSubfileType;
    page.imageWidth = static_cast<std::uint32_t>(record.ImageWidth);
    page.imageLength = static_cast<std::uint32_t>(record.ImageLength);
    for (int sample = 0; sample < 3; ++sample) {
        page.bitsPerSample[sample] = record.BitsPerSample[sample];
    }
    page.compression = record.Compression;
    page.photometric = record.PhotometricInterpretation;
    page.stripOffset = record.StripOffsetsLong[0];
    page.orientation = record.Orientation;
    page.samplesPerPixel = record.SamplesPerPixel;
    page.rowsPerStrip = record.RowsPerStrip;
    page.stripByteCount = record.StripByteCountsLong[0];
    page.xResolution = record.XResolution.Numerator / record.XResolution.Denominator;
    page.yResolution = record.YResolution.Numerator / record.YResolution.Denominator;
    page.planarConfiguration = record.PlanarConfiguration;
    page.resolutionUnit = record.ResolutionUnit;
    page.pageNumber[0] = record.PageNumber[0];
    page.pageNumber[1] = record.PageNumber[1];
    return page.Sum();
}

}  // namespace

std::uint64_t ReadWithPlaten(const char* name) {
    Tiff tiff;
    void* file = tiff.Open(name, 0);
    if (file == FILE_none()) {
        return 0;
    }
    std::uint64_t sum = 0;
    if (tiff.Read(file) == 1) {
        const TiffIFDStdDirStruct* records = tiff.getStdDir();
        for (short dir = 0; dir < tiff.getFileNumIFDStdDir(); ++dir) {
            sum += SumOf(records[dir]);
        }
    }
    tiff.Close(file);
    return sum;
}

}  // namespace platen::bench
