#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <platen/base/files.h>
#include <platen/tiff/Tiff.h>

#include "tests/support/read_tiff.h"
#include "tests/support/tiff_builder.h"

namespace {

using platen::test::Build;
using platen::test::Bytes;
using platen::test::Bytes8;
using platen::test::Entry;
using platen::test::File;
using platen::test::Longs;
using platen::test::Order;
using platen::test::Rationals;
using platen::test::ReadTiff;
using platen::test::ReportOf;
using platen::test::Shorts;
using platen::test::TemporaryFile;
using platen::test::Text;
using platen::test::Word;

/// Two directories: an RGB image and a densitometer's grayscale image, with every line format.
File TwoDirectories(Order order) {
    return {
        .order = order,
        .version = 50,
        .data = Bytes(24, '\x7F'),
        .directories = {
            {{Longs(254, {0}), Shorts(256, {4}), Longs(257, {2}), Shorts(258, {8, 8, 8}),
              Shorts(259, {1}), Shorts(262, {2}), Text(270, "A scan"), Text(271, "abc"),
              Longs(273, {8, 20}), Shorts(277, {3}), Longs(278, {1}), Shorts(279, {12, 12}),
              Rationals(282, {{300, 1}}), Shorts(284, {1}), Shorts(297, {0, 2}),
              Rationals(318, {{3127, 10000}, {329, 1000}}), Bytes8(700, {7}),
              Word(701, TIFF_RATIONAL, 1, 8), Word(702, 7, 4, 1)}},
            {{Shorts(258, {8}), Shorts(259, {1}), Shorts(262, {1}), Longs(33445, {128})}, 0x7000}}};
}

const char* const kBody =
    "Version 32\r\n"
    "IFD at offset 32 (0x20)\r\n"
    "Directory #1, Number of IFD entries=19\r\n"
    "NewSubFileType             254(0x   fe) N=1        long     Data: 0\r\n"
    "ImageWidth*                256(0x  100) N=1        short    Data: 4\r\n"
    "ImageLength*               257(0x  101) N=1        long     Data: 2\r\n"
    "BitsPerSample*             258(0x  102) N=3        short   \r\n"
    "8 8 8 \r\n"
    "Compression                259(0x  103) N=1        short    Data: 1\r\n"
    "PhotoInterpretation        262(0x  106) N=1        short    Data: 2\r\n"
    "ImageDescription           270(0x  10e) N=7        ascii    Data: 'A scan'\r\n"
    "Make                       271(0x  10f) N=4        ascii    Data: 'abc'\r\n"
    "StripOffsets*              273(0x  111) N=2        long    \r\n"
    "8 20 \r\n"
    "SamplesPerPixel            277(0x  115) N=1        short    Data: 3\r\n"
    "RowsPerStrip*              278(0x  116) N=1        long     Data: 1\r\n"
    "StripByteCounts*           279(0x  117) N=2        short   \r\n"
    "12 12 \r\n"
    "XResolution*               282(0x  11a) N=1        rational Data: 300/1\r\n"
    "PlanarConfiguration        284(0x  11c) N=1        short    Data: 1\r\n"
    "PageNumber                 297(0x  129) N=2        short   \r\n"
    "0 2 \r\n"
    "WhitePoint                 318(0x  13e) N=2        rational\r\n"
    "                                                            Data[0]: 3127/10000\r\n"
    "                                                            Data[1]: 329/1000\r\n"
    "Private/Unknown            700(0x  2bc) N=1        byte     Data: 7\r\n"
    "Private/Unknown            701(0x  2bd) N=1        rational Data: 0/0\r\n"
    "TIFF Class R - RGB Full Color\r\n"
    "IFD at offset 311 (0x137)\r\n"
    "Directory #2, Number of IFD entries=4\r\n"
    "BitsPerSample*             258(0x  102) N=1        short    Data: 8\r\n"
    "Compression                259(0x  103) N=1        short    Data: 1\r\n"
    "PhotoInterpretation        262(0x  106) N=1        short    Data: 1\r\n"
    "FileTag                  33445(0x 82a5) N=1        long     Data: 128\r\n"
    "TIFF Class XK - Densitometer\r\n"
    "IFD at offset 28672 (0x7000)\r\n";

TEST(Report, AByteOfTheTextDiffers) {
    EXPECT_EQ(ReadTiff<>(Build(TwoDirectories(Order::Intel))).Report(),
              std::string("INTEL file format\r\n") + kBody);
    // A BYTE's datum is the entry's raw first bytes, whatever the order.
    EXPECT_EQ(ReadTiff<>(Build(TwoDirectories(Order::Motorola))).Report(),
              std::string("MOTOROLA file format\r\n") + kBody);
}

TEST(Report, AnOffsetIsNotShownSignedOrTheFinalOneIsMissing) {
    EXPECT_EQ(ReadTiff<>(Build({})).Report(),
              "INTEL file format\r\nVersion 2a\r\nIFD at offset 0 (0x0)\r\n");
    const ReadTiff<> far(Build({.order = Order::Motorola, .first = 0xFFFFFFFE}));
    EXPECT_EQ(far.Report(),
              "MOTOROLA file format\r\nVersion 2a\r\nIFD at offset -2 (0xfffffffe)\r\n");
    EXPECT_EQ(far.status, -3);
}

TEST(Report, ALongNameOrTextIsCut) {
    const std::string longText(10000, 'x');
    const TemporaryFile file(Build({.directories = {{{Text(305, longText)}}}}));
    std::string name = file.Path();
    const std::size_t folder = name.rfind('/');
    while (name.size() < 2000) {
        name.insert(folder, "/.");
    }
    Tiff tiff;
    tiff.ReadSetDump(-1);
    void* handle = tiff.Open(name.c_str(), 0);
    EXPECT_EQ(tiff.Read(handle), 1);
    EXPECT_EQ(tiff.Close(handle), FILE_none());
    const std::string report = ReportOf(tiff);
    EXPECT_TRUE(report.starts_with("TIFFDUMP: " + name + "\r\nINTEL file format\r\n"));
    EXPECT_NE(report.find("N=10001    ascii    Data: '" + longText + "'\r\nTIFF"),
              std::string::npos);
}

TEST(Report, TheSwitchIsIgnoredOrTextOutlivesARead) {
    const TemporaryFile good(Build({.directories = {{{Text(305, "me")}}}}));
    const TemporaryFile bad("no TIFF file");
    const std::string expected =
        "INTEL file format\r\nVersion 2a\r\nIFD at offset 8 (0x8)\r\n"
        "Directory #1, Number of IFD entries=1\r\n"
        "Software                   305(0x  131) N=3        ascii    Data: 'me'\r\n"
        "TIFF Class Unknown - Custom\r\nIFD at offset 0 (0x0)\r\n";
    Tiff tiff;
    const auto read = [&tiff](const TemporaryFile& file) {
        void* handle = FILE_open(file.Name(), 0, nullptr);
        tiff.Read(handle);
        FILE_close(handle);
        return ReportOf(tiff);
    };
    const auto printed = [&tiff] {
        testing::internal::CaptureStdout();
        tiff.DumpPrintf();
        return testing::internal::GetCapturedStdout();
    };
    EXPECT_EQ(read(good), "");
    EXPECT_EQ(tiff.DumpGetSize(), 1U);
    tiff.ReadSetDump(1);
    EXPECT_EQ(read(good), expected);
    EXPECT_EQ(printed(), expected);
    EXPECT_EQ(read(good), expected);
    EXPECT_EQ(tiff.DumpGetData(nullptr), 0U);
    EXPECT_EQ(read(bad), "");
    read(good);
    tiff.ReadSetDump(0);
    EXPECT_EQ(ReportOf(tiff), expected);
    EXPECT_EQ(printed(), "");
}

TEST(Report, TheClassLineNamesAnotherClass) {
    const std::vector<Entry> gray = {Shorts(258, {8}), Shorts(259, {1}), Shorts(262, {0})};
    const struct {
        std::vector<Entry> entries;
        const char* line;
    } cases[] = {
        {gray, "TIFF Class G - GrayScale"},
        {{Shorts(258, {1}), Shorts(259, {2}), Shorts(262, {0})}, "TIFF Class B - Bilevel"},
        {{Shorts(258, {8}), Shorts(259, {5}), Shorts(262, {3}), Shorts(320, {1, 2, 3})},
         "TIFF Class P - Palette Color"},
        {{Longs(33445, {128})}, "TIFF Class XK - Densitometer"},
        {{Longs(33445, {0xABCD0080})}, "TIFF Class XK - Densitometer"},
        {{Longs(33445, {0})}, "TIFF Class XK - Glowscan"},
        {{Longs(33445, {0x10001})}, "TIFF Class XK - Glowscan"},
        {{Longs(33445, {2})}, "TIFF Class XK - Glowscan"},
        {{Longs(33445, {3})}, "TIFF Class Unknown - Custom"},
        {{Shorts(258, {8}), Shorts(259, {1}), Shorts(262, {0}), Longs(33445, {3})},
         "TIFF Class G - GrayScale"},
        {{}, "TIFF Class Unknown - Custom"},
    };
    for (const auto& test : cases) {
        const std::string report = ReadTiff<>(Build({.directories = {{test.entries}}})).Report();
        EXPECT_TRUE(
            report.ends_with("\r\n" + std::string(test.line) + "\r\nIFD at offset 0 (0x0)\r\n"))
            << test.line << '\n'
            << report;
    }
}

}  // namespace
