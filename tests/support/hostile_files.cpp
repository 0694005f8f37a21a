#include "tests/support/hostile_files.h"

#include <initializer_list>

namespace platen::test {
namespace {

constexpr std::uint32_t kHeader = 8;
constexpr std::uint32_t kPageSize = 18;  // a directory of one entry
constexpr std::uint16_t kTextTags[] = {269, 270, 271,   272,   285,   305,   306,
                                       315, 316, 33448, 33449, 33450, 33451, 33452};
constexpr std::uint16_t kShortTags[] = {258, 273, 279, 291, 301, 320, 324, 325};

/// The last of `count` directories links to directory `target`.
Bytes Loop(std::uint32_t count, std::uint32_t target) {
    Bytes bytes = Pages(count);
    Patch(bytes, bytes.size() - 4, kHeader + target * kPageSize, 4, Order::Intel);
    return bytes;
}

Bytes LinkIntoTheMiddle() {
    // Seen from byte 20 on, this is a directory as well, and its link leads to byte 22.
    Directory directory;
    for (std::uint16_t tag = 256; tag < 276; ++tag) {
        directory.entries.push_back(Word(tag, kTypeShort, 1, 22));
    }
    directory.link = 20;
    Bytes bytes = Build({.directories = {directory}});
    bytes.resize(4000, '\x16');
    return bytes;
}

Bytes HugeCounts() {
    Directory directory;
    constexpr std::uint16_t kTags[] = {258, 273, 279, 282, 305, 320};
    for (const std::uint16_t tag : kTags) {
        const std::uint16_t type = tag == 282   ? kTypeRational
                                   : tag == 305 ? kTypeAscii
                                                : kTypeShort;
        directory.entries.push_back(Word(tag, type, 0x7FFFFFFF, 8));
    }
    Bytes bytes = Build({.directories = {directory}});
    bytes.resize(100);
    return bytes;
}

/// `count` directories of `length` entries, each beginning `step` entries behind the one before.
/// A link lies over the tag and type of the first entry of a directory further on, so `length` is a
/// multiple of `step`.
Bytes Overlapping(const std::vector<Entry>& entries, std::uint32_t count, std::uint32_t step,
                  std::uint32_t length) {
    Bytes bytes = Build({.first = kHeader});
    bytes += Bytes(2, '\0');  // the first directory's count
    Bytes pattern;
    for (const Entry& entry : entries) {
        pattern += Build({.directories = {{{entry}}}}).substr(10, 12);
    }
    const std::size_t size = bytes.size() + (std::size_t{count - 1} * step + length + 1) * 12;
    while (bytes.size() < size) {
        bytes += pattern;
    }
    bytes.resize(size);
    for (std::uint32_t i = 0; i < count; ++i) {
        Patch(bytes, kHeader + i * step * 12, length, 2, Order::Intel);
    }
    for (std::uint32_t i = 0; i + 1 < count; ++i) {
        const std::uint32_t at = kHeader + i * step * 12;
        Patch(bytes, at + 2 + length * 12, at + step * 12, 4, Order::Intel);
    }
    return bytes;
}

/// Many small directories, each with the same entries.
Bytes Repeated(const std::vector<Entry>& entries, std::uint32_t count, std::size_t fileSize = 0) {
    Bytes bytes = Build({.directories = std::vector<Directory>(count, Directory{entries})});
    if (bytes.size() < fileSize) {
        bytes.resize(fileSize, 'x');
    }
    return bytes;
}

/// One directory of 65,535 entries, repeated over itself by a link to its second byte.
Bytes LongestDirectory(const Entry& entry) {
    return Build({.directories = {{std::vector<Entry>(65535, entry), 9}}});
}

std::vector<Entry> SmallBlocks() {
    std::vector<Entry> entries;
    for (const std::uint16_t tag : kShortTags) {
        entries.push_back(Shorts(tag, {1}));
    }
    for (const std::uint16_t tag : kTextTags) {
        entries.push_back(Text(tag, "abc"));
    }
    return entries;
}

std::vector<Entry> LargeBlocks(std::uint32_t count) {
    std::vector<Entry> entries;
    for (const std::uint16_t tag : kShortTags) {
        entries.push_back(Word(tag, kTypeShort, count, 8));
    }
    for (const std::uint16_t tag : kTextTags) {
        entries.push_back(Word(tag, kTypeAscii, count, 8));
    }
    entries.push_back(Word(282, kTypeRational, count / 8, 8));
    entries.push_back(Word(319, kTypeRational, count / 8, 8));
    return entries;
}

}  // namespace

Bytes Pages(std::uint32_t count, Order order) {
    std::vector<Directory> directories;
    for (std::uint32_t i = 0; i < count; ++i) {
        directories.push_back({{Longs(256, {i})}});
    }
    return Build({.order = order, .directories = directories});
}

std::vector<NamedFile> HostileFiles() {
    return {
        {"loop of one", Loop(1, 0)},
        {"loop of two", Loop(2, 0)},
        {"loop of a thousand", Loop(1000, 0)},
        {"loop behind a head", Loop(1000, 500)},
        {"link into the middle", LinkIntoTheMiddle()},
        {"huge counts", HugeCounts()},
        {"too many directories", Pages(40000)},
        {"overlapping, values in entries", Overlapping({Longs(256, {1})}, 10000, 17, 1003)},
        {"overlapping, small blocks", Overlapping(SmallBlocks(), 10000, 17, 1003)},
        {"overlapping, large blocks", Overlapping(LargeBlocks(1000), 10000, 17, 1003)},
        {"overlapping, largest blocks", Overlapping(LargeBlocks(2000000), 10000, 17, 1003)},
        {"overlapping, short", Overlapping(SmallBlocks(), 32700, 5, 30)},
        {"many small blocks", Repeated(SmallBlocks(), 7000)},
        {"one block shared by all", Repeated(LargeBlocks(1000000), 100, 2000000)},
        {"one long text", Repeated({Word(305, kTypeAscii, 1999000, 100)}, 5000, 2000000)},
        {"longest directory of fractions", LongestDirectory(Word(282, kTypeRational, 90000, 8))},
        {"longest directory of bytes", LongestDirectory(Word(700, 1, 1, 7))},
        {"longest directory of wide tables", LongestDirectory(Word(319, kTypeRational, 7, 8))},
    };
}

}  // namespace platen::test
