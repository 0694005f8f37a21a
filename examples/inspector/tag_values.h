#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <platen/tiff/Tiff.h>

/// Tags as texts that people read and type, through `Tiff::getTAG` and `Tiff::setTAG`.
namespace inspector {

/// What a tag's value is made of.
enum class TagKind : std::uint8_t { Unknown, Word, Long, Words, Offsets, Fractions, Text };

TagKind KindOf(std::uint16_t tag);

/// The field type in which the engine writes a tag that it knows.
std::uint16_t FieldTypeFor(std::uint16_t tag);

/// Whether the engine decodes the tag from a value of that field type.
bool IsDecoded(std::uint16_t tag, std::uint16_t fieldType);

/// Whether the user may change the tag. The others say how the image lies in the file, or are not
/// known to the engine.
bool IsEditable(std::uint16_t tag);

/// The meaning of a coded value, for example "Inch"; none for one without a meaning of its own.
std::optional<std::string> TagMeaning(std::uint16_t tag, std::uint32_t value);

/// The numbers of a tag that is an array, of 16 bits or, for offsets, 32; none for a count that the
/// file cannot hold.
template <typename Number>
std::vector<Number> NumbersOf(const Tiff& tiff, std::uint16_t tag, short dir) {
    std::int32_t count = 0;
    tiff.getTAG(tag, nullptr, count, dir);
    if (count <= 0 || count > tiff.getFileSize()) {
        return {};
    }
    std::vector<Number> numbers(static_cast<std::size_t>(count));
    tiff.getTAG(tag, numbers.data(), count, dir);
    return numbers;
}

/// The value as text: numbers and fractions with spaces between them, line ends of a text as
/// U+21B5. At most `most` numbers, then "...".
std::string TagText(const Tiff& tiff, std::uint16_t tag, short dir, std::size_t most);

/// What setTAG stores for a tag.
struct TagChange {
    std::uint16_t tag = 0;
    std::variant<std::uint32_t, std::vector<std::uint16_t>, std::vector<Rational>, std::string>
        value;
    std::int32_t count = 0;

    void ApplyTo(Tiff& tiff, short dir) const;
};

/// The change that a text asks for, or why it cannot be.
std::variant<TagChange, std::string> ParseTag(std::uint16_t tag, std::string_view text);

/// The change after which the tag is absent.
TagChange RemovalOf(std::uint16_t tag);

}  // namespace inspector
