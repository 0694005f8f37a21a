#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include <platen/tiff/Tiff.h>

#include "tests/support/read_tiff.h"
#include "tests/support/tiff_builder.h"

/// Every tag, one by one, in files of a single entry: what the record holds, and the entry's line.
namespace {

using platen::test::Build;
using platen::test::Bytes;
using platen::test::Entry;
using platen::test::kOrders;
using platen::test::Longs;
using platen::test::Order;
using platen::test::Rationals;
using platen::test::ReadTiff;
using platen::test::Shorts;
using platen::test::Text;
using platen::test::Word;
using Record = TiffIFDStdDirStruct;
using Show = std::function<std::string(const Record&)>;

std::string Shown(const Rational& value) {
    return std::to_string(value.Numerator) + "/" + std::to_string(value.Denominator);
}

std::string Shown(std::uint32_t value) {
    return std::to_string(value);
}

template <typename T>
std::string List(const T* values, std::size_t count) {
    std::string text = values == nullptr ? " null" : "";
    for (std::size_t i = 0; values != nullptr && i < count; ++i) {
        text.append(" ").append(Shown(values[i]));
    }
    return text;
}

template <typename T>
Show Number(T Record::*member) {
    return [member](const Record& record) { return std::to_string(record.*member); };
}

Show Ratio(Rational Record::*member) {
    return [member](const Record& record) { return Shown(record.*member); };
}

Show String(char* Record::*member) {
    return [member](const Record& record) {
        return record.*member == nullptr ? "null"
                                         : std::string("'").append(record.*member).append("'");
    };
}

Show Array(std::uint16_t* Record::*values, std::uint32_t Record::*count) {
    return [=](const Record& record) {
        return Shown(record.*count) + ":" + List(record.*values, record.*count);
    };
}

Show Offsets(std::uint16_t* Record::*shorts, std::uint32_t* Record::*longs,
             std::uint32_t Record::*count) {
    return [=](const Record& record) {
        return Array(shorts, count)(record) + " |" + List(record.*longs, record.*count);
    };
}

template <typename T, std::size_t N>
Show Group(T (Record::*values)[N]) {
    return [values](const Record& record) { return List(record.*values, N); };
}

enum class Kind { Word, Long, Size, Ratio, Text, Array, Offsets, Pair, TwoRatios, SixRatios };

struct Row {
    std::uint16_t tag;
    const char* label;
    Kind kind;
    std::string fresh;
    Show show;
};

const std::string kNoWord = "65535";
const std::string kNoLong = "4294967295";
const std::string kNoRatio = "4294967295/4294967295";
const std::string kNoArray = "0: null";
const std::string kNoOffsets = "0: null | null";
const std::string kTwoNoRatios = std::string(" ") + kNoRatio + " " + kNoRatio;
const std::string kSixNoRatios = kTwoNoRatios + kTwoNoRatios + kTwoNoRatios;

// clang-format off
const std::vector<Row> kRows = {
    {254, "NewSubFileType", Kind::Long, kNoLong, Number(&Record::NewSubfileType)},
    {255, "SubFileType", Kind::Word, kNoWord, Number(&Record::SubfileType)},
    {256, "ImageWidth*", Kind::Size, "0", Number(&Record::ImageWidth)},
    {257, "ImageLength*", Kind::Size, "0", Number(&Record::ImageLength)},
    {258, "BitsPerSample*", Kind::Array, kNoArray, Array(&Record::BitsPerSample, &Record::BitsPerSampleCount)},
    {259, "Compression", Kind::Word, kNoWord, Number(&Record::Compression)},
    {262, "PhotoInterpretation", Kind::Word, kNoWord, Number(&Record::PhotometricInterpretation)},
    {263, "Thresholding", Kind::Word, kNoWord, Number(&Record::Threshholding)},
    {264, "CellWidth", Kind::Word, "0", Number(&Record::CellWidth)},
    {265, "CellLength", Kind::Word, "0", Number(&Record::CellLength)},
    {266, "FillOrder", Kind::Word, kNoWord, Number(&Record::FillOrder)},
    {269, "DocumentName", Kind::Text, "null", String(&Record::DocumentName)},
    {270, "ImageDescription", Kind::Text, "null", String(&Record::ImageDescription)},
    {271, "Make", Kind::Text, "null", String(&Record::Make)},
    {272, "Model", Kind::Text, "null", String(&Record::Model)},
    {273, "StripOffsets*", Kind::Offsets, kNoOffsets, Offsets(&Record::StripOffsetsShort, &Record::StripOffsetsLong, &Record::StripOffsetsCount)},
    {274, "Orientation", Kind::Word, kNoWord, Number(&Record::Orientation)},
    {277, "SamplesPerPixel", Kind::Word, "1", Number(&Record::SamplesPerPixel)},
    {278, "RowsPerStrip*", Kind::Long, "0", Number(&Record::RowsPerStrip)},
    {279, "StripByteCounts*", Kind::Offsets, kNoOffsets, Offsets(&Record::StripByteCountsShort, &Record::StripByteCountsLong, &Record::StripByteCountsCount)},
    {280, "MinSampleValue", Kind::Word, kNoWord, Number(&Record::MinSampleValue)},
    {281, "MaxSampleValue", Kind::Word, "0", Number(&Record::MaxSampleValue)},
    {282, "XResolution*", Kind::Ratio, kNoRatio, Ratio(&Record::XResolution)},
    {283, "YResolution*", Kind::Ratio, kNoRatio, Ratio(&Record::YResolution)},
    {284, "PlanarConfiguration", Kind::Word, kNoWord, Number(&Record::PlanarConfiguration)},
    {285, "PageName", Kind::Text, "null", String(&Record::PageName)},
    {286, "XPosition", Kind::Ratio, kNoRatio, Ratio(&Record::XPosition)},
    {287, "YPosition", Kind::Ratio, kNoRatio, Ratio(&Record::YPosition)},
    {290, "GrayResposeUnit", Kind::Word, kNoWord, Number(&Record::GrayResponseUnit)},
    {291, "GrayResponseCurve", Kind::Array, kNoArray, Array(&Record::GrayResponseCurve, &Record::GrayResponseCurveCount)},
    {292, "Group3Options", Kind::Long, kNoLong, Number(&Record::Group3Options)},
    {293, "Group4Options", Kind::Long, kNoLong, Number(&Record::Group4Options)},
    {296, "ResolutionUnit*", Kind::Word, kNoWord, Number(&Record::ResolutionUnit)},
    {297, "PageNumber", Kind::Pair, " 65535 65535", Group(&Record::PageNumber)},
    {300, "ColorResposeUnit", Kind::Word, kNoWord, Number(&Record::ColorResponseUnit)},
    {301, "ColorResponseCurve", Kind::Array, kNoArray, Array(&Record::ColorResponseCurve, &Record::ColorResponseCurveCount)},
    {305, "Software", Kind::Text, "null", String(&Record::Software)},
    {306, "DateTime", Kind::Text, "null", String(&Record::DateTime)},
    {315, "Artist", Kind::Text, "null", String(&Record::Artist)},
    {316, "HostComputer", Kind::Text, "null", String(&Record::HostComputer)},
    {317, "Predictor", Kind::Word, kNoWord, Number(&Record::Predictor)},
    {318, "WhitePoint", Kind::TwoRatios, kTwoNoRatios, Group(&Record::WhitePoint)},
    {319, "PrimChromaticities", Kind::SixRatios, kSixNoRatios, Group(&Record::PrimaryChromaticities)},
    {320, "ColorMap", Kind::Array, kNoArray, Array(&Record::ColorMap, &Record::ColorMapCount)},
    {322, "TileWidth", Kind::Size, "0", Number(&Record::TileWidth)},
    {323, "TileLength", Kind::Size, "0", Number(&Record::TileLength)},
    {324, "TileOffsets", Kind::Offsets, kNoOffsets, Offsets(&Record::TileOffsetsShort, &Record::TileOffsetsLong, &Record::TileOffsetsCount)},
    {325, "TileByteCounts", Kind::Offsets, kNoOffsets, Offsets(&Record::TileByteCountsShort, &Record::TileByteCountsLong, &Record::TileByteCountsCount)},
    {33445, "FileTag", Kind::Long, kNoLong, Number(&Record::FileTag)},
    {33446, "ScalePixel", Kind::Ratio, kNoRatio, Ratio(&Record::ScalePixel)},
    {33448, "LabName", Kind::Text, "null", String(&Record::LabName)},
    {33449, "SampleInfo", Kind::Text, "null", String(&Record::SampleInfo)},
    {33450, "PrepDate", Kind::Text, "null", String(&Record::PrepDate)},
    {33451, "PrepTime", Kind::Text, "null", String(&Record::PrepTime)},
    {33452, "FileUnits", Kind::Text, "null", String(&Record::FileUnits)},
};
// clang-format on

const Show kColorTable = [](const Record& record) {
    return Shown(record.ColorTableOffset) + "," + Shown(record.ColorTableCount) + ":" +
           List(record.ColorTable, std::size(record.ColorTable));
};
const std::string kNoColorTable = "0,0: 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0";

/// One entry, what the record then shows, and what follows the head of the entry's line.
struct Sample {
    Entry entry;
    std::string shown;
    std::string line;
    long status = 1;
};

std::string Datum(const std::string& text) {
    return std::string(" Data: ").append(text).append("\r\n");
}

std::string Items(const std::vector<std::string>& ratios) {
    std::string text = "\r\n";
    for (std::size_t i = 0; i < ratios.size(); ++i) {
        text += std::string(60, ' ') + "Data[" + std::to_string(i) + "]: " + ratios[i] + "\r\n";
    }
    return text;
}

Entry Characters(std::uint16_t tag, const std::string& bytes) {
    Entry entry = Text(tag, bytes);
    entry.numbers.pop_back();
    --entry.count;
    return entry;
}

/// Values of a lone entry that do not fit in it lie at 26.
std::vector<Sample> NumberSamples(Kind kind, std::uint16_t tag, Order order) {
    const bool intel = order == Order::Intel;
    const std::string lowHalf = intel ? "3" : "40000";
    switch (kind) {
        case Kind::Word:
            return {{Shorts(tag, {40000}), "40000", Datum("40000")},
                    {Shorts(tag, {3, 40000}), lowHalf, Datum(lowHalf)},
                    {Shorts(tag, {7, 8, 9}), "26", Datum("26")},
                    {Word(tag, TIFF_SHORT, 0, 0), "0", Datum("0")}};
        case Kind::Long:
            return {{Longs(tag, {4000000000}), "4000000000", Datum("-294967296")},
                    {Longs(tag, {1, 2}), "26", Datum("26")},
                    {Word(tag, TIFF_LONG, 0, 0), "0", Datum("0")}};
        case Kind::Size:
            return {{Shorts(tag, {640}), "640", Datum("640")},
                    {Shorts(tag, {40000}), "-25536", Datum("40000")},
                    {Longs(tag, {70000}), "70000", Datum("70000")},
                    {Longs(tag, {1, 2}), "26", Datum("26")}};
        case Kind::Pair:
            return {{Shorts(tag, {2, 5}), " 2 5", "\r\n2 5 \r\n"},
                    {Shorts(tag, {9}), " 9 0", Datum("9")},
                    {Shorts(tag, {1, 2, 3}), intel ? " 26 0" : " 0 26",
                     intel ? "\r\n26 0 \r\n" : "\r\n0 26 \r\n"}};
        default:
            return {};
    }
}

std::vector<Sample> RatioSamples(Kind kind, std::uint16_t tag) {
    const Entry noRatios = Word(tag, TIFF_RATIONAL, 0, 0);
    const std::vector<Rational> seven = {{1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 1}, {2, 3}, {4, 5}};
    switch (kind) {
        case Kind::Ratio:
            return {{Rationals(tag, {{300, 7}}), "300/7", Datum("300/7")},
                    {Rationals(tag, {{4000000000, 1}}), "4000000000/1", Datum("-294967296/1")},
                    {Rationals(tag, {{1, 2}, {3, 4}}), "1/2", Items({"1/2"})},
                    {noRatios, kNoRatio, Datum("-1/-1"), -4}};
        case Kind::TwoRatios:
            return {{Rationals(tag, {{1, 2}}), std::string(" 1/2 ") + kNoRatio, Datum("1/2")},
                    {Rationals(tag, {{1, 2}, {3, 4}}), " 1/2 3/4", Items({"1/2", "3/4"})},
                    {Rationals(tag, seven), " 1/2 3/4", Items({"1/2", "3/4"})},
                    {noRatios, kTwoNoRatios, Datum("-1/-1"), -4}};
        case Kind::SixRatios:
            return {{Rationals(tag, seven), " 1/2 3/4 5/6 7/8 9/1 2/3",
                     Items({"1/2", "3/4", "5/6", "7/8", "9/1", "2/3"})},
                    {noRatios, kSixNoRatios, Datum("-1/-1"), -4}};
        default:
            return {};
    }
}

std::vector<Sample> BlockSamples(Kind kind, std::uint16_t tag) {
    const Entry noShorts = Word(tag, TIFF_SHORT, 0, 0);
    const Entry noLongs = Word(tag, TIFF_LONG, 0, 0);
    switch (kind) {
        case Kind::Text:
            return {{Text(tag, ""), "''", Datum("''")},
                    {Text(tag, "a"), "'a'", Datum("'a'")},
                    {Text(tag, "abc"), "'abc'", Datum("'abc'")},
                    {Text(tag, "eleven char"), "'eleven char'", Datum("'eleven char'")},
                    {Characters(tag, "abcd"), "'abc'", Datum("'abc'")},
                    {Characters(tag, "abcde"), "'abcde'", Datum("'abcde'")},
                    {Characters(tag, {'a', '\0', 'b', 'c'}), "'a'", Datum("'a'")},
                    {Word(tag, TIFF_ASCII, 0, 26), "null", ""}};
        case Kind::Array:
            return {{Shorts(tag, {40000}), "1: 40000", Datum("40000")},
                    {Shorts(tag, {3, 40000}), "2: 3 40000", "\r\n3 40000 \r\n"},
                    {Shorts(tag, {8, 0, 40000}), "3: 8 0 40000", "\r\n8 0 40000 \r\n"},
                    {noShorts, "0: null", Datum("0"), -4}};
        case Kind::Offsets:
            return {
                {Shorts(tag, {40000}), "1: 40000 | null", Datum("40000")},
                {Shorts(tag, {3, 40000}), "2: 3 40000 | null", "\r\n3 40000 \r\n"},
                {Longs(tag, {4000000000}), "1: null | 4000000000", Datum("-294967296")},
                {Longs(tag, {5, 4000000000}), "2: null | 5 4000000000", "\r\n5 4000000000 \r\n"},
                {noShorts, "0: null | null", Datum("0"), -4},
                {noLongs, "0: null | null", Datum("0"), -4}};
        default:
            return {};
    }
}

std::vector<Sample> Samples(Kind kind, std::uint16_t tag, Order order) {
    std::vector<Sample> all = NumberSamples(kind, tag, order);
    for (const auto& more : {RatioSamples(kind, tag), BlockSamples(kind, tag)}) {
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

/// The report of a file that holds one entry; `line` follows the head, empty for no line.
std::string Report(Order order, const char* label, const Entry& entry, const std::string& line,
                   const char* classLine = "TIFF Class Unknown - Custom") {
    const char* words[] = {"", "byte", "ascii", "short", "long", "rational"};
    char head[200] = "";
    if (!line.empty()) {
        static_cast<void>(std::snprintf(head, sizeof(head), "%-24s %5u(0x%5x) N=%-8d %-8s", label,
                                        entry.tag, entry.tag, static_cast<int>(entry.count),
                                        words[entry.type]));
    }
    return std::string(order == Order::Intel ? "INTEL" : "MOTOROLA") +
           " file format\r\nVersion 2a\r\nIFD at offset 8 (0x8)\r\n"
           "Directory #1, Number of IFD entries=1\r\n" +
           head + line + classLine + "\r\nIFD at offset 0 (0x0)\r\n";
}

ReadTiff<> ReadEntry(Order order, const Entry& entry) {
    return ReadTiff<>(Build({.order = order, .directories = {{{entry}}}}));
}

void ExpectFresh(const Record& record, std::uint16_t except = 0) {
    for (const Row& row : kRows) {
        if (row.tag != except) {
            EXPECT_EQ(row.show(record), row.fresh) << row.label << " beside " << except;
        }
    }
    if (except != 33447) {
        EXPECT_EQ(kColorTable(record), kNoColorTable);
    }
    EXPECT_EQ(record.FreeOffsets, nullptr);
    EXPECT_EQ(record.FreeByteCounts, nullptr);
    EXPECT_EQ(record.SubIFDs, 0U);
}

TEST(Tags, AnAcceptedEntryIsStoredWrongOrReportedWrong) {
    for (const Order order : kOrders) {
        for (const Row& row : kRows) {
            for (const Sample& sample : Samples(row.kind, row.tag, order)) {
                SCOPED_TRACE(std::string(row.label) + " type " + std::to_string(sample.entry.type) +
                             " count " + std::to_string(sample.entry.count));
                const ReadTiff<> read = ReadEntry(order, sample.entry);
                EXPECT_EQ(read.status, sample.status);
                EXPECT_EQ(row.show(read.Record()), sample.shown);
                ExpectFresh(read.Record(), row.tag);
                const bool glowscan = row.tag == 33445 && sample.shown == "0";
                EXPECT_EQ(read.Report(), Report(order, row.label, sample.entry, sample.line,
                                                glowscan ? "TIFF Class XK - Glowscan"
                                                         : "TIFF Class Unknown - Custom"));
            }
        }
    }
}

TEST(Tags, AnEntryOfAnotherTypeIsStored) {
    constexpr std::uint16_t kTypes[] = {0, 1, 2, 3, 4, 5, 6, 7, 12, 16, 19, 255, 65535};
    for (const Row& row : kRows) {
        const std::vector<Sample> samples = Samples(row.kind, row.tag, Order::Intel);
        for (const std::uint16_t type : kTypes) {
            if (std::ranges::none_of(samples,
                                     [&](const Sample& s) { return s.entry.type == type; })) {
                const Entry entry = Word(row.tag, type, 1, 5);
                const ReadTiff<> read = ReadEntry(Order::Intel, entry);
                EXPECT_EQ(read.status, 1);
                const bool counted = row.kind == Kind::Offsets;
                EXPECT_EQ(row.show(read.Record()), counted ? "1: null | null" : row.fresh);
                ExpectFresh(read.Record(), row.tag);
                EXPECT_EQ(read.Report(), Report(Order::Intel, row.label, entry, ""));
            }
        }
    }
}

TEST(Tags, AnIgnoredTagLeavesATrace) {
    constexpr std::uint16_t kIgnored[] = {288, 289, 330};
    for (const std::uint16_t tag : kIgnored) {
        const Entry entry = Longs(tag, {7});
        const ReadTiff<> read = ReadEntry(Order::Intel, entry);
        ExpectFresh(read.Record());
        EXPECT_EQ(read.Report(), Report(Order::Intel, "", entry, ""));
    }
}

TEST(Tags, AnUnknownTagIsNotReported) {
    constexpr std::uint16_t kUnknown[] = {0, 253, 260, 321, 326, 338, 33444, 33453, 34000, 65535};
    for (const std::uint16_t tag : kUnknown) {
        const Sample samples[] = {{Word(tag, 1, 1, 0x10007), "", Datum("7")},
                                  {Shorts(tag, {7}), "", Datum("7")},
                                  {Shorts(tag, {7, 8, 9}), "", Datum("26")},
                                  {Longs(tag, {7}), "", Datum("7")},
                                  {Rationals(tag, {{7, 8}}), "", Datum("0/0")},
                                  {Text(tag, "text"), "", ""},
                                  {Word(tag, 0, 1, 7), "", ""},
                                  {Word(tag, 6, 1, 7), "", ""}};
        for (const Sample& sample : samples) {
            const ReadTiff<> read = ReadEntry(Order::Intel, sample.entry);
            EXPECT_EQ(read.status, 1);
            ExpectFresh(read.Record());
            EXPECT_EQ(read.Report(),
                      Report(Order::Intel, "Private/Unknown", sample.entry, sample.line));
        }
    }
}

TEST(Tags, ARepeatedTagLeaksOrMixesItsBlocks) {
    const ReadTiff<> read(
        Build({.directories = {{{Shorts(273, {1, 2, 3}), Longs(273, {4, 5}),
                                 Shorts(273, {6, 7, 8, 9}), Text(305, "first"), Text(305, "second"),
                                 Shorts(258, {1, 2, 3}), Word(258, TIFF_SHORT, 0, 0)}}}}));
    EXPECT_EQ(read.status, -4);
    EXPECT_EQ(List(read.Record().StripOffsetsShort, 4), " 6 7 8 9");
    EXPECT_EQ(List(read.Record().StripOffsetsLong, 2), " 4 5");
    EXPECT_EQ(read.Record().StripOffsetsCount, 4U);
    EXPECT_STREQ(read.Record().Software, "second");
    EXPECT_EQ(read.Record().BitsPerSample, nullptr);
}

TEST(ColorTable, ItsValuesAreCutWrongOrMiscounted) {
    std::vector<std::uint32_t> numbers;
    std::string kept;
    for (std::uint32_t i = 0; i < 256; ++i) {
        numbers.push_back(1000 + i);
        kept.append(i < 17 ? " " : "").append(i < 17 ? std::to_string(1000 + i) : "");
    }
    for (const Order order : kOrders) {
        const Entry entry = Shorts(33447, numbers);
        const ReadTiff<> read = ReadEntry(order, entry);
        EXPECT_EQ(kColorTable(read.Record()), std::string("26,256:") + kept + " 0");
        ExpectFresh(read.Record(), 33447);
        const std::string items = std::string("\r\n") + kept.substr(1) + " 0 \r\n";
        EXPECT_EQ(read.Report(), Report(order, "ColorTable", entry, items));
    }
    EXPECT_EQ(kColorTable(ReadEntry(Order::Intel, Shorts(33447, {9, 8, 7})).Record()),
              "26,3: 9 8 7 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0");
    EXPECT_EQ(kColorTable(ReadEntry(Order::Intel, Longs(33447, {9})).Record()), kNoColorTable);
}

TEST(ColorTable, OneWithoutValuesIsNotSynthesised) {
    const ReadTiff<> read(Build({.directories = {{{Shorts(280, {10}), Shorts(281, {160}),
                                                   Word(33447, TIFF_SHORT, 0, 0)}}}}));
    EXPECT_EQ(read.status, 1);
    EXPECT_EQ(kColorTable(read.Record()),
              "0,0: 10 10 10 11 12 13 14 16 17 20 22 26 32 40 53 80 160 0");
    EXPECT_NE(read.Report().find("N=16       short   \r\n10 10 10 11 12 13 14 16 17 20 22 26 32 40 "
                                 "53 80 \r\n"),
              std::string::npos)
        << read.Report();
}

TEST(Records, AFreshGrownOrResetRecordKeepsOldValues) {
    std::vector<Entry> all;
    all.reserve(kRows.size() + 1);
    for (const Row& row : kRows) {
        all.push_back(Samples(row.kind, row.tag, Order::Intel).at(0).entry);
    }
    all.push_back(Shorts(33447, {1, 2, 3}));
    ReadTiff<> read(Build({.directories = {{all}, {all}}}));
    ASSERT_EQ(read.Count(), 2);
    EXPECT_EQ(read.Record(1).NumEntries, all.size());
    read.tiff.DeInitStdDir(1);
    EXPECT_EQ(read.Record(1).NumEntries, 0);
    EXPECT_EQ(read.Record(1).TileWidth, 0);
    EXPECT_EQ(read.Record(1).StripOffsetsCount, 0U);
    EXPECT_EQ(read.Record(1).Software, nullptr);
    EXPECT_EQ(read.Record(1).ImageWidth, 640) << "released, though it is no block";
    read.tiff.getStdDir()[1].ReadDataOffset = 5;
    read.tiff.ResetStdDir(1);
    ExpectFresh(read.Record(1));
    EXPECT_EQ(read.Record(1).ReadDataOffset, 5U);
    for (short count = 3; count < 40; ++count) {
        EXPECT_EQ(read.tiff.ReAllocStdTiff(), 1);
        ASSERT_EQ(read.Count(), count);
        ExpectFresh(read.Record(static_cast<short>(count - 1)));
        EXPECT_EQ(read.Record(static_cast<short>(count - 1)).ReadDataOffset, 0U);
    }
    for (const Row& row : kRows) {
        EXPECT_EQ(row.show(read.Record(0)), Samples(row.kind, row.tag, Order::Intel).at(0).shown);
    }
    ExpectFresh(Tiff().getStdDir()[0]);
}

}  // namespace
