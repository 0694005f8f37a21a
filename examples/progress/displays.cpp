#include "examples/progress/displays.h"

#include <cstdio>

#include <platen/platform/win32.h>
#include <platen/progress/progress_bar.h>
#include <platen/progress/status_progress.h>

namespace example {
namespace {

/// Goes through the job, or stays at a percentage, as long as `report(done)` lets it.
template <typename Report>
bool Compute(LongJob& job, const Script& script, Report report) {
    bool held = false;
    while (!job.IsFinished()) {
        const int percent = 100 * job.Done() / LongJob::kHeight;
        if (percent == script.escapeAt) {
            keybd_event(VK_ESCAPE, 0, 0, 0);
        }
        if (percent == script.holdAt && !held) {
            std::printf("holding at %d percent\n", percent);
            std::fflush(stdout);
            held = true;
        }
        if (percent != script.holdAt) {
            job.Step();
        }
        if (report(job.Done()) && !job.IsFinished()) {
            return false;
        }
    }
    return true;
}

bool RunWithWindow(LongJob& job, const Script& script) {
    ProgressBar bar;
    const ProgressBarRun run(bar, "A long job");
    return Compute(job, script, [&](int done) {
        return bar.MonitorPercent(static_cast<unsigned long>(done), LongJob::kHeight, 1) != 0;
    });
}

bool RunWithStatusBar(LongJob& job, const Script& script) {
    const StatusProgressRun run;
    return Compute(job, script, [&](int done) {
        return APP_MonitorPercent(static_cast<unsigned long>(done), LongJob::kHeight, 1) != 0;
    });
}

}  // namespace

bool Run(LongJob& job, DisplayKind display, const Script& script) {
    const bool finished =
        display == DisplayKind::Window ? RunWithWindow(job, script) : RunWithStatusBar(job, script);
    if (script.escapeAt >= 0) {
        keybd_event(VK_ESCAPE, 0, KEYEVENTF_KEYUP, 0);
    }
    return finished;
}

}  // namespace example
