#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <platen/tiff/Tiff.h>

#include "tests/support/read_tiff.h"

/// Files written by other software. What they hold was reported by other software too.
namespace {

using platen::test::FileContents;
using platen::test::ReadTiff;
using Record = TiffIFDStdDirStruct;

std::string DataFile(const std::string& name) {
    return std::string(PLATEN_TEST_DATA).append("/").append(name);
}

template <typename T>
void List(std::ostream& out, const T* values, std::uint32_t count) {
    for (std::uint32_t i = 0; values != nullptr && i < count; ++i) {
        out << ' ' << values[i];
    }
}

std::string Summary(const Record& record) {
    std::ostringstream out;
    out << record.ImageWidth << 'x' << record.ImageLength << " bits";
    List(out, record.BitsPerSample, record.BitsPerSampleCount);
    out << ", compression " << record.Compression << ", photometric "
        << record.PhotometricInterpretation << ", planes " << record.PlanarConfiguration << ", at";
    List(out, record.StripOffsetsShort, record.StripOffsetsCount);
    List(out, record.StripOffsetsLong, record.StripOffsetsCount);
    List(out, record.TileOffsetsLong, record.TileOffsetsCount);
    out << " size";
    List(out, record.StripByteCountsShort, record.StripByteCountsCount);
    List(out, record.StripByteCountsLong, record.StripByteCountsCount);
    List(out, record.TileByteCountsShort, record.TileByteCountsCount);
    out << ", page " << record.PageNumber[0] << '/' << record.PageNumber[1];
    return out.str();
}

std::string Class(const Tiff& tiff, short dir) {
    return tiff.IsTIFFClassB(dir) == 1   ? "B"
           : tiff.IsTIFFClassG(dir) == 1 ? "G"
           : tiff.IsTIFFClassP(dir) == 1 ? "P"
           : tiff.IsTIFFClassR(dir) == 1 ? "R"
                                         : "none";
}

TEST(RealFiles, AValueDiffersFromWhatOthersRead) {
    const struct {
        const char* name;
        short format;
        std::vector<std::pair<std::string, std::string>> directories;
    } cases[] = {
        {"gray.tif",
         0x4949,
         {{"24x16 bits 8, compression 1, photometric 1, planes 1, at 8 size 384, page 0/1", "G"}}},
        {"gray16_msb.tif",
         0x4D4D,
         {{"16x16 bits 16, compression 1, photometric 1, planes 1, at 8 size 512, page 0/1",
           "none"}}},
        {"rgb_lzw_msb.tif",
         0x4D4D,
         {{"20x10 bits 8 8 8, compression 5, photometric 2, planes 1, at 8 size 662, page 0/1",
           "R"}}},
        {"palette.tif",
         0x4949,
         {{"16x16 bits 4, compression 1, photometric 3, planes 1, at 8 size 128, page 0/1", "P"}}},
        {"bilevel_packbits.tif",
         0x4949,
         {{"32x8 bits 1, compression 32773, photometric 1, planes 1, at 8 size 40, page 0/1",
           "B"}}},
        {"rgb_strips.tif",
         0x4949,
         {{"20x10 bits 8 8 8, compression 32773, photometric 2, planes 1, at 8 252 496 size 244 "
           "244 121, page 65535/65535",
           "none"}}},
        {"pages_msb.tif",
         0x4D4D,
         {{"16x12 bits 8, compression 1, photometric 1, planes 2, at 8 136 size 128 64, page 0/3",
           "G"},
          {"70x46 bits 8 8 8, compression 1, photometric 2, planes 2, at 470 1030 1590 2150 2710 "
           "3270 3690 4250 4810 5370 5930 6490 6910 7470 8030 8590 9150 9710 size 560 560 560 560 "
           "560 420 560 560 560 560 560 420 560 560 560 560 560 420, page 1/3",
           "R"},
          {"9x9 bits 8, compression 1, photometric 1, planes 2, at 10506 10578 size 72 9, page 2/3",
           "G"}}},
        {"tiles.tif",
         0x4949,
         {{"24x16 bits 8, compression 1, photometric 1, planes 1, at 8 264 size 256 256, page 0/1",
           "G"}}},
    };
    for (const auto& test : cases) {
        const ReadTiff<> read(FileContents(DataFile(test.name)));
        EXPECT_EQ(read.status, 1) << test.name;
        EXPECT_EQ(read.tiff.getFormat(), test.format) << test.name;
        ASSERT_EQ(static_cast<std::size_t>(read.Count()), test.directories.size()) << test.name;
        for (short dir = 0; dir < read.Count(); ++dir) {
            const auto& [summary, letter] = test.directories[static_cast<std::size_t>(dir)];
            EXPECT_EQ(Summary(read.Record(dir)), summary) << test.name;
            EXPECT_EQ(Class(read.tiff, dir), letter) << test.name;
        }
    }
}

TEST(RealFiles, ATextAFractionOrAColorDiffers) {
    const ReadTiff<> gray(FileContents(DataFile("gray.tif")));
    EXPECT_STREQ(gray.Record().ImageDescription, "a gray ramp");
    EXPECT_EQ(gray.Record().XResolution.Numerator / gray.Record().XResolution.Denominator, 300U);
    EXPECT_EQ(gray.Record().ResolutionUnit, 2);
    const ReadTiff<> strips(FileContents(DataFile("rgb_strips.tif")));
    EXPECT_STREQ(strips.Record().Make, "Bench");
    EXPECT_STREQ(strips.Record().DateTime, "2024:05:06 07:08:09");
    EXPECT_STREQ(ReadTiff<>(FileContents(DataFile("bilevel_packbits.tif"))).Record().Artist,
                 "A. Scanner");
    const ReadTiff<> palette(FileContents(DataFile("palette.tif")));
    ASSERT_EQ(palette.Record().ColorMapCount, 48U);
    EXPECT_EQ(palette.Record().ColorMap[0], 3040);
    EXPECT_EQ(palette.Record().ColorMap[23], 27775);
    const ReadTiff<> pages(FileContents(DataFile("pages_msb.tif")));
    EXPECT_EQ(pages.tiff.GetSPofMPIFDDir(), 0);
    const Rational white = pages.Record(2).WhitePoint[0];
    EXPECT_NEAR(white.Numerator * 1.0 / white.Denominator, 0.3127, 1e-6);
}

/// What a command prints; empty when it fails.
std::string OutputOf(const std::string& command) {
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string text;
    char piece[4096];
    while (const std::size_t got = std::fread(piece, 1, sizeof(piece), pipe.get())) {
        text.append(piece, got);
    }
    return text;
}

bool HasProgram(const std::string& name) {
    return !OutputOf(std::string("command -v ").append(name).append(" 2>/dev/null")).empty();
}

std::string EntryLine(unsigned tag, unsigned type, unsigned count, const std::string& values) {
    std::ostringstream line;
    line << tag << ' ' << type << ' ' << count << ": " << values;
    return line.str();
}

/// One line an entry, "TAG TYPE COUNT: VALUES", and one line a directory, from libtiff's tiffdump.
/// A RowsPerStrip of type SHORT is left out, as the engine does.
std::vector<std::string> ToolLines(const std::string& path) {
    std::vector<std::string> lines;
    std::istringstream input(
        OutputOf(std::string("tiffdump -m 100000 '").append(path).append("'")));
    unsigned tag = 0;
    unsigned type = 0;
    unsigned count = 0;
    for (std::string line; std::getline(input, line);) {
        if (std::sscanf(line.c_str(), "Directory %*u: offset %u", &count) == 1) {
            lines.push_back(std::string("at ").append(std::to_string(count)));
        } else if (std::sscanf(line.c_str(), "%*s (%u) %*s (%u) %u<", &tag, &type, &count) == 3 &&
                   (tag != 278 || type != TIFF_SHORT)) {
            std::string values = line.substr(line.find('<') + 1);
            values.resize(values.size() - (values.ends_with("\\0>") ? 3 : 1));
            lines.push_back(EntryLine(tag, type, count, values));
        }
    }
    return lines;
}

/// A datum of the report in the tool's form: texts without quotes, fractions divided.
std::string ToolValue(const std::string& datum) {
    unsigned numerator = 0;
    unsigned denominator = 0;
    if (std::sscanf(datum.c_str(), "%u/%u", &numerator, &denominator) == 2) {
        char number[40];
        static_cast<void>(
            std::snprintf(number, sizeof(number), "%g", numerator * 1.0 / denominator));
        return number;
    }
    return datum.starts_with('\'') ? datum.substr(1, datum.size() - 2) : datum;
}

/// The same lines from the report.
std::vector<std::string> ReportLines(const std::string& report) {
    const std::vector<std::string> words = {"", "byte", "ascii", "short", "long", "rational"};
    std::vector<std::string> lines;
    std::istringstream input(report);
    unsigned tag = 0;
    unsigned count = 0;
    char word[20] = "";
    for (std::string line; std::getline(input, line);) {
        line.pop_back();
        const std::size_t datum = line.find(" Data: ");
        if (std::sscanf(line.c_str(), "IFD at offset %u", &count) == 1) {
            lines.push_back(std::string("at ").append(std::to_string(count)));
        } else if (std::sscanf(line.c_str(), "%*s %u(0x%*x) N=%u %19s", &tag, &count, word) == 3) {
            const auto type = std::ranges::find(words, word) - words.begin();
            lines.push_back(EntryLine(
                tag, static_cast<unsigned>(type), count,
                datum == std::string::npos ? std::string() : ToolValue(line.substr(datum + 7))));
        } else if (std::sscanf(line.c_str(), " Data[%u]:", &count) == 1) {
            lines.back()
                .append(count == 0 ? "" : " ")
                .append(ToolValue(line.substr(line.find(':') + 2)));
        } else if (line.find_first_not_of("0123456789 ") == std::string::npos) {
            lines.back() += line.substr(0, line.size() - 1);
        }
    }
    lines.pop_back();  // the final offset, 0
    return lines;
}

TEST(RealFiles, TheReportDiffersFromWhatLibtiffDumps) {
    if (!HasProgram("tiffdump")) {
        GTEST_SKIP() << "tiffdump, of libtiff's tools, is not installed";
    }
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(PLATEN_TEST_DATA)) {
        if (entry.path().extension() == ".tif") {
            const ReadTiff<> read(FileContents(entry.path()));
            EXPECT_EQ(ReportLines(read.Report()), ToolLines(entry.path())) << entry.path();
            ++files;
        }
    }
    EXPECT_GE(files, 8);
}

TEST(RealFiles, AFileWrittenTodayDiffersFromWhatLibtiffDumps) {
    if (!HasProgram("tiffdump") || !HasProgram("tiffcp") || !HasProgram("convert")) {
        GTEST_SKIP() << "libtiff's tools or ImageMagick are not installed";
    }
    const platen::test::TemporaryFile source;
    const platen::test::TemporaryFile file;
    ASSERT_EQ(std::system(("convert -size 90x70 plasma: gradient: rose: -depth 8 -compress none "
                           "tiff:" +
                           source.Path())
                              .c_str()),
              0);
    for (const char* options : {"-L -c none", "-B -c none -r 7", "-B -c lzw -p separate",
                                "-L -c zip -t -w 16 -l 16", "-B -c packbits -x"}) {
        ASSERT_EQ(
            std::system(("tiffcp " + std::string(options) + ' ' + source.Path() + ' ' + file.Path())
                            .c_str()),
            0);
        const ReadTiff<> read(file.Contents());
        EXPECT_EQ(read.Count(), 3) << options;
        EXPECT_EQ(ReportLines(read.Report()), ToolLines(file.Path())) << options;
    }
}

}  // namespace
