#pragma once

#include <platen/platform/afx/wnd.h>

/// The bar at the foot of a main window, in panes from the left. A bar that the application has
/// made otherwise is attached: `Attach` its window, and `Detach` before the object goes.
class PLATEN_API CStatusBar : public CWnd {
    DECLARE_DYNCREATE(CStatusBar)

  public:
    CStatusBar() = default;

    using CWnd::Create;
    /// A bar with one pane, at the foot of the parent. The parent sends its WM_SIZE on to the bar,
    /// which takes its place and width from that.
    BOOL Create(CWnd* parent, DWORD style = WS_CHILD | WS_VISIBLE, UINT identifier = 0xE801);
    /// Divides the bar: each pane's right edge, in pixels from the bar's left; -1 is its end.
    BOOL SetPaneEdges(const int* edges, int count);

    /// FALSE when there is no such pane. With `update` the text is on the screen at the return.
    BOOL SetPaneText(int index, LPCSTR text, BOOL update = TRUE);
    [[nodiscard]] CString GetPaneText(int index) const;
};
