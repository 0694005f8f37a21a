#pragma once

#include <cstdint>

#include <platen/platform/afx.h>
#include <platen/platform/api.h>

/// A font as the system's LOGFONT record describes it, with a text colour and a size in tenths of a
/// point. The record is the object's first part, so a pointer to a CLogFont passes for a pointer to
/// a LOGFONT. Values are copied freely and own nothing.
///
/// `m_iPointSize` is the size that counts; `vMap` turns it into the `lfHeight` that a device needs.
/// Face names longer than 31 bytes are cut at a whole character. No operation reports a failure of
/// the system's drawing functions. The thread of the user interface uses the mapping and the
/// dialog.
class PLATEN_API CLogFont : public LOGFONT {
  public:
    COLORREF m_crColor;         ///< the system's colour of window text at first
    std::int32_t m_iPointSize;  ///< tenths of a point: 100 is 10 points

    /// Arial, 10 points, normal weight.
    CLogFont();
    /// Everything but height and width, which `vMap` sets. The sign of the size is dropped; angles
    /// are in tenths of a degree.
    CLogFont(int pointSize, int escapement, int orientation, int weight, std::uint8_t italic,
             std::uint8_t underline, std::uint8_t strikeOut, std::uint8_t charSet,
             std::uint8_t outPrecision, std::uint8_t clipPrecision, std::uint8_t quality,
             std::uint8_t pitchAndFamily, const char* faceName);
    /// Normal weight. The sign of the size is dropped.
    CLogFont(int pointSize, const char* faceName, std::uint8_t pitchAndFamily);
    /// The whole record, and the size 0.
    explicit CLogFont(const LOGFONT& font);

    CLogFont(const CLogFont& other) = default;
    CLogFont& operator=(const CLogFont& other) = default;
    void operator=(const CLogFont* other);  // NOLINT: assigns from a pointer, as callers write it

    /// 1 when every field agrees, the case of the face name included. What stands behind the end of
    /// the face name does not count.
    int operator==(const CLogFont& other) const;
    int operator!=(const CLogFont& other) const;

    /// Lets the user edit face, style, effects, colour and size in the system's font dialog: 1 when
    /// confirmed. `lfHeight` is whole points after that, and screen pixels after a cancelled
    /// dialog. The dialog's flags get CF_SCREENFONTS, CF_INITTOLOGFONTSTRUCT and CF_EFFECTS, and
    /// lose CF_SHOWHELP.
    int bEdit(CWnd* parent, unsigned long flags);

    /// Sets `lfHeight` so that a font made of this record has the stored size on the device, in the
    /// units of the device context's mapping; `lfWidth` becomes 0. The device context keeps its
    /// mapping and its font. The size 0 stands for the system's default height.
    void vMap(CDC& context);
    /// The same for the display, in pixels.
    void vMap();

  private:
    void SetFaceName(const char* name);
    void AskForStoredSize();
    LONG MeasuredHeight(CDC& context) const;
};
