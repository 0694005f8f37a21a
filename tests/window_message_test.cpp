#include <gtest/gtest.h>

#include "tests/support/windows/waiting.h"
#include "tests/window_recording.h"

namespace {

using namespace platen::test;

/// Looks for WM_TIMER of one window after the other until there were `count` of `steady`. How many
/// there were of `other`.
int TicksOf(HWND other, HWND steady, int count) {
    int ticks = 0;
    int steadyTicks = 0;
    MSG message;
    for (const Deadline deadline; steadyTicks < count && !deadline.IsOver();) {
        ticks += PeekMessage(&message, other, WM_TIMER, WM_TIMER, PM_REMOVE);
        steadyTicks += PeekMessage(&message, steady, WM_TIMER, WM_TIMER, PM_REMOVE);
    }
    EXPECT_EQ(steadyTicks, count) << "a timer has stopped";
    return ticks;
}

TEST(WindowMessages, ComeInAnotherOrder) {
    Recording recording({});
    const Scoped window(Recording::Make("w", WS_POPUP | WS_VISIBLE));
    Pump();
    SetTimer(window, 1, 10, nullptr);
    MSG message;
    for (const Deadline deadline; !deadline.IsOver();) {
        if (PeekMessage(&message, window, WM_TIMER, WM_TIMER, PM_NOREMOVE) != 0) {
            break;
        }
    }
    InvalidateRect(window, nullptr, FALSE);
    PostQuitMessage(3);
    PostMessage(window, WM_USER, 1, 0);
    PostMessage(window, WM_USER, 2, 0);
    std::vector<UINT> order;
    while (GetMessage(&message, nullptr, 0, 0) != 0) {
        order.push_back(message.message);
        DispatchMessage(&message);
    }
    order.push_back(message.message);
    EXPECT_EQ(message.wParam, 3U);
    for (int i = 0; i < 2; ++i) {
        GetMessage(&message, nullptr, 0, 0);
        order.push_back(message.message);
        DispatchMessage(&message);
    }
    const std::vector<UINT> expected = {WM_USER, WM_USER, WM_QUIT, WM_PAINT, WM_TIMER};
    EXPECT_EQ(order, expected);
}

TEST(WindowMessages, AFilterTakesWhatIsForOthers) {
    Recording recording({});
    const Scoped window(Recording::Make("w", WS_POPUP));
    const Scoped other(Recording::Make("o", WS_POPUP));
    const HWND child = Recording::Make("c", WS_CHILD, window);
    PostMessage(other, WM_USER, 0, 0);
    PostMessage(nullptr, WM_USER, 0, 0);
    PostMessage(child, WM_USER + 1, 0, 0);
    PostMessage(window, WM_USER + 2, 0, 0);
    MSG message;
    ASSERT_TRUE(PeekMessage(&message, window, 0, 0, PM_NOREMOVE));
    ASSERT_TRUE(PeekMessage(&message, window, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.hwnd, child) << "a child's message is not its parent's";
    ASSERT_TRUE(PeekMessage(&message, window, WM_USER, WM_USER + 9, PM_REMOVE));
    EXPECT_EQ(message.message, WM_USER + 2);
    EXPECT_FALSE(PeekMessage(&message, window, 0, 0, PM_REMOVE));
    ASSERT_TRUE(PeekMessage(&message, nullptr, WM_USER, WM_USER, PM_REMOVE));
    EXPECT_EQ(message.hwnd, other);
    ASSERT_TRUE(PeekMessage(&message, nullptr, WM_USER, WM_USER, PM_REMOVE));
    EXPECT_EQ(message.hwnd, nullptr);
}

UINT_PTR g_calledTimer = 0;

void CALLBACK NoteCall(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
    g_calledTimer = timer;
}

TEST(WindowMessages, TimersPileUpOrLiveOn) {
    Recording recording({});
    const Scoped window(Recording::Make("w", WS_POPUP));
    const Scoped steady(Recording::Make("s", WS_POPUP));
    const Scoped silent(Recording::Make("-", WS_POPUP));
    EXPECT_FALSE(SetTimer(reinterpret_cast<HWND>(std::intptr_t{0x7FFF0}), 1, 10, nullptr));
    ASSERT_EQ(SetTimer(window, 5, 10, nullptr), 5U);
    ASSERT_EQ(SetTimer(steady, 5, 10, nullptr), 5U);
    TicksOf(silent, steady, 40);
    EXPECT_LT(TicksOf(window, steady, 10), 30) << "all the forty that were not served come";
    EXPECT_TRUE(KillTimer(window, 5));
    EXPECT_FALSE(KillTimer(window, 5));
    MSG message;
    PeekMessage(&message, window, WM_TIMER, WM_TIMER, PM_REMOVE);
    EXPECT_EQ(TicksOf(window, steady, 5), 0);
    const UINT_PTR ownTimer = SetTimer(nullptr, 0, 10, &NoteCall);
    EXPECT_TRUE(PumpUntil([] { return g_calledTimer != 0; }));
    EXPECT_EQ(g_calledTimer, ownTimer);
    EXPECT_TRUE(KillTimer(nullptr, ownTimer));
}

TEST(WindowMessages, KeysAreNotSeenOrStayDown) {
    Recording recording({WM_KEYDOWN, WM_KEYUP, WM_CHAR});
    const Scoped window(Recording::Make("w", WS_POPUP | WS_VISIBLE));
    Pump();
    recording.Take();
    keybd_event('A', 0, 0, 0);
    Pump();
    EXPECT_LT(GetKeyState('A'), 0);
    keybd_event('A', 0, KEYEVENTF_KEYUP, 0);
    Pump();
    EXPECT_GE(GetKeyState('A'), 0);
    const Recording::Notes typed = {{"w", WM_KEYDOWN}, {"w", WM_CHAR}, {"w", WM_KEYUP}};
    EXPECT_EQ(recording.Take(), typed);
    PostMessage(window, WM_KEYDOWN, VK_ESCAPE, 0);
    Pump();
    EXPECT_GE(GetKeyState(VK_ESCAPE), 0) << "a posted message counts as a key";
    EnableWindow(window, FALSE);
    keybd_event(VK_ESCAPE, 0, 0, 0);
    Pump();
    EXPECT_LT(GetKeyState(VK_ESCAPE), 0) << "Escape is missed while the window is disabled";
    keybd_event(VK_ESCAPE, 0, KEYEVENTF_KEYUP, 0);
    Pump();
    EXPECT_GE(GetKeyState(VK_ESCAPE), 0);
    EnableWindow(window, TRUE);
}

}  // namespace
