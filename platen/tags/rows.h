#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include <platen/tags/catalogue.h>
#include <platen/tags/names.h>

/// How the tables of the catalogue are written: a row names what the values are made of, then gives
/// number, name and meaning, and behind them in any order what sets the tag apart from the plainest
/// one of that kind.
namespace platen::tags {

struct Row {
    TagInfo info;

    [[nodiscard]] constexpr Row Times(std::uint32_t least, std::uint32_t most) const {
        Row row = *this;
        row.info.least = least;
        row.info.most = most;
        return row;
    }
    [[nodiscard]] constexpr Row Times(std::uint32_t count) const { return Times(count, count); }
    [[nodiscard]] constexpr Row AnyNumber() const { return Times(1, kAnyCount); }

    [[nodiscard]] constexpr Row Words(std::span<const ValueWord> words) const {
        Row row = *this;
        row.info.words = words;
        return row;
    }
    [[nodiscard]] constexpr Row Flags(std::span<const ValueWord> words) const {
        Row row = Words(words);
        row.info.flags = true;
        return row;
    }
    [[nodiscard]] constexpr Row Characters() const {
        Row row = *this;
        row.info.characters = true;
        return row;
    }
    [[nodiscard]] constexpr Row Opens(TagDirectory directory) const {
        Row row = *this;
        row.info.opens = directory;
        return row;
    }
    [[nodiscard]] constexpr Row Also(const char* name) const {
        Row row = *this;
        *std::ranges::find(row.info.otherNames, nullptr) = name;
        return row;
    }
};

template <FieldType... Types>
inline constexpr std::array<FieldType, sizeof...(Types)> kTypes = {Types...};

/// A tag whose values have one of the types; one value, except of texts and undefined bytes.
template <FieldType First, FieldType... Others>
constexpr Row Of(std::uint16_t number, const char* name, const char* meaning) {
    Row row;
    row.info.number = number;
    row.info.name = name;
    row.info.meaning = meaning;
    row.info.types = kTypes<First, Others...>;
    const bool isLong = First == FieldType::Ascii || First == FieldType::Undefined;
    return isLong ? row.AnyNumber() : row;
}

inline constexpr auto Byte = Of<FieldType::Byte>;
inline constexpr auto Short = Of<FieldType::Short>;
inline constexpr auto Long = Of<FieldType::Long>;
inline constexpr auto Rational = Of<FieldType::Rational>;
inline constexpr auto SShort = Of<FieldType::SShort>;
inline constexpr auto SLong = Of<FieldType::SLong>;
inline constexpr auto SRational = Of<FieldType::SRational>;
inline constexpr auto Float = Of<FieldType::Float>;
inline constexpr auto Double = Of<FieldType::Double>;
inline constexpr auto Text = Of<FieldType::Ascii>;
inline constexpr auto Undefined = Of<FieldType::Undefined>;

inline constexpr auto ByteOrShort = Of<FieldType::Byte, FieldType::Short>;
inline constexpr auto ByteOrUndefined = Of<FieldType::Byte, FieldType::Undefined>;
inline constexpr auto TextOrByte = Of<FieldType::Ascii, FieldType::Byte>;
inline constexpr auto ShortOrLong = Of<FieldType::Short, FieldType::Long>;
inline constexpr auto ShortOrRational = Of<FieldType::Short, FieldType::Rational>;
inline constexpr auto ShortLongOrRational =
    Of<FieldType::Short, FieldType::Long, FieldType::Rational>;
inline constexpr auto LongOrRational = Of<FieldType::Long, FieldType::Rational>;
inline constexpr auto UndefinedByteOrLong =
    Of<FieldType::Undefined, FieldType::Byte, FieldType::Long>;
inline constexpr auto AnyNumeric =
    Of<FieldType::Byte, FieldType::Short, FieldType::Long, FieldType::SByte, FieldType::SShort,
       FieldType::SLong, FieldType::Float, FieldType::Double>;

/// Sizes in bytes, as BigTIFF has them too.
inline constexpr auto Size = Of<FieldType::Short, FieldType::Long, FieldType::Long8>;
/// Positions in the file, as BigTIFF has them too.
inline constexpr auto Offset = Of<FieldType::Long, FieldType::Long8>;

/// The offset of a directory.
constexpr Row Directory(std::uint16_t number, const char* name, const char* meaning,
                        TagDirectory directory) {
    return Of<FieldType::Long, FieldType::Ifd, FieldType::Long8, FieldType::Ifd8>(number, name,
                                                                                  meaning)
        .Opens(directory);
}

/// The word for a text that is a code.
constexpr ValueWord Code(std::string_view letters, const char* text) {
    return {LettersOf(letters), text};
}

}  // namespace platen::tags
