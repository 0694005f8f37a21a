#include <platen/platform/win32/qt/pump.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QThread>
#include <QWindow>
#include <chrono>
#include <memory>
#include <vector>

#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/keys.h>
#include <platen/platform/win32/qt/queue.h>
#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

using Clock = std::chrono::steady_clock;

/// A look that found nothing holds for this long.
constexpr std::chrono::microseconds kIdleTime{500};
/// One look does not go on for ever while Qt finds more to do.
constexpr int kRounds = 16;

struct HeldInput {
    QPointer<QObject> target;
    std::unique_ptr<QEvent> event;
};

struct Pump {
    bool hasWork = true;
    Clock::time_point idleSince;
    int loopLevel = -1;  ///< of Qt's loops where the running look was started; -1 none runs
    HWND window = nullptr;
    std::vector<HeldInput> held;
};

Pump& ThePump() {
    static auto* const pump = new Pump;
    return *pump;
}

/// Marks a look for messages as running.
class PumpScope {
  public:
    explicit PumpScope(HWND window)
        : m_level(std::exchange(ThePump().loopLevel, QThread::currentThread()->loopLevel())),
          m_window(std::exchange(ThePump().window, window)) {}
    ~PumpScope() {
        ThePump().loopLevel = m_level;
        ThePump().window = m_window;
    }
    PumpScope(const PumpScope&) = delete;
    PumpScope& operator=(const PumpScope&) = delete;

  private:
    int m_level;
    HWND m_window;
};

void ReleaseHeld() {
    for (HeldInput& held : std::exchange(ThePump().held, {})) {
        if (held.target) {
            QCoreApplication::postEvent(held.target, held.event.release());
        }
    }
}

void LetQtWork(const MessageFilter& filter, bool wait) {
    Pump& pump = ThePump();
    const PumpScope scope(filter.window);
    DeleteBuried();
    if (filter.window == nullptr) {
        ReleaseHeld();
    }
    pump.hasWork = DeliverPressedKeys();
    auto* const dispatcher = QAbstractEventDispatcher::instance();
    const auto flags = QEventLoop::AllEvents;
    if (wait && !TakeMessage(filter, false)) {
        dispatcher->processEvents(flags | QEventLoop::WaitForMoreEvents);
    }
    for (int round = 0; round < kRounds && dispatcher->processEvents(flags); ++round) {
        pump.hasWork = true;
    }
    pump.idleSince = Clock::now();
}

bool MayBeIdle() {
    const Pump& pump = ThePump();
    return !pump.hasWork && Clock::now() - pump.idleSince < kIdleTime;
}

}  // namespace

void NoteWork() {
    ThePump().hasWork = true;
}

bool IsPumping() {
    const int level = ThePump().loopLevel;
    return level >= 0 && QThread::currentThread()->loopLevel() <= level;
}

bool HoldInput(QObject* target, QEvent& event) {
    Pump& pump = ThePump();
    if (!IsPumping() || pump.window == nullptr) {
        return false;
    }
    const Window* const wanted = Find(TopLevelOf(pump.window));
    const auto* const window = qobject_cast<QWindow*>(target);
    // A menu or list that hangs above a window belongs to it.
    if (wanted == nullptr || !wanted->widget || window->type() == Qt::Popup ||
        wanted->widget->windowHandle() == window) {
        return false;
    }
    pump.held.push_back({target, std::unique_ptr<QEvent>(event.clone())});
    return true;
}

void WaitUntil(bool (*isDone)(const void* argument), const void* argument) {
    constexpr int kLongest = 1000;
    constexpr unsigned long kStep = 1;
    const PumpScope scope(nullptr);
    QElapsedTimer timer;
    timer.start();
    while (!isDone(argument) && timer.elapsed() < kLongest) {
        if (!QAbstractEventDispatcher::instance()->processEvents(
                QEventLoop::ExcludeUserInputEvents)) {
            QThread::msleep(kStep);
        }
    }
}

void DispatchWaiting() {
    constexpr int kAtMost = 100;
    ReleaseHeld();
    DeliverPressedKeys();
    for (int count = 0; count < kAtMost; ++count) {
        if (const auto code = TakeQuit()) {
            QCoreApplication::exit(*code);
            return;
        }
        auto message = TakeMessage({}, true);
        if (!message) {
            return;
        }
        HWND dialog = message->hwnd;
        while (Find(dialog) != nullptr && Find(dialog)->dialog == nullptr) {
            dialog = Find(dialog)->IsChild() ? Find(dialog)->parent : nullptr;
        }
        if (dialog == nullptr || IsDialogMessage(dialog, &*message) == 0) {
            TranslateMessage(&*message);
            DispatchMessage(&*message);
        }
    }
}

}  // namespace platen::win32

BOOL PeekMessage(LPMSG message, HWND window, UINT first, UINT last, UINT remove) {
    using namespace platen::win32;
    if (!NeedDesktop()) {
        return FALSE;
    }
    const MessageFilter filter{window, first, last};
    if (!MayBeIdle()) {
        LetQtWork(filter, false);
    }
    const auto taken = TakeMessage(filter, (remove & PM_REMOVE) != 0);
    *message = taken.value_or(*message);
    return taken ? TRUE : FALSE;
}

BOOL GetMessage(LPMSG message, HWND window, UINT first, UINT last) {
    using namespace platen::win32;
    if (!NeedDesktop()) {
        return FALSE;
    }
    const MessageFilter filter{window, first, last};
    for (bool wait = false;; wait = true) {
        if (wait || !MayBeIdle()) {
            LetQtWork(filter, wait);
        }
        if (const auto taken = TakeMessage(filter, true)) {
            *message = *taken;
            return message->message == WM_QUIT ? FALSE : TRUE;
        }
    }
}
