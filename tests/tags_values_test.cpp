#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <platen/tags/values.h>

namespace {

using namespace platen;
using enum FieldType;

constexpr FieldType kTypes[] = {Byte,  Ascii,     Short, Long,   Rational, SByte, Undefined, SShort,
                                SLong, SRational, Float, Double, Ifd,      Long8, SLong8,    Ifd8};

/// A value of numbers as they lie in memory.
template <typename... Numbers>
FieldValue Of(FieldType type, Numbers... numbers) {
    FieldValue value = {type, {}};
    const auto append = [&value](auto number) {
        const auto bytes = std::as_bytes(std::span(&number, 1));
        value.bytes.insert(value.bytes.end(), bytes.begin(), bytes.end());
    };
    (append(numbers), ...);
    return value;
}

FieldValue TextOf(FieldType type, std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text));
    return {type, {bytes.begin(), bytes.end()}};
}

struct Written {
    FieldValue value;
    std::string text;
    const char* tag = nullptr;
};

TEST(FieldTypes, HaveTheSizesAndNamesOfTheStandard) {
    std::string all;
    for (unsigned number = 0; number < 20; ++number) {
        const auto type = static_cast<FieldType>(number);
        const char* name = FieldTypeName(type);
        all += (name == nullptr ? "-" : name) + std::to_string(FieldTypeSize(type)) + " ";
    }
    EXPECT_EQ(all,
              "-0 BYTE1 ASCII1 SHORT2 LONG4 RATIONAL8 SBYTE1 UNDEFINED1 SSHORT2 SLONG4 SRATIONAL8 "
              "FLOAT4 DOUBLE8 IFD4 -0 -0 LONG88 SLONG88 IFD88 -0 ");
    EXPECT_EQ(FieldTypeSize(static_cast<FieldType>(0xFFFF)), 0U);
    EXPECT_EQ((FieldView{static_cast<FieldType>(14), TextOf(Byte, "abc").bytes}.Count()), 3U);
    EXPECT_EQ(Of(Rational, 1, 2, 3, 4).View().Count(), 2U);
}

TEST(Values, ReadAsTheyAreWrittenDown) {
    constexpr auto kInfinity = std::numeric_limits<double>::infinity();
    const Written values[] = {
        {Of(Byte, std::uint8_t{0}, std::uint8_t{255}), "0 255"},
        {Of(Short, std::uint16_t{65535}), "65535"},
        {Of(Long, 0xFFFFFFFFU), "4294967295"},
        {Of(Ifd, 8U), "8"},
        {Of(Long8, ~std::uint64_t{0}), "18446744073709551615"},
        {Of(Ifd8, std::uint64_t{1} << 40U), "1099511627776"},
        {Of(SByte, std::int8_t{-128}, std::int8_t{127}), "-128 127"},
        {Of(SShort, std::int16_t{-32768}), "-32768"},
        {Of(SLong, std::numeric_limits<std::int32_t>::min()), "-2147483648"},
        {Of(SLong8, std::numeric_limits<std::int64_t>::min()), "-9223372036854775808"},
        {Of(Rational, 300U, 1U, 0xFFFFFFFFU, 0U, 0U, 0U, 6U, 4U), "300/1 4294967295/0 0/0 6/4"},
        {Of(SRational, -1, 3, 1, -3, std::numeric_limits<std::int32_t>::min(), 0),
         "-1/3 1/-3 -2147483648/0"},
        {Of(Float, 0.1F, -0.0F, 1e30F, std::numeric_limits<float>::denorm_min()),
         "0.1 -0 1e+30 1e-45"},
        {Of(Double, 0.1, 1.0 / 3, kInfinity, -kInfinity), "0.1 0.3333333333333333 inf -inf"},
        {Of(Float, 0x7FC00000U, 0x7F800001U, 0xFFC00000U), "nan nan(7f800001) nan(ffc00000)"},
        {Of(Double, 0x7FF0000000000001U), "nan(7ff0000000000001)"},
        {TextOf(Undefined, {"\x00\x0F\xA0\xFF", 4}), "00 0f a0 ff"},
        {TextOf(static_cast<FieldType>(14), {"\x01\x02", 2}), "01 02"},
        {TextOf(Ascii, {"\0", 1}), ""},
        {TextOf(Ascii, {"two\0parts\0", 10}), std::string("two\0parts", 9)},
        {TextOf(Ascii, {"\xC3\xA4 \x1B[2J\n\t \0", 11}), "\xC3\xA4 \x1B[2J\n\t "},
        {TextOf(Byte, "<x:xmpmeta>, 1;2"), "<x:xmpmeta>, 1;2", "XMP"},
        {TextOf(Undefined, "0232"), "0232", "ExifVersion"},
    };
    for (const Written& row : values) {
        SCOPED_TRACE(row.text);
        const TagInfo* tag = row.tag == nullptr ? nullptr : FindTag(row.tag);
        tag = tag == nullptr && row.tag != nullptr ? FindTag(row.tag, TagDirectory::Exif) : tag;
        EXPECT_EQ(FormatValue(row.value.View(), tag), row.text);
        const ParsedValue parsed = ParseValue(row.value.type, row.text, tag);
        EXPECT_EQ(parsed.problem, "");
        EXPECT_EQ(parsed.value.type, row.value.type);
        EXPECT_EQ(parsed.value.bytes, row.value.bytes);
    }
    EXPECT_EQ(FormatValue(TextOf(Ascii, "open").View()), "open");
    EXPECT_EQ(FormatValue(FieldValue().View()), "");
}

