#pragma once

#include <QColor>
#include <QImage>
#include <QRegion>
#include <memory>

#include <platen/platform/win32/gdi.h>

namespace platen::win32 {

/// What may be drawn into, and what is selected for it.
struct DeviceContext {
    HWND window = nullptr;  ///< null: a memory context
    QRegion clip;           ///< in the client area
    QRegion drawn;
    QImage ownImage;
    HGDIOBJ brush = nullptr;
    HGDIOBJ pen = nullptr;
    HGDIOBJ font = nullptr;
};

HDC NewContext(HWND window, const QRegion& clip);
std::unique_ptr<DeviceContext> TakeContext(HDC context);
/// Where a context draws; null when its window is gone.
QImage* ImageOf(DeviceContext& context);
/// Replaces the colour of all that the context may draw into; false for a context that is gone.
bool FillClip(HDC context, const QColor& color);
/// A class's background: a brush, or a system colour's number plus one.
QColor ColorOfBrush(HBRUSH brush);
/// A system colour.
QColor SystemColor(int index);

}  // namespace platen::win32
