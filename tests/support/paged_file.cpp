#include <tests/support/paged_file.h>

#include <cstddef>
#include <fstream>

#include <tests/support/tiff_builder.h>

namespace platen::test {
namespace {

constexpr std::uint32_t kPagesStart = 12;
constexpr std::uint32_t kDirectorySize = 2 + PagedFile::kEntries * 12 + 4;
constexpr std::uint32_t kBitsSize = 3 * 2;
constexpr std::uint32_t kRationalSize = 2 * 4;
constexpr std::uint32_t kValuesSize = kBitsSize + 2 * kRationalSize;

struct Place {
    std::uint32_t directory;
    std::uint32_t values;
};

Place PlaceOf(const PagedFile& file, std::uint32_t page) {
    if (file.layout == PageLayout::ValuesLast) {
        return {kPagesStart + page * kDirectorySize,
                kPagesStart + file.pages * kDirectorySize + page * kValuesSize};
    }
    const std::uint32_t at = file.layout == PageLayout::Reversed ? file.pages - 1 - page : page;
    const std::uint32_t directory = kPagesStart + at * (kDirectorySize + kValuesSize);
    return {directory, directory + kDirectorySize};
}

/// The page's entries; `values` is where the values that do not fit in them stand.
std::vector<Entry> Entries(const PagedFile& file, std::uint32_t page, std::uint32_t values) {
    // clang-format off
    return {Longs(254, {2}), Longs(256, {1}), Longs(257, {1}), Word(258, kTypeShort, 3, values),
            Shorts(259, {1}), Shorts(262, {2}), Longs(273, {PagedFile::kStripOffset}),
            Shorts(274, {1}), Shorts(277, {3}), Longs(278, {1}),
            Longs(279, {PagedFile::kStripBytes}), Word(282, kTypeRational, 1, values + kBitsSize),
            Word(283, kTypeRational, 1, values + kBitsSize + kRationalSize), Shorts(284, {1}),
            Shorts(296, {2}), Shorts(297, {page, file.pages})};
    // clang-format on
}

}  // namespace

std::vector<std::uint8_t> PagedFile::Bytes() const {
    const Order order = bigEndian ? Order::Motorola : Order::Intel;
    test::Bytes bytes = Build({.order = order});
    bytes.resize(kPagesStart + std::size_t{pages} * (kDirectorySize + kValuesSize));
    Patch(bytes, 4, pages == 0 ? 0 : PlaceOf(*this, 0).directory, 4, order);
    Patch(bytes, 8, 0x00FF8040, 4, order);  // the strip and a byte of padding
    for (std::uint32_t page = 0; page < pages; ++page) {
        const auto [directory, values] = PlaceOf(*this, page);
        const std::uint32_t next = page + 1 < pages ? PlaceOf(*this, page + 1).directory : 0;
        const File lone = {.order = order, .directories = {{Entries(*this, page, values), next}}};
        bytes.replace(directory, kDirectorySize, Build(lone), 8, kDirectorySize);
        for (std::uint32_t sample = 0; sample < 3; ++sample) {
            Patch(bytes, values + 2 * sample, 8, 2, order);
        }
        const std::uint32_t numbers[] = {XResolutionNumerator(page), kResolutionDenominator,
                                         YResolutionNumerator(page), kResolutionDenominator};
        for (std::uint32_t i = 0; i < 4; ++i) {
            Patch(bytes, values + kBitsSize + 4 * i, numbers[i], 4, order);
        }
    }
    return {bytes.begin(), bytes.end()};
}

bool PagedFile::Write(const std::string& path) const {
    const std::vector<std::uint8_t> bytes = Bytes();
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
    out.close();
    return out.good();
}

}  // namespace platen::test
