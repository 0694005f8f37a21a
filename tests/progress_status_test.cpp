#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include <platen/base/system.h>
#include <platen/progress/report.h>
#include <platen/progress/status_progress.h>

#include "tests/support/windows/host_application.h"

namespace {

using namespace platen::test;

class StatusProgress : public testing::Test {
  protected:
    Host host;

    StatusProgress() { CORE_SetStatusBar(&host.statusBar); }
    ~StatusProgress() override {
        APP_EndPercent();
        CORE_SetStatusBar(nullptr);
    }

    [[nodiscard]] CString Pane(int index) const { return host.statusBar.GetPaneText(index); }

    /// Whether nothing of a run is left behind.
    void ExpectIdle() {
        EXPECT_TRUE(host.window.IsWindowEnabled());
        EXPECT_EQ(host.application.waiting, 0);
        Host::Pump();
        const int ticks = host.window.ticks;
        host.window.SetTimer(2, 10);
        EXPECT_TRUE(PumpUntil([this] { return host.window.otherTicks >= 5; }));
        EXPECT_EQ(host.window.ticks, ticks) << "the timer is still running";
        host.window.KillTimer(2);
        EXPECT_EQ(APP_MonitorPercent(1, 2, 1), 0);
    }
};

TEST_F(StatusProgress, ARunShowsAnotherPercentageOrLeavesSomethingBehind) {
    host.statusBar.SetPaneText(0, "Before");
    ASSERT_EQ(APP_BeginPercent(), 1);
    EXPECT_FALSE(host.window.IsWindowEnabled());
    EXPECT_EQ(host.application.waiting, 1);
    EXPECT_STREQ(Pane(0), "");
    EXPECT_EQ(APP_MonitorPercent(0, 100, 0), 0);
    EXPECT_STREQ(Pane(0), "") << "shown without an update";
    const int before = host.statusBar.writes;
    EXPECT_EQ(APP_MonitorPercent(0, 100, 1), 0);
    EXPECT_STREQ(Pane(0), "  0% done.  Press ESC to abort.");
    EXPECT_EQ(APP_MonitorPercent(58, 100, 1), 0);
    EXPECT_EQ(APP_MonitorPercent(579, 1000, 1), 0);
    EXPECT_STREQ(Pane(0), " 57% done.  Press ESC to abort.");
    EXPECT_EQ(host.statusBar.writes, before + 2) << "written again";
    EXPECT_EQ(APP_MonitorPercent(100, 100, 1), 1);
    EXPECT_STREQ(Pane(0), "100% done.  Press ESC to abort.");
    EXPECT_EQ(APP_MonitorPercent(100, 100, 1), 0) << "100 was reached before";
    APP_EndPercent();
    EXPECT_STREQ(Pane(0), "Ready");
    ExpectIdle();
    APP_EndPercent();
    EXPECT_EQ(host.application.waiting, 0) << "ended twice";
}

TEST_F(StatusProgress, MonitoringDoesNotDispatchOrHangs) {
    APP_BeginPercent();
    host.window.PostMessage(kHostMessage);
    for (const Deadline deadline; host.window.ticks < 3 && !deadline.IsOver();) {
        EXPECT_EQ(APP_MonitorPercent(1, 2, 1), 0);
    }
    EXPECT_GE(host.window.ticks, 3);
    EXPECT_EQ(host.window.messages, 1);
}

TEST_F(StatusProgress, EscapeIsMissedOrLatched) {
    APP_BeginPercent();
    const auto comesToAnswer = [](int expected) {
        int answer = -1;
        for (const Deadline deadline; answer != expected && !deadline.IsOver();) {
            answer = APP_MonitorPercent(1, 2, 1);
            // A held key stops the operation before it dispatches.
            Host::Pump();
        }
        return answer == expected;
    };
    EXPECT_TRUE(comesToAnswer(0));
    keybd_event(VK_ESCAPE, 0, 0, 0);
    EXPECT_TRUE(comesToAnswer(1));
    EXPECT_EQ(APP_MonitorPercent(1, 2, 1), 1);
    EXPECT_EQ(APP_MonitorPercent(1, 2, 0), 1);
    keybd_event(VK_ESCAPE, 0, KEYEVENTF_KEYUP, 0);
    EXPECT_TRUE(comesToAnswer(0));
}

TEST_F(StatusProgress, ASecondBeginLeavesTheFirstRunOpen) {
    APP_BeginPercent();
    APP_MonitorPercent(1, 2, 1);
    ASSERT_EQ(APP_BeginPercent(), 1);
    EXPECT_EQ(host.application.waiting, 1);
    EXPECT_FALSE(host.window.IsWindowEnabled());
    EXPECT_STREQ(Pane(0), "");
    EXPECT_EQ(APP_MonitorPercent(1, 2, 1), 0);
    EXPECT_STREQ(Pane(0), " 50% done.  Press ESC to abort.");
    APP_EndPercent();
    ExpectIdle();
}

TEST_F(StatusProgress, AnExceptionLeavesTheMainWindowDisabled) {
    ::SetFocus(host.window.m_hWnd);
    try {
        const StatusProgressRun run;
        ASSERT_TRUE(run.IsOpen());
        ASSERT_FALSE(host.window.IsWindowEnabled());
        throw std::runtime_error("the operation failed");
    } catch (const std::runtime_error&) {
        ExpectIdle();
    }
    EXPECT_EQ(::GetFocus(), host.window.m_hWnd) << "the keyboard goes nowhere";
}

TEST_F(StatusProgress, TheEndOfTheApplicationIsSwallowedOrHangs) {
    APP_BeginPercent();
    ::PostQuitMessage(4);
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(APP_MonitorPercent(1, 2, 1), 0);
    }
    APP_EndPercent();
    EXPECT_EQ(Host::Pump(), 4);
}

