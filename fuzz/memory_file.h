#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace platen::fuzz {

inline void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// A file in memory with a name under which it can be opened.
class MemoryFile {
  public:
    MemoryFile() : m_descriptor(memfd_create("platen-fuzz", MFD_CLOEXEC)) {
        Require(m_descriptor >= 0);
    }
    MemoryFile(const std::uint8_t* data, std::size_t size) : MemoryFile() {
        Require(write(m_descriptor, data, size) == static_cast<ssize_t>(size));
    }
    ~MemoryFile() { close(m_descriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    [[nodiscard]] std::string Path() const {
        return "/proc/self/fd/" + std::to_string(m_descriptor);
    }

  private:
    int m_descriptor;
};

}  // namespace platen::fuzz
