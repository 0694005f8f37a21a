#pragma once

#include "tests/support/read_tiff.h"

/// What the tests of the writing half share: setting tags, files as bytes, raw directories.
namespace platen::test {

inline constexpr short kFormats[] = {kIntel, kMotorola};

inline Order OrderOf(short format) {
    return format == kIntel ? Order::Intel : Order::Motorola;
}

/// The status is visible, since not every operation answers it.
struct OpenTiff : Tiff {
    [[nodiscard]] long Status() const { return m_Status; }
};

template <typename T>
std::intptr_t AddressOf(const T* values) {
    return reinterpret_cast<std::intptr_t>(values);
}

inline void SetNumber(Tiff& tiff, std::uint16_t tag, std::uint32_t number, short dir = 0) {
    tiff.setTAG(tag, static_cast<std::intptr_t>(number), 0, dir);
}

inline void SetText(Tiff& tiff, std::uint16_t tag, const std::string& text, short dir = 0) {
    tiff.setTAG(tag, AddressOf(text.c_str()), static_cast<std::int32_t>(text.size()) + 1, dir);
}

template <typename T>
void SetArray(Tiff& tiff, std::uint16_t tag, const std::vector<T>& values, short dir = 0) {
    tiff.setTAG(tag, AddressOf(values.data()), static_cast<std::int32_t>(values.size()), dir);
}
inline void SetShorts(Tiff& tiff, std::uint16_t tag, const std::vector<std::uint16_t>& values,
                      short dir = 0) {
    SetArray(tiff, tag, values, dir);
}
inline void SetLongs(Tiff& tiff, std::uint16_t tag, const std::vector<std::uint32_t>& values,
                     short dir = 0) {
    SetArray(tiff, tag, values, dir);
}

/// An image of one sample a pixel; its strip offset is to be relocated.
inline void SetImage(Tiff& tiff, std::uint32_t width, std::uint32_t length, std::uint16_t bits,
                     short dir = 0) {
    SetNumber(tiff, 254, 0, dir);
    SetNumber(tiff, 256, width, dir);
    SetNumber(tiff, 257, length, dir);
    SetShorts(tiff, 258, {bits}, dir);
    SetLongs(tiff, 273, {0}, dir);
}

/// Bytes from hexadecimal digits; everything else in the text is passed over.
inline Bytes Hex(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    Bytes bytes;
    bool half = false;
    for (const char letter : text) {
        const std::size_t digit = kDigits.find(letter);
        if (digit == std::string_view::npos) {
            continue;
        }
        if (half) {
            const std::size_t high = static_cast<unsigned char>(bytes.back());
            bytes.back() = static_cast<char>(high * 16U + digit);
        } else {
            bytes += static_cast<char>(digit);
        }
        half = !half;
    }
    return bytes;
}

/// Bytes as text, for messages.
inline std::string Shown(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (const char byte : bytes) {
        text += kDigits[static_cast<unsigned char>(byte) >> 4U];
        text += kDigits[static_cast<unsigned char>(byte) & 15U];
        text += ' ';
    }
    return text;
}

/// An image of eight bytes: its data at 8, its directory of six entries and 78 bytes at 16.
inline Bytes SmallFile() {
    return Build({.data = "12345678",
                  .directories = {{{Longs(254, {0}), Longs(256, {4}), Longs(257, {2}),
                                    Shorts(258, {8}), Longs(273, {8}), Text(305, "a text")}}}});
}

/// The file that WriteNew gives; empty when it did not answer 1.
inline Bytes WrittenNew(Tiff& tiff, short format) {
    const TemporaryFile file;
    return tiff.WriteNew(file.Name(), format) == 1 ? file.Contents() : Bytes();
}

inline std::uint32_t NumberAt(std::string_view bytes, std::size_t at, unsigned width, Order order) {
    std::uint32_t number = 0;
    for (unsigned i = 0; i < width && at + i < bytes.size(); ++i) {
        const unsigned place = order == Order::Intel ? i : width - 1 - i;
        number |= std::uint32_t{static_cast<unsigned char>(bytes[at + i])} << 8 * place;
    }
    return number;
}

/// An entry as it stands in a file, its values as the bytes of a file in Intel order.
struct RawEntry {
    std::uint32_t tag, type, count;
    Bytes values;
};

/// A directory's entries in the order of the file; the position of the next one goes to `offset`.
inline std::vector<RawEntry> RawDirectory(std::string_view bytes, std::uint32_t& offset) {
    constexpr unsigned kSize[] = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8};
    constexpr unsigned kElement[] = {1, 1, 1, 2, 4, 4, 1, 1, 2, 4, 4, 4, 8};
    const Order order = bytes[0] == 'I' ? Order::Intel : Order::Motorola;
    std::vector<RawEntry> entries;
    const std::uint32_t number = NumberAt(bytes, offset, 2, order);
    std::size_t at = offset + 2;
    for (std::uint32_t i = 0; i < number; ++i, at += 12) {
        RawEntry entry = {NumberAt(bytes, at, 2, order), NumberAt(bytes, at + 2, 2, order),
                          NumberAt(bytes, at + 4, 4, order), Bytes()};
        const unsigned element = entry.type < 13 ? kElement[entry.type] : 1;
        const std::size_t size = entry.type < 13 ? entry.count * kSize[entry.type] : 0;
        const std::size_t values = size > 4 ? NumberAt(bytes, at + 8, 4, order) : at + 8;
        entry.values = values < bytes.size() ? bytes.substr(values, size) : Bytes("outside");
        for (std::size_t e = 0; order == Order::Motorola && e + element <= size; e += element) {
            const auto from = entry.values.begin() + static_cast<std::ptrdiff_t>(e);
            std::reverse(from, from + static_cast<std::ptrdiff_t>(element));
        }
        entries.push_back(entry);
    }
    offset = NumberAt(bytes, at, 4, order);
    return entries;
}

}  // namespace platen::test
