#include <platen/platform/afx/application.h>
#include <platen/progress/progress_bar_status.h>
#include <platen/progress/status_progress.h>

#include <utility>

namespace {

/// The record of the open run; null when none is open.
constinit ProgressBarStatus* g_run = nullptr;

}  // namespace

int APP_BeginPercent() {
    APP_EndPercent();
    g_run = new (std::nothrow) ProgressBarStatus;
    return g_run == nullptr ? 0 : g_run->BeginPercent(nullptr);
}

int APP_MonitorPercent(unsigned long done, long total, int update) {
    return g_run == nullptr ? 0 : g_run->MonitorPercent(done, total, update);
}

void APP_EndPercent() {
    ProgressBarStatus* run = std::exchange(g_run, nullptr);
    if (run == nullptr) {
        return;
    }
    run->EndPercent();
    delete run;
    if (AfxGetApp() != nullptr) {
        AfxGetApp()->DoWaitCursor(-1);
    }
}
