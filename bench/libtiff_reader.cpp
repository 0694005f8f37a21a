#include <tiffio.h>

#include <bench/readers.h>

namespace platen::bench {
namespace {

/// libtiff gives a fraction as its quotient.
std::uint32_t Resolution(TIFF* tiff, std::uint32_t tag) {
    float value = 0;
    TIFFGetField(tiff, tag, &value);
    return static_cast<std::uint32_t>(value);
}

std::uint32_t FirstOf(TIFF* tiff, std::uint32_t tag) {
    const std::uint64_t* values = nullptr;
    return TIFFGetField(tiff, tag, &values) == 1 && values != nullptr
               ? static_cast<std::uint32_t>(*values)
               : 0;
}

std::uint64_t SumOfDirectory(TIFF* tiff) {
    PageValues page;
    TIFFGetField(tiff, TIFFTAG_SUBFILETYPE, &page.newSubfileType);
    TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &page.imageWidth);
    TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &page.imageLength);
    // One number for all samples, which have to be alike.
    TIFFGetField(tiff, TIFFTAG_BITSPERSAMPLE, &page.bitsPerSample[0]);
    page.bitsPerSample[1] = page.bitsPerSample[2] = page.bitsPerSample[0];
    TIFFGetField(tiff, TIFFTAG_COMPRESSION, &page.compression);
    TIFFGetField(tiff, TIFFTAG_PHOTOMETRIC, &page.photometric);
    page.stripOffset = FirstOf(tiff, TIFFTAG_STRIPOFFSETS);
    TIFFGetField(tiff, TIFFTAG_ORIENTATION, &page.orientation);
    TIFFGetField(tiff, TIFFTAG_SAMPLESPERPIXEL, &page.samplesPerPixel);
    TIFFGetField(tiff, TIFFTAG_ROWSPERSTRIP, &page.rowsPerStrip);
    page.stripByteCount = FirstOf(tiff, TIFFTAG_STRIPBYTECOUNTS);
    page.xResolution = Resolution(tiff, TIFFTAG_XRESOLUTION);
    page.yResolution = Resolution(tiff, TIFFTAG_YRESOLUTION);
    TIFFGetField(tiff, TIFFTAG_PLANARCONFIG, &page.planarConfiguration);
    TIFFGetField(tiff, TIFFTAG_RESOLUTIONUNIT, &page.resolutionUnit);
    TIFFGetField(tiff, TIFFTAG_PAGENUMBER, &page.pageNumber[0], &page.pageNumber[1]);
    return page.Sum();
}

}  // namespace

std::uint64_t ReadWithLibtiff(const char* name) {
    TIFFSetWarningHandler(nullptr);
    TIFFSetErrorHandler(nullptr);
    TIFF* tiff = TIFFOpen(name, "r");
    if (tiff == nullptr) {
        return 0;
    }
    std::uint64_t sum = 0;
    do {
        sum += SumOfDirectory(tiff);
    } while (TIFFReadDirectory(tiff) == 1);
    TIFFClose(tiff);
    return sum;
}

}  // namespace platen::bench
