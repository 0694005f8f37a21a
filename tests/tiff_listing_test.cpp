#include <functional>
#include <utility>

#include <platen/tiff/tags.h>

#include "tests/tiff_writing.h"

namespace {

using namespace platen::test;

/// What `run` prints on the process's standard output.
std::string Printed(const std::function<void()>& run) {
    testing::internal::CaptureStdout();
    run();
    return testing::internal::GetCapturedStdout();
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

const std::string kEveryLine = FileContents(PLATEN_TEST_DATA "/every_tag.listing");

TEST(Listing, ALineOfATagDiffers) {
    Tiff tiff;
    SetEveryTag(tiff);
    EXPECT_EQ(Listing(tiff), kEveryLine);
    SetNumber(tiff, 33445, 0xFFFFFFFF);
    EXPECT_EQ(Listing(tiff), kEveryLine.substr(0, kEveryLine.find("\r\n>XK")))
        << "the private tags are listed without FileTag";
}

TEST(Listing, OneOfAWrittenDirectoryDiffersOrIsPrintedUnasked) {
    Tiff tiff;
    SetEveryTag(tiff);
    const TemporaryFile file;
    void* handle = FILE_open(file.Name(), 2, nullptr);
    const auto write = [&](int print) {
        return Printed(
            [&] { EXPECT_EQ(tiff.WriteIFDStdDir(handle, platen::kMotorola, 0, print), 52); });
    };
    EXPECT_EQ(write(-1), kEveryLine);
    EXPECT_EQ(write(0), "");
    FILE_close(handle);
    EXPECT_EQ(Printed([&] { tiff.WriteNew(file.Name(), platen::kIntel); }), "");
}

const std::string kSize = "Size                 ";
const std::string kFormat = "Format               ";

TEST(Listing, TheHeaderShowsOtherThanTheObjectsState) {
    struct Case {
        const char* name;
        short format;
        long size;
        std::string lines;
    };
    const Case cases[] = {
        {nullptr, platen::kIntel, 5200, Lines({kSize + "5200 Bytes", kFormat + "INTEL"})},
        {"a name", platen::kMotorola, 0,
         Lines({"File                 'a name'", kSize + "0 Bytes", kFormat + "MOTOROLA"})},
        {"", 1, -1, Lines({"File                 ''", kSize + "-1 Bytes", kFormat + "Unkown"})}};
    for (const Case& c : cases) {
        Tiff tiff;
        SetNumber(tiff, 254, 0);
        tiff.SetFileName(c.name);
        tiff.setFormat(c.format);
        tiff.setFileSize(c.size);
        EXPECT_EQ(Listing(tiff),
                  Lines({"", "TiffDump", ">Header Info"}) + c.lines +
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

/// The lines of every tag with words, by value: those near the known ones, and some far off.
std::string WordLines() {
    constexpr std::uint16_t kTags[] = {254, 255, 259, 262, 263, 266, 274,  284,
                                       290, 292, 293, 296, 300, 317, 33445};
    constexpr std::uint32_t kFar[] = {128, 32773, 65534, 0x10001, 0x80000080};
    std::string lines;
    for (const std::uint16_t tag : kTags) {
        for (std::uint32_t i = 0; i < 15; ++i) {
            Tiff tiff;
            SetNumber(tiff, 277, 0);
            SetNumber(tiff, tag, i < 10 ? i : kFar[i - 10]);
            const std::string listing = Listing(tiff);
            lines += listing.substr(listing.find(">Standard TIFF") + 16);
        }
    }
    return lines;
}

TEST(Listing, AWordIsThatOfAnotherValue) {
    EXPECT_EQ(WordLines(), FileContents(PLATEN_TEST_DATA "/words.listing"));
    EXPECT_EQ(platen::TagWord(256, 1), nullptr);
}

TEST(TagNames, ANameLeadsToAnotherTag) {
    int named = 0;
    for (int number = 0; number <= 65535; ++number) {
        const auto tag = static_cast<std::uint16_t>(number);
        const char* name = platen::TagName(tag);
        if (name != nullptr) {
            EXPECT_EQ(platen::TagNumber(name), tag) << name;
            ++named;
        }
    }
    EXPECT_GE(named, 56);
    for (const auto& [name, tag] : {std::pair{"group3options", 292},
                                    {"T4Options", 292},
                                    {"Group4Options", 293},
                                    {"ColorResponseCurve", 301},
                                    {"COLORRESPONSECURVES", 301},
                                    {"ImageWidths", 0},
                                    {"", 0}}) {
        EXPECT_EQ(platen::TagNumber(name), tag) << name;
    }
}

}  // namespace
