#pragma once

#include <algorithm>
#include <string>

#include <platen/platform/afx.h>

#include "tests/support/windows/waiting.h"

namespace platen::test {

constexpr UINT kHostMessage = WM_APP + 1;

/// An application object that tells how deep the wait cursor is asked for.
class HostApplication : public CWinApp {
  public:
    int waiting = 0;

    void DoWaitCursor(int change) override {
        waiting += change;
        CWinApp::DoWaitCursor(change);
    }
};

/// A status bar that counts how often a text is set.
class HostStatusBar : public CStatusBar {
  public:
    int writes = 0;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        writes += message == SB_SETTEXT ? 1 : 0;
        return CStatusBar::WindowProc(message, wParam, lParam);
    }
};

/// A main window that counts the ticks of timer 1, those of others, and the messages kHostMessage.
class HostWindow : public CWnd {
  public:
    int ticks = 0;
    int otherTicks = 0;
    int messages = 0;

  protected:
    void OnTimer(UINT_PTR timer) { ++(timer == 1 ? ticks : otherTicks); }
    LRESULT OnHostMessage(WPARAM wParam, LPARAM lParam) {
        ++messages;
        return static_cast<LRESULT>(wParam) + lParam;
    }
    DECLARE_MESSAGE_MAP()
};

/// A program with a visible main window and a status bar of two panes.
struct Host {
    HostApplication application;
    HostWindow window;
    HostStatusBar statusBar;

    Host() {
        window.Create(nullptr, "Host", WS_OVERLAPPEDWINDOW, CRect(60, 60, 560, 460), nullptr, 0);
        statusBar.Create(&window);
        const int edges[] = {300, -1};
        statusBar.SetPaneEdges(edges, 2);
        application.m_pMainWnd = &window;
        window.ShowWindow(SW_SHOW);
        window.UpdateWindow();
        ::SetFocus(window.m_hWnd);
    }
    ~Host() {
        application.m_pMainWnd = nullptr;
        keybd_event(VK_ESCAPE, 0, KEYEVENTF_KEYUP, 0);
        window.DestroyWindow();
        Pump();
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    /// Dispatches what waits; the exit status when it was a WM_QUIT that ended that, else -1.
    static int Pump() {
        MSG message = {};
        while (PeekMessage(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            if (message.message == WM_QUIT) {
                return static_cast<int>(message.wParam);
            }
            TranslateMessage(&message);
            DispatchMessage(&message);
        }
        return -1;
    }
};

inline std::string TextOf(HWND window) {
    std::string text(static_cast<std::size_t>(GetWindowTextLength(window)) + 1, '\0');
    GetWindowText(window, text.data(), static_cast<int>(text.size()));
    text.pop_back();
    return text;
}

}  // namespace platen::test
