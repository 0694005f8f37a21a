#include "examples/progress/displays.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <thread>
#include <utility>

#include <platen/platform/win32.h>
#include <platen/progress/progress_bar.h>
#include <platen/progress/status_progress.h>

namespace example {
namespace {

/// What happens once at a whole percentage.
void Reach(int percent, const Script& script, const std::function<void()>& look) {
    look();
    if (percent == script.escapeAt) {
        keybd_event(VK_ESCAPE, 0, 0, 0);
    }
    if (percent == script.holdAt) {
        std::printf("holding at %d percent\n", percent);
        std::fflush(stdout);
    }
}

/// Tells of each letter that is pressed, so that a script knows that keys arrive.
class LetterWatch {
  public:
    void Look() {
        for (int key = 'A'; key <= 'Z'; ++key) {
            const bool isToggled = (GetKeyState(key) & 1) != 0;
            if (std::exchange(m_toggled.at(static_cast<std::size_t>(key - 'A')), isToggled) !=
                isToggled) {
                std::printf("key %c\n", key);
                std::fflush(stdout);
            }
        }
    }

  private:
    std::array<bool, 26> m_toggled{};
};

/// Goes through the job, or stays at a percentage, as long as `report(done)` lets it.
template <typename Report>
bool Compute(LongJob& job, const Script& script, const std::function<void()>& look, Report report) {
    LetterWatch letters;
    int reached = -1;
    while (!job.IsFinished()) {
        const int percent = 100 * job.Done() / LongJob::kHeight;
        if (percent != reached) {
            reached = percent;
            Reach(percent, script, look);
        }
        if (percent != script.holdAt) {
            job.Step();
        } else {
            letters.Look();
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        if (report(job.Done()) && !job.IsFinished()) {
            return false;
        }
    }
    return true;
}

bool RunWithWindow(LongJob& job, const Script& script, const std::function<void()>& look) {
    ProgressBar bar;
    const ProgressBarRun run(bar, "A long job");
    return Compute(job, script, look, [&](int done) {
        return bar.MonitorPercent(static_cast<unsigned long>(done), LongJob::kHeight, 1) != 0;
    });
}

bool RunWithStatusBar(LongJob& job, const Script& script, const std::function<void()>& look) {
    const StatusProgressRun run;
    return Compute(job, script, look, [&](int done) {
        return APP_MonitorPercent(static_cast<unsigned long>(done), LongJob::kHeight, 1) != 0;
    });
}

}  // namespace

bool Run(LongJob& job, DisplayKind display, const Script& script,
         const std::function<void()>& look) {
    const bool finished = display == DisplayKind::Window ? RunWithWindow(job, script, look)
                                                         : RunWithStatusBar(job, script, look);
    if (script.escapeAt >= 0) {
        keybd_event(VK_ESCAPE, 0, KEYEVENTF_KEYUP, 0);
    }
    return finished;
}

}  // namespace example
