#include <platen/platform/afx/object_table.h>
#include <platen/platform/afx/wnd.h>
#include <platen/platform/afx/wnd_procedure.h>

namespace {

using WindowTable = platen::afx::ObjectTable<CWnd, &CWnd::m_hWnd>;

constinit WindowTable g_permanentWindows;
constinit WindowTable g_temporaryWindows;

/// A temporary object never destroys its window.
void DeleteTemporaryWindow(CWnd* object) {
    object->m_hWnd = nullptr;
    delete object;
}

}  // namespace

CWnd* CWnd::FromHandlePermanent(HWND window) {
    return window == nullptr ? nullptr : g_permanentWindows.Find(window);
}

CWnd* CWnd::FromHandle(HWND window) {
    if (window == nullptr) {
        return nullptr;
    }
    CWnd* object = FromHandlePermanent(window);
    if (object == nullptr) {
        object = g_temporaryWindows.Find(window);
    }
    if (object == nullptr) {
        // An application that is never idle would otherwise gather objects of dead windows.
        g_temporaryWindows.RemoveIf([](const CWnd& old) { return ::IsWindow(old.m_hWnd) == FALSE; },
                                    DeleteTemporaryWindow);
        object = new (std::nothrow) CWnd;
        if (object != nullptr) {
            object->m_hWnd = window;
            g_temporaryWindows.Insert(*object);
        }
    }
    return object;
}

void CWnd::DeleteTempMap() {
    g_temporaryWindows.RemoveIf([](const CWnd&) { return true; }, DeleteTemporaryWindow);
}

BOOL CWnd::Attach(HWND window) {
    if (window == nullptr || m_hWnd != nullptr) {
        return FALSE;
    }
    if (CWnd* other = FromHandlePermanent(window); other != nullptr) {
        return FALSE;
    }
    m_hWnd = window;
    g_permanentWindows.Insert(*this);
    return TRUE;
}

BOOL CWnd::SubclassWindow(HWND window) {
    if (Attach(window) == FALSE) {
        return FALSE;
    }
    m_below = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtr(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
    return TRUE;
}

HWND CWnd::Detach() {
    const HWND window = m_hWnd;
    if (window == nullptr) {
        return nullptr;
    }
    g_permanentWindows.Remove(*this);
    const auto ours = reinterpret_cast<LONG_PTR>(&AfxWndProc);
    if (m_below != nullptr && ::GetWindowLongPtr(window, GWLP_WNDPROC) == ours) {
        ::SetWindowLongPtr(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_below));
    }
    m_hWnd = nullptr;
    m_below = nullptr;
    return window;
}
