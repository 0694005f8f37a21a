#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <bench/readers.h>

namespace platen::bench {
namespace {

/// A file's bytes, read whole.
class WholeFile {
  public:
    explicit WholeFile(const char* name) {
        const int descriptor = open(name, O_RDONLY | O_CLOEXEC);
        if (descriptor < 0) {
            return;
        }
        struct stat status {};
        if (fstat(descriptor, &status) == 0) {
            Fill(descriptor, static_cast<std::size_t>(status.st_size));
        }
        close(descriptor);
    }
    ~WholeFile() { std::free(m_bytes); }
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    [[nodiscard]] const std::uint8_t* At(std::uint64_t offset, std::size_t size) const {
        return offset + size <= m_size ? m_bytes + offset : nullptr;
    }

  private:
    void Fill(int descriptor, std::size_t size) {
        m_bytes = static_cast<std::uint8_t*>(std::malloc(size));
        while (m_bytes != nullptr && m_size < size) {
            const ssize_t got =
                pread(descriptor, m_bytes + m_size, size - m_size, static_cast<off_t>(m_size));
            if (got <= 0) {
                return;
            }
            m_size += static_cast<std::size_t>(got);
        }
    }

    std::uint8_t* m_bytes = nullptr;
    std::size_t m_size = 0;
};

template <bool Swap>
class Parser {
  public:
    explicit Parser(const WholeFile& file) : m_file(file) {}

    std::uint64_t SumOfAll() const {
        const std::uint8_t* header = m_file.At(0, 8);
        if (header == nullptr || Get16(header + 2) != 42) {
            return 0;
        }
        std::vector<PageValues> pages;
        for (std::uint32_t offset = Get32(header + 4); offset != 0;) {
            if (!Directory(offset, pages.emplace_back())) {
                return 0;
            }
        }
        std::uint64_t sum = 0;
        for (const PageValues& page : pages) {
            sum += page.Sum();
        }
        return sum;
    }

  private:
    static std::uint16_t Get16(const std::uint8_t* bytes) {
        std::uint16_t value = 0;
        std::memcpy(&value, bytes, sizeof(value));
        return Swap ? __builtin_bswap16(value) : value;
    }

    static std::uint32_t Get32(const std::uint8_t* bytes) {
        std::uint32_t value = 0;
        std::memcpy(&value, bytes, sizeof(value));
        return Swap ? __builtin_bswap32(value) : value;
    }

    /// Reads the directory at `offset` and stores the next one's offset there.
    bool Directory(std::uint32_t& offset, PageValues& page) const {
        const std::uint8_t* count = m_file.At(offset, 2);
        const std::size_t entries = count == nullptr ? 0 : Get16(count);
        const std::uint8_t* bytes = m_file.At(std::uint64_t{offset} + 2, entries * 12 + 4);
        if (entries == 0 || bytes == nullptr) {
            return false;
        }
        for (std::size_t i = 0; i < entries; ++i, bytes += 12) {
            if (!Entry(bytes, page)) {
                return false;
            }
        }
        offset = Get32(bytes);
        return true;
    }

    bool Entry(const std::uint8_t* entry, PageValues& page) const {
        const std::uint8_t* value = entry + 8;
        switch (Get16(entry)) {
            case 254:
                return Long(entry, page.newSubfileType);
            case 256:
                return Long(entry, page.imageWidth);
            case 257:
                return Long(entry, page.imageLength);
            case 258:
                return Bits(entry, page);
            case 259:
                return Short(entry, page.compression);
            case 262:
                return Short(entry, page.photometric);
            case 273:
                return Long(entry, page.stripOffset);
            case 274:
                return Short(entry, page.orientation);
            case 277:
                return Short(entry, page.samplesPerPixel);
            case 278:
                return Long(entry, page.rowsPerStrip);
            case 279:
                return Long(entry, page.stripByteCount);
            case 282:
                return Quotient(entry, page.xResolution);
            case 283:
                return Quotient(entry, page.yResolution);
            case 284:
                return Short(entry, page.planarConfiguration);
            case 296:
                return Short(entry, page.resolutionUnit);
            case 297:
                page.pageNumber[0] = Get16(value);
                page.pageNumber[1] = Get16(value + 2);
                return Is(entry, 3, 2);
            default:
                return true;
        }
    }

    static bool Is(const std::uint8_t* entry, std::uint16_t type, std::uint32_t count) {
        return Get16(entry + 2) == type && Get32(entry + 4) == count;
    }

    static bool Short(const std::uint8_t* entry, std::uint16_t& value) {
        value = Get16(entry + 8);
        return Is(entry, 3, 1);
    }

    static bool Long(const std::uint8_t* entry, std::uint32_t& value) {
        value = Get32(entry + 8);
        return Is(entry, 4, 1);
    }

    bool Bits(const std::uint8_t* entry, PageValues& page) const {
        const std::uint8_t* bits = m_file.At(Get32(entry + 8), 6);
        if (bits == nullptr || !Is(entry, 3, 3)) {
            return false;
        }
        for (int sample = 0; sample < 3; ++sample, bits += 2) {
            page.bitsPerSample[sample] = Get16(bits);
        }
        return true;
    }

    bool Quotient(const std::uint8_t* entry, std::uint32_t& value) const {
        const std::uint8_t* fraction = m_file.At(Get32(entry + 8), 8);
        if (fraction == nullptr || !Is(entry, 5, 1) || Get32(fraction + 4) == 0) {
            return false;
        }
        value = Get32(fraction) / Get32(fraction + 4);
        return true;
    }

    const WholeFile& m_file;
};

}  // namespace

std::uint64_t ReadWithFloor(const char* name) {
    const WholeFile file(name);
    const std::uint8_t* order = file.At(0, 2);
    if (order == nullptr) {
        return 0;
    }
    return *order == 'M' ? Parser<true>(file).SumOfAll() : Parser<false>(file).SumOfAll();
}

}  // namespace platen::bench
