#include <platen/platform/win32/file_windows.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include <platen/platform/win32/uninterrupted.h>

namespace platen::win32 {
namespace {

constexpr std::size_t kSmallest = 4096;
constexpr std::size_t kLargest = 65536;
/// From here on a second copy costs more than a call.
constexpr std::size_t kDirect = 16384;

/// Changes by file. Files share a count by chance, which costs a window and no more.
constexpr std::size_t kChangeCounts = 1021;
constinit std::array<ChangeCount, kChangeCounts> g_changes{};

ssize_t ReadAt(int descriptor, void* buffer, std::size_t count, off_t position) {
    return Uninterrupted([&] { return pread(descriptor, buffer, count, position); });
}

}  // namespace

constinit ChangeCount g_allChanges{0};

FileWindows::~FileWindows() {
    for (Window& window : m_windows) {
        std::free(window.bytes);
    }
}

bool FileWindows::Window::IsBeside(off_t position) const {
    const auto length = static_cast<off_t>(size);
    return size != 0 && position >= start - length && position < start + 2 * length;
}

bool FileWindows::Window::IsShortOf(off_t position) const {
    const auto into = static_cast<std::uint64_t>(position - start);
    return filled != 0 && into >= filled && into < size;
}

ssize_t FileWindows::Read(int descriptor, off_t position, void* buffer, std::size_t count) {
    CatchUp(descriptor);
    auto* out = static_cast<std::byte*>(buffer);
    std::size_t done = 0;
    while (done < count) {
        const off_t at = position + static_cast<off_t>(done);
        Window* window = Find(at);
        if (window == nullptr && count - done < kDirect) {
            window = Place(at);
            if (window != nullptr && !Fill(descriptor, *window, at)) {
                return done > 0 ? static_cast<ssize_t>(done) : -1;
            }
        }
        if (window == nullptr) {  // too much for one, or no memory for it
            const ssize_t got = ReadAt(descriptor, out + done, count - done, at);
            if (got <= 0) {
                return done > 0 ? static_cast<ssize_t>(done) : got;
            }
            done += static_cast<std::size_t>(got);
            continue;
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

/// Reads on until the window holds the position's byte, which one call need not bring, or the file
/// ends before it. False when the read failed.
bool FileWindows::Fill(int descriptor, Window& window, off_t position) {
    const auto wanted = static_cast<std::size_t>(position - window.start) + 1;
    while (window.filled < wanted) {
        const ssize_t got =
            ReadAt(descriptor, window.bytes + window.filled, window.size - window.filled,
                   window.start + static_cast<off_t>(window.filled));
        if (got < 0) {
            return false;
        }
        if (got == 0) {
            break;
        }
        window.filled += static_cast<std::size_t>(got);
    }
    window.used = ++m_clock;
    m_last = static_cast<std::size_t>(&window - m_windows.data());
    return true;
}

/// The window that is to hold the position's byte: one that was not read so far, or an empty one.
/// Null when memory is exhausted.
FileWindows::Window* FileWindows::Place(off_t position) {
    Window* begun = std::ranges::find_if(
        m_windows, [position](const Window& window) { return window.IsShortOf(position); });
    if (begun != m_windows.end()) {
        return begun;
    }
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
    window.size = size;
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

/// Which file it is is asked when it first matters: most handles only read, and nobody writes.
ChangeCount& FileWindows::OwnChanges(int descriptor) {
    if (m_ownChanges == nullptr) {
        struct stat status = {};
        fstat(descriptor, &status);  // what cannot be asked shares a count with others of its kind
        const auto file = static_cast<std::uint64_t>(status.st_ino) + 31 * status.st_dev;
        m_ownChanges = &g_changes[static_cast<std::size_t>(file % kChangeCounts)];
        // Which changes came before what the windows hold was not noted.
        DropAll();
        m_seenOfOwn = m_ownChanges->load(std::memory_order_acquire);
    }
    return *m_ownChanges;
}

/// Drops the windows when the file was changed since. The counts are noted before anything is read:
/// a change that comes meanwhile is then one that was not seen.
void FileWindows::CatchUp(int descriptor) {
    const std::size_t all = g_allChanges.load(std::memory_order_acquire);
    if (all == m_seenOfAll) {
        return;
    }
    const std::size_t own = OwnChanges(descriptor).load(std::memory_order_acquire);
    if (own != m_seenOfOwn) {
        DropAll();
    }
    m_seenOfOwn = own;
    m_seenOfAll = all;
}

void FileWindows::Changed(int descriptor, off_t position, std::size_t count) {
    // Windows that took account of all changes before go on doing so: what is new is dropped here.
    if (OwnChanges(descriptor).fetch_add(1, std::memory_order_acq_rel) == m_seenOfOwn) {
        ++m_seenOfOwn;
    }
    if (g_allChanges.fetch_add(1, std::memory_order_acq_rel) == m_seenOfAll) {
        ++m_seenOfAll;
    }
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

void FileWindows::Restart() {
    DropAll();
    m_ownChanges = nullptr;
}

}  // namespace platen::win32
