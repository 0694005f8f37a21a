#include <cstdio>
#include <variant>

#include "tests/support/read_tiff.h"

/// Every tag, one by one, in files of a single entry: what the record holds, and the entry's line.
namespace {

using namespace platen::test;
using Record = TiffIFDStdDirStruct;

std::string Written(const Rational& value) {
    return std::to_string(value.Numerator) + "/" + std::to_string(value.Denominator);
}
std::string Written(std::int64_t value) {
    return std::to_string(value);
}
std::string Written(const char* value) {
    return value == nullptr ? "null" : std::string("'").append(value).append("'");
}

template <typename T>
std::string List(const T* values, std::size_t count) {
    std::string text = values == nullptr ? " null" : "";
    for (std::size_t i = 0; values != nullptr && i < count; ++i) {
        text.append(" ").append(Written(values[i]));
    }
    return text;
}

template <typename T, std::size_t N>
std::string Written(const T (&values)[N]) {
    return List(values, N);
}

/// A count, and the values where the file's type was SHORT and where it was LONG.
struct Block {
    std::uint32_t Record::*count;
    std::uint16_t* Record::*shorts;
};
struct Offsets : Block {
    std::uint32_t* Record::*longs;
};

enum class Store { Word, Long, Size, Ratio, Text, Pair, TwoRatios, SixRatios, Array, Offsets };
using Member =
    std::variant<std::uint16_t Record::*, std::uint32_t Record::*, std::int32_t Record::*,
                 Rational Record::*, char * Record::*, std::uint16_t (Record::*)[2],
                 Rational (Record::*)[2], Rational (Record::*)[6], Block, Offsets>;

const std::string kNoRatio = "4294967295/4294967295";
const std::string kTwoNoRatios = std::string(" ") + kNoRatio + " " + kNoRatio;
const std::string kSixNoRatios = kTwoNoRatios + kTwoNoRatios + kTwoNoRatios;
/// What a record shows of a tag that is not there, by kind.
const std::string kFresh[] = {"65535",   "4294967295",    "0",          kNoRatio,
                              "null",    " 65535 65535",  kTwoNoRatios, kSixNoRatios,
                              "0: null", "0: null | null"};

template <typename T>
std::string Written(const Record& record, T Record::*member) {
    return Written(record.*member);
}
std::string Written(const Record& record, const Block& block) {
    return Written(record.*block.count) + ":" + List(record.*block.shorts, record.*block.count);
}
std::string Written(const Record& record, const Offsets& offsets) {
    const Block& block = offsets;
    return Written(record, block) + " |" + List(record.*offsets.longs, record.*block.count);
}

struct Row {
    [[nodiscard]] Store TheKind() const { return static_cast<Store>(member.index()); }
    [[nodiscard]] std::string Fresh() const {
        return unset.empty() ? kFresh[member.index()] : unset;
    }
    [[nodiscard]] std::string Show(const Record& record) const {
        return std::visit([&](const auto& which) { return Written(record, which); }, member);
    }
    std::uint16_t tag;
    const char* label;
    Member member;
    std::string unset = {};
};

// clang-format off
const std::vector<Row> kRows = {
    {254, "NewSubFileType", &Record::NewSubfileType}, {255, "SubFileType", &Record::SubfileType},
    {256, "ImageWidth*", &Record::ImageWidth}, {257, "ImageLength*", &Record::ImageLength},
    {258, "BitsPerSample*", Block{&Record::BitsPerSampleCount, &Record::BitsPerSample}},
    {259, "Compression", &Record::Compression}, {262, "PhotoInterpretation", &Record::PhotometricInterpretation},
    {263, "Thresholding", &Record::Threshholding}, {264, "CellWidth", &Record::CellWidth, "0"},
    {265, "CellLength", &Record::CellLength, "0"}, {266, "FillOrder", &Record::FillOrder},
    {269, "DocumentName", &Record::DocumentName}, {270, "ImageDescription", &Record::ImageDescription},
    {271, "Make", &Record::Make}, {272, "Model", &Record::Model},
    {273, "StripOffsets*", Offsets{{&Record::StripOffsetsCount, &Record::StripOffsetsShort}, &Record::StripOffsetsLong}},
    {274, "Orientation", &Record::Orientation}, {277, "SamplesPerPixel", &Record::SamplesPerPixel, "1"},
    {278, "RowsPerStrip*", &Record::RowsPerStrip, "0"},
    {279, "StripByteCounts*", Offsets{{&Record::StripByteCountsCount, &Record::StripByteCountsShort}, &Record::StripByteCountsLong}},
    {280, "MinSampleValue", &Record::MinSampleValue}, {281, "MaxSampleValue", &Record::MaxSampleValue, "0"},
    {282, "XResolution*", &Record::XResolution}, {283, "YResolution*", &Record::YResolution},
    {284, "PlanarConfiguration", &Record::PlanarConfiguration}, {285, "PageName", &Record::PageName},
    {286, "XPosition", &Record::XPosition}, {287, "YPosition", &Record::YPosition},
    {290, "GrayResposeUnit", &Record::GrayResponseUnit},
    {291, "GrayResponseCurve", Block{&Record::GrayResponseCurveCount, &Record::GrayResponseCurve}},
    {292, "Group3Options", &Record::Group3Options}, {293, "Group4Options", &Record::Group4Options},
    {296, "ResolutionUnit*", &Record::ResolutionUnit}, {297, "PageNumber", &Record::PageNumber},
    {300, "ColorResposeUnit", &Record::ColorResponseUnit},
    {301, "ColorResponseCurve", Block{&Record::ColorResponseCurveCount, &Record::ColorResponseCurve}},
    {305, "Software", &Record::Software}, {306, "DateTime", &Record::DateTime},
    {315, "Artist", &Record::Artist}, {316, "HostComputer", &Record::HostComputer},
    {317, "Predictor", &Record::Predictor}, {318, "WhitePoint", &Record::WhitePoint},
    {319, "PrimChromaticities", &Record::PrimaryChromaticities},
    {320, "ColorMap", Block{&Record::ColorMapCount, &Record::ColorMap}},
    {322, "TileWidth", &Record::TileWidth}, {323, "TileLength", &Record::TileLength},
    {324, "TileOffsets", Offsets{{&Record::TileOffsetsCount, &Record::TileOffsetsShort}, &Record::TileOffsetsLong}},
    {325, "TileByteCounts", Offsets{{&Record::TileByteCountsCount, &Record::TileByteCountsShort}, &Record::TileByteCountsLong}},
    {33445, "FileTag", &Record::FileTag}, {33446, "ScalePixel", &Record::ScalePixel},
    {33448, "LabName", &Record::LabName}, {33449, "SampleInfo", &Record::SampleInfo},
    {33450, "PrepDate", &Record::PrepDate}, {33451, "PrepTime", &Record::PrepTime},
    {33452, "FileUnits", &Record::FileUnits},
};
// clang-format on

const auto kColorTable = [](const Record& record) {
    return Written(record.ColorTableOffset) + "," + Written(record.ColorTableCount) + ":" +
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
std::vector<Sample> NumberSamples(Store kind, std::uint16_t tag, Order order) {
    const bool intel = order == Order::Intel;
    const std::string lowHalf = intel ? "3" : "40000";
    if (kind == Store::Word) {
        return {{Shorts(tag, {3, 40000}), lowHalf, Datum(lowHalf)},
                {Shorts(tag, {40000}), "40000", Datum("40000")},
                {Shorts(tag, {7, 8, 9}), "26", Datum("26")}};
    }
    if (kind == Store::Long) {
        return {{Longs(tag, {4000000000}), "4000000000", Datum("-294967296")},
                {Longs(tag, {1, 2}), "26", Datum("26")},
                {Word(tag, platen::kTypeLong, 0, 0), "0", Datum("0")}};
    }
    if (kind == Store::Size) {
        return {{Shorts(tag, {640}), "640", Datum("640")},
                {Shorts(tag, {40000}), "-25536", Datum("40000")},
                {Longs(tag, {70000}), "70000", Datum("70000")}};
    }
    const std::string shifted = intel ? "26 0" : "0 26";
    return {{Shorts(tag, {2, 5}), " 2 5", "\r\n2 5 \r\n"},
            {Shorts(tag, {9}), " 9 0", Datum("9")},
            {Shorts(tag, {1, 2, 3}), std::string(" ") + shifted,
             std::string("\r\n") + shifted + " \r\n"}};
}

std::vector<Sample> RatioSamples(Store kind, std::uint16_t tag) {
    const Entry noRatios = Word(tag, platen::kTypeRational, 0, 0);
    const std::vector<Rational> seven = {{1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 1}, {2, 3}, {4, 5}};
    if (kind == Store::Ratio) {
        return {{Rationals(tag, {{4000000000, 7}}), "4000000000/7", Datum("-294967296/7")},
                {Rationals(tag, {{1, 2}, {3, 4}}), "1/2", Items({"1/2"})},
                {noRatios, kNoRatio, Datum("-1/-1"), -4}};
    }
    if (kind == Store::TwoRatios) {
        return {{Rationals(tag, {{1, 2}}), std::string(" 1/2 ") + kNoRatio, Datum("1/2")},
                {Rationals(tag, seven), " 1/2 3/4", Items({"1/2", "3/4"})},
                {noRatios, kTwoNoRatios, Datum("-1/-1"), -4}};
    }
    return {{Rationals(tag, seven), " 1/2 3/4 5/6 7/8 9/1 2/3",
             Items({"1/2", "3/4", "5/6", "7/8", "9/1", "2/3"})},
            {noRatios, kSixNoRatios, Datum("-1/-1"), -4}};
}

std::vector<Sample> TextSamples(std::uint16_t tag) {
    return {{Text(tag, ""), "''", Datum("''")},
            {Text(tag, "abc"), "'abc'", Datum("'abc'")},
            {Text(tag, "eleven char"), "'eleven char'", Datum("'eleven char'")},
            {Characters(tag, "abcd"), "'abc'", Datum("'abc'")},
            {Characters(tag, "abcde"), "'abcde'", Datum("'abcde'")},
            {Characters(tag, {'a', '\0', 'b', 'c'}), "'a'", Datum("'a'")},
            {Word(tag, platen::kTypeAscii, 0, 26), "null", ""}};
}

std::vector<Sample> BlockSamples(Store kind, std::uint16_t tag) {
    const bool offsets = kind == Store::Offsets;
    const std::string end = offsets ? " | null" : "";
    std::vector<Sample> samples = {
        {Shorts(tag, {40000}), "1: 40000" + end, Datum("40000")},
        {Shorts(tag, {3, 40000}), "2: 3 40000" + end, "\r\n3 40000 \r\n"},
        {Shorts(tag, {8, 0, 40000}), "3: 8 0 40000" + end, "\r\n8 0 40000 \r\n"},
        {Word(tag, platen::kTypeShort, 0, 0), "0: null" + end, Datum("0"), -4}};
    if (offsets) {
        samples.push_back({Longs(tag, {4000000000}), "1: null | 4000000000", Datum("-294967296")});
        samples.push_back({Longs(tag, {5, 6}), "2: null | 5 6", "\r\n5 6 \r\n"});
        samples.push_back({Word(tag, platen::kTypeLong, 0, 0), "0: null | null", Datum("0"), -4});
    }
    return samples;
}

std::vector<Sample> Samples(Store kind, std::uint16_t tag, Order order) {
    if (kind == Store::Text) {
        return TextSamples(tag);
    }
    if (kind == Store::Array || kind == Store::Offsets) {
        return BlockSamples(kind, tag);
    }
    const bool ratios = kind == Store::Ratio || kind >= Store::TwoRatios;
    return ratios ? RatioSamples(kind, tag) : NumberSamples(kind, tag, order);
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
            EXPECT_EQ(row.Show(record), row.Fresh()) << row.label << " beside " << except;
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
            for (const Sample& sample : Samples(row.TheKind(), row.tag, order)) {
                SCOPED_TRACE(std::string(row.label) + " type " + std::to_string(sample.entry.type) +
                             " count " + std::to_string(sample.entry.count));
                const ReadTiff<> read = ReadEntry(order, sample.entry);
                EXPECT_EQ(read.status, sample.status);
                EXPECT_EQ(row.Show(read.Record()), sample.shown);
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
        const std::vector<Sample> samples = Samples(row.TheKind(), row.tag, Order::Intel);
        for (const std::uint16_t type : kTypes) {
            if (std::ranges::none_of(samples,
                                     [&](const Sample& s) { return s.entry.type == type; })) {
                const Entry entry = Word(row.tag, type, 1, 5);
                const ReadTiff<> read = ReadEntry(Order::Intel, entry);
                EXPECT_EQ(read.status, 1);
                const bool counted = row.TheKind() == Store::Offsets;
                EXPECT_EQ(row.Show(read.Record()), counted ? "1: null | null" : row.Fresh());
                ExpectFresh(read.Record(), row.tag);
                EXPECT_EQ(read.Report(), Report(Order::Intel, row.label, entry, ""));
            }
        }
    }
}

TEST(Tags, AnUnknownTagIsNotReportedOrAnIgnoredOneIs) {
    constexpr std::uint16_t kUnknown[] = {0, 253, 321, 326, 33444, 33453, 34000, 65535};
    for (const std::uint16_t tag : kUnknown) {
        // clang-format off
        const Sample samples[] = {
            {Word(tag, 1, 1, 0x10007), "", Datum("7")}, {Shorts(tag, {7}), "", Datum("7")},
            {Shorts(tag, {7, 8, 9}), "", Datum("26")}, {Longs(tag, {7}), "", Datum("7")},
            {Rationals(tag, {{7, 8}}), "", Datum("0/0")}, {Text(tag, "text"), "", ""},
            {Word(tag, 0, 1, 7), "", ""}, {Word(tag, 6, 1, 7), "", ""}};
        // clang-format on
        for (const Sample& sample : samples) {
            const ReadTiff<> read = ReadEntry(Order::Intel, sample.entry);
            EXPECT_EQ(read.status, 1);
            ExpectFresh(read.Record());
            EXPECT_EQ(read.Report(),
                      Report(Order::Intel, "Private/Unknown", sample.entry, sample.line));
        }
    }
    constexpr std::uint16_t kIgnored[] = {288, 289, 330};
    for (const std::uint16_t tag : kIgnored) {
        const ReadTiff<> read = ReadEntry(Order::Intel, Longs(tag, {7}));
        ExpectFresh(read.Record());
        EXPECT_EQ(read.Report(), Report(Order::Intel, "", Longs(tag, {7}), ""));
    }
}

TEST(Tags, ARepeatedTagLeaksOrMixesItsBlocks) {
    const ReadTiff<> read(
        Build({.directories = {{{Shorts(273, {1, 2, 3}), Longs(273, {4, 5}),
                                 Shorts(273, {6, 7, 8, 9}), Text(305, "first"), Text(305, "second"),
                                 Shorts(258, {1, 2, 3}), Word(258, platen::kTypeShort, 0, 0)}}}}));
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
                                                   Word(33447, platen::kTypeShort, 0, 0)}}}}));
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
    for (const Row& row : kRows) {
        all.push_back(Samples(row.TheKind(), row.tag, Order::Intel).at(0).entry);
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
        EXPECT_EQ(row.Show(read.Record(0)),
                  Samples(row.TheKind(), row.tag, Order::Intel).at(0).shown);
    }
    ExpectFresh(Tiff().getStdDir()[0]);
}

}  // namespace
