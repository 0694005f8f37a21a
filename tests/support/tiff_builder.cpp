#include "tests/support/tiff_builder.h"

#include <algorithm>
#include <utility>

namespace platen::test {
namespace {

constexpr std::size_t kHeaderSize = 8;
constexpr std::size_t kEntrySize = 12;
constexpr std::size_t kInEntry = 4;

std::size_t ValueSize(const Entry& entry) {
    return entry.numbers.size() * entry.width;
}

std::size_t DirectorySize(const Directory& directory) {
    return 2 + kEntrySize * directory.entries.size() + 4;
}

std::size_t LongValuesSize(const Directory& directory) {
    std::size_t size = 0;
    for (const Entry& entry : directory.entries) {
        size += ValueSize(entry) > kInEntry ? ValueSize(entry) : 0;
    }
    return size;
}

Entry MakeEntry(std::uint16_t tag, std::uint16_t type, unsigned width,
                std::vector<std::uint32_t> numbers) {
    const auto count = static_cast<std::uint32_t>(numbers.size());
    return {tag, type, count, width, std::move(numbers)};
}

/// Where a directory and its long values stand.
struct DirectoryPlace {
    std::size_t directory;
    std::size_t values;
};

std::vector<DirectoryPlace> Arrange(const File& file) {
    std::vector<DirectoryPlace> places;
    std::size_t at = kHeaderSize + file.data.size();
    for (const Directory& directory : file.directories) {
        const std::size_t values = at + DirectorySize(directory);
        places.push_back({at, values});
        at = values + LongValuesSize(directory);
    }
    return places;
}

/// Appends to `bytes`, which is the directory, and writes the long values at their place.
void PutDirectory(Bytes& bytes, const Directory& directory, DirectoryPlace place,
                  std::uint32_t next, Order order) {
    Patch(bytes, place.directory, static_cast<std::uint32_t>(directory.entries.size()), 2, order);
    std::size_t at = place.directory + 2;
    for (const Entry& entry : directory.entries) {
        Patch(bytes, at, entry.tag, 2, order);
        Patch(bytes, at + 2, entry.type, 2, order);
        Patch(bytes, at + 4, entry.count, 4, order);
        std::size_t value = at + 8;
        Patch(bytes, value, 0, 4, order);
        if (ValueSize(entry) > kInEntry) {
            Patch(bytes, value, static_cast<std::uint32_t>(place.values), 4, order);
            value = place.values;
            place.values += ValueSize(entry);
        }
        for (const std::uint32_t number : entry.numbers) {
            Patch(bytes, value, number, entry.width, order);
            value += entry.width;
        }
        at += kEntrySize;
    }
    Patch(bytes, at, next, 4, order);
}

}  // namespace

Entry Bytes8(std::uint16_t tag, std::vector<std::uint32_t> numbers) {
    return MakeEntry(tag, kTypeByte, 1, std::move(numbers));
}

Entry Shorts(std::uint16_t tag, std::vector<std::uint32_t> numbers) {
    return MakeEntry(tag, kTypeShort, 2, std::move(numbers));
}

Entry Longs(std::uint16_t tag, std::vector<std::uint32_t> numbers) {
    return MakeEntry(tag, kTypeLong, 4, std::move(numbers));
}

Entry Rationals(std::uint16_t tag, const std::vector<Rational>& fractions) {
    Entry entry = MakeEntry(tag, kTypeRational, 4, {});
    for (const Rational& fraction : fractions) {
        entry.numbers.push_back(fraction.Numerator);
        entry.numbers.push_back(fraction.Denominator);
    }
    entry.count = static_cast<std::uint32_t>(fractions.size());
    return entry;
}

Entry Text(std::uint16_t tag, std::string_view text) {
    std::vector<std::uint32_t> characters;
    for (const char character : text) {
        characters.push_back(static_cast<unsigned char>(character));
    }
    characters.push_back(0);
    return MakeEntry(tag, kTypeAscii, 1, std::move(characters));
}

Entry Word(std::uint16_t tag, std::uint16_t type, std::uint32_t count, std::uint32_t word) {
    return {tag, type, count, 4, {word}};
}

void Patch(Bytes& bytes, std::size_t offset, std::uint32_t number, unsigned width, Order order) {
    bytes.resize(std::max(bytes.size(), offset + width));
    for (unsigned i = 0; i < width; ++i) {
        const unsigned place = order == Order::Intel ? i : width - 1 - i;
        bytes[offset + i] = static_cast<char>(number >> (8 * place) & 0xFFU);
    }
}

Bytes Build(const File& file) {
    const std::vector<DirectoryPlace> places = Arrange(file);
    const auto offsetOf = [&](std::size_t index) {
        return index < places.size() ? static_cast<std::uint32_t>(places[index].directory) : 0;
    };
    Bytes bytes(2, file.order == Order::Intel ? 'I' : 'M');
    Patch(bytes, 2, file.version, 2, file.order);
    Patch(bytes, 4, file.first.value_or(offsetOf(0)), 4, file.order);
    bytes += file.data;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Directory& directory = file.directories[i];
        PutDirectory(bytes, directory, places[i], directory.link.value_or(offsetOf(i + 1)),
                     file.order);
    }
    return bytes;
}

}  // namespace platen::test
