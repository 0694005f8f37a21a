#include <platen/base/files.h>

#include <algorithm>

#include <platen/base/file_handles.h>
#include <platen/base/file_watch.h>

namespace {

using Step = platen::FileWatch::Step;

constexpr LONG kReadWrite = 0x02;
constexpr LONG kLargestTransfer = 0x7FFFFFFF;

void* FromPlatform(HFILE file) {
    if (file == HFILE_ERROR) {
        platen::FileWatch::Note(Step::Open);
    }
    return reinterpret_cast<void*>(static_cast<std::intptr_t>(platen::FreshHandle(file)));
}

HFILE ToPlatform(void* file) {
    return static_cast<HFILE>(reinterpret_cast<std::intptr_t>(platen::PlatformHandle(file)));
}

/// Moves `count` bytes in pieces that the platform takes. `piece` transfers at an offset into the
/// buffer. A failure after some bytes went through counts those bytes. `ended` is what it means
/// when nothing more goes through.
template <typename Piece>
LONG Transfer(LONG count, Step step, Step ended, Piece piece) {
    LONG total = 0;
    while (total < count) {
        const LONG left = std::min(count - total, kLargestTransfer);
        const LONG moved =
            platen::AreTransfersStopped() ? -1 : static_cast<LONG>(piece(total, left));
        if (moved <= 0) {
            platen::FileWatch::Note(moved < 0 ? step : ended);
            return total > 0 ? total : moved;
        }
        total += moved;
    }
    return total;
}

}  // namespace

void* FILE_creat(const char* name, LONG attribute) {
    return FromPlatform(_lcreat(name, attribute));
}

void* FILE_open(const char* name, LONG mode, LONG* attribute) {
    const HFILE file = _lopen(name, mode);
    if (attribute != nullptr) {
        *attribute = file == HFILE_ERROR ? -1 : mode & kReadWrite;
    }
    return FromPlatform(file);
}

LONG FILE_read(void* file, void* buffer, LONG count) {
    return Transfer(count, Step::Read, Step::ReadToEnd, [&](LONG offset, LONG size) {
        return _lread(ToPlatform(file), static_cast<char*>(buffer) + offset,
                      static_cast<UINT>(size));
    });
}

LONG FILE_write(void* file, const void* buffer, LONG count) {
    return Transfer(count, Step::Write, Step::Write, [&](LONG offset, LONG size) {
        return _lwrite(ToPlatform(file), static_cast<const char*>(buffer) + offset,
                       static_cast<UINT>(size));
    });
}

void* FILE_close(void* file) {
    if (file != FILE_none() && !platen::EndHandle(file)) {
        platen::FileWatch::Note(Step::Close);
    }
    return FILE_none();
}

LONG FILE_lseek(void* file, LONG offset, LONG origin) {
    const LONG position = _llseek(ToPlatform(file), offset, origin);
    if (position < 0) {
        platen::FileWatch::Note(Step::Seek);
    }
    return position;
}
