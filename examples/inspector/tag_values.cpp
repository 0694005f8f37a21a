#include "examples/inspector/tag_values.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>

#include <platen/base/files.h>
#include <platen/tiff/tags.h>

namespace inspector {
namespace {

using Words = std::vector<std::uint16_t>;
using Fractions = std::vector<Rational>;
using Parsed = std::variant<TagChange, std::string>;

constexpr std::uint32_t kNone32 = 0xFFFFFFFF;
constexpr std::uint16_t kNone16 = 0xFFFF;
constexpr std::uint16_t kFileTag = 33445;
constexpr std::uint16_t kColorTable = 33447;
constexpr std::size_t kColorTableTaken = 17;
constexpr std::size_t kMostTyped = 4096;
constexpr std::string_view kLineEnd = "\u21B5";

/// The tags that are not a 16-bit number, by kind.
constexpr std::uint16_t kLongs[] = {254, 256, 257, 278, 292, 293, 322, 323, kFileTag};
constexpr std::uint16_t kWordArrays[] = {258, 291, 297, 301, 320, kColorTable};
constexpr std::uint16_t kOffsets[] = {273, 279, 324, 325};
constexpr std::uint16_t kFractions[] = {282, 283, 286, 287, 318, 319, 33446};
constexpr std::uint16_t kTexts[] = {269, 270, 271,   272,   285,   305,   306,
                                    315, 316, 33448, 33449, 33450, 33451, 33452};
constexpr std::uint16_t kNeverSet[] = {288, 289, 330};
constexpr std::uint16_t kImageForm[] = {256, 257, 258, 259, 277, 278, 284, 322, 323};
constexpr std::uint16_t kZeroWhenAbsent[] = {264, 265, 281};

template <typename Numbers>
bool IsIn(const Numbers& numbers, std::uint16_t tag) {
    return std::ranges::find(numbers, tag) != std::end(numbers);
}

/// How many values a tag has; 0 for any number of them.
std::size_t FixedCount(std::uint16_t tag) {
    switch (tag) {
        case 297:
        case 318:
            return 2;
        case 319:
            return 6;
        default:
            return KindOf(tag) == TagKind::Words ? 0 : 1;
    }
}

void Append(std::string& text, const Rational& value) {
    text += std::to_string(value.Numerator) + "/" + std::to_string(value.Denominator);
}

template <typename Number>
void Append(std::string& text, Number number) {
    text += std::to_string(number);
}

template <typename Values>
std::string Joined(const Values& values, std::size_t most) {
    std::string text;
    for (std::size_t i = 0; i < std::min(most, values.size()); ++i) {
        text += i == 0 ? "" : " ";
        Append(text, values[i]);
    }
    return values.size() > most ? text + " ..." : text;
}

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

std::string TextOf(const Tiff& tiff, std::uint16_t tag, short dir) {
    std::int32_t count = 0;
    tiff.getTAG(tag, nullptr, count, dir);
    std::string text(static_cast<std::size_t>(std::max(count, 0)), '\0');
    tiff.getTAG(tag, text.data(), count, dir);
    text.resize(std::strlen(text.c_str()));
    return Replaced(text, "\n", kLineEnd);
}

template <typename Number>
Number NumberOf(const Tiff& tiff, std::uint16_t tag, short dir) {
    Number number = 0;
    std::int32_t count = 0;
    tiff.getTAG(tag, &number, count, dir);
    return number;
}

/// All 17 values; getTAG gives 16 of them.
Words ColorTableNumbers(const Tiff& tiff, short dir) {
    const std::uint16_t* table = tiff.getStdDir()[dir].ColorTable;
    return {table, table + kColorTableTaken};
}

std::vector<std::string_view> PartsOf(std::string_view text) {
    constexpr const char* kBetween = " \t\r\n,;";
    std::vector<std::string_view> parts;
    for (std::size_t at = 0; (at = text.find_first_not_of(kBetween, at)) != text.npos;) {
        const std::size_t end = std::min(text.find_first_of(kBetween, at), text.size());
        parts.push_back(text.substr(at, end - at));
        at = end;
    }
    return parts;
}

template <typename Number>
bool ParseValue(std::string_view part, Number& number) {
    const char* end = part.data() + part.size();
    const auto parsed = std::from_chars(part.data(), end, number);
    return parsed.ec == std::errc() && parsed.ptr == end;
}

/// A whole number stands for that number over one.
bool ParseValue(std::string_view part, Rational& value) {
    const std::size_t slash = std::min(part.find('/'), part.size());
    value.Denominator = 1;
    return ParseValue(part.substr(0, slash), value.Numerator) &&
           (slash == part.size() || ParseValue(part.substr(slash + 1), value.Denominator));
}

std::string Expectation(const Rational& /*value*/) {
    return "a fraction such as 300/1";
}

template <typename Number>
std::string Expectation(Number /*number*/) {
    return "a whole number from 0 to " + std::to_string(std::numeric_limits<Number>::max());
}

template <typename Value>
std::variant<std::vector<Value>, std::string> ValuesIn(std::string_view text, std::size_t fixed) {
    const auto parts = PartsOf(text);
    const std::size_t most = fixed == 0 ? kMostTyped : fixed;
    if (parts.size() < std::max<std::size_t>(fixed, 1) || parts.size() > most) {
        return "This tag takes " +
               (fixed == 0 ? "1 to " + std::to_string(most) : std::to_string(fixed)) +
               (most == 1 ? " value." : " values.");
    }
    std::vector<Value> values(parts.size());
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (!ParseValue(parts[i], values[i])) {
            return "\u201C" + std::string(parts[i]) + "\u201D is not " + Expectation(values[i]) +
                   ".";
        }
    }
    return values;
}

template <typename Value>
Parsed ArrayChange(std::uint16_t tag, std::string_view text) {
    auto values = ValuesIn<Value>(text, FixedCount(tag));
    if (const auto* problem = std::get_if<std::string>(&values)) {
        return *problem;
    }
    auto& array = std::get<std::vector<Value>>(values);
    const auto count = static_cast<std::int32_t>(array.size());
    if (tag == kColorTable) {
        if (array.size() > kColorTableTaken) {
            return "A colour table has at most 17 values.";
        }
        array.resize(kColorTableTaken);
    }
    return TagChange{tag, std::move(array), count};
}

template <typename Number>
Parsed NumberChange(std::uint16_t tag, std::string_view text) {
    auto values = ValuesIn<Number>(text, 1);
    if (const auto* problem = std::get_if<std::string>(&values)) {
        return *problem;
    }
    return TagChange{tag, std::uint32_t{std::get<std::vector<Number>>(values).front()}, 1};
}

Parsed Parse(std::uint16_t tag, std::string_view text) {
    switch (KindOf(tag)) {
        case TagKind::Word:
            return NumberChange<std::uint16_t>(tag, text);
        case TagKind::Long:
            return NumberChange<std::uint32_t>(tag, text);
        case TagKind::Words:
            return ArrayChange<std::uint16_t>(tag, text);
        case TagKind::Fractions:
            return ArrayChange<Rational>(tag, text);
        case TagKind::Text: {
            std::string value = Replaced(std::string(text), kLineEnd, "\n");
            const auto count = static_cast<std::int32_t>(value.size()) + 1;
            return TagChange{tag, std::move(value), count};
        }
        default:
            return "This tag cannot be changed.";
    }
}

/// Whether the engine would write the tag with this value: some numbers stand for an absent tag.
bool IsWritten(const TagChange& change) {
    Tiff scratch;
    const TagChange beside = {kFileTag, std::uint32_t{0}, 1};
    const bool isFileTag = change.tag == kFileTag;
    (isFileTag ? RemovalOf(kFileTag) : beside).ApplyTo(scratch, 0);
    RemovalOf(change.tag).ApplyTo(scratch, 0);
    const short without = scratch.WriteIFDStdDir(FILE_none(), platen::kIntel, 0, 0);
    change.ApplyTo(scratch, 0);
    return scratch.WriteIFDStdDir(FILE_none(), platen::kIntel, 0, 0) > without;
}

}  // namespace

