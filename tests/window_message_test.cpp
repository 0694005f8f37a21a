#include <gtest/gtest.h>

#include <chrono>

#include "tests/window_recording.h"

namespace {

using namespace platen::test;
using Clock = std::chrono::steady_clock;

/// Looks for messages, and counts WM_TIMER, until the time is over.
int CountTimers(std::chrono::milliseconds time) {
    int count = 0;
    for (const auto end = Clock::now() + time; Clock::now() < end;) {
        MSG message;
        if (PeekMessage(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE) != 0) {
            ++count;
        }
    }
    return count;
}

TEST(WindowMessages, ComeInAnotherOrder) {
    Recording recording({});
    const Scoped window(Recording::Make("w", WS_POPUP | WS_VISIBLE));
    Pump();
    SetTimer(window, 1, 10, nullptr);
    const auto end = Clock::now() + std::chrono::milliseconds(50);
    while (Clock::now() < end) {
        MSG message;
        PeekMessage(&message, window, WM_USER, WM_USER, PM_NOREMOVE);
    }
    InvalidateRect(window, nullptr, FALSE);
    PostQuitMessage(3);
    PostMessage(window, WM_USER, 1, 0);
    PostMessage(window, WM_USER, 2, 0);
    std::vector<UINT> order;
    MSG message;
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

UINT_PTR g_timerCalls = 0;

void CALLBACK CountCall(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
    g_timerCalls = timer;
}

TEST(WindowMessages, TimersPileUpOrLiveOn) {
    Recording recording({});
    const Scoped window(Recording::Make("w", WS_POPUP));
    EXPECT_FALSE(SetTimer(reinterpret_cast<HWND>(std::intptr_t{0x7FFF0}), 1, 10, nullptr));
    ASSERT_EQ(SetTimer(window, 5, 10, nullptr), 5U);
    EXPECT_GE(CountTimers(std::chrono::milliseconds(200)), 5);
    for (const auto end = Clock::now() + std::chrono::milliseconds(300); Clock::now() < end;) {
    }
    MSG message;
    int atOnce = 0;
    for (int i = 0; i < 20; ++i) {
        atOnce += PeekMessage(&message, window, WM_TIMER, WM_TIMER, PM_REMOVE);
    }
    EXPECT_LE(atOnce, 10) << "all the thirty that were not served come";
    EXPECT_TRUE(KillTimer(window, 5));
    EXPECT_FALSE(KillTimer(window, 5));
    PeekMessage(&message, window, WM_TIMER, WM_TIMER, PM_REMOVE);
    EXPECT_EQ(CountTimers(std::chrono::milliseconds(40)), 0);
    const UINT_PTR ownTimer = SetTimer(nullptr, 0, 10, &CountCall);
    while (g_timerCalls == 0 && GetMessage(&message, nullptr, 0, 0) != 0) {
        DispatchMessage(&message);
    }
    EXPECT_EQ(g_timerCalls, ownTimer);
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
