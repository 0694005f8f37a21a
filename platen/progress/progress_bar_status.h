#pragma once

#include <platen/platform/afx/object.h>
#include <platen/platform/afx/string.h>
#include <platen/platform/win32.h>

/// The record of a progress run in the status bar. Making and ending one redraws the main window's
/// menu bar, since the run disables the window.
class ProgressBarStatus : public CObject {
    DECLARE_DYNCREATE(ProgressBarStatus)

  public:
    CString m_Text;
    int m_Abort = 0;

    ProgressBarStatus();
    ~ProgressBarStatus() override;

    /// Disables the main window and starts its timer. 1.
    int BeginPercent(const char* text);
    /// The object may be gone when it returns: the message that it dispatches may end the run.
    int MonitorPercent(unsigned long done, long total, int update);
    /// Takes back what BeginPercent did, of the same window, but not the wait cursor. 1.
    int EndPercent();

  private:
    bool ShowPercent(unsigned long done, long total);
    int DispatchOne();

    HWND m_main = nullptr;   ///< the window disabled; null when there was none
    HWND m_focus = nullptr;  ///< the window that had the focus
    int m_lastPercent = -1;  ///< the whole percentage shown; -1 before the first
};