TagKind KindOf(std::uint16_t tag) {
    if (platen::TagName(tag) == nullptr || IsIn(kNeverSet, tag)) {
        return TagKind::Unknown;
    }
    return IsIn(kLongs, tag)        ? TagKind::Long
           : IsIn(kWordArrays, tag) ? TagKind::Words
           : IsIn(kOffsets, tag)    ? TagKind::Offsets
           : IsIn(kFractions, tag)  ? TagKind::Fractions
           : IsIn(kTexts, tag)      ? TagKind::Text
                                    : TagKind::Word;
}

std::uint16_t FieldTypeFor(std::uint16_t tag) {
    switch (KindOf(tag)) {
        case TagKind::Long:
        case TagKind::Offsets:
            return platen::kTypeLong;
        case TagKind::Fractions:
            return platen::kTypeRational;
        case TagKind::Text:
            return platen::kTypeAscii;
        default:
            return platen::kTypeShort;
    }
}

bool IsDecoded(std::uint16_t tag, std::uint16_t fieldType) {
    constexpr std::uint16_t kEitherWidth[] = {256, 257, 273, 279, 322, 323, 324, 325};
    return KindOf(tag) != TagKind::Unknown &&
           (fieldType == FieldTypeFor(tag) ||
            (fieldType == platen::kTypeShort && IsIn(kEitherWidth, tag)));
}

