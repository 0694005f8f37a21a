#include "shown_text.h"

#include <algorithm>
#include <cstdint>

namespace platen::tool {
namespace {

struct Range {
    std::uint8_t first;
    std::uint8_t last;

    [[nodiscard]] constexpr bool Has(char byte) const {
        const auto value = static_cast<std::uint8_t>(byte);
        return value >= first && value <= last;
    }
};

/// The sequences of UTF-8 by their first byte (RFC 3629, section 4).
struct Sequence {
    Range lead;
    Range second;
    std::size_t length;
};

constexpr Range kTail = {0x80, 0xBF};
constexpr Sequence kSequences[] = {
    {{0xC2, 0xDF}, kTail, 2}, {{0xE0, 0xE0}, {0xA0, 0xBF}, 3},
    {{0xE1, 0xEC}, kTail, 3}, {{0xED, 0xED}, {0x80, 0x9F}, 3},
    {{0xEE, 0xEF}, kTail, 3}, {{0xF0, 0xF0}, {0x90, 0xBF}, 4},
    {{0xF1, 0xF3}, kTail, 4}, {{0xF4, 0xF4}, {0x80, 0x8F}, 4},
};

/// The bytes of the character that the text starts with; 0 when it starts with none.
std::size_t LengthOfCharacter(std::string_view text) {
    constexpr Range kAscii = {0x00, 0x7F};
    if (kAscii.Has(text.front())) {
        return 1;
    }
    for (const Sequence& sequence : kSequences) {
        if (sequence.lead.Has(text.front())) {
            const bool good = text.size() >= sequence.length && sequence.second.Has(text[1]) &&
                              std::ranges::all_of(text.substr(2, sequence.length - 2),
                                                  [](char byte) { return kTail.Has(byte); });
            return good ? sequence.length : 0;
        }
    }
    return 0;
}

/// DEL, and U+0080 to U+009F in two bytes.
bool IsDelOrC1(std::string_view character) {
    constexpr Range kC1 = {0x80, 0x9F};
    return character == "\x7F" ||
           (character.size() == 2 && character[0] == '\xC2' && kC1.Has(character[1]));
}

bool IsC0(std::string_view character) {
    constexpr Range kC0 = {0x00, 0x1F};
    return character.size() == 1 && kC0.Has(character[0]);
}

/// As in "\x1B": `start`, and the byte in hexadecimal digits.
void AppendCode(std::string& text, const char* start, char byte) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    const auto value = static_cast<std::uint8_t>(byte);
    text.append(start).append(1, kDigits[value / 16]).append(1, kDigits[value % 16]);
}

/// The control characters that both forms have letters for.
bool AppendLetter(std::string& text, char control) {
    constexpr std::string_view kControls = "\n\r\t";
    const std::size_t letter = kControls.find(control);
    if (letter == kControls.npos) {
        return false;
    }
    text.append(1, '\\').append(1, "nrt"[letter]);
    return true;
}

void AppendShown(std::string& shown, std::string_view character) {
    if (IsC0(character)) {
        if (!AppendLetter(shown, character[0])) {
            AppendCode(shown, "\\x", character[0]);
        }
    } else if (IsDelOrC1(character)) {
        AppendCode(shown, character.size() == 1 ? "\\x" : "\\u00", character.back());
    } else {
        shown.append(character);
    }
}

void AppendJson(std::string& json, std::string_view character, bool forTerminal) {
    if (character == "\"" || character == "\\") {
        json.append(1, '\\').append(character);
    } else if (IsC0(character)) {
        if (!AppendLetter(json, character[0])) {
            AppendCode(json, "\\u00", character[0]);
        }
    } else if (forTerminal && IsDelOrC1(character)) {
        AppendCode(json, "\\u00", character.back());
    } else {
        json.append(character);
    }
}

/// Cuts off the character that the text starts with; empty, and a byte is cut off, when there is
/// none.
std::string_view TakeCharacter(std::string_view& text) {
    const std::size_t length = LengthOfCharacter(text);
    const std::string_view character = text.substr(0, length);
    text.remove_prefix(std::max<std::size_t>(length, 1));
    return character;
}

}  // namespace

std::string ShownText(std::string_view text, LineEnds lineEnds) {
    constexpr std::string_view kLineEnd = "\r\n";
    std::string shown;
    shown.reserve(text.size());
    while (!text.empty()) {
        if (lineEnds == LineEnds::Kept && text.starts_with(kLineEnd)) {
            shown.append(kLineEnd);
            text.remove_prefix(kLineEnd.size());
            continue;
        }
        const char first = text.front();
        const std::string_view character = TakeCharacter(text);
        if (character.empty()) {
            AppendCode(shown, "\\x", first);
        } else {
            AppendShown(shown, character);
        }
    }
    return shown;
}

std::string JsonText(std::string_view text, bool forTerminal) {
    constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
    std::string json = "\"";
    while (!text.empty()) {
        const std::string_view character = TakeCharacter(text);
        AppendJson(json, character.empty() ? kReplacement : character, forTerminal);
    }
    return json.append(1, '"');
}

}  // namespace platen::tool
