#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32/types.h>

class QWidget;

extern "C" {
/// The handle of a host's widget, the same for each call. The widget stays its host's: the handle
/// ends with it, or at DestroyWindow, which leaves the widget alone. Its procedure answers
/// WM_SETTEXT with the window title and WM_CLOSE with close(); a QStatusBar answers the SB_
/// messages. 0 for null.
PLATEN_API HWND PlatenWindowOfWidget(QWidget* widget);
/// The widget of a window, owned by whoever made the window; null when the handle names none.
PLATEN_API QWidget* PlatenWidgetOfWindow(HWND window);
}