TEST_F(StatusProgress, TheMainWindowsEndDuringARunHangs) {
    APP_BeginPercent();
    CORE_SetStatusBar(nullptr);
    host.window.DestroyWindow();
    EXPECT_EQ(AfxGetMainWnd(), nullptr);
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(APP_MonitorPercent(100, 100, 1), 0) << "without a status bar 100 stops nothing";
    }
    APP_EndPercent();
    EXPECT_EQ(host.application.waiting, 0);
}

TEST(StatusProgressAlone, WithoutAnApplicationItHangs) {
    ASSERT_EQ(AfxGetApp(), nullptr);
    ASSERT_EQ(APP_BeginPercent(), 1);
    EXPECT_EQ(APP_MonitorPercent(1, 2, 1), 0);
    APP_EndPercent();
    EXPECT_NE(CRuntimeClass::FromName("ProgressBarStatus"), nullptr);
}

TEST_F(StatusProgress, TheMemoryTextIsMisspeltOrShownElsewhere) {
    CORE_SetStatusBar(nullptr);
    EXPECT_EQ(DisplayMemoryStatus(), 0) << "nothing to show it in";
    CORE_SetStatusBar(&host.statusBar);
    host.statusBar.SetPaneText(0, "Ready");
    ASSERT_EQ(DisplayMemoryStatus(), 1);
    EXPECT_STREQ(Pane(0), "Ready");
    MEMORYSTATUS status = {};
    status.dwLength = sizeof(status);
    GlobalMemoryStatus(&status);
    char total[15];
    BigNumToString(static_cast<LONG>(status.dwTotalPageFile / 1024), total);
    const std::string start = std::string("Memory (Total = ") + total + "K, Available = ";
    EXPECT_THAT(std::string(Pane(1)), testing::StartsWith(start));
    EXPECT_THAT(std::string(Pane(1)), testing::EndsWith("K)"));
    const int edge = -1;
    host.statusBar.SetPaneEdges(&edge, 1);
    EXPECT_EQ(DisplayMemoryStatus(), 0) << "no such pane";
    host.statusBar.DestroyWindow();
    EXPECT_EQ(DisplayMemoryStatus(), 0) << "the bar's window is gone";
}

}  // namespace
