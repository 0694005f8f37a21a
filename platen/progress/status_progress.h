#pragma once

#include <platen/platform/api.h>

/// Progress in pane 0 of the registered status bar, while a long operation runs on the thread of
/// the user interface. Between begin and end the main window is disabled, the wait cursor is shown,
/// and timer 1 of the main window ticks each 10 ms. Escape aborts.
///
/// Without an application object or a main window, and without a status bar, what needs them is
/// left out.

extern "C" {
/// Begins a run: 1, or 0 when memory is exhausted. A run that is open is ended first.
PLATEN_API int APP_BeginPercent();
/// Tells that `done` of `total` is done, both taken as 32-bit numbers, and shows it when `update`
/// is not 0; then dispatches one message, waiting for it. 1 when the operation is to stop: Escape
/// is held down, or the status bar has just reached 100. Otherwise, and without a run, 0.
PLATEN_API int APP_MonitorPercent(unsigned long done, long total, int update);
/// Ends the run and enables the main window. Nothing without one.
PLATEN_API void APP_EndPercent();
}

/// Begins a run and ends it when the block is left, by an exception too.
class StatusProgressRun {
  public:
    StatusProgressRun() : m_open(APP_BeginPercent() != 0) {}
    ~StatusProgressRun() {
        if (m_open) {
            APP_EndPercent();
        }
    }
    StatusProgressRun(const StatusProgressRun&) = delete;
    StatusProgressRun& operator=(const StatusProgressRun&) = delete;

    [[nodiscard]] bool IsOpen() const { return m_open; }

  private:
    bool m_open;
};
