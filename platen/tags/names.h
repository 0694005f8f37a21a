#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

/// Names and words of the catalogue are ASCII, and upper and lower case alike, whatever the locale.
namespace platen::tags {

constexpr char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

constexpr bool SameName(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, Lower, Lower);
}

/// The value of a text that is a code, of at most four letters; 0 for any other text.
constexpr std::uint32_t LettersOf(std::string_view text) {
    std::uint32_t value = 0;
    if (text.size() <= sizeof(value) && text.find('\0') == text.npos) {
        for (std::size_t i = text.size(); i > 0; --i) {
            value = value << 8U | static_cast<unsigned char>(text[i - 1]);
        }
    }
    return value;
}

}  // namespace platen::tags
