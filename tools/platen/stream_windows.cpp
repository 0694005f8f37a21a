#include <algorithm>
#include <limits>
#include <utility>

#include <platen/base/file_names.h>
#include <platen/platform/win32.h>

#include "interrupt.h"
#include "stream.h"

namespace platen::tool {

/// The system's own form of a device's name, "NUL" for instance, or a pipe's starts so.
bool Stream::IsNamed(const std::string& name) {
    const std::wstring given = PathOf(name.c_str()).wstring();
    std::wstring full(GetFullPathNameW(given.c_str(), 0, nullptr, nullptr), L'\0');
    GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    return full.starts_with(L"\\\\.\\");
}

bool Stream::Open(const std::string& name) {
    const std::wstring path = PathOf(name.c_str()).wstring();
    HANDLE handle = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle != INVALID_HANDLE_VALUE && GetFileType(handle) == FILE_TYPE_DISK) {
        CloseHandle(handle);
        SetLastError(ERROR_NOT_SUPPORTED);
        return false;
    }
    m_handle = handle == INVALID_HANDLE_VALUE ? nullptr : handle;
    return m_handle != nullptr;
}

bool Stream::Write(const void* bytes, std::size_t size) {
    constexpr std::size_t kMost = std::numeric_limits<DWORD>::max();
    const auto* next = static_cast<const char*>(bytes);
    while (size > 0) {
        DWORD written = 0;
        if (InterruptGuard::Noted() ||
            WriteFile(m_handle, next, static_cast<DWORD>(std::min(size, kMost)), &written,
                      nullptr) == FALSE) {
            return false;
        }
        next += written;
        size -= written;
    }
    return true;
}

bool Stream::Close() {
    HANDLE const handle = std::exchange(m_handle, nullptr);
    return handle == nullptr || CloseHandle(handle) != FALSE;
}

}  // namespace platen::tool