bool IsEditable(std::uint16_t tag) {
    const TagKind kind = KindOf(tag);
    return kind != TagKind::Unknown && kind != TagKind::Offsets && !IsIn(kImageForm, tag);
}

std::optional<std::string> TagMeaning(std::uint16_t tag, std::uint32_t value) {
    const char* word = platen::TagWord(tag, value);
    const bool isWord =
        word != nullptr && std::strcmp(word, "Invalid") != 0 && std::strcmp(word, "Unknown") != 0;
    return isWord ? std::optional<std::string>(word) : std::nullopt;
}

std::string TagText(const Tiff& tiff, std::uint16_t tag, short dir, std::size_t most) {
    switch (KindOf(tag)) {
        case TagKind::Word:
            return std::to_string(NumberOf<std::uint16_t>(tiff, tag, dir));
        case TagKind::Long:
            return std::to_string(NumberOf<std::uint32_t>(tiff, tag, dir));
        case TagKind::Words:
            return Joined(tag == kColorTable ? ColorTableNumbers(tiff, dir)
                                             : NumbersOf<std::uint16_t>(tiff, tag, dir),
                          most);
        case TagKind::Offsets:
            return Joined(NumbersOf<std::uint32_t>(tiff, tag, dir), most);
        case TagKind::Fractions:
            return Joined(NumbersOf<Rational>(tiff, tag, dir), most);
        case TagKind::Text:
            return TextOf(tiff, tag, dir);
        default:
            return {};
    }
}

void TagChange::ApplyTo(Tiff& tiff, short dir) const {
    const auto given = std::visit(
        [](const auto& data) {
            if constexpr (std::is_same_v<std::decay_t<decltype(data)>, std::uint32_t>) {
                return static_cast<std::intptr_t>(data);
            } else {
                return reinterpret_cast<std::intptr_t>(data.data());
            }
        },
        value);
    tiff.setTAG(tag, given, count, dir);
}

std::variant<TagChange, std::string> ParseTag(std::uint16_t tag, std::string_view text) {
    if (!IsEditable(tag)) {
        return "This tag follows from the image and cannot be changed.";
    }
    Parsed parsed = Parse(tag, text);
    const auto* change = std::get_if<TagChange>(&parsed);
    if (change != nullptr && !IsWritten(*change)) {
        return "This value stands for an absent tag. To have the tag absent, remove it.";
    }
    return parsed;
}

TagChange RemovalOf(std::uint16_t tag) {
    switch (KindOf(tag)) {
        case TagKind::Word:
            return {tag, std::uint32_t{IsIn(kZeroWhenAbsent, tag) ? std::uint16_t{0} : kNone16}, 1};
        case TagKind::Long:
            return {tag, IsIn(kImageForm, tag) ? 0 : kNone32, 1};
        case TagKind::Words:
            return FixedCount(tag) == 2 ? TagChange{tag, Words(2, kNone16), 2}
                                        : TagChange{tag, Words(kColorTableTaken), 0};
        case TagKind::Fractions:
            return {tag, Fractions(FixedCount(tag), {kNone32, kNone32}), 1};
        default:
            return {tag, std::uint32_t{0}, 0};
    }
}

}  // namespace inspector
