#include <limits>
#include <tuple>

#include "tests/tiff_writing.h"

namespace {

using namespace platen::test;

enum class Kind { Short, Long, Shorts, Offsets, Text, Group };

/// What a tag exchanges: `count` values of `width` bytes, of arrays and texts as many as there are.
struct Shape {
    std::uint16_t tag;
    Kind kind;
    std::size_t width;
    std::int32_t count = 1;
    std::size_t taken = 0;  ///< bytes that setTAG reads of a group
};

std::vector<Shape> Shapes() {
    struct Tags {
        Shape shape;
        std::vector<std::uint16_t> tags;
    };
    // clang-format off
    const Tags all[] = {
        {{0, Kind::Group, 2, 2, 4}, {297}}, {{0, Kind::Group, 8, 2, 16}, {318}},
        {{0, Kind::Group, 8, 6, 48}, {319}}, {{0, Kind::Group, 2, 16, 34}, {33447}},
        {{0, Kind::Group, 8, 1, 8}, {282, 283, 286, 287, 33446}},
        {{0, Kind::Short, 2}, {255, 259, 262, 263, 264, 265, 266, 274, 277, 280, 281, 284, 290, 296,
            300, 317}}, {{0, Kind::Long, 4}, {254, 256, 257, 278, 292, 293, 322, 323, 33445}},
        {{0, Kind::Shorts, 2, 0}, {258, 291, 301, 320}},
        {{0, Kind::Offsets, 4, 0}, {273, 279, 324, 325}},
        {{0, Kind::Text, 1, 0}, {269, 270, 271, 272, 285, 305, 306, 315, 316, 33448, 33449, 33450,
            33451, 33452}}};
    // clang-format on
    std::vector<Shape> shapes;
    for (const auto& [shape, tags] : all) {
        for (const std::uint16_t tag : tags) {
            shapes.push_back(shape);
            shapes.back().tag = tag;
        }
    }
    return shapes;
}

bool IsTile(std::uint16_t tag) {
    return tag >= 322 && tag <= 325;
}

/// What getTAG gives; the buffer has guards on both sides.
Bytes Get(const Tiff& tiff, const Shape& shape, short dir = 0) {
    std::int32_t count = -77;
    tiff.getTAG(shape.tag, nullptr, count, dir);
    const std::size_t size = count > 0 ? static_cast<std::size_t>(count) * shape.width : 0;
    Bytes buffer(size + 32, '\xA5');
    std::int32_t again = -77;
    tiff.getTAG(shape.tag, buffer.data() + 16, again, dir);
    EXPECT_EQ(count, again);
    EXPECT_EQ(buffer.substr(0, 16), Bytes(16, '\xA5')) << shape.tag;
    EXPECT_EQ(buffer.substr(16 + size), Bytes(16, '\xA5')) << shape.tag;
    return buffer.substr(16, size);
}

/// A value of a tag that no other tag and no other seed has; all halves are from 1 to 32,767.
Bytes ValueOf(const Shape& shape, unsigned seed) {
    std::size_t size = shape.taken;
    if (shape.kind == Kind::Short || shape.kind == Kind::Long) {
        size = shape.width;
    } else if (size == 0) {
        size = shape.width * (1 + (shape.tag + seed) % 6);
    }
    Bytes bytes;
    for (unsigned i = 0; bytes.size() < size; ++i) {
        const unsigned half = 1 + (shape.tag * 31U + seed * 1009U + i * 77U) % 32767;
        bytes += static_cast<char>(half);
        bytes += static_cast<char>(half >> 8U);
    }
    bytes.resize(size);
    if (shape.kind == Kind::Text) {
        std::fill(bytes.begin(), bytes.end(), static_cast<char>('a' + (shape.tag + seed) % 26));
        bytes.back() = '\0';
    }
    return bytes;
}

void Set(Tiff& tiff, const Shape& shape, const Bytes& value, short dir = 0) {
    std::uint32_t number = 0;
    std::copy_n(value.data(), std::min<std::size_t>(4, value.size()),
                reinterpret_cast<char*>(&number));
    if (shape.kind == Kind::Short || shape.kind == Kind::Long) {
        SetNumber(tiff, shape.tag, number, dir);
        return;
    }
    const std::vector<char> lent(value.begin(), value.end());  // its end is watched
    const auto count = static_cast<std::int32_t>(value.size() / shape.width);
    tiff.setTAG(shape.tag, AddressOf(lent.data()), count, dir);
}

void SetEveryTag(Tiff& tiff, unsigned seed, short dir = 0) {
    for (const Shape& shape : Shapes()) {
        Set(tiff, shape, ValueOf(shape, seed), dir);
    }
}

std::vector<Bytes> Everything(const Tiff& tiff, short dir = 0) {
    std::vector<Bytes> values;
    for (const Shape& shape : Shapes()) {
        values.push_back(IsTile(shape.tag) ? Bytes() : Get(tiff, shape, dir));
    }
    return values;
}

TEST(TagAccess, AValueDoesNotComeBackOrLandsInAnotherField) {
    Tiff tiff;
    tiff.ReAllocStdTiff();
    const std::vector<Bytes> untouched = Everything(tiff, 0);
    ASSERT_EQ(Shapes().size(), 56U);
    for (const Shape& shape : Shapes()) {
        const bool fixed = shape.count > 0;
        EXPECT_EQ(Get(tiff, shape, 1).size(), fixed ? shape.width * std::size_t(shape.count) : 0)
            << shape.tag << " is absent";
    }
    for (const unsigned seed : {1U, 2U}) {  // the second time every block is replaced
        SetEveryTag(tiff, seed, 1);
        for (const Shape& shape : Shapes()) {
            Bytes value = ValueOf(shape, seed);
            value.resize(shape.tag == 33447 ? 32 : value.size());
            EXPECT_EQ(Shown(Get(tiff, shape, 1)), Shown(value)) << shape.tag;
        }
    }
    EXPECT_EQ(tiff.getStdDir()[1].ColorTableCount, 17U);
    EXPECT_EQ(tiff.getStdDir()[1].ColorTable[17], 0);
    EXPECT_EQ(Everything(tiff, 0), untouched);
    for (const Shape& shape : Shapes()) {
        if (shape.count == 0) {
            tiff.setTAG(shape.tag, AddressOf("none"), 0, 1);
            EXPECT_EQ(Get(tiff, shape, 1), Bytes()) << shape.tag << " is not emptied";
        }
    }
}

constexpr short kBoth[] = {0, 1};

TEST(TagAccess, WhatWasSetDoesNotSurviveAFileInEitherOrder) {
    Tiff tiff;
    tiff.ReAllocStdTiff();
    SetEveryTag(tiff, 3, 0);
    SetEveryTag(tiff, 4, 1);
    for (const short dir : kBoth) {  // an image of 24 bytes; the size test wants it in the file
        SetNumber(tiff, 256, 4, dir);
        SetNumber(tiff, 257, 2, dir);
        SetNumber(tiff, 277, 3, dir);
        SetShorts(tiff, 258, {8, 8, 8}, dir);
    }
    for (const short format : kFormats) {
        for (const short next : kFormats) {  // a file that was read goes into either order
            ReadTiff<> read(WrittenNew(tiff, format));
            const TemporaryFile copy;
            EXPECT_EQ(read.tiff.WriteCopy(copy.Name(), next), 1);
            const ReadTiff<> back(copy.Contents());
            EXPECT_EQ(back.status, 1);
            ASSERT_EQ(back.Count(), 2);
            for (const short dir : kBoth) {
                EXPECT_EQ(Everything(read.tiff, dir), Everything(tiff, dir));
                EXPECT_EQ(Everything(back.tiff, dir), Everything(tiff, dir));
            }
        }
    }
}

TEST(TagAccess, AnUnknownTagOrIndexReadsOrChangesSomething) {
    Tiff tiff;
    SetEveryTag(tiff, 1);
    const std::vector<Bytes> before = Everything(tiff);
    const std::vector<char> data(64, '\1');
    for (const int tag : {0, 253, 260, 288, 289, 302, 326, 330, 33444, 33453, 65535}) {
        const Shape shape = {static_cast<std::uint16_t>(tag), Kind::Group, 1};
        tiff.setTAG(shape.tag, AddressOf(data.data()), 8, 0);
        EXPECT_EQ(Get(tiff, shape), Bytes()) << tag;
    }
    for (const short dir : std::vector<short>{-32768, -1, 1, 32767}) {
        for (const Shape& shape : Shapes()) {
            Set(tiff, shape, ValueOf(shape, 2), dir);
            EXPECT_EQ(Get(tiff, shape, dir), Bytes()) << shape.tag;
        }
    }
    EXPECT_EQ(Everything(tiff), before);

    tiff.FreeStdTiff();
    std::int32_t count = 5;
    tiff.getTAG(256, nullptr, count, 0);
    EXPECT_EQ(count, 5) << "without records the count stays";
    SetNumber(tiff, 256, 1);
}

TEST(TagAccess, ACountThatCannotBeLeavesMoreElementsThanTheBlock) {
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    for (const Shape& shape : Shapes()) {
        for (const std::int32_t count : {-1, kLeast, 0x40000000}) {
            if (shape.count != 0 || (count > 0 && shape.kind != Kind::Offsets)) {
                continue;
            }
            Tiff tiff;
            Set(tiff, shape, ValueOf(shape, 1));
            tiff.setTAG(shape.tag, AddressOf(tiff.getStdDir()), count, 0);
            EXPECT_EQ(Get(tiff, shape), Bytes()) << shape.tag << " count " << count;
        }
    }
    Tiff tiff;
    const std::vector<std::uint16_t> slots(17, 5);
    SetNumber(tiff, 254, 0);
    SetNumber(tiff, 33445, 0);
    for (const std::int32_t count : {kLeast, 0, 18, 19, std::numeric_limits<std::int32_t>::max()}) {
        tiff.setTAG(33447, AddressOf(slots.data()), count, 0);
        EXPECT_EQ(tiff.getStdDir()->ColorTableCount, static_cast<std::uint32_t>(count));
        const ReadTiff<> read(WrittenNew(tiff, platen::kIntel));
        EXPECT_EQ(read.Record().ColorTableCount, count <= 0 ? 0U : 18U);
    }
}

/// Counts of entries whose values no record took.
TEST(TagAccess, EmptyingWhatHoldsNothingChangesItsCount) {
    ReadTiff<> read(Build({.directories = {{{Word(258, platen::kTypeShort, 0x7FFFFFFF, 0),
                                             Word(273, platen::kTypeRational, 7, 0)}}}}));
    for (const auto& [tag, left] : {std::pair{258, 0x7FFFFFFF}, {273, 7}}) {
        const auto number = static_cast<std::uint16_t>(tag);
        std::int32_t count = 0;
        read.tiff.setTAG(number, AddressOf("none"), 0, 0);
        read.tiff.getTAG(number, nullptr, count, 0);
        EXPECT_EQ(count, left) << tag;
        read.tiff.setTAG(number, AddressOf("none"), -1, 0);
        read.tiff.getTAG(number, nullptr, count, 0);
        EXPECT_EQ(count, 0) << tag << ": a count that cannot be empties the field";
    }
}

TEST(TagAccess, ATextLosesItsEndOrTakesTooMuch) {
    using Given = std::vector<char>;
    const std::tuple<Given, std::int32_t, const char*> cases[] = {
        {{'a', 'b', 'c', 'd'}, 4, "abc"}, {{'a', 'b'}, 1, ""},         {{'a', '\0'}, 100, "a"},
        {{'a', '\0', 'b', '\0'}, 4, "a"}, {{'a', 'b', '\0'}, 3, "ab"}, {{'\0'}, 1, ""}};
    for (const auto& [given, count, held] : cases) {
        Tiff tiff;
        tiff.setTAG(305, AddressOf(given.data()), count, 0);
        EXPECT_EQ(Get(tiff, {305, Kind::Text, 1}), held + Bytes(1, '\0'));
    }
}

TEST(TagAccess, ShortOffsetsAreNotWidenedOrStayBesideNewOnes) {
    for (const std::uint16_t tag : std::vector<std::uint16_t>{273, 279, 324, 325}) {
        const Shape shape = {tag, Kind::Offsets, 4};
        ReadTiff<> read(Build({.directories = {{{Shorts(tag, {8, 40000})}}}}));
        EXPECT_EQ(Shown(Get(read.tiff, shape)), "08 00 00 00 40 9C 00 00 ");
        SetLongs(read.tiff, tag, {1, 2, 3});
        EXPECT_EQ(Get(read.tiff, shape).size(), 12U);
        EXPECT_EQ(read.Record().StripOffsetsShort, nullptr);
        EXPECT_EQ(read.Record().TileOffsetsShort, nullptr);
    }
}

TEST(TagAccess, AValueTakenFromTheRecordItselfIsReadAfterItsRelease) {
    Tiff tiff;
    SetEveryTag(tiff, 5);
    TiffIFDStdDirStruct& record = *tiff.getStdDir();
    SetText(tiff, 305, "a text that is cut");
    SetShorts(tiff, 320, {1, 2, 3, 4});
    SetLongs(tiff, 273, {5, 6, 7, 8});
    tiff.setTAG(305, AddressOf(record.Software + 7), 12, 0);
    tiff.setTAG(320, AddressOf(record.ColorMap + 1), 2, 0);
    tiff.setTAG(273, AddressOf(record.StripOffsetsLong + 2), 2, 0);
    tiff.setTAG(318, AddressOf(record.PrimaryChromaticities + 1), 2, 0);
    EXPECT_STREQ(record.Software, "that is cut");
    EXPECT_EQ(record.ColorMap[1], 3);
    EXPECT_EQ(record.StripOffsetsLong[1], 8U);
    EXPECT_EQ(record.WhitePoint[1], record.PrimaryChromaticities[2]);
}

/// An entry of a type that is not taken still leaves its count.
TEST(TagAccess, ACountThatLiesAboutItsBlockReadsBeyondIt) {
    for (const std::uint32_t count : {1U, 1000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        const bool fits = count <= 1000;
        ReadTiff<> read(Build({.directories = {{{Longs(254, {0}), Shorts(273, {5, 6}),
                                                 Word(273, platen::kTypeRational, count, 0)}}}}));
        ASSERT_EQ(read.Record().StripOffsetsCount, count);
        std::vector<std::uint32_t> out(fits ? count : 1);
        std::int32_t got = 0;
        read.tiff.getTAG(273, fits ? out.data() : nullptr, got, 0);
        EXPECT_EQ(static_cast<std::uint32_t>(got), count);
        EXPECT_EQ(out[0], fits ? 5U : 0U);
        EXPECT_EQ(out.back(), count == 1 ? 5U : 0U) << "what is not held is given as 0";
        const Bytes written = WrittenNew(read.tiff, platen::kIntel);
        EXPECT_EQ(written.size(), 8 + 2 + 3 * 12 + 4 + 4U);
        EXPECT_EQ(read.tiff.WriteIFDStdDir(FILE_none(), 0, 0, 0), 3);
        SetLongs(read.tiff, 273, {9});
        EXPECT_EQ(Get(read.tiff, {273, Kind::Offsets, 4}).size(), 4U);
    }
}

}  // namespace
