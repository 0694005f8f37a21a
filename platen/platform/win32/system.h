#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32/types.h>

/// The machine's memory, and what is known of a file by its name.

/// Bytes.
struct MEMORYSTATUS {
    DWORD dwLength;
    DWORD dwMemoryLoad;  ///< percent of the physical memory in use
    SIZE_T dwTotalPhys;
    SIZE_T dwAvailPhys;
    SIZE_T dwTotalPageFile;  ///< physical memory and swap space
    SIZE_T dwAvailPageFile;
    SIZE_T dwTotalVirtual;
    SIZE_T dwAvailVirtual;
};
using LPMEMORYSTATUS = MEMORYSTATUS*;

/// 100 ns since 1601-01-01, UTC.
struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

struct WIN32_FILE_ATTRIBUTE_DATA {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;  ///< of the last change of the file's entry: no earlier time is kept
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
};

enum GET_FILEEX_INFO_LEVELS { GetFileExInfoStandard };

inline constexpr DWORD FILE_ATTRIBUTE_HIDDEN = 0x02;
inline constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;

extern "C" {
/// What this process may use: the machine's memory, or less where a control group limits it. A
/// figure beyond SIZE_T is its largest value. All zero when the system does not tell.
PLATEN_API void GlobalMemoryStatus(LPMEMORYSTATUS status);
/// FALSE when there is no such file. A link counts as what it points to; a name that starts with a
/// dot is hidden; a file that this process may not write is read-only.
PLATEN_API BOOL GetFileAttributesEx(LPCSTR name, GET_FILEEX_INFO_LEVELS level, LPVOID information);
}
