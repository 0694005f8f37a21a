#pragma once

#include <platen/platform/win32.h>

/// The procedure of all windows that the library's classes make or subclass. It leads messages to
/// the window's object.
LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
