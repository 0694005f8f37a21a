#pragma once

#include <limits>

#include <platen/base/files.h>

namespace platen::tiff {

/// Looks at the file anew: what other processes wrote is seen from now on. Its size, 0 when there
/// is none; the position stays. A file of 2 GiB or more counts as one of 2 GiB - 1, since no
/// position leads further.
inline LONG Measure(void* file) {
    const LONG position = FILE_lseek(file, 0, 1);
    if (position < 0) {
        return 0;
    }
    const LONG end = FILE_lseek(file, 0, 2);
    FILE_lseek(file, position, 0);
    return end >= 0 ? end : std::numeric_limits<LONG>::max();
}

/// Reads what the file has of `size` bytes from `offset` on; the file position stays. An offset
/// that no position reaches lies beyond the end of the file: nothing is read.
inline void Peek(void* file, LONG offset, void* buffer, LONG size) {
    const LONG position = FILE_lseek(file, 0, 1);
    if (FILE_lseek(file, offset, 0) >= 0) {
        FILE_read(file, buffer, size);
        FILE_lseek(file, position, 0);
    }
}

}  // namespace platen::tiff
