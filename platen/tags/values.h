#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <platen/platform/api.h>
#include <platen/tags/catalogue.h>

/// Values of tags as texts that people read and type. Nothing depends on the locale, and nothing
/// throws.
///
/// Numbers stand with a space between them. A fraction is "300/1", whatever its parts; what is
/// typed may be "300" or "72.5" too. ASCII is the text as it is, without the NUL that closes it:
/// other NULs, control characters and UTF-8 are left alone, and so are bytes that are characters
/// (`TagInfo::characters`). Other UNDEFINED bytes, and those of unknown types, are two hexadecimal
/// digits each. What FormatValue makes of a whole value, ParseValue turns into the same bytes; a
/// text without its closing NUL gets one.
namespace platen {

/// The values of an entry: whole elements of a type, in this machine's byte order. The bytes stay
/// the caller's.
struct FieldView {
    FieldType type = FieldType::Byte;
    std::span<const std::byte> bytes;

    /// The entry's count.
    [[nodiscard]] std::size_t Count() const {
        const unsigned size = FieldTypeSize(type);
        return size == 0 ? bytes.size() : bytes.size() / size;
    }
};

/// The same with bytes of its own.
struct FieldValue {
    FieldType type = FieldType::Byte;
    std::vector<std::byte> bytes;

    [[nodiscard]] FieldView View() const { return {type, bytes}; }
};

struct ValueFormat {
    std::size_t most = SIZE_MAX;  ///< values shown; "..." stands for the others. Texts stay whole
    bool words = false;           ///< words of coded values where there are any, commas between
};

/// The text form of a value. The tag, which may be null, gives words and says what is characters.
/// Empty when memory runs out.
PLATEN_API std::string FormatValue(FieldView value, const TagInfo* tag = nullptr,
                                   ValueFormat format = {});

/// A value, or what is wrong with the text.
struct ParsedValue {
    FieldValue value;
    std::string problem;  ///< empty when there is a value
};

/// A tag's value from its text form. It gets the first of the tag's types that takes every part:
/// a small number becomes a SHORT where SHORT and LONG are both right.
///
/// Numbers may also be separated by commas or semicolons; a word stands for its number, upper and
/// lower case alike, and "+" joins flags. A fraction must be exact, and may have the denominator 0,
/// which some tags give a meaning. The number of values must be one that the tag can have.
PLATEN_API ParsedValue ParseValue(const TagInfo& tag, std::string_view text);

/// The same for a value of this type, whatever types the tag has; null stands for an unknown tag,
/// which has any number of values.
PLATEN_API ParsedValue ParseValue(FieldType type, std::string_view text,
                                  const TagInfo* tag = nullptr);

}  // namespace platen
