#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include <platen/base/files.h>
#include <platen/tiff/Tiff.h>

#include "tests/support/read_tiff.h"
#include "tests/tiff_writing.h"

namespace {

using namespace platen::test;

/// What `run` prints on the process's standard output.
std::string Printed(const std::function<void()>& run) {
    const TemporaryFile file;
    std::fflush(stdout);
    const int out = dup(STDOUT_FILENO);
    std::FILE* target = std::fopen(file.Name(), "wb");
    dup2(fileno(target), STDOUT_FILENO);
    run();
    std::fflush(stdout);
    dup2(out, STDOUT_FILENO);
    close(out);
    std::fclose(target);
    return file.Contents();
}

std::string Listing(Tiff& tiff, short dir = 0) {
    return Printed([&] { tiff.WriteIFDStdDir(FILE_none(), 0, dir, 1); });
}

/// Lines with "\r\n" behind each.
std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\r\n";
    }
    return text;
}

void SetEveryTag(Tiff& tiff) {
    constexpr std::uint16_t kOnes[] = {255, 259, 262, 263, 266, 274, 277, 284, 290, 296, 300, 317};
    for (const std::uint16_t tag : kOnes) {
        SetNumber(tiff, tag, 1);
    }
    constexpr std::uint16_t kTexts[] = {269, 270, 271,   272,   285,   305,   306,
                                        315, 316, 33448, 33449, 33450, 33451, 33452};
    for (const std::uint16_t tag : kTexts) {
        SetText(tiff, tag, std::to_string(tag) + "t");
    }
    constexpr std::uint16_t kLongs[] = {256, 257, 292, 293, 33445};
    for (const std::uint16_t tag : kLongs) {
        SetNumber(tiff, tag, tag - 250U);
    }
    SetNumber(tiff, 254, 0xFFFFFFFE);
    SetNumber(tiff, 264, 32767);
    SetNumber(tiff, 265, 32768);
    SetNumber(tiff, 278, 0xFFFFFFFF);
    SetNumber(tiff, 280, 40000);
    SetNumber(tiff, 281, 65535);
    SetShorts(tiff, 258, {8, 8, 65535});
    SetShorts(tiff, 291, {1, 2, 3});
    SetShorts(tiff, 301, {1, 2});
    SetShorts(tiff, 320, {1, 2, 3, 4});
    SetLongs(tiff, 273, {8, 123456789, 0xFFFFFFFE});
    SetLongs(tiff, 279, {1});
    constexpr std::uint16_t kRatios[] = {282, 283, 286, 287, 33446};
    for (const std::uint16_t tag : kRatios) {
        SetLongs(tiff, tag, {tag, 0xFFFFFFFE});
    }
    SetShorts(tiff, 297, {0, 32767});
    SetLongs(tiff, 318, {1, 2, 3, 4});
    SetLongs(tiff, 319, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    SetShorts(tiff, 33447,
              {0, 1, 22, 333, 4444, 55555, 65535, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
}

// clang-format off
const std::vector<std::string> kEveryLine = {
    "", "TiffDump", ">Header Info", "Size                 0 Bytes", "Format               Unkown", "", ">Standard TIFF",
    "NewSubfileType       -2              Invalid", "SubfileType          1               Full resolution image",
    "ImageWidth*          6 Pixels", "ImageLenght*         7 Pixels", "BitsPerSample*       8 8 65535 Bits",
    "Compression*         1               No compression", "PhotoInterpretation  1               Black is defined as 0",
    "Thresholding         1               Bilevel line art", "CellWidth            32767", "CellLength           -32768",
    "FillOrder            1               Most significant bits are filled first", "DocumentName         '269t'",
    "ImageDescription     '270t      '", "Model                '272t'", "Make                 '271t'",
    "StripOffsets*        8        123456789 -2       ", "Orientation          1               Row=0, Col=0 ---> Top, Left",
    "SamplesPerPixel      1         ", "RowsPerStrip         4294967295", "StripByteCounts*     1        ",
    "MinSampleValue       40000", "MaxSampleValue       65535", "XResolution          282/-2", "YResolution          283/-2",
    "PlanarConfiguration  1               Sample values are stored contigously", "PageName             '285t'",
    "XPosition            286/-2", "YPosition            287/-2", "GrayResponseUnit     1               In tenths of a unit",
    "GrayResponseCurve    3 Words", "Group3Options        42              Invalid",
    "Group4Options        43              Invalid", "ResolutionUnit       1               No absolute unit",
    "PageNumber           0, 32767", "ColorResponseUnit    1               In tenths of a unit", "ColorResponseCurve   2 Words",
    "Software             '305t'", "DateTime             '306t'", "Artist               '315t'", "HostComputer         '316t'",
    "Predictor            1               No prediction scheme used", "WhitePoint           1/2, 3/4",
    "PrimChromaticities   1/2, 3/4, 5/6, 7/8, 9/10, 11/12", "ColorMap             4 Words", "", ">XK Private TIFF",
    "FileTag              33195 Unknown", "ScalePixel           33446/-2", "ColorTable           0      1      22    ",
    "                     333    4444   55555 ", "                     65535  7      8     ",
    "                     9      10     11    ", "                     12     13     14    ",
    "                     15     16    ", "LabName              '33448t'", "SampleInfo           '33449t'",
    "PrepDate             '33450t'", "PrepTime             '33451t'", "FileUnits            '33452t'"};
// clang-format on

TEST(Listing, ALineOfATagDiffers) {
    Tiff tiff;
    SetEveryTag(tiff);
    EXPECT_EQ(Listing(tiff), Lines(kEveryLine));
    std::vector<std::string> standard = kEveryLine;
    standard.resize(51);  // up to ColorMap
    SetNumber(tiff, 33445, 0xFFFFFFFF);
    EXPECT_EQ(Listing(tiff), Lines(standard)) << "the private tags are listed without FileTag";
}

TEST(Listing, OneOfAWrittenDirectoryDiffersOrIsPrintedUnasked) {
    Tiff tiff;
    SetEveryTag(tiff);
    const TemporaryFile file;
    void* handle = FILE_open(file.Name(), 2, nullptr);
    const auto write = [&](int print) {
        return Printed(
            [&] { EXPECT_EQ(tiff.WriteIFDStdDir(handle, TIFF_MOTOROLA, 0, print), 52); });
    };
    EXPECT_EQ(write(-1), Lines(kEveryLine));
    EXPECT_EQ(write(0), "");
    FILE_close(handle);
    EXPECT_EQ(Printed([&] { tiff.WriteNew(file.Name(), TIFF_INTEL); }), "");
}

TEST(Listing, TheHeaderShowsOtherThanTheObjectsState) {
    struct Case {
        const char* name;
        short format;
        long size;
        std::vector<std::string> lines;
    };
    const Case cases[] = {{nullptr,
                           TIFF_INTEL,
                           5200,
                           {"Size                 5200 Bytes", "Format               INTEL"}},
                          {"a name",
                           TIFF_MOTOROLA,
                           0,
                           {"File                 'a name'", "Size                 0 Bytes",
                            "Format               MOTOROLA"}},
                          {"",
                           1,
                           -1,
                           {"File                 ''", "Size                 -1 Bytes",
                            "Format               Unkown"}}};
    for (const Case& c : cases) {
        Tiff tiff;
        SetNumber(tiff, 254, 0);
        tiff.SetFileName(c.name);
        tiff.setFormat(c.format);
        tiff.setFileSize(c.size);
        EXPECT_EQ(Listing(tiff),
                  Lines({"", "TiffDump", ">Header Info"}) + Lines(c.lines) +
                      Lines({"", ">Standard TIFF",
                             "NewSubfileType       0               Full resolution image",
                             "SamplesPerPixel      1         "}));
    }
}

TEST(Listing, AnArraysFormCountOrEndDiffers) {
    ReadTiff<> read(
        Build({.directories = {{{Shorts(258, {8}), Shorts(273, {40000, 7}), Shorts(279, {5})}}}}));
    const std::string header =
        Lines({"", "TiffDump", ">Header Info", "Size                 50 Bytes",
               "Format               INTEL", "", ">Standard TIFF"});
    const std::string samples = "SamplesPerPixel      1         \r\n";
    EXPECT_EQ(Listing(read.tiff), header + "BitsPerSample*       8 Bits\r\n" +
                                      "StripOffsets*        40000    7        \r\n" + samples +
                                      "StripByteCounts*     5        \r\n");
    TiffIFDStdDirStruct& record = *read.tiff.getStdDir();
    record.BitsPerSampleCount = 0;
    record.StripByteCountsCount = 0;
    record.StripOffsetsCount = 0x7FFFFFFF;  // lies about its block
    EXPECT_EQ(Listing(read.tiff), header + "BitsPerSample*       Bits\r\n" +
                                      "StripOffsets*        40000    7        \r\n" + samples +
                                      "StripByteCounts*     \r\n");
}

/// The words by value from 0 on; null has no word of its own, and neither has the value behind
/// them.
struct Words {
    std::uint16_t tag;
    const char* label;
    std::vector<const char*> words;
};

// clang-format off
const std::vector<const char*> kUnits = {nullptr, "In tenths of a unit", "In hundredths of a unit", "In thousandths of a unit",
                                         "In ten-thousandths of a unit", "In hundred-thousandths of a unit"};
const Words kWords[] = {
    {254, "NewSubfileType", {"Full resolution image", "Reduced resolution image", "Single page of a multi-page image", nullptr, "Tranparency mask"}},
    {255, "SubfileType", {nullptr, "Full resolution image", "Reduced resolution image", "Single page of a multi-page image"}},
    {259, "Compression*", {nullptr, "No compression", "Modified Huffman", "Modified Read, CITT Group3", "Modified Modified Read, CITT Group4", "Lempel-Ziv & Welch"}},
    {262, "PhotoInterpretation", {"White is defined as 0", "Black is defined as 0", "RGB", "Palette color", "Transparency mask"}},
    {263, "Thresholding", {nullptr, "Bilevel line art", "Dithered", "Error difused"}},
    {266, "FillOrder", {nullptr, "Most significant bits are filled first", "Least significant bits are filled first"}},
    {274, "Orientation", {nullptr, "Row=0, Col=0 ---> Top, Left", "Row=0, Col=0 ---> Top, Right", "Row=0, Col=0 ---> Bottom, Right",
                          "Row=0, Col=0 ---> Bottom, Left", "Row=0, Col=0 ---> Left, Top", "Row=0, Col=0 ---> Right, Top",
                          "Row=0, Col=0 ---> Right, Bottom", "Row=0, Col=0 ---> Left, Bottom"}},
    {284, "PlanarConfiguration", {nullptr, "Sample values are stored contigously", "Sample values are stored in separate planes"}},
    {290, "GrayResponseUnit", kUnits},
    {300, "ColorResponseUnit", kUnits},
    {292, "Group3Options", {"One dimensional coding", "Two dimensional coding", "Uncompressed mode", nullptr, "Fill bits added before EOL"}},
    {293, "Group4Options", {"Unused", nullptr, "Uncompressed mode"}},
    {296, "ResolutionUnit", {nullptr, "No absolute unit", "Inch", "Centimeter"}},
    {317, "Predictor", {nullptr, "No prediction scheme used", nullptr, nullptr, nullptr, "Compression is LZW (Lempel-Ziv & Welch)"}}};
// clang-format on

void ExpectLine(std::uint16_t tag, std::uint32_t value, const std::string& line) {
    Tiff tiff;
    SetNumber(tiff, tag, value);
    const std::string listing = Listing(tiff);
    EXPECT_NE(listing.find("\r\n" + line + "\r\n"), std::string::npos)
        << line << " is not in" << listing;
}

std::string Padded(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size()), ' ');
    return text + " ";
}

TEST(Listing, AWordIsThatOfAnotherValue) {
    for (const Words& row : kWords) {
        for (std::uint32_t value = 0; value <= row.words.size(); ++value) {
            const bool listed = value < row.words.size() && row.words[value] != nullptr;
            const std::string word = listed ? row.words[value] : "Invalid";
            ExpectLine(row.tag, value,
                       Padded(row.label, 20) + Padded(std::to_string(value), 15) + word);
        }
    }
    ExpectLine(254, 0x10001, "NewSubfileType       65537           Invalid");
    ExpectLine(255, 65534, "SubfileType          -2              Invalid");
    ExpectLine(259, 32773, "Compression*         32773           PackBits");
    ExpectLine(259, 65534, "Compression*         65534           Invalid");
    ExpectLine(33445, 0, "FileTag              0 Glowscan Log");
    ExpectLine(33445, 1, "FileTag              1 Glowscan Linear");
    ExpectLine(33445, 2, "FileTag              2 Glowscan Square Root");
    ExpectLine(33445, 3, "FileTag              3 Unknown");
    ExpectLine(33445, 0x10001, "FileTag              65537 Glowscan Linear");
    ExpectLine(33445, 0x80000080, "FileTag              -2147483520 Densitometer");
}

}  // namespace
