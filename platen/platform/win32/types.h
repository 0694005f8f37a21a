#pragma once

#include <cstddef>
#include <cstdint>

/// The Win32 scalar types, in Win32's widths whatever the machine's own `long` is.
using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using SHORT = std::int16_t;
using LONG = std::int32_t;
using UINT = unsigned int;
using ATOM = WORD;
using COLORREF = DWORD;
using SIZE_T = std::size_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using LPVOID = void*;
using LPCVOID = const void*;
using LPSTR = char*;
using LPCSTR = const char*;

/// Handles are as wide as an address. A file handle of the `_l` family is an int, as in Win32.
using HANDLE = void*;
using HGLOBAL = void*;
using HGDIOBJ = void*;
using HFILE = int;

/// Each kind of window or drawing handle is a type of its own. The records are never defined: the
/// values are numbers that are not given twice, and every function looks them up.
using HWND = struct HWND__*;
using HDC = struct HDC__*;
using HINSTANCE = struct HINSTANCE__*;
using HMODULE = HINSTANCE;
using HMENU = struct HMENU__*;
using HICON = struct HICON__*;
using HCURSOR = HICON;
using HMONITOR = struct HMONITOR__*;
using HRSRC = struct HRSRC__*;
using HBRUSH = struct HBRUSH__*;
using HPEN = struct HPEN__*;
using HFONT = struct HFONT__*;
using HBITMAP = struct HBITMAP__*;

#ifndef FALSE
inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;
#endif

/// Calling conventions exist on Windows alone.
#define CALLBACK
#define WINAPI

struct POINT {
    LONG x;
    LONG y;
};
struct SIZE {
    LONG cx;
    LONG cy;
};
/// Right and bottom lie just outside.
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
using LPPOINT = POINT*;
using LPSIZE = SIZE*;
using LPRECT = RECT*;
using LPCRECT = const RECT*;

using WNDPROC = LRESULT(CALLBACK*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
using DLGPROC = INT_PTR(CALLBACK*)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
using TIMERPROC = void(CALLBACK*)(HWND window, UINT message, UINT_PTR timer, DWORD time);
using WNDENUMPROC = BOOL(CALLBACK*)(HWND window, LPARAM lParam);

constexpr WORD LOWORD(DWORD_PTR value) {
    return static_cast<WORD>(value & 0xFFFF);
}
constexpr WORD HIWORD(DWORD_PTR value) {
    return static_cast<WORD>(value >> 16 & 0xFFFF);
}
constexpr LONG MAKELONG(DWORD_PTR low, DWORD_PTR high) {
    return static_cast<LONG>(LOWORD(low) | static_cast<DWORD>(LOWORD(high)) << 16);
}
constexpr WPARAM MAKEWPARAM(DWORD_PTR low, DWORD_PTR high) {
    return static_cast<DWORD>(MAKELONG(low, high));
}
constexpr LPARAM MAKELPARAM(DWORD_PTR low, DWORD_PTR high) {
    return MAKELONG(low, high);
}
constexpr LRESULT MAKELRESULT(DWORD_PTR low, DWORD_PTR high) {
    return MAKELONG(low, high);
}
constexpr COLORREF RGB(int red, int green, int blue) {
    return static_cast<COLORREF>((red & 0xFF) | (green & 0xFF) << 8 | (blue & 0xFF) << 16);
}
constexpr BYTE GetRValue(COLORREF color) {
    return static_cast<BYTE>(color & 0xFF);
}
constexpr BYTE GetGValue(COLORREF color) {
    return static_cast<BYTE>(color >> 8 & 0xFF);
}
constexpr BYTE GetBValue(COLORREF color) {
    return static_cast<BYTE>(color >> 16 & 0xFF);
}

/// An identifier where a name of a resource is due.
inline LPSTR MAKEINTRESOURCE(ULONG_PTR identifier) {
    return reinterpret_cast<LPSTR>(identifier & 0xFFFF);
}
/// Whether a resource's name is an identifier.
inline bool IS_INTRESOURCE(LPCSTR name) {
    return reinterpret_cast<ULONG_PTR>(name) >> 16 == 0;
}
