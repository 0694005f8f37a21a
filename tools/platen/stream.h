#pragma once

#include <cstddef>
#include <string>

namespace platen::tool {

/// An output that is written straight through because it is no file to be replaced: a pipe, a
/// terminal, a device, or one of the program's own open descriptors, as /dev/stdout. Each step
/// answers whether it succeeded; if not, the system's last error tells why.
class Stream {
  public:
    /// Whether the name leads to one.
    [[nodiscard]] static bool IsNamed(const std::string& name);

    Stream() = default;
    ~Stream() { Close(); }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    /// Waits for the reader of a named pipe.
    bool Open(const std::string& name);
    /// Writes all of it. An interrupt that was noted ends it.
    bool Write(const void* bytes, std::size_t size);
    bool Close();

  private:
    void* m_handle = nullptr;  ///< the system's; null: none
};

}  // namespace platen::tool