TEST(Values, NoMoreAreShownThanAsked) {
    const FieldValue five = Of(SShort, std::uint64_t{0x0004000300020001}, std::int16_t{5});
    EXPECT_EQ(FormatValue(five.View(), nullptr, {.most = 3}), "1 2 3 ...");
    EXPECT_EQ(FormatValue(five.View(), nullptr, {.most = 5}), "1 2 3 4 5");
    EXPECT_EQ(FormatValue(TextOf(Undefined, "abc").View(), nullptr, {.most = 1}), "61 ...");
    EXPECT_EQ(FormatValue(TextOf(Ascii, "long text").View(), nullptr, {.most = 1}), "long text");
}

/// Any bytes of any type come back the same from their text, for every tag and with its words.
TEST(Values, ComeBackTheSameFromTheirText) {
    std::mt19937 random(12);
    const auto bytesOf = [&random](FieldType type, std::size_t count) {
        FieldValue value = {type, std::vector<std::byte>(count * FieldTypeSize(type))};
        for (std::byte& byte : value.bytes) {
            // Many small ones, among which codes and flags are.
            byte = static_cast<std::byte>(random() % 3 == 0 ? random() : 0);
        }
        if (type == Ascii) {
            value.bytes.back() = std::byte{0};
        }
        return value;
    };
    const auto expectSame = [](const FieldValue& value, const TagInfo* tag, bool words) {
        const std::string text = FormatValue(value.View(), tag, {.words = words});
        const ParsedValue parsed = ParseValue(value.type, text, tag);
        EXPECT_EQ(parsed.problem, "");
        EXPECT_EQ(parsed.value.bytes, value.bytes) << FieldTypeName(value.type) << " " << text;
    };
    for (const FieldType type : kTypes) {
        expectSame(bytesOf(type, 500), nullptr, false);
    }
    for (int directory = 0; directory < 5; ++directory) {
        for (const TagInfo& tag : TagsIn(static_cast<TagDirectory>(directory))) {
            SCOPED_TRACE(tag.name);
            for (const FieldType type : tag.types) {
                for (const std::uint32_t count : {tag.least, std::min(tag.most, tag.least + 5)}) {
                    expectSame(bytesOf(type, count), &tag, false);
                    expectSame(bytesOf(type, count), &tag, true);
                }
            }
        }
    }
}

struct Typed {
    const char* tag;
    std::string_view text;
    FieldValue value;
};

