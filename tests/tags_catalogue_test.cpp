#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cctype>
#include <set>
#include <string>
#include <vector>

#include <platen/tags/catalogue.h>
#include <platen/tags/values.h>
#include <platen/tiff/tags.h>

namespace {

using namespace platen;

constexpr TagDirectory kDirectories[] = {TagDirectory::Image, TagDirectory::Exif, TagDirectory::Gps,
                                         TagDirectory::Interoperability, TagDirectory::GeoKeys};

/// Calls `test` with every tag of the catalogue, named in what fails.
template <typename Test>
void ForEveryTag(const Test& test) {
    for (const TagDirectory directory : kDirectories) {
        for (const TagInfo& tag : TagsIn(directory)) {
            SCOPED_TRACE(std::to_string(tag.number) + " " + tag.name);
            test(tag);
        }
    }
}

std::string InCase(std::string text, int (*change)(int)) {
    std::ranges::transform(text, text.begin(), [change](unsigned char letter) {
        return static_cast<char>(change(letter));
    });
    return text;
}

std::string LowerCase(const char* text) {
    return InCase(text, std::tolower);
}

TEST(Catalogue, EveryTagIsFoundByNumberAndByEachOfItsNamesAlone) {
    std::size_t count = 0;
    for (const TagDirectory directory : kDirectories) {
        std::set<std::uint16_t> numbers;
        for (const TagInfo& tag : TagsIn(directory)) {
            SCOPED_TRACE(tag.name);
            EXPECT_TRUE(numbers.insert(tag.number).second);
            EXPECT_EQ(tag.directory, directory);
            EXPECT_EQ(FindTag(tag.number, directory), &tag);
            EXPECT_EQ(FindTag(tag.name, directory), &tag);
            EXPECT_EQ(FindTag(LowerCase(tag.name), directory), &tag);
            for (const char* other : tag.otherNames) {
                EXPECT_TRUE(other == nullptr ||
                            FindTag(InCase(other, std::toupper), directory) == &tag);
            }
        }
        for (unsigned number = 0; number <= 0xFFFF; ++number) {
            const auto tag = static_cast<std::uint16_t>(number);
            if ((FindTag(tag, directory) != nullptr) != numbers.contains(tag)) {
                ADD_FAILURE() << number;
            }
        }
        count += numbers.size();
        for (const char* name : {"", "Image", "ImageWidthX", "ImageWidt", "256"}) {
            EXPECT_EQ(FindTag(name, directory), nullptr) << name;
        }
    }
    EXPECT_GE(count, 500U);
}

/// Number, first type, least and most as the standards print them, a few of each table.
TEST(Catalogue, TagsAreAsTheirStandardsPrintThem) {
    struct Printed {
        TagDirectory directory;
        std::uint16_t number;
        const char* name;
        std::vector<FieldType> types;
        std::uint32_t least;
        std::uint32_t most;
    };
    using enum FieldType;
    const Printed printed[] = {
        {TagDirectory::Image, 254, "NewSubfileType", {Long}, 1, 1},
        {TagDirectory::Image, 273, "StripOffsets", {Short, Long, Long8}, 1, kAnyCount},
        {TagDirectory::Image, 306, "DateTime", {Ascii}, 20, 20},
        {TagDirectory::Image, 319, "PrimaryChromaticities", {Rational}, 6, 6},
        {TagDirectory::Image, 330, "SubIFDs", {Long, Ifd, Long8, Ifd8}, 1, kAnyCount},
        {TagDirectory::Image, 700, "XMP", {Byte, Undefined}, 1, kAnyCount},
        {TagDirectory::Image, 33447, "ColorTable", {Short}, 1, kAnyCount},
        {TagDirectory::Image, 34022, "IT8ColorTable", {Byte}, 1, kAnyCount},
        {TagDirectory::Image, 34264, "ModelTransformationTag", {Double}, 16, 16},
        {TagDirectory::Image, 37382, "SubjectDistance", {SRational}, 1, 1},
        {TagDirectory::Image, 50714, "BlackLevel", {Short, Long, Rational}, 1, kAnyCount},
        {TagDirectory::Image, 50719, "DefaultCropOrigin", {Short, Long, Rational}, 2, 2},
        {TagDirectory::Image, 50938, "ProfileHueSatMapData1", {Float}, 1, kAnyCount},
        {TagDirectory::Exif, 37382, "SubjectDistance", {Rational}, 1, 1},
        {TagDirectory::Exif, 37396, "SubjectArea", {Short}, 2, 4},
        {TagDirectory::Exif, 42034, "LensSpecification", {Rational}, 4, 4},
        {TagDirectory::Gps, 0, "GPSVersionID", {Byte}, 4, 4},
        {TagDirectory::Gps, 1, "GPSLatitudeRef", {Ascii}, 2, 2},
        {TagDirectory::Gps, 29, "GPSDateStamp", {Ascii}, 11, 11},
        {TagDirectory::Interoperability, 1, "InteroperabilityIndex", {Ascii}, 1, kAnyCount},
        {TagDirectory::GeoKeys, 2057, "GeogSemiMajorAxisGeoKey", {Double}, 1, 1},
    };
    for (const Printed& row : printed) {
        SCOPED_TRACE(row.name);
        const TagInfo* tag = FindTag(row.number, row.directory);
        ASSERT_NE(tag, nullptr);
        EXPECT_STREQ(tag->name, row.name);
        EXPECT_TRUE(std::ranges::equal(tag->types, row.types));
        EXPECT_EQ(tag->least, row.least);
        EXPECT_EQ(tag->most, row.most);
    }
    EXPECT_EQ(FindTag("ExifIFD")->opens, TagDirectory::Exif);
    EXPECT_EQ(FindTag("GPSIFD")->opens, TagDirectory::Gps);
    EXPECT_EQ(FindTag(40965, TagDirectory::Exif)->opens, TagDirectory::Interoperability);
    EXPECT_EQ(FindTag(256)->opens, std::nullopt);
}

TEST(Catalogue, EveryRowIsWhole) {
    ForEveryTag([](const TagInfo& tag) {
        const std::string_view name = tag.name;
        EXPECT_TRUE(std::ranges::all_of(
            name, [](unsigned char c) { return std::isalnum(c) != 0 || c == '_'; }));
        const std::string_view meaning = tag.meaning;
        ASSERT_FALSE(meaning.empty());
        EXPECT_TRUE(std::isupper(static_cast<unsigned char>(meaning[0])) != 0 ||
                    std::isdigit(static_cast<unsigned char>(meaning[0])) != 0);
        EXPECT_FALSE(meaning.ends_with('.'));
        EXPECT_FALSE(tag.types.empty());
        std::set<FieldType> types;
        for (const FieldType type : tag.types) {
            EXPECT_NE(FieldTypeName(type), nullptr);
            EXPECT_TRUE(types.insert(type).second);
        }
        EXPECT_GE(tag.least, 1U);
        EXPECT_LE(tag.least, tag.most);
        EXPECT_TRUE(!tag.flags || !tag.words.empty());
    });
}

TEST(Catalogue, EveryWordStandsForItsValueAlone) {
    ForEveryTag([](const TagInfo& tag) {
        std::set<std::uint32_t> values;
        std::set<std::string> words;
        for (const ValueWord& word : tag.words) {
            SCOPED_TRACE(word.text);
            EXPECT_TRUE(values.insert(word.value).second);
            EXPECT_TRUE(words.insert(LowerCase(word.text)).second);
            EXPECT_STREQ(FindWord(tag, word.value), word.text);
            EXPECT_TRUE(!tag.flags || word.value == 0 || std::has_single_bit(word.value));
            // Alone, as one of the tag's values.
            TagInfo one = tag;
            one.least = std::min(tag.least, 1U);
            const ParsedValue parsed = ParseValue(one, InCase(word.text, std::toupper));
            EXPECT_EQ(parsed.problem, "");
            EXPECT_EQ(FormatValue(parsed.value.View(), &tag, {.words = true}), word.text);
            const std::string plain = FormatValue(parsed.value.View(), &tag);
            EXPECT_NE(plain, word.text);
            EXPECT_EQ(ParseValue(one, plain).value.bytes, parsed.value.bytes) << plain;
        }
        EXPECT_EQ(FindWord(tag, 0xFFFFFFFFFF), nullptr);
    });
}

/// The engine's own names, which programs type, and the catalogue's are the same.
TEST(Catalogue, TheEnginesTagsHaveTheirNames) {
    int known = 0;
    for (unsigned number = 0; number <= 0xFFFF; ++number) {
        const auto tag = static_cast<std::uint16_t>(number);
        if (const char* name = TagName(tag)) {
            ASSERT_NE(FindTag(tag), nullptr) << number;
            EXPECT_STREQ(FindTag(tag)->name, name);
            ++known;
        }
    }
    EXPECT_GT(known, 50);
    for (const char* name :
         {"group3options", "Group4Options", "ColorResponseCurve", "ColorResponseCurves"}) {
        ASSERT_NE(FindTag(name), nullptr) << name;
        EXPECT_EQ(FindTag(name)->number, TagNumber(name));
    }
}

}  // namespace
