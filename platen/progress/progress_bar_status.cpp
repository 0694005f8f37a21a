#include <platen/base/status_bar.h>
#include <platen/platform/afx/status_bar.h>
#include <platen/progress/main_window.h>
#include <platen/progress/percent.h>
#include <platen/progress/progress_bar_status.h>

IMPLEMENT_DYNCREATE(ProgressBarStatus, CObject)

namespace {

constexpr UINT_PTR kTimer = 1;
constexpr UINT kTimerMilliseconds = 10;

void ShowText(const char* text) {
    CStatusBar* statusBar = platen::RegisteredStatusBar();
    if (statusBar != nullptr) {
        statusBar->SetPaneText(0, text, TRUE);
    }
}

void RedrawMenuBar() {
    const HWND window = platen::LiveMainWindow();
    if (window != nullptr) {
        ::DrawMenuBar(window);
    }
}

}  // namespace

ProgressBarStatus::ProgressBarStatus() {
    RedrawMenuBar();
}

ProgressBarStatus::~ProgressBarStatus() {
    RedrawMenuBar();
}

int ProgressBarStatus::BeginPercent(const char* text) {
    m_Abort = 0;
    if (AfxGetApp() != nullptr) {
        AfxGetApp()->DoWaitCursor(1);
    }
    if (text != nullptr) {
        m_Text = text;
    }
    ShowText("");
    m_lastPercent = -1;
    m_main = platen::LiveMainWindow();
    if (m_main != nullptr) {
        m_focus = ::GetFocus();
        ::SetTimer(m_main, kTimer, kTimerMilliseconds, nullptr);
        ::EnableWindow(m_main, FALSE);
    }
    return 1;
}

int ProgressBarStatus::MonitorPercent(unsigned long done, long total, int update) {
    if (update != 0 && ShowPercent(done, total)) {
        return 1;
    }
    if (m_Abort != 0) {
        return m_Abort;
    }
    return ::GetKeyState(VK_ESCAPE) < 0 ? 1 : DispatchOne();
}

/// Whether the status bar has just reached 100.
bool ProgressBarStatus::ShowPercent(unsigned long done, long total) {
    const int whole = platen::WholePercent(
        platen::PercentOf(static_cast<std::uint32_t>(done), static_cast<std::int32_t>(total)));
    if (platen::RegisteredStatusBar() == nullptr || whole == m_lastPercent) {
        return false;
    }
    m_lastPercent = whole;
    ShowText(platen::TextOfPercent(whole).data());
    return whole == 100;
}

/// Waits for a message only while the timer makes sure that one comes.
int ProgressBarStatus::DispatchOne() {
    MSG message = {};
    if (::IsWindow(m_main) == FALSE &&
        ::PeekMessage(&message, nullptr, 0, 0, PM_NOREMOVE) == FALSE) {
        return 0;
    }
    CWinThread substitute;
    CWinThread* thread = AfxGetApp();
    if (thread == nullptr) {
        thread = &substitute;
    }
    if (thread->PumpMessage() == FALSE) {
        // The application is to end: its own loop must see that too. The operation goes on until
        // its owner stops it.
        ::PostQuitMessage(static_cast<int>(thread->m_msgCur.wParam));
    }
    return 0;
}

int ProgressBarStatus::EndPercent() {
    if (::IsWindow(m_main) != FALSE) {
        ::KillTimer(m_main, kTimer);
        ::EnableWindow(m_main, TRUE);
        // A window that is disabled loses the focus, and enabling does not bring it back.
        if (::GetFocus() == nullptr && ::GetActiveWindow() == m_main) {
            ::SetFocus(m_focus);
        }
    }
    ShowText("Ready");
    return 1;
}
