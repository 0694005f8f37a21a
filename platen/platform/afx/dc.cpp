#include <platen/platform/afx/dc.h>
#include <platen/platform/afx/wnd.h>

IMPLEMENT_DYNCREATE(CDC, CObject)
IMPLEMENT_DYNAMIC(CPaintDC, CDC)

CDC::~CDC() {
    if (m_hDC != nullptr) {
        ::DeleteDC(Detach());
    }
}

BOOL CDC::Attach(HDC context) {
    if (context == nullptr || m_hDC != nullptr) {
        return FALSE;
    }
    m_hDC = context;
    return TRUE;
}

HDC CDC::Detach() {
    const HDC context = m_hDC;
    m_hDC = nullptr;
    return context;
}

CPoint CDC::SetWindowOrg(int x, int y) {
    CPoint before;
    ::SetWindowOrgEx(m_hDC, x, y, &before);
    return before;
}

CSize CDC::SetWindowExt(int width, int height) {
    CSize before;
    ::SetWindowExtEx(m_hDC, width, height, &before);
    return before;
}

CPoint CDC::SetViewportOrg(int x, int y) {
    CPoint before;
    ::SetViewportOrgEx(m_hDC, x, y, &before);
    return before;
}

CSize CDC::SetViewportExt(int width, int height) {
    CSize before;
    ::SetViewportExtEx(m_hDC, width, height, &before);
    return before;
}

CPoint CDC::GetWindowOrg() const {
    CPoint origin;
    ::GetWindowOrgEx(m_hDC, &origin);
    return origin;
}

CSize CDC::GetWindowExt() const {
    CSize extent;
    ::GetWindowExtEx(m_hDC, &extent);
    return extent;
}

CPoint CDC::GetViewportOrg() const {
    CPoint origin;
    ::GetViewportOrgEx(m_hDC, &origin);
    return origin;
}

CSize CDC::GetViewportExt() const {
    CSize extent;
    ::GetViewportExtEx(m_hDC, &extent);
    return extent;
}

CFont* CDC::SelectObject(CFont* font) {
    const HGDIOBJ handle = font == nullptr ? nullptr : font->m_hObject;
    return handle == nullptr ? nullptr
                             : CFont::FromHandle(static_cast<HFONT>(::SelectObject(m_hDC, handle)));
}

CSize CDC::GetTextExtent(LPCSTR text, int length) const {
    CSize extent;
    ::GetTextExtentPoint32(m_hDC, text, length, &extent);
    return extent;
}

CPaintDC::CPaintDC(CWnd* window) : m_window(window->m_hWnd) {
    Attach(::BeginPaint(m_window, &m_ps));
}

CPaintDC::~CPaintDC() {
    ::EndPaint(m_window, &m_ps);
    Detach();
}
