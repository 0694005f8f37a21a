#include <platen/platform/afx/frame.h>
#include <platen/platform/afx/message_map.h>

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)
IMPLEMENT_DYNCREATE(CMiniFrameWnd, CFrameWnd)

BEGIN_MESSAGE_MAP(CMiniFrameWnd, CFrameWnd)
ON_WM_SETFOCUS()
END_MESSAGE_MAP()

void CFrameWnd::PostNcDestroy() {
    delete this;
}

int CFrameWnd::OnCreate(LPCREATESTRUCT creation) {
    return CWnd::OnCreate(creation);
}

void CFrameWnd::OnDestroy() {
    CWnd::OnDestroy();
}

void CFrameWnd::OnSize(UINT type, int width, int height) {
    CWnd::OnSize(type, width, height);
}

void CMiniFrameWnd::OnSetFocus(CWnd* oldWindow) {
    const HWND inside = ::GetWindow(m_hWnd, GW_CHILD);
    if (inside != nullptr) {
        ::SetFocus(inside);
    } else {
        CFrameWnd::OnSetFocus(oldWindow);
    }
}
