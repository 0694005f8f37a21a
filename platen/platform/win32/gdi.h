#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32/types.h>

/// Drawing.
///
/// Contract: a window that is drawn into keeps its picture, which covers what Qt shows there until
/// the place is erased. BeginPaint clips to what is invalid, GetDC to the client area. Drawing
/// shows at EndPaint or ReleaseDC. A window's picture is as large as its client area in
/// device-independent pixels. Known gaps: a memory device context has a bitmap of one pixel until
/// another one is selected; every raster operation but PATCOPY, BLACKNESS and WHITENESS draws
/// nothing.

inline constexpr int WHITE_BRUSH = 0;
inline constexpr int LTGRAY_BRUSH = 1;
inline constexpr int GRAY_BRUSH = 2;
inline constexpr int DKGRAY_BRUSH = 3;
inline constexpr int BLACK_BRUSH = 4;
inline constexpr int NULL_BRUSH = 5;
inline constexpr int WHITE_PEN = 6;
inline constexpr int BLACK_PEN = 7;
inline constexpr int NULL_PEN = 8;
inline constexpr int SYSTEM_FONT = 13;
inline constexpr int DEFAULT_GUI_FONT = 17;

inline constexpr DWORD OBJ_PEN = 1;
inline constexpr DWORD OBJ_BRUSH = 2;
inline constexpr DWORD OBJ_FONT = 6;
inline constexpr DWORD OBJ_BITMAP = 7;

inline constexpr DWORD BLACKNESS = 0x00000042;
inline constexpr DWORD PATCOPY = 0x00F00021;
inline constexpr DWORD WHITENESS = 0x00FF0062;

inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;

struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;   ///< whether the window still has to draw its background
    RECT rcPaint;  ///< around what is invalid
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};
using LPPAINTSTRUCT = PAINTSTRUCT*;

extern "C" {
/// One of the constants above; 0 for others. Lives for ever.
PLATEN_API HGDIOBJ GetStockObject(int index);
/// Answers the object of the same kind that was selected; 0 on failure. A font may be deleted while
/// it is selected, a bitmap not.
PLATEN_API HGDIOBJ SelectObject(HDC context, HGDIOBJ object);
/// What kind of object that is, OBJ_; 0 for none.
PLATEN_API DWORD GetObjectType(HGDIOBJ object);
/// Stock objects stay.
PLATEN_API BOOL DeleteObject(HGDIOBJ object);

/// Marks a part of the client area, or all of it, as invalid; a null window marks all windows.
PLATEN_API BOOL InvalidateRect(HWND window, const RECT* rectangle, BOOL erase);
/// Starts painting what is invalid, which is valid from then on; asks the window to erase with
/// WM_ERASEBKGND when needed. 0 when the handle names no window.
PLATEN_API HDC BeginPaint(HWND window, LPPAINTSTRUCT paint);
PLATEN_API BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);
/// A null window gives a context for measuring, which draws nowhere.
PLATEN_API HDC GetDC(HWND window);
PLATEN_API int ReleaseDC(HWND window, HDC context);
/// A memory context; the argument is not looked at.
PLATEN_API HDC CreateCompatibleDC(HDC context);
PLATEN_API BOOL DeleteDC(HDC context);

/// Fills a rectangle with the selected brush (PATCOPY), black, or white.
PLATEN_API BOOL PatBlt(HDC context, int x, int y, int width, int height, DWORD operation);
/// CLR_INVALID outside of what the context is clipped to.
PLATEN_API COLORREF GetPixel(HDC context, int x, int y);
}
