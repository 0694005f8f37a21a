#include <algorithm>
#include <array>
#include <charconv>
#include <concepts>
#include <cstring>
#include <new>
#include <optional>

#include <platen/tags/elements.h>
#include <platen/tags/names.h>
#include <platen/tags/values.h>

namespace platen {
namespace tags {
namespace {

template <typename Number, typename... Form>
void AppendNumber(std::string& text, Number number, Form... form) {
    std::array<char, 32> digits;
    text.append(digits.data(),
                std::to_chars(digits.data(), digits.data() + digits.size(), number, form...).ptr);
}

template <std::integral Number>
void Append(std::string& text, Number number) {
    AppendNumber(text, number);
}

template <typename Number>
void Append(std::string& text, Fraction<Number> fraction) {
    AppendNumber(text, fraction.numerator);
    text.push_back('/');
    AppendNumber(text, fraction.denominator);
}

template <typename Number>
void Append(std::string& text, Real<Number> real) {
    if (!real.IsNan()) {
        AppendNumber(text, std::bit_cast<Number>(real.bits));
        return;
    }
    text.append("nan");
    if (real.bits != Real<Number>::kNan) {
        text.push_back('(');
        AppendNumber(text, real.bits, 16);
        text.push_back(')');
    }
}

void Append(std::string& text, Octet octet) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    text.push_back(kDigits[octet.value >> 4U]);
    text.push_back(kDigits[octet.value & 15U]);
}

/// The words of a coded value; empty when it has none.
std::string WordsOf(const TagInfo& tag, std::uint64_t value) {
    if (const char* word = FindWord(tag, value)) {
        return word;
    }
    std::string text;
    if (tag.flags) {
        for (const ValueWord& flag : tag.words) {
            if ((value & flag.value) != 0) {
                text.append(text.empty() ? "" : " + ").append(flag.text);
                value &= ~std::uint64_t{flag.value};
            }
        }
        if (!text.empty() && value != 0) {
            text.append(" + ");
            AppendNumber(text, value);
        }
    }
    return text;
}

/// What is a code in an element; only unsigned numbers and octets can be one.
template <typename Element>
std::optional<std::uint64_t> CodeIn(Element element) {
    if constexpr (std::unsigned_integral<Element>) {
        return element;
    } else if constexpr (std::same_as<Element, Octet>) {
        return element.value;
    } else {
        return std::nullopt;
    }
}

template <typename Element>
std::string ElementsText(FieldView value, const TagInfo* words, std::size_t most) {
    std::string text;
    const std::size_t count = value.Count();
    for (std::size_t i = 0; i < std::min(count, most); ++i) {
        Element element;
        std::memcpy(&element, value.bytes.data() + i * sizeof(Element), sizeof(Element));
        text.append(i == 0 ? "" : words != nullptr ? ", " : " ");
        const auto code = words != nullptr ? CodeIn(element) : std::nullopt;
        const std::string word = code ? WordsOf(*words, *code) : std::string();
        word.empty() ? Append(text, element) : void(text.append(word));
    }
    return count > most ? text + " ..." : text;
}

std::string TextOf(FieldView value, const TagInfo* tag, const ValueFormat& format) {
    std::string_view text(reinterpret_cast<const char*>(value.bytes.data()), value.bytes.size());
    if (AreCharacters(value.type, tag)) {
        return std::string(text);
    }
    const TagInfo* words = format.words && tag != nullptr && !tag->words.empty() ? tag : nullptr;
    if (value.type == FieldType::Ascii) {
        text.remove_suffix(text.ends_with('\0') ? 1 : 0);
        const auto code = words != nullptr ? LettersOf(text) : 0;
        const char* word = code != 0 ? FindWord(*words, code) : nullptr;
        return word != nullptr ? word : std::string(text);
    }
    return UseElementOf(value.type, [&](auto element) {
        return ElementsText<decltype(element)>(value, words, format.most);
    });
}

}  // namespace
}  // namespace tags

std::string FormatValue(FieldView value, const TagInfo* tag, ValueFormat format) {
    try {
        return tags::TextOf(value, tag, format);
    } catch (const std::bad_alloc&) {
        return {};
    }
}

}  // namespace platen
