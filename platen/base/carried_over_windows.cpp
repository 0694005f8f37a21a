#include <platen/base/carried_over_windows.h>

#include <cstddef>
#include <cstring>
#include <cwchar>
#include <vector>

namespace platen {
namespace {

/// Of the attributes those that say what the file is to people; write protection comes last.
constexpr DWORD kCarried =
    FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

using Security = std::vector<std::byte>;

/// A part of a file's security descriptor; empty when it cannot be read.
Security SecurityOf(const std::wstring& path, SECURITY_INFORMATION part) {
    DWORD size = 0;
    GetFileSecurityW(path.c_str(), part, nullptr, 0, &size);
    Security security(size);
    if (GetFileSecurityW(path.c_str(), part, security.data(), size, &size) == FALSE) {
        security.clear();
    }
    return security;
}

bool CarrySecurity(const std::wstring& from, const std::wstring& to, SECURITY_INFORMATION part) {
    Security security = SecurityOf(from, part);
    // Alike they are as well where there is no security at all.
    return security == SecurityOf(to, part) ||
           (!security.empty() && SetFileSecurityW(to.c_str(), part, security.data()) != FALSE);
}

}  // namespace

bool CarryOwner(const std::wstring& from, const std::wstring& to) {
    return CarrySecurity(from, to, OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION);
}

bool CarryAccessList(const std::wstring& from, const std::wstring& to) {
    return CarrySecurity(from, to, DACL_SECURITY_INFORMATION);
}

bool CarryAttributes(const BY_HANDLE_FILE_INFORMATION& from, const std::wstring& to, HANDLE file) {
    BY_HANDLE_FILE_INFORMATION now = {};
    if (GetFileInformationByHandle(file, &now) == FALSE) {
        return false;
    }
    // What was encrypted must not lie open on the disk.
    if ((from.dwFileAttributes & ~now.dwFileAttributes & FILE_ATTRIBUTE_ENCRYPTED) != 0) {
        SetLastError(ERROR_FILE_ENCRYPTED);
        return false;
    }
    const DWORD attributes = from.dwFileAttributes & kCarried;
    return SetFileTime(file, &from.ftCreationTime, nullptr, nullptr) != FALSE &&
           (attributes == 0 || SetFileAttributesW(to.c_str(), attributes) != FALSE);
}

/// File systems without streams answer that they found none.
bool CarryStreams(const std::wstring& from, const std::wstring& to) {
    WIN32_FIND_STREAM_DATA stream = {};
    HANDLE streams = FindFirstStreamW(from.c_str(), FindStreamInfoStandard, &stream, 0);
    if (streams == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        return error == ERROR_HANDLE_EOF || error == ERROR_INVALID_PARAMETER ||
               error == ERROR_CALL_NOT_IMPLEMENTED;
    }
    bool isGood = true;
    do {
        const bool isContents = std::wcscmp(stream.cStreamName, L"::$DATA") == 0;
        isGood = isContents || CopyFileW((from + stream.cStreamName).c_str(),
                                         (to + stream.cStreamName).c_str(), FALSE) != FALSE;
    } while (isGood && FindNextStreamW(streams, &stream) != FALSE);
    const DWORD error = GetLastError();
    FindClose(streams);
    SetLastError(error);
    return isGood && error == ERROR_HANDLE_EOF;
}

}  // namespace platen
