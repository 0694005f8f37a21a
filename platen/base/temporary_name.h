#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace platen {

/// How many outputs of one name may be under way at a time.
inline constexpr int kTemporaryNames = 4;

/// Whether a unit goes on with the character of the one before: of UTF-8, and of UTF-16.
constexpr bool GoesOn(char unit) {
    return (static_cast<unsigned char>(unit) & 0xC0U) == 0x80U;
}
constexpr bool GoesOn(wchar_t unit) {
    return (static_cast<std::uint32_t>(unit) & 0xFC00U) == 0xDC00U;
}

/// The name of the temporary file number `index` beside a file `name`: the name, of which the end
/// is left out so that the result is no longer than it or `kAlwaysFits`, and eight hexadecimal
/// digits that belong to the whole of it. Nobody names a file so by chance, and every output of a
/// name comes upon what an earlier one left.
template <typename Text>
Text TemporaryName(const Text& name, int index) {
    using Unit = typename Text::value_type;
    constexpr std::size_t kAdded = 16;  // ".01234567-0.part"
    constexpr std::size_t kAlwaysFits = 32;
    std::size_t kept = std::min(name.size(), std::max(name.size(), kAlwaysFits) - kAdded);
    while (kept > 0 && kept < name.size() && GoesOn(name[kept])) {
        --kept;
    }
    std::uint32_t sum = 2166136261U;  // FNV-1a
    for (const Unit unit : name) {
        sum = (sum ^ static_cast<std::uint32_t>(unit)) * 16777619U;
    }
    Text temporary = name.substr(0, kept);
    temporary += Unit{'.'};
    for (int shift = 28; shift >= 0; shift -= 4) {
        temporary +=
            static_cast<Unit>("0123456789abcdef"[sum >> static_cast<unsigned>(shift) & 15U]);
    }
    temporary += Unit{'-'};
    temporary += static_cast<Unit>('0' + index);
    for (const char letter : {'.', 'p', 'a', 'r', 't'}) {
        temporary += static_cast<Unit>(letter);
    }
    return temporary;
}

}  // namespace platen
