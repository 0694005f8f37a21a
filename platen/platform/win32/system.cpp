#include <platen/platform/win32/system.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <limits>
#include <string_view>

#include <platen/platform/win32/files.h>
#include <platen/platform/win32/memory_figures.h>

namespace {

SIZE_T Saturated(std::uint64_t bytes) {
    return static_cast<SIZE_T>(std::min<std::uint64_t>(bytes, std::numeric_limits<SIZE_T>::max()));
}

FILETIME FileTimeOf(const timespec& time) {
    constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;
    const auto ticks = static_cast<std::uint64_t>((time.tv_sec + kSecondsTo1970) * 10'000'000 +
                                                  time.tv_nsec / 100);
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

DWORD AttributesOf(std::string_view name, const struct stat& found) {
    const std::string_view last = name.substr(name.rfind('/') + 1);
    DWORD attributes = 0;
    attributes |= S_ISDIR(found.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : 0;
    attributes |= access(name.data(), W_OK) != 0 ? DWORD{FILE_ATTRIBUTE_READONLY} : 0;
    attributes |= last.starts_with('.') && last != "." && last != ".." ? FILE_ATTRIBUTE_HIDDEN : 0;
    return attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
}

}  // namespace

void GlobalMemoryStatus(LPMEMORYSTATUS status) {
    const auto figures = platen::win32::ReadMemoryFigures("/proc", "/sys/fs/cgroup");
    *status = {};
    status->dwLength = sizeof(MEMORYSTATUS);
    if (figures.totalPhysical > 0) {
        const std::uint64_t available = figures.availablePhysical * 100 / figures.totalPhysical;
        status->dwMemoryLoad = static_cast<DWORD>(100 - std::min<std::uint64_t>(available, 100));
    }
    status->dwTotalPhys = Saturated(figures.totalPhysical);
    status->dwAvailPhys = Saturated(figures.availablePhysical);
    status->dwTotalPageFile = Saturated(figures.totalPhysical + figures.totalSwap);
    status->dwAvailPageFile = Saturated(figures.availablePhysical + figures.availableSwap);
    status->dwTotalVirtual = std::numeric_limits<SIZE_T>::max();
    status->dwAvailVirtual = std::numeric_limits<SIZE_T>::max();
}

BOOL GetFileAttributesEx(LPCSTR name, GET_FILEEX_INFO_LEVELS level, LPVOID information) {
    struct stat found {};
    if (name == nullptr || level != GetFileExInfoStandard || stat(name, &found) != 0) {
        return FALSE;
    }
    const auto size = static_cast<std::uint64_t>(S_ISDIR(found.st_mode) ? 0 : found.st_size);
    *static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(information) = {
        AttributesOf(name, found),      FileTimeOf(found.st_ctim),
        FileTimeOf(found.st_atim),      FileTimeOf(found.st_mtim),
        static_cast<DWORD>(size >> 32), static_cast<DWORD>(size & 0xFFFF'FFFF)};
    return TRUE;
}
