#include <platen/platform/afx/wnd.h>

#include <algorithm>
#include <string>

CWnd::~CWnd() {
    if (m_hWnd != nullptr) {
        CWnd::DestroyWindow();
        Detach();
    }
}

BOOL CWnd::DestroyWindow() {
    const HWND window = m_hWnd;
    if (window == nullptr) {
        return FALSE;
    }
    const BOOL destroyed = ::DestroyWindow(window);
    // Only a window without the message map leaves its object behind here; others are detached, and
    // perhaps deleted, by now.
    if (FromHandlePermanent(window) == this && ::IsWindow(window) == FALSE) {
        Detach();
    }
    return destroyed;
}

DWORD CWnd::GetStyle() const {
    return static_cast<DWORD>(::GetWindowLong(m_hWnd, GWL_STYLE));
}

DWORD CWnd::GetExStyle() const {
    return static_cast<DWORD>(::GetWindowLong(m_hWnd, GWL_EXSTYLE));
}

void CWnd::GetWindowText(CString& text) const {
    const int length = ::GetWindowTextLength(m_hWnd);
    std::string buffer(static_cast<std::size_t>(length) + 1, '\0');
    ::GetWindowText(m_hWnd, buffer.data(), length + 1);
    text = buffer.c_str();
}

BOOL CWnd::SetWindowPos(const CWnd* insertAfter, int x, int y, int width, int height, UINT flags) {
    return ::SetWindowPos(m_hWnd, insertAfter == nullptr ? nullptr : insertAfter->m_hWnd, x, y,
                          width, height, flags);
}

void CWnd::CalcWindowRect(LPRECT rect, UINT adjustType) {
    DWORD extended = GetExStyle();
    if (adjustType == adjustBorder) {
        extended &= ~static_cast<DWORD>(WS_EX_CLIENTEDGE);
    }
    ::AdjustWindowRectEx(rect, GetStyle(), FALSE, extended);
}

namespace {

/// Where a window of that extent starts so that it is centred in `around` and stays in `within`;
/// one that is too large starts where `within` does.
int Centred(int extent, int aroundStart, int aroundEnd, int withinStart, int withinEnd) {
    const int start = aroundStart + (aroundEnd - aroundStart - extent) / 2;
    return std::max(withinStart, std::min(start, withinEnd - extent));
}

/// The work area of the screen that a window is on.
CRect WorkArea(HWND window) {
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof(monitor);
    ::GetMonitorInfo(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

}  // namespace

void CWnd::CenterWindow(CWnd* over) {
    const bool isChild = (GetStyle() & WS_CHILD) != 0;
    const HWND natural = isChild ? ::GetParent(m_hWnd) : ::GetWindow(m_hWnd, GW_OWNER);
    const HWND reference = over == nullptr ? natural : over->m_hWnd;
    CRect own;
    GetWindowRect(own);
    CRect around;
    CRect within;
    if (isChild) {
        ::GetClientRect(natural, &within);
        around = within;
        if (over != nullptr) {
            ::GetWindowRect(reference, &around);
            POINT start = around.TopLeft();
            ::ScreenToClient(natural, &start);
            around = CRect(start.x, start.y, start.x + around.Width(), start.y + around.Height());
        }
    } else if (reference != nullptr && ::IsWindowVisible(reference) != FALSE) {
        ::GetWindowRect(reference, &around);
        within = WorkArea(reference);
    } else {
        around = within = WorkArea(m_hWnd);
    }
    SetWindowPos(nullptr,
                 Centred(own.Width(), around.left, around.right, within.left, within.right),
                 Centred(own.Height(), around.top, around.bottom, within.top, within.bottom), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

CWnd* CWnd::GetWindow(UINT relation) const {
    return FromHandle(::GetWindow(m_hWnd, relation));
}

CWnd* CWnd::GetDlgItem(int identifier) const {
    return FromHandle(::GetDlgItem(m_hWnd, identifier));
}

void CWnd::SetDlgItemText(int identifier, LPCSTR text) {
    ::SetDlgItemText(m_hWnd, identifier, text);
}

UINT_PTR CWnd::SetTimer(UINT_PTR identifier, UINT milliseconds) {
    return ::SetTimer(m_hWnd, identifier, milliseconds, nullptr);
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::SendMessage(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::PostMessage(m_hWnd, message, wParam, lParam);
}

int CWnd::OnCreate(LPCREATESTRUCT /*creation*/) {
    return static_cast<int>(Default());
}
void CWnd::OnDestroy() {
    Default();
}
void CWnd::OnSize(UINT /*type*/, int /*width*/, int /*height*/) {
    Default();
}
void CWnd::OnMove(int /*x*/, int /*y*/) {
    Default();
}
void CWnd::OnClose() {
    Default();
}
void CWnd::OnEnable(BOOL /*enabled*/) {
    Default();
}
void CWnd::OnTimer(UINT_PTR /*identifier*/) {
    Default();
}
void CWnd::OnSetFocus(CWnd* /*oldWindow*/) {
    Default();
}
void CWnd::OnKillFocus(CWnd* /*newWindow*/) {
    Default();
}
void CWnd::OnPaint() {
    Default();
}
BOOL CWnd::OnEraseBkgnd(CDC* /*context*/) {
    return Default() != 0 ? TRUE : FALSE;
}
void CWnd::OnChar(UINT /*character*/, UINT /*repeats*/, UINT /*flags*/) {
    Default();
}
void CWnd::OnKeyDown(UINT /*key*/, UINT /*repeats*/, UINT /*flags*/) {
    Default();
}
void CWnd::OnKeyUp(UINT /*key*/, UINT /*repeats*/, UINT /*flags*/) {
    Default();
}
void CWnd::OnMouseMove(UINT /*flags*/, CPoint /*point*/) {
    Default();
}
void CWnd::OnLButtonDown(UINT /*flags*/, CPoint /*point*/) {
    Default();
}
void CWnd::OnLButtonUp(UINT /*flags*/, CPoint /*point*/) {
    Default();
}
void CWnd::OnLButtonDblClk(UINT /*flags*/, CPoint /*point*/) {
    Default();
}
void CWnd::OnRButtonDown(UINT /*flags*/, CPoint /*point*/) {
    Default();
}
void CWnd::OnRButtonUp(UINT /*flags*/, CPoint /*point*/) {
    Default();
}
