#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32/types.h>

/// Devices: the display, memory and printers.
///
/// Contract: the display's pixels are Qt's device-independent ones, and its pixels per inch are
/// those of the primary screen. A printer's context comes from the print dialog. Bitmaps have
/// 32 bits a pixel and start black.

/// \name What GetDeviceCaps tells
/// @{
inline constexpr int TECHNOLOGY = 2;  ///< DT_
inline constexpr int HORZSIZE = 4;    ///< what can be drawn on, in millimetres
inline constexpr int VERTSIZE = 6;
inline constexpr int HORZRES = 8;  ///< the same in pixels
inline constexpr int VERTRES = 10;
inline constexpr int BITSPIXEL = 12;
inline constexpr int PLANES = 14;
inline constexpr int LOGPIXELSX = 88;  ///< pixels per inch
inline constexpr int LOGPIXELSY = 90;
inline constexpr int PHYSICALWIDTH = 110;  ///< a printer's sheet, in pixels; 0 for the display
inline constexpr int PHYSICALHEIGHT = 111;
inline constexpr int PHYSICALOFFSETX = 112;  ///< from the sheet's edge to what can be printed on
inline constexpr int PHYSICALOFFSETY = 113;
inline constexpr int DT_RASDISPLAY = 1;
inline constexpr int DT_RASPRINTER = 2;
/// @}

struct DEVMODE;

struct DOCINFO {
    int cbSize;
    LPCSTR lpszDocName;
    LPCSTR lpszOutput;    ///< a file to print to, or null
    LPCSTR lpszDatatype;  ///< not looked at
    DWORD fwType;
};

inline constexpr int SP_ERROR = -1;

extern "C" {
/// A context for measuring on "DISPLAY", which draws nowhere; 0 for other devices. DeleteDC ends
/// it. The last two arguments are not looked at.
PLATEN_API HDC CreateDC(LPCSTR driver, LPCSTR device, LPCSTR output, const DEVMODE* settings);
/// 0 for what is not listed above.
PLATEN_API int GetDeviceCaps(HDC context, int index);
/// A picture to be selected for one memory context at a time, which DeleteObject ends; 0 for a
/// width or height of less than 1, or one too large.
PLATEN_API HBITMAP CreateCompatibleBitmap(HDC context, int width, int height);

/// Puts mapping, selected objects, colour and mode of the text on a stack; its new depth, 0 on
/// failure.
PLATEN_API int SaveDC(HDC context);
/// Takes back what is at a depth, or counted from the top: -1 is the last.
PLATEN_API BOOL RestoreDC(HDC context, int depth);

/// \name Printing
/// One context prints one document at a time. Values below 1 tell of a failure.
/// @{
PLATEN_API int StartDoc(HDC context, const DOCINFO* document);
PLATEN_API int StartPage(HDC context);
PLATEN_API int EndPage(HDC context);
PLATEN_API int EndDoc(HDC context);
PLATEN_API int AbortDoc(HDC context);
/// @}
}
