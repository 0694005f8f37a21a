#pragma once

#include <platen/base/files.h>

namespace platen::tiff {

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
