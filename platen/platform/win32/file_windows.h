#pragma once

#include <sys/types.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace platen::win32 {

/// Counts the changes that this process made to files, through whichever handles.
using ChangeCount = std::atomic<std::size_t>;
/// Those of all files: while it stays, nobody has to ask which file a handle is of.
extern ChangeCount g_allChanges;

/// The windows through which one open file is read: up to four aligned pieces of it, kept until
/// they are dropped, the file is changed or the least recently used makes room. A first look at a
/// place costs 4 KiB; a walk that goes on beside a window, forwards or backwards, is served in
/// doubling pieces up to 64 KiB. Reads of 16 KiB and more pass the windows by.
class FileWindows {
  public:
    FileWindows() = default;
    ~FileWindows();
    FileWindows(const FileWindows&) = delete;
    FileWindows& operator=(const FileWindows&) = delete;

    /// The `count` bytes at `position`, when the window used last holds them all; otherwise null.
    [[nodiscard]] const std::byte* Held(off_t position, std::size_t count) const {
        const Window& last = m_windows[m_last];
        // 0 less one is more than any window holds.
        const bool held = count - 1 < last.HeldFrom(position) && SeesAll();
        return held ? last.bytes + (position - last.start) : nullptr;
    }

    /// Reads up to `count` bytes at `position`: the number read, less only at the end of the file
    /// and before a byte that could not be read, or -1 when that is the first byte.
    ssize_t Read(int descriptor, off_t position, void* buffer, std::size_t count);

    /// The file has [position, position + count) anew: this handle's windows and those of all
    /// others forget what they hold of it.
    void Changed(int descriptor, off_t position, std::size_t count);
    void DropAll();
    /// The descriptor is another file's from now on.
    void Restart();

  private:
    struct Window {
        std::byte* bytes = nullptr;
        std::size_t capacity = 0;
        off_t start = 0;
        std::size_t size = 0;    ///< the piece's aligned length
        std::size_t filled = 0;  ///< bytes that were read so far
        std::uint32_t used = 0;

        /// How many held bytes start at `position`.
        [[nodiscard]] std::size_t HeldFrom(off_t position) const {
            // A position before the start wraps round to one far behind the end.
            const auto into = static_cast<std::uint64_t>(position - start);
            return into < filled ? filled - static_cast<std::size_t>(into) : 0;
        }
        [[nodiscard]] bool IsBeside(off_t position) const;
        /// Whether what was read of it ends before `position`, which it is to hold.
        [[nodiscard]] bool IsShortOf(off_t position) const;
    };

    [[nodiscard]] bool SeesAll() const {
        return g_allChanges.load(std::memory_order_acquire) == m_seenOfAll;
    }
    void CatchUp(int descriptor);
    ChangeCount& OwnChanges(int descriptor);
    Window* Find(off_t position);
    bool Fill(int descriptor, Window& window, off_t position);
    Window* Place(off_t position);
    [[nodiscard]] std::size_t SizeFor(off_t position) const;
    Window& LeastRecentlyUsed();

    ChangeCount* m_ownChanges = nullptr;  ///< of this file, once it had to be known
    std::size_t m_seenOfOwn = 0;          ///< changes that the windows take account of
    std::size_t m_seenOfAll = g_allChanges.load(std::memory_order_acquire);
    std::array<Window, 4> m_windows;
    std::size_t m_last = 0;
    std::uint32_t m_clock = 0;
};

}  // namespace platen::win32
