#include <platen/base/memory_figure.h>
#include <platen/base/system.h>
#include <platen/platform/afx/file_status.h>

#include <algorithm>
#include <cstdint>

char* BigNumToString(LONG value, char* buffer) {
    char* end = buffer;
    std::int64_t rest = value < 0 ? -std::int64_t{value} : std::int64_t{value};
    for (int digits = 0; digits == 0 || rest > 0; ++digits) {
        if (digits > 0 && digits % 3 == 0) {
            *end++ = ',';
        }
        *end++ = static_cast<char>('0' + rest % 10);
        rest /= 10;
    }
    if (value < 0) {
        *end++ = '-';
    }
    *end = '\0';
    std::reverse(buffer, end);
    return buffer;
}

namespace {

constexpr int kPhysical = 1;
constexpr int kPagingFile = 2;
constexpr int kTotal = 4;
constexpr int kAvailable = 8;

DWORD Saturated(SIZE_T bytes) {
    return static_cast<DWORD>(std::min<std::uint64_t>(bytes, UINT32_MAX));
}

/// Figures by themselves end at 4 GiB; a difference wraps there.
DWORD Combined(int flags, SIZE_T physical, SIZE_T pagingFile) {
    switch (flags & (kPhysical | kPagingFile)) {
        case kPhysical:
            return Saturated(physical);
        case kPhysical | kPagingFile:
            return Saturated(pagingFile);
        case kPagingFile:
            return static_cast<DWORD>(pagingFile - physical);
        default:
            return 0;
    }
}

}  // namespace

DWORD platen::MemoryFigure(int flags, const MEMORYSTATUS& status) {
    DWORD sum = 0;
    if ((flags & kTotal) != 0) {
        sum += Combined(flags, status.dwTotalPhys, status.dwTotalPageFile);
    }
    if ((flags & kAvailable) != 0) {
        sum += Combined(flags, status.dwAvailPhys, status.dwAvailPageFile);
    }
    return sum;
}

DWORD HowMuchMemory(int flags) {
    MEMORYSTATUS status = {};
    status.dwLength = sizeof(status);
    ::GlobalMemoryStatus(&status);
    return platen::MemoryFigure(flags, status);
}

int IsFileExist(const char* name) {
    CFileStatus status = {};
    return CFile::GetStatus(name, status) != FALSE ? 1 : 0;
}
