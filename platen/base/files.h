#pragma once

#include <cstdint>

#include <platen/platform/api.h>
#include <platen/platform/win32.h>

/// Files named by a handle; -1 is no file and the failure value. Positions and counts are bytes and
/// end at 2 GiB - 1. The caller owns the handles it gets. Different handles may be used by
/// different threads.

/// The handle -1.
inline void* FILE_none() {
    return reinterpret_cast<void*>(static_cast<std::intptr_t>(-1));
}

extern "C" {
/// Creates a file, or truncates an existing one, with a file attribute (0: a normal file), open for
/// writing. -1 on failure.
PLATEN_API void* FILE_creat(const char* name, LONG attribute);
/// Opens an existing file; the mode's two low bits are 0 read, 1 write, 2 read-write, the others
/// the platform's. `attribute`, unless null, receives 2 for a read-write mode, else 0, and -1 on
/// failure. -1 on failure.
PLATEN_API void* FILE_open(const char* name, LONG mode, LONG* attribute);
/// Reads up to `count` bytes at the position. The number read, 0 at the end of the file or for a
/// count that is not positive, -1 when the first transfer failed.
PLATEN_API LONG FILE_read(void* file, void* buffer, LONG count);
/// Writes, answering as FILE_read does.
PLATEN_API LONG FILE_write(void* file, const void* buffer, LONG count);
/// Closes a file; -1 does nothing. Always -1.
PLATEN_API void* FILE_close(void* file);
/// Moves the position; origin 0 start, 1 position, 2 end. The new position, or -1 and the position
/// stays.
PLATEN_API LONG FILE_lseek(void* file, LONG offset, LONG origin);
}
