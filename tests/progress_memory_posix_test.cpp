#include <gtest/gtest.h>

#include <platen/progress/progress_bar.h>
#include <platen/progress/status_progress.h>

#include "tests/memory/failing_allocator.h"
#include "tests/support/windows/host_application.h"

namespace {

using namespace platen::test;

TEST(ProgressMemory, ARunWithoutMemoryIsOpened) {
    Host host;
    g_failure = {.countdown = 1, .lasting = true};
    EXPECT_EQ(APP_BeginPercent(), 0);
    g_failure = {};
    EXPECT_EQ(host.application.waiting, 0);
    EXPECT_TRUE(host.window.IsWindowEnabled());
    EXPECT_EQ(APP_MonitorPercent(1, 2, 1), 0);
    APP_EndPercent();
    EXPECT_EQ(host.application.waiting, 0);
}

TEST(ProgressMemory, AWindowWithoutItsDialogFails) {
    Host host;
    auto* bar = new ProgressBar;
    g_failure = {.countdown = 1, .lasting = true};
    EXPECT_EQ(bar->BeginPercent("Copying"), 1);
    g_failure = {};
    EXPECT_EQ(bar->GetProgressBarDialog(), nullptr);
    EXPECT_EQ(bar->MonitorPercent(1, 2, 1), 0);
    EXPECT_EQ(bar->EndPercent(), 1);
    delete bar;
}

}  // namespace
