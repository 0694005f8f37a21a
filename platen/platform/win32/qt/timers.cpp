#include <QObject>
#include <QTimerEvent>
#include <algorithm>
#include <vector>

#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/queue.h>
#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

constexpr UINT kShortestPeriod = 10;

struct Timer {
    HWND window;
    UINT_PTR identifier;
    TIMERPROC procedure;
    int qtTimer;
    bool isDue;
};

/// A due timer is a mark, so that one that is not served does not pile up.
class Clock : public QObject {
  public:
    UINT_PTR Set(HWND window, UINT_PTR identifier, UINT period, TIMERPROC procedure) {
        if (window == nullptr) {
            identifier = ++m_lastIdentifier;
        }
        Kill(window, identifier);
        const int qtTimer = startTimer(
            static_cast<int>(std::clamp(period, kShortestPeriod, 0x7FFFFFFFU)), Qt::PreciseTimer);
        m_timers.push_back({window, identifier, procedure, qtTimer, false});
        return window == nullptr ? identifier : (identifier == 0 ? 1 : identifier);
    }

    bool Kill(HWND window, UINT_PTR identifier) {
        return KillIf([=](const Timer& timer) {
            return timer.window == window && timer.identifier == identifier;
        });
    }

    bool KillAllOf(HWND window) {
        return KillIf([window](const Timer& timer) { return timer.window == window; });
    }

    Timer* Due(const MessageFilter& filter) {
        const auto found = std::ranges::find_if(m_timers, [&filter](const Timer& timer) {
            return timer.isDue && filter.Fits(timer.window, WM_TIMER);
        });
        return found == m_timers.end() ? nullptr : &*found;
    }

    /// Whether a message's procedure is one that was given with a timer.
    [[nodiscard]] bool Knows(TIMERPROC procedure) const {
        return std::ranges::any_of(
            m_timers, [=](const Timer& timer) { return timer.procedure == procedure; });
    }

  protected:
    void timerEvent(QTimerEvent* event) override {
        for (Timer& timer : m_timers) {
            timer.isDue = timer.isDue || timer.qtTimer == event->timerId();
        }
    }

  private:
    template <class Condition>
    bool KillIf(Condition condition) {
        for (const Timer& timer : m_timers) {
            if (condition(timer)) {
                killTimer(timer.qtTimer);
            }
        }
        return std::erase_if(m_timers, condition) > 0;
    }

    std::vector<Timer> m_timers;
    UINT_PTR m_lastIdentifier = 0x7000;
};

/// Never destroyed: it may outlive the application object, and then does nothing more.
Clock& TheClock() {
    static auto* const clock = new Clock;
    return *clock;
}

}  // namespace

std::optional<MSG> TakeTimer(const MessageFilter& filter, bool remove) {
    Timer* const timer = TheClock().Due(filter);
    if (timer == nullptr) {
        return std::nullopt;
    }
    timer->isDue = !remove;
    MSG message{};
    message.hwnd = timer->window;
    message.message = WM_TIMER;
    message.wParam = timer->identifier;
    message.lParam = reinterpret_cast<LPARAM>(timer->procedure);
    return message;
}

bool HasDueTimer() {
    return TheClock().Due({}) != nullptr;
}

void KillTimers(HWND window) {
    TheClock().KillAllOf(window);
}

}  // namespace platen::win32

UINT_PTR SetTimer(HWND window, UINT_PTR timer, UINT milliseconds, TIMERPROC procedure) {
    using namespace platen::win32;
    if (!NeedDesktop() || (window != nullptr && Find(window) == nullptr)) {
        return 0;
    }
    return TheClock().Set(window, timer, milliseconds, procedure);
}

BOOL KillTimer(HWND window, UINT_PTR timer) {
    return platen::win32::TheClock().Kill(window, timer) ? TRUE : FALSE;
}

LRESULT DispatchMessage(const MSG* message) {
    if (message->message == WM_TIMER && message->lParam != 0) {
        const auto procedure = reinterpret_cast<TIMERPROC>(message->lParam);
        if (platen::win32::TheClock().Knows(procedure)) {
            procedure(message->hwnd, WM_TIMER, message->wParam, message->time);
        }
        return 0;
    }
    return SendMessage(message->hwnd, message->message, message->wParam, message->lParam);
}
