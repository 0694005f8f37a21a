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

CPaintDC::CPaintDC(CWnd* window) : m_window(window->m_hWnd) {
    Attach(::BeginPaint(m_window, &m_ps));
}

CPaintDC::~CPaintDC() {
    ::EndPaint(m_window, &m_ps);
    Detach();
}
