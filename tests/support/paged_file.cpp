#include <tests/support/paged_file.h>

#include <cstddef>
#include <fstream>

namespace platen::test {
namespace {

constexpr std::uint16_t kShort = 3;
constexpr std::uint16_t kLong = 4;
constexpr std::uint16_t kRational = 5;

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

/// Writes numbers one behind the other in the file's byte order.
class Cursor {
  public:
    Cursor(std::vector<std::uint8_t>& bytes, std::size_t at, bool bigEndian)
        : m_bytes(bytes), m_at(at), m_bigEndian(bigEndian) {}

    void Put16(std::uint32_t value) { Put(value, 2); }
    void Put32(std::uint32_t value) { Put(value, 4); }

    void Entry(std::uint16_t tag, std::uint16_t type, std::uint32_t count, std::uint32_t value) {
        Put16(tag);
        Put16(type);
        Put32(count);
        if (type == kShort && count == 1) {
            Put16(value);
            Put16(0);
        } else {
            Put32(value);
        }
    }

    void WordPairEntry(std::uint16_t tag, std::uint32_t first, std::uint32_t second) {
        Put16(tag);
        Put16(kShort);
        Put32(2);
        Put16(first);
        Put16(second);
    }

  private:
    void Put(std::uint32_t value, unsigned size) {
        for (unsigned i = 0; i < size; ++i) {
            const unsigned shift = 8 * (m_bigEndian ? size - 1 - i : i);
            m_bytes[m_at++] = static_cast<std::uint8_t>(value >> shift & 0xFFU);
        }
    }

    std::vector<std::uint8_t>& m_bytes;
    std::size_t m_at;
    bool m_bigEndian;
};

void PutDirectory(Cursor out, const PagedFile& file, std::uint32_t page, std::uint32_t values) {
    out.Put16(PagedFile::kEntries);
    out.Entry(254, kLong, 1, 2);        // NewSubfileType: a single page
    out.Entry(256, kLong, 1, 1);        // ImageWidth
    out.Entry(257, kLong, 1, 1);        // ImageLength
    out.Entry(258, kShort, 3, values);  // BitsPerSample
    out.Entry(259, kShort, 1, 1);       // Compression: none
    out.Entry(262, kShort, 1, 2);       // PhotometricInterpretation: RGB
    out.Entry(273, kLong, 1, PagedFile::kStripOffset);
    out.Entry(274, kShort, 1, 1);  // Orientation
    out.Entry(277, kShort, 1, 3);  // SamplesPerPixel
    out.Entry(278, kLong, 1, 1);   // RowsPerStrip
    out.Entry(279, kLong, 1, PagedFile::kStripBytes);
    out.Entry(282, kRational, 1, values + kBitsSize);
    out.Entry(283, kRational, 1, values + kBitsSize + kRationalSize);
    out.Entry(284, kShort, 1, 1);              // PlanarConfiguration: contiguous
    out.Entry(296, kShort, 1, 2);              // ResolutionUnit: inch
    out.WordPairEntry(297, page, file.pages);  // PageNumber
    out.Put32(page + 1 < file.pages ? PlaceOf(file, page + 1).directory : 0);
}

void PutValues(Cursor out, std::uint32_t page) {
    for (int sample = 0; sample < 3; ++sample) {
        out.Put16(8);
    }
    out.Put32(PagedFile::XResolutionNumerator(page));
    out.Put32(PagedFile::kResolutionDenominator);
    out.Put32(PagedFile::YResolutionNumerator(page));
    out.Put32(PagedFile::kResolutionDenominator);
}

}  // namespace

std::vector<std::uint8_t> PagedFile::Bytes() const {
    std::vector<std::uint8_t> bytes(kPagesStart +
                                    std::size_t{pages} * (kDirectorySize + kValuesSize));
    Cursor header(bytes, 0, bigEndian);
    header.Put16(bigEndian ? 0x4D4D : 0x4949);
    header.Put16(42);
    header.Put32(pages == 0 ? 0 : PlaceOf(*this, 0).directory);
    header.Put32(0x00FF8040);  // the strip and a byte of padding
    for (std::uint32_t page = 0; page < pages; ++page) {
        const Place place = PlaceOf(*this, page);
        PutDirectory(Cursor(bytes, place.directory, bigEndian), *this, page, place.values);
        PutValues(Cursor(bytes, place.values, bigEndian), page);
    }
    return bytes;
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
