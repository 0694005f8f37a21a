#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32/types.h>

/// The `_l` family of file functions.
///
/// Contract: a handle has a position of its own, kept in the process, so that a seek costs no
/// system call. Reads are served from a few cached windows of the file; writes go straight through,
/// in order, so that a failed write is reported by that write. Reads through any handle see what
/// this process wrote through another one before. A seek from the end asks the system for the size
/// and drops all windows: what other processes wrote is seen from then on. A file cut short by
/// someone else reads as ended. A transfer goes on until all bytes are through, the file ends or
/// there is a failure. A folder does not open. No handle is 0, 1 or 2.
/// Known gaps: positions end at 2 GiB - 1, a seek beyond answers -1 and moves nothing; sharing bits
/// are ignored; a pipe opens but neither reads nor seeks.
/// Threads: different handles may be used by different threads.

inline constexpr HFILE HFILE_ERROR = -1;
inline constexpr int OF_READ = 0;
inline constexpr int OF_WRITE = 1;
inline constexpr int OF_READWRITE = 2;
inline constexpr int FILE_ATTRIBUTE_READONLY = 1;

/// What tells one file from another: two handles are of the same file when volume and index agree.
struct BY_HANDLE_FILE_INFORMATION {
    DWORD dwVolumeSerialNumber;
    DWORD nFileIndexHigh;
    DWORD nFileIndexLow;
};

extern "C" {
/// Creates or truncates a file and opens it for reading and writing; -1 on failure. The attribute
/// FILE_ATTRIBUTE_READONLY makes a new file one that later opens cannot write.
PLATEN_API HFILE _lcreat(LPCSTR name, int attribute);
/// Opens an existing file with the access that the mode's two low bits select; -1 on failure.
/// Nothing is truncated, whatever the other bits say.
PLATEN_API HFILE _lopen(LPCSTR name, int mode);
/// Reads up to `count` bytes at the position: the number read, 0 at the end of the file, or
/// (UINT)-1 on failure.
PLATEN_API UINT _lread(HFILE file, LPVOID buffer, UINT count);
/// Writes up to `count` bytes at the position: the number written, or (UINT)-1 on failure.
PLATEN_API UINT _lwrite(HFILE file, LPCSTR buffer, UINT count);
/// Moves the position; origin 0 start, 1 position, 2 end. The new position, or -1.
PLATEN_API LONG _llseek(HFILE file, LONG offset, int origin);
/// Tells which file a handle is of; FALSE when it names no open file.
PLATEN_API BOOL GetFileInformationByHandle(HANDLE file, BY_HANDLE_FILE_INFORMATION* information);
/// Closes a file handle, given as a HANDLE; FALSE when it names no open file.
PLATEN_API BOOL CloseHandle(HANDLE file);
}
