#pragma once

#include <cstdint>

/// The three readers that are compared. Each opens a file, takes the same 16 tags of every
/// directory, closes it and lets go of everything, and answers the sum of the values, by which the
/// readers are checked against one another. 0 when the file could not be read to its end.
namespace platen::bench {

/// One directory's values of the 16 tags.
struct PageValues {
    std::uint32_t newSubfileType = 0;
    std::uint32_t imageWidth = 0;
    std::uint32_t imageLength = 0;
    std::uint16_t bitsPerSample[3] = {};
    std::uint16_t compression = 0;
    std::uint16_t photometric = 0;
    std::uint32_t stripOffset = 0;
    std::uint16_t orientation = 0;
    std::uint16_t samplesPerPixel = 0;
    std::uint32_t rowsPerStrip = 0;
    std::uint32_t stripByteCount = 0;
    std::uint32_t xResolution = 0;
    std::uint32_t yResolution = 0;
    std::uint16_t planarConfiguration = 0;
    std::uint16_t resolutionUnit = 0;
    std::uint16_t pageNumber[2] = {};

    [[nodiscard]] std::uint64_t Sum() const {
        return std::uint64_t{newSubfileType} + imageWidth + imageLength + bitsPerSample[0] +
               bitsPerSample[1] + bitsPerSample[2] + compression + photometric + stripOffset +
               orientation + samplesPerPixel + rowsPerStrip + stripByteCount + xResolution +
               yResolution + planarConfiguration + resolutionUnit + pageNumber[0] + pageNumber[1];
    }
};

/// This engine: construct, `Open`, `Read`, `Close`, destroy.
std::uint64_t ReadWithPlaten(const char* name);

/// libtiff: `TIFFOpen`, `TIFFReadDirectory` to the end, `TIFFGetField` of each tag, `TIFFClose`.
/// Its warnings and errors are not printed.
std::uint64_t ReadWithLibtiff(const char* name);

/// The least that the job can cost: the whole file with one `pread`, then parsing in memory, with
/// the checks that keep it inside the file, into an array of all directories' values.
std::uint64_t ReadWithFloor(const char* name);

}  // namespace platen::bench
