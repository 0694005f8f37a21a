#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEvent>
#include <string>

#include "tests/window_recording.h"

/// What keeps Qt busy longer than it must.
namespace {

using namespace platen::test;

/// Counts the events that the program handles, and drops the layout's when there are too many.
class EventCount : public QObject {
  public:
    static constexpr int kTooMany = 20000;
    int count = 0;

    EventCount() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* /*event*/) override {
        return ++count > kTooMany;
    }
};

TEST(WindowBusy, AFieldOfSeveralLinesNeverComesToRest) {
    Recording recording({});
    const Scoped around(Recording::Make("w", WS_POPUP | WS_VISIBLE));
    for (const DWORD bars : {DWORD{0}, WS_VSCROLL, WS_VSCROLL | WS_HSCROLL}) {
        const HWND field = CreateWindowEx(0, "EDIT", "OK\nscreenChanged and more",
                                          WS_CHILD | WS_VISIBLE | ES_MULTILINE | bars, 0, 0, 1, 1,
                                          around, nullptr, nullptr, nullptr);
        for (const int width : {10, 20, 40}) {
            for (int height = 40; height <= 60; height += 2) {
                EventCount events;
                SetWindowPos(field, nullptr, 0, 0, width, height, SWP_NOZORDER);
                Pump();
                ASSERT_LT(events.count, EventCount::kTooMany) << width << ' ' << height;
            }
        }
        DestroyWindow(field);
    }
}

/// Rounds in which Qt looked for events.
int RoundsOf(HWND window, int how) {
    int rounds = 0;
    const auto connection =
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                         [&rounds] { ++rounds; });
    ShowWindow(window, how);
    QObject::disconnect(connection);
    return rounds;
}

LRESULT HideAtOnce(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ACTIVATE && LOWORD(wParam) != WA_INACTIVE) {
        ShowWindow(window, SW_HIDE);
        return 0;
    }
    return DefWindowProc(window, message, wParam, lParam);
}

TEST(WindowBusy, AWindowThatNobodyCanSeeIsWaitedFor) {
    Recording recording({}, &HideAtOnce);
    const Scoped hidden(Recording::Make("h", WS_POPUP));
    EXPECT_LT(RoundsOf(hidden, SW_SHOW), 50);
    const Scoped flat(Recording::Make("f", WS_POPUP));
    SetWindowPos(flat, nullptr, 0, 0, 100, 0, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_LT(RoundsOf(flat, SW_SHOWNOACTIVATE), 50);
}

}  // namespace
