#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include <platen/progress/progress_bar.h>
#include <platen/progress/status_progress.h>

#include "tests/support/windows/host_application.h"

namespace {

/// Whether the `new` that does not throw fails, in this program and in the library.
bool g_exhausted = false;

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return g_exhausted ? nullptr : std::malloc(size);
}
void* operator new(std::size_t size) {
    void* block = std::malloc(size);
    return block != nullptr ? block : throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
    std::free(block);
}
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
    std::free(block);
}

namespace {

using namespace platen::test;

TEST(ProgressMemory, ARunWithoutMemoryIsOpened) {
    Host host;
    g_exhausted = true;
    EXPECT_EQ(APP_BeginPercent(), 0);
    g_exhausted = false;
    EXPECT_EQ(host.application.waiting, 0);
    EXPECT_TRUE(host.window.IsWindowEnabled());
    EXPECT_EQ(APP_MonitorPercent(1, 2, 1), 0);
    APP_EndPercent();
    EXPECT_EQ(host.application.waiting, 0);
}

TEST(ProgressMemory, AWindowWithoutItsDialogFails) {
    Host host;
    auto* bar = new ProgressBar;
    g_exhausted = true;
    EXPECT_EQ(bar->BeginPercent("Copying"), 1);
    g_exhausted = false;
    EXPECT_EQ(bar->GetProgressBarDialog(), nullptr);
    EXPECT_EQ(bar->MonitorPercent(1, 2, 1), 0);
    EXPECT_EQ(bar->EndPercent(), 1);
    delete bar;
}

}  // namespace
