#pragma once

#include <QSize>

#include <platen/platform/win32/gdi.h>
#include <platen/platform/win32/qt/queue.h>

namespace platen::win32 {

struct Window;

/// Fits a window's picture to its client area; what is new is invalid.
void ResizePicture(Window& window, QSize before);
/// Fills what a context may draw into with a class's background; false when there is none.
bool EraseBackground(HDC context, HBRUSH background);
/// Makes what a context may draw into transparent, so that Qt's own looks are seen there.
void ClearPicture(HDC context);

}  // namespace platen::win32