TEST(Values, ArePutIntoTheFirstTypeThatTakesWhatWasTyped) {
    const Typed typed[] = {
        {"ImageWidth", " 640\n", Of(Short, std::uint16_t{640})},
        {"ImageWidth", "65536", Of(Long, 65536U)},
        {"StripOffsets", "8, 70000;9", Of(Long, 8U, 70000U, 9U)},
        {"StripOffsets", "4294967296", Of(Long8, std::uint64_t{4294967296})},
        {"XResolution", "300", Of(Rational, 300U, 1U)},
        {"XResolution", "72.5", Of(Rational, 145U, 2U)},
        {"XResolution", "0072.500000000000000000000000", Of(Rational, 145U, 2U)},
        {"XResolution", "-0.0", Of(Rational, 0U, 1U)},
        {"XResolution", ".25", Of(Rational, 1U, 4U)},
        {"XResolution", "0.00000095367431640625", Of(Rational, 1U, 1048576U)},
        {"XResolution", "4294967295.0", Of(Rational, 4294967295U, 1U)},
        {"XResolution", "300/0", Of(Rational, 300U, 0U)},
        {"BaselineExposure", "-2147483648",
         Of(SRational, std::numeric_limits<std::int32_t>::min(), 1)},
        {"BaselineExposure", "-0.1", Of(SRational, -1, 10)},
        {"BlackLevel", "64 64.5", Of(Rational, 64U, 1U, 129U, 2U)},
        {"SMinSampleValue", "-1", Of(SByte, std::int8_t{-1})},
        {"SMinSampleValue", "0.5", Of(Float, 0.5F)},
        {"GDAL_NODATA", "12", TextOf(Ascii, {"12\0", 3})},
        {"PhotometricInterpretation", "rgb", Of(Short, std::uint16_t{2})},
        {"SampleFormat", "Unsigned integer, floating point; 9",
         Of(Short, std::uint16_t{1}, std::uint16_t{3}, std::uint16_t{9})},
        {"SampleFormat", "1 undefined 3",
         Of(Short, std::uint16_t{1}, std::uint16_t{4}, std::uint16_t{3})},
        {"NewSubfileType", "Transparency mask+ reduced resolution image + 1028", Of(Long, 1029U)},
        {"RasterPadding", "LONG WORD", Of(Short, std::uint16_t{2})},
        {"JPEGTables", "0xFFd8 0 f,0a", TextOf(Undefined, {"\xFF\xD8\x00\x0F\x0A", 5})},
    };
    for (const Typed& row : typed) {
        SCOPED_TRACE(std::string(row.tag) + "=" + std::string(row.text));
        const ParsedValue parsed = ParseValue(*FindTag(row.tag), row.text);
        EXPECT_EQ(parsed.problem, "");
        EXPECT_EQ(parsed.value.type, row.value.type);
        EXPECT_EQ(parsed.value.bytes, row.value.bytes);
    }
    EXPECT_EQ(ParseValue(*FindTag("FileSource", TagDirectory::Exif), "digital camera").value.bytes,
              TextOf(Undefined, "\x03").bytes);
    EXPECT_EQ(ParseValue(*FindTag("GPSLatitudeRef", TagDirectory::Gps), "SOUTH").value.bytes,
              TextOf(Ascii, {"S\0", 2}).bytes);
}

