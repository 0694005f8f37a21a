#include <platen/platform/afx/status_bar.h>

#include <string>

IMPLEMENT_DYNCREATE(CStatusBar, CWnd)

BOOL CStatusBar::Create(CWnd* parent, DWORD style, UINT identifier) {
    // Loads the class on Windows.
    ::InitCommonControls();
    return CWnd::Create(STATUSCLASSNAME, nullptr, style, CRect(), parent, identifier);
}

BOOL CStatusBar::SetPaneEdges(const int* edges, int count) {
    const auto parts = static_cast<WPARAM>(count);
    return SendMessage(SB_SETPARTS, parts, reinterpret_cast<LPARAM>(edges)) != 0 ? TRUE : FALSE;
}

BOOL CStatusBar::SetPaneText(int index, LPCSTR text, BOOL update) {
    const auto part = static_cast<WPARAM>(index);
    const LRESULT set = SendMessage(SB_SETTEXT, part, reinterpret_cast<LPARAM>(text));
    if (update != FALSE) {
        UpdateWindow();
    }
    return set != 0 ? TRUE : FALSE;
}

CString CStatusBar::GetPaneText(int index) const {
    const auto part = static_cast<WPARAM>(index);
    const std::size_t length =
        LOWORD(static_cast<DWORD_PTR>(::SendMessage(m_hWnd, SB_GETTEXTLENGTH, part, 0)));
    std::string text(length + 1, '\0');
    ::SendMessage(m_hWnd, SB_GETTEXT, part, reinterpret_cast<LPARAM>(text.data()));
    return {text.c_str()};
}
