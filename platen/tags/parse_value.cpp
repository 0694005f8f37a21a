#include <algorithm>
#include <charconv>
#include <concepts>
#include <new>
#include <optional>
#include <utility>

#include <platen/tags/elements.h>
#include <platen/tags/names.h>
#include <platen/tags/values.h>

namespace platen {
namespace tags {
namespace {

constexpr std::string_view kSpaces = " \t\r\n";

/// What is wrong with a part of the text; empty when nothing is.
using Problem = std::string;

/// A problem ends with the part that it is about, cut between characters when it is long.
Problem ProblemWith(std::string_view part, std::string problem) {
    constexpr std::size_t kMostShown = 60;
    std::size_t shown = part.size();
    if (shown > kMostShown) {
        shown = kMostShown;
        while (shown > 0 && (static_cast<unsigned char>(part[shown]) & 0xC0U) == 0x80U) {
            --shown;
        }
    }
    problem.append(": ").append(part.substr(0, shown));
    return shown < part.size() ? problem + "..." : problem;
}

/// Parts between any of the separators, without empty ones.
std::vector<std::string_view> PartsBetween(std::string_view separators, std::string_view text) {
    std::vector<std::string_view> parts;
    for (std::size_t at = 0; (at = text.find_first_not_of(separators, at)) != text.npos;) {
        const std::size_t end = std::min(text.find_first_of(separators, at), text.size());
        parts.push_back(text.substr(at, end - at));
        at = end;
    }
    return parts;
}

std::string_view WithoutSpaces(std::string_view text) {
    const std::size_t start = std::min(text.find_first_not_of(kSpaces), text.size());
    return text.substr(start, text.find_last_not_of(kSpaces) + 1 - start);
}

/// All of a part as a number.
template <typename Number, typename... Form>
std::errc NumberIn(std::string_view part, Number& number, Form... form) {
    const char* end = part.data() + part.size();
    const auto [stopped, error] = std::from_chars(part.data(), end, number, form...);
    return error == std::errc() && stopped != end ? std::errc::invalid_argument : error;
}

std::optional<std::uint64_t> WordValue(const TagInfo& tag, std::string_view text) {
    for (const ValueWord& word : tag.words) {
        if (SameName(word.text, text)) {
            return word.value;
        }
    }
    return std::nullopt;
}

/// The coded value that a word stands for, or flags with "+" between them.
std::optional<std::uint64_t> CodeFor(const TagInfo* tag, std::string_view text) {
    if (tag == nullptr) {
        return std::nullopt;
    }
    if (!tag->flags) {
        return WordValue(*tag, text);
    }
    std::uint64_t value = 0;
    const auto flags = PartsBetween("+", text);
    for (const std::string_view part : flags) {
        const std::string_view flag = WithoutSpaces(part);
        std::uint64_t number = 0;
        const auto word = WordValue(*tag, flag);
        if (!word && NumberIn(flag, number) != std::errc()) {
            return std::nullopt;
        }
        value |= word.value_or(number);
    }
    return flags.empty() ? std::nullopt : std::optional(value);
}

/// The parts of a text that are a value each. A word may have spaces inside.
std::vector<std::string_view> ValuesIn(std::string_view text, const TagInfo* tag) {
    std::vector<std::string_view> values;
    for (const std::string_view part : PartsBetween(",;", text)) {
        const std::string_view whole = WithoutSpaces(part);
        const bool hasFlags = tag != nullptr && tag->flags && whole.find('+') != whole.npos;
        if (hasFlags || CodeFor(tag, whole)) {
            values.push_back(whole);
        } else {
            const auto parts = PartsBetween(kSpaces, whole);
            values.insert(values.end(), parts.begin(), parts.end());
        }
    }
    return values;
}

template <std::integral Number>
Problem Parse(std::string_view part, Number& number, FieldType /*type*/) {
    if (NumberIn(part, number) == std::errc()) {
        return {};
    }
    using Limits = std::numeric_limits<Number>;
    return ProblemWith(part, "not a number from " + std::to_string(Limits::min()) + " to " +
                                 std::to_string(Limits::max()));
}

/// Digits with or without a point, as a fraction in lowest terms.
template <typename Number>
Problem ParseDecimal(std::string_view part, Fraction<Number>& fraction, FieldType type) {
    using Limits = std::numeric_limits<Number>;
    const bool negative = part.starts_with('-');
    std::string digits(part.substr(negative ? 1 : 0));
    const std::size_t point = std::min(digits.find('.'), digits.size());
    digits.erase(point, 1);
    while (digits.size() > std::max<std::size_t>(point, 1) && digits.ends_with('0')) {
        digits.pop_back();
    }
    std::uint64_t numerator = 0;
    const std::errc error = NumberIn(std::string_view(digits), numerator);
    if (error == std::errc::invalid_argument) {
        return ProblemWith(part, "not a fraction such as 72/1");
    }
    // Each place is another 2 and another 5 below, unless they go out above.
    std::uint64_t denominator = 1;
    constexpr auto kMost = static_cast<std::uint64_t>(Limits::max());
    for (std::size_t at = point; at < digits.size() && denominator <= kMost; ++at) {
        for (const unsigned factor : {2U, 5U}) {
            const bool goesOut = numerator % factor == 0;
            (goesOut ? numerator : denominator) =
                goesOut ? numerator / factor : denominator * factor;
        }
    }
    const std::uint64_t most = negative ? 0 - static_cast<std::uint64_t>(Limits::min()) : kMost;
    if (error != std::errc() || numerator > most || denominator > kMost) {
        return ProblemWith(part, std::string(FieldTypeName(type)) + " cannot hold this exactly");
    }
    fraction.numerator = static_cast<Number>(negative ? 0 - numerator : numerator);
    fraction.denominator = static_cast<Number>(denominator);
    return {};
}

template <typename Number>
Problem Parse(std::string_view part, Fraction<Number>& fraction, FieldType type) {
    const std::size_t slash = part.find('/');
    if (slash == part.npos) {
        return ParseDecimal(part, fraction, type);
    }
    const Problem problem = Parse(part.substr(0, slash), fraction.numerator, type);
    return problem.empty() ? Parse(part.substr(slash + 1), fraction.denominator, type) : problem;
}

template <typename Number>
Problem Parse(std::string_view part, Real<Number>& real, FieldType type) {
    if (part.starts_with("nan(") && part.ends_with(')')) {
        if (NumberIn(part.substr(4, part.size() - 5), real.bits, 16) == std::errc() &&
            real.IsNan()) {
            return {};
        }
    } else if (Number number = 0; NumberIn(part, number) == std::errc()) {
        real.bits = std::bit_cast<typename Real<Number>::Bits>(number);
        return {};
    }
    return ProblemWith(part, std::string("not a number that ") + FieldTypeName(type) + " can hold");
}

/// A code as an element, where it can be one.
template <typename Number>
requires std::integral<Number>
bool TakeCode(std::uint64_t code, Number& number) {
    number = static_cast<Number>(code);
    return std::in_range<Number>(code);
}

template <typename Number>
bool TakeCode(std::uint64_t code, Fraction<Number>& fraction) {
    fraction.denominator = 1;
    return TakeCode(code, fraction.numerator);
}

template <typename Number>
bool TakeCode(std::uint64_t /*code*/, Real<Number>& /*real*/) {
    return false;
}

template <typename Element>
Problem AppendValue(std::string_view part, const TagInfo* tag, FieldValue& value, Element element) {
    const auto code = CodeFor(tag, part);
    if (!code || !TakeCode(*code, element)) {
        if (Problem problem = Parse(part, element, value.type); !problem.empty()) {
            return problem;
        }
    }
    const auto bytes = std::as_bytes(std::span(&element, 1));
    value.bytes.insert(value.bytes.end(), bytes.begin(), bytes.end());
    return {};
}

/// Bytes in hexadecimal digits, two each; a lone digit is a byte too.
Problem AppendValue(std::string_view part, const TagInfo* tag, FieldValue& value,
                    Octet /*element*/) {
    if (const auto code = CodeFor(tag, part); code && *code <= UINT8_MAX) {
        value.bytes.push_back(static_cast<std::byte>(*code));
        return {};
    }
    std::string_view digits = part;
    digits.remove_prefix(part.starts_with("0x") || part.starts_with("0X") ? 2 : 0);
    const std::size_t width = std::min<std::size_t>(digits.size(), 2);
    for (; !digits.empty(); digits.remove_prefix(width)) {
        std::uint8_t byte = 0;
        if (digits.size() < width || NumberIn(digits.substr(0, width), byte, 16) != std::errc()) {
            break;
        }
        value.bytes.push_back(std::byte{byte});
    }
    return digits.empty() && width > 0 ? Problem() : ProblemWith(part, "not bytes such as 0f a0");
}

Problem CountProblem(const TagInfo* tag, std::size_t count, std::size_t closing, const char* unit) {
    const std::size_t least = tag == nullptr ? 1 : tag->least;
    const std::size_t most = tag == nullptr ? kAnyCount : tag->most;
    if (count >= least && count <= most) {
        return {};
    }
    std::string expected = std::to_string(least - closing);
    if (most == kAnyCount) {
        expected.insert(0, "at least ");
    } else if (most != least) {
        expected.append(" to ").append(std::to_string(most - closing));
    }
    const bool one = (most == kAnyCount ? least : most) - closing == 1;
    return "takes " + expected + " " + unit + (one ? "" : "s") + ", not " +
           std::to_string(count - closing);
}

template <typename Element>
ParsedValue ElementsIn(std::string_view text, FieldType type, const TagInfo* tag) {
    ParsedValue parsed = {{type, {}}, {}};
    for (const std::string_view part : ValuesIn(text, tag)) {
        parsed.problem = AppendValue(part, tag, parsed.value, Element{});
        if (!parsed.problem.empty()) {
            if (tag != nullptr && !tag->words.empty()) {
                parsed.problem +=
                    std::string(" (or a word such as \"") + tag->words[0].text + "\")";
            }
            return parsed;
        }
    }
    parsed.problem = CountProblem(tag, parsed.value.View().Count(), 0,
                                  std::is_same_v<Element, Octet> ? "byte" : "value");
    return parsed;
}

/// The letters of a code.
std::string LettersIn(std::uint64_t code) {
    std::string letters;
    for (; code != 0; code >>= 8U) {
        letters.push_back(static_cast<char>(code & 0xFFU));
    }
    return letters;
}

ParsedValue CharactersIn(std::string_view text, FieldType type, const TagInfo* tag) {
    const bool closed = type == FieldType::Ascii;
    const auto code = closed && tag != nullptr ? WordValue(*tag, text) : std::nullopt;
    std::string characters = code ? LettersIn(*code) : std::string(text);
    characters.append(closed ? 1 : 0, '\0');
    ParsedValue parsed = {{type, {}}, {}};
    parsed.problem = CountProblem(tag, characters.size(), closed ? 1 : 0, "character");
    const auto bytes = std::as_bytes(std::span(characters));
    parsed.value.bytes.assign(bytes.begin(), bytes.end());
    return parsed;
}

ParsedValue ValueIn(FieldType type, std::string_view text, const TagInfo* tag) {
    ParsedValue parsed = type == FieldType::Ascii || AreCharacters(type, tag)
                             ? CharactersIn(text, type, tag)
                             : UseElementOf(type, [&](auto element) {
                                   return ElementsIn<decltype(element)>(text, type, tag);
                               });
    if (!parsed.problem.empty()) {
        parsed.value = {};
    }
    return parsed;
}

ParsedValue ValueIn(const TagInfo& tag, std::string_view text) {
    ParsedValue parsed;
    for (const FieldType type : tag.types) {
        parsed = ValueIn(type, text, &tag);
        if (parsed.problem.empty()) {
            break;
        }
    }
    return parsed;
}

/// As short as it must be to need no memory itself.
constexpr const char* kNoMemory = "out of memory";

}  // namespace
}  // namespace tags

ParsedValue ParseValue(FieldType type, std::string_view text, const TagInfo* tag) {
    try {
        return tags::ValueIn(type, text, tag);
    } catch (const std::bad_alloc&) {
        return {{}, tags::kNoMemory};
    }
}

ParsedValue ParseValue(const TagInfo& tag, std::string_view text) {
    try {
        return tags::ValueIn(tag, text);
    } catch (const std::bad_alloc&) {
        return {{}, tags::kNoMemory};
    }
}

}  // namespace platen