TEST(Values, AProblemNamesWhatIsWrong) {
    struct Wrong {
        const char* tag;
        std::string_view text;
        const char* problem;
    };
    const Wrong wrong[] = {
        {"CellWidth", "65536", "not a number from 0 to 65535: 65536"},
        {"CellWidth", "-1", "not a number from 0 to 65535: -1"},
        {"CellWidth", "1x", "not a number from 0 to 65535: 1x"},
        {"CellWidth", "+1", "not a number from 0 to 65535: +1"},
        {"CellWidth", " , ", "takes 1 value, not 0"},
        {"CellWidth", "1 2", "takes 1 value, not 2"},
        {"ImageWidth", "4294967296", "not a number from 0 to 4294967295: 4294967296"},
        {"StripOffsets", "18446744073709551616",
         "not a number from 0 to 18446744073709551615: 18446744073709551616"},
        {"TimeZoneOffset", "1 -32769", "not a number from -32768 to 32767: -32769"},
        {"TimeZoneOffset", "1 2 3", "takes 1 to 2 values, not 3"},
        {"BitsPerSample", "", "takes at least 1 value, not 0"},
        {"DotRange", "1", "takes at least 2 values, not 1"},
        {"WhitePoint", "1/3", "takes 2 values, not 1"},
        {"XResolution", "x", "not a fraction such as 72/1: x"},
        {"XResolution", "1.2.3", "not a fraction such as 72/1: 1.2.3"},
        {"XResolution", ".", "not a fraction such as 72/1: ."},
        {"XResolution", "1e3", "not a fraction such as 72/1: 1e3"},
        {"XResolution", "1/2/3", "not a number from 0 to 4294967295: 2/3"},
        {"XResolution", "1/", "not a number from 0 to 4294967295: "},
        {"XResolution", "-72.5", "RATIONAL cannot hold this exactly: -72.5"},
        {"XResolution", "4294967296", "RATIONAL cannot hold this exactly: 4294967296"},
        {"XResolution", "0.00000000001", "RATIONAL cannot hold this exactly: 0.00000000001"},
        {"XResolution", "0.000000000000000000000000000001",
         "RATIONAL cannot hold this exactly: 0.000000000000000000000000000001"},
        {"XResolution", "99999999999999999999999",
         "RATIONAL cannot hold this exactly: 99999999999999999999999"},
        {"BaselineExposure", "2147483648", "SRATIONAL cannot hold this exactly: 2147483648"},
        {"FieldOfViewCotangent", "1e39", "not a number that FLOAT can hold: 1e39"},
        {"FieldOfViewCotangent", "nan(0)", "not a number that FLOAT can hold: nan(0)"},
        {"FieldOfViewCotangent", "1,5", "takes 1 value, not 2"},
        {"JPEGTables", "abc", "not bytes such as 0f a0: abc"},
        {"JPEGTables", "0x", "not bytes such as 0f a0: 0x"},
        {"JPEGTables", "fg", "not bytes such as 0f a0: fg"},
        {"DateTime", "2026", "takes 19 characters, not 4"},
        {"PlanarConfiguration", "flat",
         "not a number from 0 to 65535: flat (or a word such as \"Chunky\")"},
        {"NewSubfileType", "1 + mask",
         "not a number from 0 to 4294967295: 1 + mask (or a word such as \"Full resolution "
         "image\")"},
        {"NewSubfileType", "Transparency mask + 4294967296",
         "not a number from 0 to 4294967295: Transparency mask + 4294967296 (or a word such as "
         "\"Full resolution image\")"},
        {"CellWidth",
         "\xE4\xBA\x8C"
         "01234567890123456789012345678901234567890123456789012345\xE4\xBA\x8C",
         "not a number from 0 to 65535: \xE4\xBA\x8C"
         "01234567890123456789012345678901234567890123456789012345..."},
    };
    for (const Wrong& row : wrong) {
        SCOPED_TRACE(std::string(row.tag) + "=" + std::string(row.text));
        const ParsedValue parsed = ParseValue(*FindTag(row.tag), row.text);
        EXPECT_EQ(parsed.problem, row.problem);
        EXPECT_TRUE(parsed.value.bytes.empty());
    }
    EXPECT_EQ(ParseValue(Short, "").problem, "takes at least 1 value, not 0");
    EXPECT_EQ(ParseValue(*FindTag("ExifVersion", TagDirectory::Exif), "232").problem,
              "takes 4 characters, not 3");
}

TEST(Values, WordsStandForCodesWhereTheyAreAsked) {
    const auto words = [](const char* tag, const FieldValue& value) {
        return FormatValue(value.View(), FindTag(tag), {.words = true});
    };
    EXPECT_EQ(words("Compression", Of(Short, std::uint16_t{32773})), "PackBits");
    EXPECT_EQ(words("Compression", Of(Short, std::uint16_t{4711})), "4711");
    EXPECT_EQ(
        words("ExtraSamples", Of(Short, std::uint16_t{2}, std::uint16_t{9}, std::uint16_t{0})),
        "Unassociated alpha, 9, Unspecified");
    EXPECT_EQ(words("NewSubfileType", Of(Long, 0U)), "Full resolution image");
    EXPECT_EQ(words("NewSubfileType", Of(Long, 5U + 256U)),
              "Reduced resolution image + Transparency mask + 256");
    EXPECT_EQ(words("NewSubfileType", Of(Long, 256U)), "256");
    EXPECT_EQ(words("Artist", TextOf(Ascii, "N")), "N");
    EXPECT_EQ(FormatValue(TextOf(Ascii, {"R98\0", 4}).View(),
                          FindTag(1, TagDirectory::Interoperability), {.words = true}),
              "DCF basic file");
}

}  // namespace
