#include <platen/platform/win32/file_windows.h>

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace platen::win32 {
namespace {

constexpr std::size_t kSmallest = 4096;
constexpr std::size_t kLargest = 65536;
/// From here on a second copy costs more than a call.
constexpr std::size_t kDirect = 16384;

ssize_t ReadAt(int descriptor, void* buffer, std::size_t count, off_t position) {
    ssize_t got = 0;
    do {
        got = pread(descriptor, buffer, count, position);
    } while (got < 0 && errno == EINTR);
    return got;
}

}  // namespace

FileWindows::~FileWindows() {
    for (Window& window : m_windows) {
        std::free(window.bytes);
    }
}

bool FileWindows::Window::IsBeside(off_t position) const {
    const auto length = static_cast<off_t>(size);
    return size != 0 && position >= start - length && position < start + 2 * length;
}

/// Reads what goes beyond the window used last.
ssize_t FileWindows::ReadOn(int descriptor, off_t position, void* buffer, std::size_t count) {
    auto* out = static_cast<std::byte*>(buffer);
    std::size_t done = 0;
    while (done < count) {
        const off_t at = position + static_cast<off_t>(done);
        Window* window = Find(at);
        if (window == nullptr && count - done >= kDirect) {
            const ssize_t got = ReadAt(descriptor, out + done, count - done, at);
            if (got <= 0) {
                return done > 0 ? static_cast<ssize_t>(done) : got;
            }
            done += static_cast<std::size_t>(got);
            continue;
        }
        if (window == nullptr) {
            window = Fill(descriptor, at);
        }
        if (window == nullptr) {
            return done > 0 ? static_cast<ssize_t>(done) : -1;
        }
        const std::size_t held = std::min(window->HeldFrom(at), count - done);
        if (held == 0) {
            break;
        }
        std::memcpy(out + done, window->bytes + (at - window->start), held);
        done += held;
    }
    return static_cast<ssize_t>(done);
}

FileWindows::Window* FileWindows::Find(off_t position) {
    if (m_windows[m_last].HeldFrom(position) != 0) {
        return &m_windows[m_last];
    }
    for (std::size_t i = 0; i < m_windows.size(); ++i) {
        if (m_windows[i].HeldFrom(position) != 0) {
            m_last = i;
            m_windows[i].used = ++m_clock;
            return &m_windows[i];
        }
    }
    return nullptr;
}

/// Null when the read failed or memory is exhausted; a window without the position's byte when the
/// file ends before it.
FileWindows::Window* FileWindows::Fill(int descriptor, off_t position) {
    const std::size_t size = SizeFor(position);
    Window& window = LeastRecentlyUsed();
    window.size = 0;
    window.filled = 0;
    if (window.capacity < size) {
        std::free(window.bytes);
        window.bytes = static_cast<std::byte*>(std::malloc(size));
        window.capacity = window.bytes == nullptr ? 0 : size;
    }
    if (window.bytes == nullptr) {
        return nullptr;
    }
    window.start = position - position % static_cast<off_t>(size);
    const ssize_t got = ReadAt(descriptor, window.bytes, size, window.start);
    if (got < 0) {
        return nullptr;
    }
    window.size = size;
    window.filled = static_cast<std::size_t>(got);
    window.used = ++m_clock;
    m_last = static_cast<std::size_t>(&window - m_windows.data());
    return &window;
}

std::size_t FileWindows::SizeFor(off_t position) const {
    std::size_t size = kSmallest;
    for (const Window& window : m_windows) {
        if (window.IsBeside(position)) {
            size = std::max(size, std::min(2 * window.size, kLargest));
        }
    }
    return size;
}

FileWindows::Window& FileWindows::LeastRecentlyUsed() {
    return *std::min_element(
        m_windows.begin(), m_windows.end(),
        [](const Window& left, const Window& right) { return left.used < right.used; });
}

void FileWindows::Drop(off_t position, std::size_t count) {
    for (Window& window : m_windows) {
        const off_t end = position + static_cast<off_t>(count);
        if (position < window.start + static_cast<off_t>(window.size) && end > window.start) {
            window.filled = 0;
        }
    }
}

void FileWindows::DropAll() {
    for (Window& window : m_windows) {
        window.filled = 0;
    }
}

}  // namespace platen::win32
