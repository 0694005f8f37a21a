#include <platen/platform/win32/files.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <utility>

#include <platen/platform/win32/descriptors.h>
#include <platen/platform/win32/file_windows.h>
#include <platen/platform/win32/uninterrupted.h>

namespace {

using platen::win32::FileWindows;
using platen::win32::Uninterrupted;

struct OpenFile {
    off_t position = 0;
    FileWindows windows;
};

HFILE DescriptorOf(HANDLE file) {
    return static_cast<HFILE>(reinterpret_cast<std::intptr_t>(file));
}

constexpr UINT kFailed = static_cast<UINT>(HFILE_ERROR);

/// The open files by descriptor, which is the handle. Shelves are added as descriptors rise and
/// stay; looking a handle up takes no lock.
class OpenFiles {
  public:
    static constexpr std::size_t kShelf = 1024;
    static constexpr std::size_t kShelves = 1024;

    OpenFile* Find(HFILE file) {
        std::atomic<OpenFile*>* place = Place(file, false);
        return place == nullptr ? nullptr : place->load(std::memory_order_acquire);
    }

    bool Add(HFILE file, OpenFile* state) {
        std::atomic<OpenFile*>* place = Place(file, true);
        if (place == nullptr) {
            return false;
        }
        place->store(state, std::memory_order_release);
        return true;
    }

    OpenFile* Take(HFILE file) {
        std::atomic<OpenFile*>* place = Place(file, false);
        return place == nullptr ? nullptr : place->exchange(nullptr);
    }

  private:
    using Shelf = std::array<std::atomic<OpenFile*>, kShelf>;

    std::atomic<OpenFile*>* Place(HFILE file, bool create) {
        if (file < 0 || static_cast<std::size_t>(file) >= kShelf * kShelves) {
            return nullptr;
        }
        const auto index = static_cast<std::size_t>(file);
        std::atomic<Shelf*>& slot = m_shelves[index / kShelf];
        Shelf* shelf = slot.load(std::memory_order_acquire);
        if (shelf == nullptr && create) {
            shelf = AddShelf(slot);
        }
        return shelf == nullptr ? nullptr : &(*shelf)[index % kShelf];
    }

    static Shelf* AddShelf(std::atomic<Shelf*>& slot) {
        auto* fresh = new (std::nothrow) Shelf{};
        Shelf* current = nullptr;
        if (fresh == nullptr || slot.compare_exchange_strong(current, fresh)) {
            return fresh;
        }
        delete fresh;
        return current;
    }

    std::array<std::atomic<Shelf*>, kShelves> m_shelves{};
};

constinit OpenFiles g_files;

HANDLE HandleOf(HFILE file) {
    return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(file));
}

HFILE Add(int descriptor, std::unique_ptr<OpenFile> state) {
    if (state == nullptr || !g_files.Add(descriptor, state.get())) {
        close(descriptor);
        errno = ENOMEM;
        return HFILE_ERROR;
    }
    static_cast<void>(state.release());
    return descriptor;
}

/// Closes a descriptor that is not needed; the reason stays that of what failed before.
void Discard(int descriptor) {
    const int reason = errno;
    close(descriptor);
    errno = reason;
}

/// No file takes a standard stream's place, not even where that is closed: what the process prints
/// would go into the file, and 0 as a handle passes for none.
int BehindStreams(int descriptor) {
    if (descriptor < 0 || descriptor > STDERR_FILENO) {
        return descriptor;
    }
    const int moved = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    Discard(descriptor);
    return moved;
}

/// O_NONBLOCK keeps an open of a pipe without a writer from waiting; it changes nothing for files.
int OpenDescriptor(LPCSTR name, int flags, mode_t permissions) {
    return BehindStreams(Uninterrupted(
        [&] { return open(name, flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, permissions); }));
}

/// The system opens a folder for reading, and then refuses to read. That is asked first: for a file
/// it is the cheaper question, and the only one.
bool IsFolder(int descriptor, int flags) {
    char none = 0;
    struct stat status = {};
    if ((flags & O_ACCMODE) != O_RDONLY || pread(descriptor, &none, 0, 0) >= 0 ||
        fstat(descriptor, &status) != 0 || !S_ISDIR(status.st_mode)) {
        return false;
    }
    errno = EISDIR;
    return true;
}

HFILE Open(LPCSTR name, int flags, mode_t permissions) {
    std::unique_ptr<OpenFile> state(new (std::nothrow) OpenFile);
    if (name == nullptr || state == nullptr) {
        return HFILE_ERROR;
    }
    const int descriptor = OpenDescriptor(name, flags, permissions);
    if (descriptor >= 0 && IsFolder(descriptor, flags)) {
        Discard(descriptor);
        return HFILE_ERROR;
    }
    return descriptor < 0 ? HFILE_ERROR : Add(descriptor, std::move(state));
}

LONG MoveTo(OpenFile& state, std::int64_t target) {
    if (target < 0 || target > std::numeric_limits<LONG>::max()) {
        return HFILE_ERROR;
    }
    state.position = static_cast<off_t>(target);
    return static_cast<LONG>(target);
}

[[gnu::noinline]] LONG MoveFromEnd(HFILE file, OpenFile& state, LONG offset) {
    state.windows.DropAll();
    const std::int64_t end = lseek(file, 0, SEEK_END);
    return end < 0 ? HFILE_ERROR : MoveTo(state, end + offset);
}

