#include "tests/support/read_tiff.h"

namespace {

using namespace platen::test;

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
              Word(701, platen::kTypeRational, 1, 8), Word(702, 7, 4, 1)}},
            {{Shorts(258, {8}), Shorts(259, {1}), Shorts(262, {1}), Longs(33445, {128})}, 0x7000}}};
}

/// The report behind its first line.
std::string Body() {
    return FileContents(PLATEN_TEST_DATA "/two_directories.report");
}

TEST(Report, AByteOfTheTextDiffers) {
    EXPECT_EQ(ReadTiff<>(Build(TwoDirectories(Order::Intel))).Report(),
              "INTEL file format\r\n" + Body());
    // A BYTE's datum is the entry's raw first bytes, whatever the order.
    EXPECT_EQ(ReadTiff<>(Build(TwoDirectories(Order::Motorola))).Report(),
              "MOTOROLA file format\r\n" + Body());
}

TEST(Report, AnOffsetIsNotShownSignedOrTheFinalOneIsMissing) {
    EXPECT_EQ(ReadTiff<>(Build({})).Report(),
              "INTEL file format\r\nVersion 2a\r\nIFD at offset 0 (0x0)\r\n");
    const ReadTiff<> beyond(Build({.order = Order::Motorola, .first = 0xFFFFFFFE}));
    EXPECT_EQ(beyond.Report(),
              "MOTOROLA file format\r\nVersion 2a\r\nIFD at offset -2 (0xfffffffe)\r\n");
    EXPECT_EQ(beyond.status, -3);
}

TEST(Report, ALongNameOrTextIsCut) {
    const std::string longText(10000, 'x');
    const TemporaryFile file(Build({.directories = {{{Text(305, longText)}}}}));
    std::string name = file.Path();
    const std::size_t folder = name.rfind('/');
    std::size_t read = 0;
    for (const std::size_t length : {240U, 2000U}) {  // Windows opens the shorter one alone
        while (name.size() < length) {
            name.insert(folder, "/.");
        }
        Tiff tiff;
        tiff.ReadSetDump(-1);
        void* handle = tiff.Open(name.c_str(), 0);
        if (handle == FILE_none()) {
            continue;
        }
        EXPECT_EQ(tiff.Read(handle), 1);
        EXPECT_EQ(tiff.Close(handle), FILE_none());
        const std::string report = ReportOf(tiff);
        EXPECT_TRUE(report.starts_with("TIFFDUMP: " + name + "\r\nINTEL file format\r\n"));
        EXPECT_NE(report.find("N=10001    ascii    Data: '" + longText + "'\r\nTIFF"),
                  std::string::npos);
        ++read;
    }
    EXPECT_GE(read, 1U);
}

TEST(Report, TheSwitchIsIgnoredOrTextOutlivesARead) {
    const TemporaryFile good(Build({.directories = {{{Text(305, "me")}}}}));
    const TemporaryFile bad("no TIFF file");
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
    tiff.ReadSetDump(1);
    const std::string expected = ReadTiff<>(good.Contents()).Report();
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
    std::vector<Entry> tagged = gray;
    tagged.push_back(Longs(33445, {3}));
    const struct {
        std::vector<Entry> entries;
        const char* line;
    } cases[] = {{gray, "TIFF Class G - GrayScale"},
                 {tagged, "TIFF Class G - GrayScale"},
                 {{Shorts(258, {1}), Shorts(259, {2}), Shorts(262, {0})}, "TIFF Class B - Bilevel"},
                 {{Shorts(258, {8}), Shorts(259, {5}), Shorts(262, {3}), Shorts(320, {1, 2, 3})},
                  "TIFF Class P - Palette Color"},
                 {{Longs(33445, {0xABCD0080})}, "TIFF Class XK - Densitometer"},
                 {{Longs(33445, {0x10001})}, "TIFF Class XK - Glowscan"},
                 {{Longs(33445, {2})}, "TIFF Class XK - Glowscan"},
                 {{Longs(33445, {3})}, "TIFF Class Unknown - Custom"}};
    for (const auto& test : cases) {
        const std::string report = ReadTiff<>(Build({.directories = {{test.entries}}})).Report();
        EXPECT_TRUE(
            report.ends_with("\r\n" + std::string(test.line) + "\r\nIFD at offset 0 (0x0)\r\n"))
            << test.line << '\n'
            << report;
    }
}

}  // namespace
