#pragma once

#include <string>

#include <platen/platform/win32.h>

namespace platen {

/// Each gives the file at `to`, open as `file`, what the one at `from` has, and answers false, with
/// the last error, when that could not be.
/// @{
bool CarryOwner(const std::wstring& from, const std::wstring& to);
bool CarryAccessList(const std::wstring& from, const std::wstring& to);
bool CarryAttributes(const BY_HANDLE_FILE_INFORMATION& from, const std::wstring& to, HANDLE file);
bool CarryStreams(const std::wstring& from, const std::wstring& to);
/// @}

}  // namespace platen