/// Not laid out in place, so that reading what is held stays short there.
[[gnu::noinline]] UINT ReadOn(HFILE file, OpenFile& state, LPVOID buffer, UINT count) {
    const ssize_t got = state.windows.Read(file, state.position, buffer, count);
    if (got < 0) {
        return kFailed;
    }
    state.position += got;
    return static_cast<UINT>(got);
}

/// Writes on where a call took less than it was given. The number written; a failure behind some
/// bytes is the next write's to tell.
ssize_t WriteAt(int descriptor, const char* bytes, std::size_t count, off_t position) {
    std::size_t done = 0;
    do {
        const ssize_t put = Uninterrupted([&] {
            return pwrite(descriptor, bytes + done, count - done,
                          position + static_cast<off_t>(done));
        });
        if (put <= 0) {
            return done > 0 ? static_cast<ssize_t>(done) : put;
        }
        done += static_cast<std::size_t>(put);
    } while (done < count);
    return static_cast<ssize_t>(done);
}

}  // namespace

namespace platen::win32 {

HANDLE AdoptDescriptor(int descriptor) {
    const int file = BehindStreams(descriptor);
    return HandleOf(file < 0 ? HFILE_ERROR
                             : Add(file, std::unique_ptr<OpenFile>(new (std::nothrow) OpenFile)));
}

int DescriptorBehind(HANDLE file) {
    return g_files.Find(DescriptorOf(file)) == nullptr ? -1 : DescriptorOf(file);
}

bool MoveHandle(HANDLE file, int descriptor) {
    OpenFile* state = g_files.Find(DescriptorOf(file));
    if (state == nullptr || dup3(descriptor, DescriptorOf(file), O_CLOEXEC) < 0) {
        return false;
    }
    state->windows.Restart();
    state->position = 0;
    return true;
}

}  // namespace platen::win32

HFILE _lcreat(LPCSTR name, int attribute) {
    const mode_t permissions = (attribute & FILE_ATTRIBUTE_READONLY) != 0 ? 0444 : 0666;
    const HFILE file = Open(name, O_RDWR | O_CREAT, permissions);
    if (file < 0) {
        return HFILE_ERROR;
    }
    // What was there goes only when nothing can fail any more. What is no file has no size.
    if (Uninterrupted([file] { return ftruncate(file, 0); }) != 0 && errno != EINVAL) {
        const int reason = errno;
        CloseHandle(HandleOf(file));
        errno = reason;
        return HFILE_ERROR;
    }
    g_files.Find(file)->windows.Changed(file, 0, 0);
    return file;
}

HFILE _lopen(LPCSTR name, int mode) {
    constexpr std::array<int, 3> kAccess = {O_RDONLY, O_WRONLY, O_RDWR};
    const auto access = static_cast<std::size_t>(mode & 3);
    return access < kAccess.size() ? Open(name, kAccess[access], 0) : HFILE_ERROR;
}

UINT _lread(HFILE file, LPVOID buffer, UINT count) {
    OpenFile* state = g_files.Find(file);
    if (state == nullptr) {
        return kFailed;
    }
    const std::byte* held = state->windows.Held(state->position, count);
    if (held == nullptr) {
        return ReadOn(file, *state, buffer, count);
    }
    std::memcpy(buffer, held, count);
    state->position += count;
    return count;
}

UINT _lwrite(HFILE file, LPCSTR buffer, UINT count) {
    OpenFile* state = g_files.Find(file);
    if (state == nullptr) {
        return kFailed;
    }
    const ssize_t put = WriteAt(file, buffer, count, state->position);
    if (put < 0) {
        return kFailed;
    }
    state->windows.Changed(file, state->position, static_cast<std::size_t>(put));
    state->position += put;
    return static_cast<UINT>(put);
}

LONG _llseek(HFILE file, LONG offset, int origin) {
    OpenFile* state = g_files.Find(file);
    if (state == nullptr) {
        return HFILE_ERROR;
    }
    switch (origin) {
        case 0:
            return MoveTo(*state, offset);
        case 1:
            return MoveTo(*state, state->position + std::int64_t{offset});
        case 2:
            return MoveFromEnd(file, *state, offset);
        default:
            return HFILE_ERROR;
    }
}

BOOL GetFileInformationByHandle(HANDLE file, BY_HANDLE_FILE_INFORMATION* information) {
    struct stat status = {};
    const HFILE descriptor = DescriptorOf(file);
    if (g_files.Find(descriptor) == nullptr || fstat(descriptor, &status) != 0) {
        return FALSE;
    }
    // The number of a device does not fit a serial number whole; major and minor do not collide.
    const std::uint64_t index = status.st_ino;
    information->dwVolumeSerialNumber =
        static_cast<DWORD>(major(status.st_dev) << 20U ^ minor(status.st_dev));
    information->nFileIndexHigh = static_cast<DWORD>(index >> 32U);
    information->nFileIndexLow = static_cast<DWORD>(index);
    return TRUE;
}

BOOL CloseHandle(HANDLE file) {
    const HFILE descriptor = DescriptorOf(file);
    OpenFile* state = g_files.Take(descriptor);
    if (state == nullptr) {
        return FALSE;
    }
    delete state;
    return close(descriptor) == 0 ? TRUE : FALSE;
}
