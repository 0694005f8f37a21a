#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32/types.h>

/// From logical units, in which one draws, to a device's pixels and back.
///
/// Contract: coordinates are rounded to the nearest unit, halves up; what does not fit into 32 bits
/// becomes the outermost value. A millimetre of a metric mode is as long as LOGPIXELSX says, not as
/// the screen's glass says. Setting an extent has no effect in the modes with a scale of their own.

inline constexpr int MM_TEXT = 1;  ///< pixels, y pointing down; all other presets point up
inline constexpr int MM_LOMETRIC = 2;
inline constexpr int MM_HIMETRIC = 3;
inline constexpr int MM_LOENGLISH = 4;
inline constexpr int MM_HIENGLISH = 5;
inline constexpr int MM_TWIPS = 6;
inline constexpr int MM_ISOTROPIC = 7;    ///< the viewport shrinks so that units are square
inline constexpr int MM_ANISOTROPIC = 8;  ///< takes over the extents of the mode before

extern "C" {
/// The mode before; 0 on failure.
PLATEN_API int SetMapMode(HDC context, int mode);
PLATEN_API int GetMapMode(HDC context);

/// The value before is left in the last argument, which may be null. FALSE for a zero extent.
PLATEN_API BOOL SetWindowOrgEx(HDC context, int x, int y, LPPOINT before);
PLATEN_API BOOL SetWindowExtEx(HDC context, int width, int height, LPSIZE before);
PLATEN_API BOOL SetViewportOrgEx(HDC context, int x, int y, LPPOINT before);
PLATEN_API BOOL SetViewportExtEx(HDC context, int width, int height, LPSIZE before);

PLATEN_API BOOL GetWindowOrgEx(HDC context, LPPOINT origin);
PLATEN_API BOOL GetWindowExtEx(HDC context, LPSIZE extent);
PLATEN_API BOOL GetViewportOrgEx(HDC context, LPPOINT origin);
PLATEN_API BOOL GetViewportExtEx(HDC context, LPSIZE extent);

PLATEN_API BOOL LPtoDP(HDC context, LPPOINT points, int count);
PLATEN_API BOOL DPtoLP(HDC context, LPPOINT points, int count);
}
