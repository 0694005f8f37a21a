#pragma once

#include <sys/types.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace platen::win32 {

/// The windows through which one open file is read: up to four aligned pieces of it, kept until
/// they are dropped or the least recently used makes room. A first look at a place costs 4 KiB; a
/// walk that goes on beside a window, forwards or backwards, is served in doubling pieces up to
/// 64 KiB. Reads of 16 KiB and more pass the windows by.
class FileWindows {
  public:
    FileWindows() = default;
    ~FileWindows();
    FileWindows(const FileWindows&) = delete;
    FileWindows& operator=(const FileWindows&) = delete;

    /// Reads up to `count` bytes at `position`: the number read, less only at the end of the file,
    /// or -1 when the first byte could not be read.
    ssize_t Read(int descriptor, off_t position, void* buffer, std::size_t count) {
        const Window& last = m_windows[m_last];
        if (count == 0 || count > last.HeldFrom(position)) {
            return ReadOn(descriptor, position, buffer, count);
        }
        std::memcpy(buffer, last.bytes + (position - last.start), count);
        return static_cast<ssize_t>(count);
    }
    /// Forgets what the windows hold of [position, position + count).
    void Drop(off_t position, std::size_t count);
    void DropAll();

  private:
    struct Window {
        std::byte* bytes = nullptr;
        std::size_t capacity = 0;
        off_t start = 0;
        std::size_t size = 0;    ///< the piece's aligned length
        std::size_t filled = 0;  ///< bytes that the file had for it
        std::uint32_t used = 0;

        /// How many held bytes start at `position`.
        [[nodiscard]] std::size_t HeldFrom(off_t position) const {
            // A position before the start wraps round to one far behind the end.
            const auto into = static_cast<std::uint64_t>(position - start);
            return into < filled ? filled - static_cast<std::size_t>(into) : 0;
        }
        [[nodiscard]] bool IsBeside(off_t position) const;
    };

    ssize_t ReadOn(int descriptor, off_t position, void* buffer, std::size_t count);
    Window* Find(off_t position);
    Window* Fill(int descriptor, off_t position);
    [[nodiscard]] std::size_t SizeFor(off_t position) const;
    Window& LeastRecentlyUsed();

    std::array<Window, 4> m_windows;
    std::size_t m_last = 0;
    std::uint32_t m_clock = 0;
};

}  // namespace platen::win32
