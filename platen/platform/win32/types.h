#pragma once

#include <cstdint>

/// The Win32 scalar types, in Win32's widths whatever the machine's own `long` is.
using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using UINT = unsigned int;
using SIZE_T = std::size_t;
using LPVOID = void*;
using LPCVOID = const void*;
using LPSTR = char*;
using LPCSTR = const char*;

/// Handles are as wide as an address. A file handle of the `_l` family is an int, as in Win32.
using HANDLE = void*;
using HGLOBAL = void*;
using HFILE = int;

#ifndef FALSE
inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;
#endif
