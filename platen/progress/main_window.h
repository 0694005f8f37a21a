#pragma once

#include <platen/platform/afx/application.h>

namespace platen {

/// The application's main window while it exists, else null.
inline HWND LiveMainWindow() {
    const CWnd* window = AfxGetMainWnd();
    return window != nullptr && ::IsWindow(window->m_hWnd) != FALSE ? window->m_hWnd : nullptr;
}

}  // namespace platen
