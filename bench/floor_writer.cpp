#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstring>

#include <bench/writers.h>

namespace platen::bench {
namespace {

constexpr std::uint32_t kEntries = 13;
constexpr std::uint32_t kPixels = 8;
constexpr std::uint32_t kDirectory = 2 + 12 * kEntries + 4;
constexpr std::uint32_t kFraction = 8;

/// A file written from its start on through a buffer of 64 KiB.
class Stream {
  public:
    explicit Stream(const char* name)
        : m_descriptor(open(name, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666)),
          m_good(m_descriptor >= 0) {}
    ~Stream() { close(m_descriptor); }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    template <typename T>
    void Put(T value) {
        if (m_used + sizeof(value) > m_buffer.size()) {
            Flush();
        }
        std::memcpy(m_buffer.data() + m_used, &value, sizeof(value));
        m_used += sizeof(value);
    }

    bool Flush() {
        m_good =
            m_good && write(m_descriptor, m_buffer.data(), m_used) == static_cast<ssize_t>(m_used);
        m_used = 0;
        return m_good;
    }

  private:
    int m_descriptor;
    bool m_good;
    std::size_t m_used = 0;
    std::array<char, 65536> m_buffer;
};

void PutEntry(Stream& out, std::uint16_t tag, std::uint16_t type, std::uint32_t value) {
    out.Put(tag);
    out.Put(type);
    out.Put(std::uint32_t{1});
    out.Put(value);
}

void PutDirectory(Stream& out, std::uint32_t pixels, std::uint32_t fractions, std::uint32_t next) {
    out.Put(static_cast<std::uint16_t>(kEntries));
    PutEntry(out, 254, 4, 0);
    PutEntry(out, 256, 4, 4);
    PutEntry(out, 257, 4, 2);
    PutEntry(out, 258, 3, 8);
    PutEntry(out, 259, 3, 1);
    PutEntry(out, 262, 3, 1);
    PutEntry(out, 273, 4, pixels);
    PutEntry(out, 277, 3, 1);
    PutEntry(out, 278, 4, 2);
    PutEntry(out, 279, 4, kPixels);
    PutEntry(out, 282, 5, fractions);
    PutEntry(out, 283, 5, fractions + kFraction);
    PutEntry(out, 296, 3, 2);
    out.Put(next);
}

}  // namespace

bool WriteWithFloor(const char* name, std::uint32_t pages) {
    Stream out(name);
    const std::uint32_t directories = 8 + kPixels * pages;
    const std::uint32_t values = directories + kDirectory * pages + 4;
    out.Put(std::uint16_t{0x4949});
    out.Put(std::uint16_t{42});
    out.Put(directories);
    for (std::uint32_t i = 0; i < pages; ++i) {
        out.Put(std::uint64_t{0});
    }
    for (std::uint32_t i = 0; i < pages; ++i) {
        const std::uint32_t next = i + 1 < pages ? directories + kDirectory * (i + 1) : 0;
        PutDirectory(out, 8 + kPixels * i, values + 2 * kFraction * i, next);
    }
    out.Put(std::uint32_t{0});
    for (std::uint32_t i = 0; i < 2 * pages; ++i) {
        out.Put(std::uint32_t{72});
        out.Put(std::uint32_t{1});
    }
    return out.Flush();
}

}  // namespace platen::bench
