#include <platen/platform/afx/application.h>
#include <platen/platform/afx/message_map.h>
#include <platen/platform/afx/wnd.h>
#include <platen/platform/afx/wnd_procedure.h>

#include <utility>

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_NCDESTROY()
END_MESSAGE_MAP()

namespace {

constexpr char kClassName[] = "PlatenWindow";

/// The object whose window is being created and has not had its first message yet.
constinit CWnd* g_creating = nullptr;
/// The message that is being handled; null when there is none.
constinit const MSG* g_current = nullptr;

/// Notes the message that is being handled, as long as it lives.
class CurrentMessage {
  public:
    CurrentMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        m_message.hwnd = window;
        m_message.message = message;
        m_message.wParam = wParam;
        m_message.lParam = lParam;
        g_current = &m_message;
    }
    ~CurrentMessage() { g_current = m_outer; }
    CurrentMessage(const CurrentMessage&) = delete;
    CurrentMessage& operator=(const CurrentMessage&) = delete;

  private:
    MSG m_message = {};
    const MSG* m_outer = g_current;
};

/// Registers the class of windows whose creator names none. A class that is there already is one of
/// an earlier call.
void RegisterDefaultClass() {
    WNDCLASS description = {};
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = &AfxWndProc;
    description.hInstance = ::GetModuleHandle(nullptr);
    description.hCursor = ::LoadCursor(nullptr, IDC_ARROW);
    description.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_WINDOW + 1));
    description.lpszClassName = kClassName;
    ::RegisterClass(&description);
}

}  // namespace

LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CWnd* object = CWnd::FromHandlePermanent(window);
    if (object == nullptr && g_creating != nullptr) {
        object = std::exchange(g_creating, nullptr);
        object->Attach(window);
    }
    if (object == nullptr) {
        return ::DefWindowProc(window, message, wParam, lParam);
    }
    const CurrentMessage current(window, message, wParam, lParam);
    return object->WindowProc(message, wParam, lParam);
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& creation) {
    if (creation.lpszClass == nullptr) {
        RegisterDefaultClass();
        creation.lpszClass = kClassName;
    }
    return TRUE;
}

BOOL CWnd::Create(LPCSTR className, LPCSTR windowName, DWORD style, const RECT& rect, CWnd* parent,
                  UINT identifier, CCreateContext* /*context*/) {
    const auto menu = reinterpret_cast<HMENU>(static_cast<UINT_PTR>(identifier));
    return CreateEx(0, className, windowName, style, rect,
                    parent == nullptr ? nullptr : parent->m_hWnd, menu);
}

BOOL CWnd::CreateEx(DWORD extendedStyle, LPCSTR className, LPCSTR windowName, DWORD style,
                    const RECT& rect, HWND parent, HMENU menuOrIdentifier) {
    CREATESTRUCT creation = {};
    creation.hInstance = ::GetModuleHandle(nullptr);
    creation.hMenu = menuOrIdentifier;
    creation.hwndParent = parent;
    creation.x = rect.left;
    creation.y = rect.top;
    creation.cx = rect.right - rect.left;
    creation.cy = rect.bottom - rect.top;
    creation.style = static_cast<LONG>(style);
    creation.lpszName = windowName;
    creation.lpszClass = className;
    creation.dwExStyle = extendedStyle;
    if (m_hWnd != nullptr || PreCreateWindow(creation) == FALSE) {
        return FALSE;
    }
    const HWND window = Creating([&] {
        g_creating = this;
        const HWND created = ::CreateWindowEx(
            creation.dwExStyle, creation.lpszClass, creation.lpszName,
            static_cast<DWORD>(creation.style), creation.x, creation.y, creation.cx, creation.cy,
            creation.hwndParent, creation.hMenu, creation.hInstance, nullptr);
        g_creating = nullptr;
        return created;
    });
    // A class with a procedure of its own: its first messages went by.
    if (window != nullptr && m_hWnd == nullptr) {
        SubclassWindow(window);
    }
    return window != nullptr ? TRUE : FALSE;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) {
        if (OnCommand(wParam, lParam) != FALSE) {
            return 0;
        }
    } else if (const AFX_MSGMAP_ENTRY* entry = FindEntry(message, 0, 0); entry != nullptr) {
        return entry->pfn(*this, wParam, lParam);
    }
    return DefWindowProc(message, wParam, lParam);
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM /*lParam*/) {
    return OnCmdMsg(LOWORD(wParam), HIWORD(wParam));
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return m_below == nullptr ? ::DefWindowProc(m_hWnd, message, wParam, lParam)
                              : ::CallWindowProc(m_below, m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default() {
    return g_current == nullptr
               ? 0
               : DefWindowProc(g_current->message, g_current->wParam, g_current->lParam);
}

void CWnd::OnNcDestroy() {
    CWinApp* application = AfxGetApp();
    if (application != nullptr && application->m_pMainWnd == this) {
        application->m_pMainWnd = nullptr;
        ::PostQuitMessage(0);
    }
    Default();
    Detach();
    if (!m_creating) {
        PostNcDestroy();
    }
}

void CWnd::PostNcDestroy() {}

BOOL CWnd::PreTranslateMessage(MSG* /*message*/) {
    return FALSE;
}
