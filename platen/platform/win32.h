#pragma once

/// The Win32 names that the floors above are written in: the system's own on Windows, the ground
/// floor's elsewhere. This header alone decides which.
#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
// Behind <windows.h>, which they need.
#include <cderr.h>
#include <commctrl.h>
#include <commdlg.h>
#else
#include <platen/platform/win32/common_dialogs.h>
#include <platen/platform/win32/device.h>
#include <platen/platform/win32/dialog.h>
#include <platen/platform/win32/files.h>
#include <platen/platform/win32/font.h>
#include <platen/platform/win32/gdi.h>
#include <platen/platform/win32/logical_font.h>
#include <platen/platform/win32/mapping.h>
#include <platen/platform/win32/memory.h>
#include <platen/platform/win32/message.h>
#include <platen/platform/win32/resource.h>
#include <platen/platform/win32/system.h>
#include <platen/platform/win32/types.h>
#include <platen/platform/win32/window.h>
#endif
