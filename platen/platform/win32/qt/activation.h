#pragma once

#include <platen/platform/win32/types.h>

class QWidget;

namespace platen::win32 {

/// Qt has moved the focus to a widget, or away (null).
void FollowFocus(QWidget* now);
/// Qt has made the window of a widget the active one; null: another program's.
void FollowActiveWindow(QWidget* widget);
/// Makes a top-level window the active one.
void Activate(HWND window);
/// Puts a widget in front of others.
void Raise(QWidget& widget);
/// A window is no longer shown, or gone: focus and activity go elsewhere.
void LeaveWindow(HWND window);
/// Whether a window is another or within it.
bool IsWithin(HWND outer, HWND window);

}  // namespace platen::win32
