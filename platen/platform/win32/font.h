#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32/logical_font.h>
#include <platen/platform/win32/types.h>

/// Fonts and text.
///
/// Contract: heights and widths are in the logical units of the context that the font is selected
/// for. There they become whole pixels, at least one, and what is beyond whole ones is dropped;
/// metrics are those pixels in logical units again. A face that the system lacks is replaced by one
/// that resembles it. Text is UTF-8. Angles count counter-clockwise in the device's picture. Known
/// gaps: character sets and precisions are kept but have no effect.

inline constexpr BYTE NONANTIALIASED_QUALITY = 3;
inline constexpr BYTE ANTIALIASED_QUALITY = 4;
inline constexpr BYTE FF_ROMAN = 0x10;
inline constexpr BYTE FF_SWISS = 0x20;
inline constexpr BYTE FF_MODERN = 0x30;
inline constexpr BYTE FF_SCRIPT = 0x40;
inline constexpr BYTE FF_DECORATIVE = 0x50;

struct TEXTMETRIC {
    LONG tmHeight;  ///< ascent and descent
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;  ///< of the height, what is not the characters'
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
};
using LPTEXTMETRIC = TEXTMETRIC*;

inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;  ///< text is put on a white rectangle

extern "C" {
/// A font to be selected, which DeleteObject ends; 0 without a record.
PLATEN_API HFONT CreateFontIndirect(const LOGFONT* font);
/// Of the selected font.
PLATEN_API BOOL GetTextMetrics(HDC context, LPTEXTMETRIC metrics);
PLATEN_API BOOL GetTextExtentPoint32(HDC context, LPCSTR text, int length, LPSIZE size);
/// The point is the upper left corner of the text.
PLATEN_API BOOL TextOut(HDC context, int x, int y, LPCSTR text, int length);
/// The colour before; CLR_INVALID on failure.
PLATEN_API COLORREF SetTextColor(HDC context, COLORREF color);
/// The mode before; 0 on failure.
PLATEN_API int SetBkMode(HDC context, int mode);
}
