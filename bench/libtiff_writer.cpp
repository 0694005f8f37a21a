#include <tiffio.h>

#include <bench/writers.h>

namespace platen::bench {
namespace {

bool WritePage(TIFF* tiff) {
    std::uint8_t pixels[8] = {};
    TIFFSetField(tiff, TIFFTAG_SUBFILETYPE, 0);
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, 4);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, 2);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, 2);
    TIFFSetField(tiff, TIFFTAG_XRESOLUTION, 72.0);
    TIFFSetField(tiff, TIFFTAG_YRESOLUTION, 72.0);
    TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    return TIFFWriteRawStrip(tiff, 0, pixels, sizeof(pixels)) == sizeof(pixels) &&
           TIFFWriteDirectory(tiff) == 1;
}

}  // namespace

bool WriteWithLibtiff(const char* name, std::uint32_t pages) {
    TIFFSetWarningHandler(nullptr);
    TIFFSetErrorHandler(nullptr);
    TIFF* tiff = TIFFOpen(name, "w");
    if (tiff == nullptr) {
        return false;
    }
    bool written = true;
    for (std::uint32_t i = 0; written && i < pages; ++i) {
        written = WritePage(tiff);
    }
    TIFFClose(tiff);
    return written;
}

}  // namespace platen::bench
