#include <platen/platform/afx/application.h>
#include <platen/platform/afx/gdi_object.h>

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)
IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

namespace {

constinit AFX_MODULE_STATE g_state = {nullptr};

}  // namespace

AFX_MODULE_STATE* AfxGetModuleState() {
    return &g_state;
}

CWinApp* AfxGetApp() {
    return g_state.m_pCurrentWinApp;
}

CWnd* AfxGetMainWnd() {
    return g_state.m_pCurrentWinApp == nullptr ? nullptr : g_state.m_pCurrentWinApp->m_pMainWnd;
}

BOOL CWinThread::InitInstance() {
    return TRUE;
}

int CWinThread::ExitInstance() {
    return static_cast<int>(m_msgCur.wParam);
}

BOOL CWinThread::OnIdle(LONG count) {
    if (count == 0) {
        CWnd::DeleteTempMap();
        CGdiObject::DeleteTempMap();
    }
    return FALSE;
}

int CWinThread::Run() {
    while (true) {
        MSG waiting;
        LONG count = 0;
        while (::PeekMessage(&waiting, nullptr, 0, 0, PM_NOREMOVE) == FALSE && OnIdle(count)) {
            ++count;
        }
        do {
            if (PumpMessage() == FALSE) {
                return ExitInstance();
            }
        } while (::PeekMessage(&waiting, nullptr, 0, 0, PM_NOREMOVE) != FALSE);
    }
}

BOOL CWinThread::PumpMessage() {
    // Taken apart in a copy: handlers may pump themselves.
    MSG message = {};
    const BOOL taken = ::GetMessage(&message, nullptr, 0, 0);
    m_msgCur = message;
    if (taken == FALSE) {
        return FALSE;
    }
    if (taken != -1 && PreTranslateMessage(&message) == FALSE) {
        ::TranslateMessage(&message);
        ::DispatchMessage(&message);
    }
    return TRUE;
}

BOOL CWinThread::PreTranslateMessage(MSG* message) {
    const HWND last = m_pMainWnd == nullptr ? nullptr : m_pMainWnd->m_hWnd;
    HWND window = message->hwnd;
    while (window != nullptr) {
        CWnd* object = CWnd::FromHandlePermanent(window);
        if (object != nullptr && object->PreTranslateMessage(message) != FALSE) {
            return TRUE;
        }
        window = window == last ? nullptr : ::GetParent(window);
    }
    return FALSE;
}

CWinApp::CWinApp() {
    if (g_state.m_pCurrentWinApp == nullptr) {
        g_state.m_pCurrentWinApp = this;
    }
}

CWinApp::~CWinApp() {
    if (g_state.m_pCurrentWinApp == this) {
        g_state.m_pCurrentWinApp = nullptr;
    }
}

void CWinApp::DoWaitCursor(int change) {
    const bool waited = m_waiting > 0;
    m_waiting += change;
    if (m_waiting < 0) {
        m_waiting = 0;
    }
    if (m_waiting > 0) {
        const HCURSOR before = ::SetCursor(::LoadCursor(nullptr, IDC_WAIT));
        if (!waited) {
            m_usualCursor = before;
        }
    } else if (waited) {
        ::SetCursor(m_usualCursor);
    }
}
