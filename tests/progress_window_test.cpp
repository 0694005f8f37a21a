#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include <platen/progress/progress_bar.h>

#include "tests/support/windows/host_application.h"

namespace {

using namespace platen::test;

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kLightGray = RGB(0xC0, 0xC0, 0xC0);
constexpr COLORREF kGray = RGB(0x80, 0x80, 0x80);
constexpr COLORREF kWhite = RGB(0xFF, 0xFF, 0xFF);

class ProgressWindow : public testing::Test {
  protected:
    Host host;
    ProgressBar* bar = new ProgressBar;

    ~ProgressWindow() override { delete bar; }

    [[nodiscard]] HWND Dialog() const { return bar->GetProgressBarDialog()->m_hWnd; }
    [[nodiscard]] HWND Item(int identifier) const { return ::GetDlgItem(Dialog(), identifier); }

    /// Monitors without an update until that answers 1; false when it never does.
    bool IsAborted() {
        return PumpUntil([this] { return bar->MonitorPercent(0, 1, 0) == 1; });
    }
};

TEST_F(ProgressWindow, TheDialogDoesNotFillTheFrame) {
    ASSERT_EQ(bar->BeginPercent("Copying"), 1);
    EXPECT_TRUE(bar->IsWindowVisible());
    EXPECT_EQ(TextOf(bar->m_hWnd), "Copying");
    EXPECT_TRUE(bar->m_Title == "Copying");
    EXPECT_TRUE(host.window.IsWindowEnabled());
    CRect client;
    bar->GetClientRect(client);
    CRect dialog;
    ::GetWindowRect(Dialog(), dialog);
    EXPECT_EQ(dialog.Size(), client.Size());
    EXPECT_GT(client.Width(), client.Height());
    POINT corner = {0, 0};
    ::ClientToScreen(bar->m_hWnd, &corner);
    EXPECT_EQ(dialog.TopLeft(), CPoint(corner));
    CRect frame;
    bar->GetWindowRect(frame);
    CRect main;
    host.window.GetWindowRect(main);
    EXPECT_NEAR(frame.left + frame.right, main.left + main.right, 2) << "is not centred";
    EXPECT_NEAR(frame.top + frame.bottom, main.top + main.bottom, 2);
    bar->SetTitle("Reading");
    EXPECT_EQ(TextOf(bar->m_hWnd), "Reading");
    EXPECT_EQ(bar->EndPercent(), 1);
    EXPECT_FALSE(bar->IsWindowVisible());
    EXPECT_TRUE(::IsWindow(bar->m_hWnd));
}

TEST_F(ProgressWindow, AnotherStyleReachesTheFrame) {
    ASSERT_TRUE(bar->Create(nullptr, "", WS_CHILD | WS_SYSMENU | MFS_SYNCACTIVE, CRect(),
                            &host.window, 0, nullptr));
    constexpr DWORD kForced = WS_POPUP | WS_BORDER | MFS_4THICKFRAME;
    constexpr DWORD kAsked = WS_CHILD | WS_SYSMENU | MFS_SYNCACTIVE;
    EXPECT_EQ(bar->GetStyle() & (kForced | kAsked), kForced);
}

TEST_F(ProgressWindow, TextOrBarTellAnotherPercentage) {
    ASSERT_EQ(bar->BeginPercent(nullptr), 1);
    struct Case {
        unsigned long done;
        long total;
        double percent;
        const char* text;
        double filled;  // of the bar
    };
    const Case cases[] = {
        {0, 100, 0.0, "  0% done.  Press ESC to abort.", 0},
        {50, 200, 25.0, " 25% done.  Press ESC to abort.", 0.25},
        {29, 100, 28.999999999999996, " 28% done.  Press ESC to abort.", 0.28999999999999996},
        {7, 7, 100.0, "100% done.  Press ESC to abort.", 1},
        {300, 200, 150.0, "150% done.  Press ESC to abort.", 1},
        {5, 0, 0.0, "  0% done.  Press ESC to abort.", 0},
        {5, -3, 0.0, "  0% done.  Press ESC to abort.", 0},
        {0xFFFFFFFF, 1, 429496729500.0, "65436% done.  Press ESC to abort.", 1},
    };
    CRect client;
    ::GetClientRect(Item(1001), client);
    const int width = client.Width();
    for (const Case& test : cases) {
        EXPECT_EQ(bar->MonitorPercent(test.done, test.total, 1), 0);
        EXPECT_EQ(bar->m_Percent, test.percent);
        EXPECT_EQ(TextOf(Item(1000)), test.text);

        const int filled = static_cast<int>(width * test.filled);
        std::vector<COLORREF> expected(static_cast<std::size_t>(width), kLightGray);
        std::fill_n(expected.begin(), filled, kBlack);
        expected[2] = kGray;
        expected[static_cast<std::size_t>(width - 2)] = kWhite;
        const HDC context = ::GetDC(Item(1001));
        std::vector<COLORREF> shown;
        for (int x = 0; x < width; ++x) {
            shown.push_back(::GetPixel(context, x, client.Height() / 2));
        }
        EXPECT_EQ(::GetPixel(context, width - 2, 2), kGray);
        EXPECT_EQ(::GetPixel(context, 2, client.Height() - 2), kGray);
        EXPECT_EQ(::GetPixel(context, width / 2, client.Height() - 2), kWhite);
        ::ReleaseDC(Item(1001), context);
        EXPECT_EQ(shown, expected) << test.percent << " percent";
    }
    const double before = bar->m_Percent;
    EXPECT_EQ(bar->MonitorPercent(1, 2, 0), 0);
    EXPECT_EQ(bar->m_Percent, before) << "changed without an update";
    ::DestroyWindow(Item(1001));
    EXPECT_EQ(bar->MonitorPercent(1, 2, 1), 0);
    EXPECT_EQ(TextOf(Item(1000)), cases[7].text) << "a text without a bar";
}

TEST_F(ProgressWindow, AWayToAbortDoesNotOrANewRunStaysAborted) {
    const auto escape = [this] {
        keybd_event(VK_ESCAPE, 0, 0, 0);
        keybd_event(VK_ESCAPE, 0, KEYEVENTF_KEYUP, 0);
    };
    const auto cancel = [this] {
        ::PostMessage(Dialog(), WM_COMMAND, IDCANCEL, 0);
        ::PostMessage(Dialog(), WM_USER, 9, 0);
    };
    const auto close = [this] { bar->SendMessage(WM_CLOSE); };
    for (const std::function<void()>& abort : {std::function<void()>(escape), {cancel}, {close}}) {
        ASSERT_EQ(bar->BeginPercent(nullptr), 1);
        EXPECT_TRUE(bar->IsWindowVisible());
        EXPECT_EQ(bar->MonitorPercent(1, 2, 1), 0);
        EXPECT_EQ(TextOf(Item(1000)), " 50% done.  Press ESC to abort.");
        const HWND text = Item(1000);
        abort();
        EXPECT_TRUE(IsAborted());
        EXPECT_EQ(TextOf(text), " 50% done.  Press ESC to abort.") << "still pumped";
        EXPECT_EQ(bar->GetProgressBarDialog(), nullptr);
        EXPECT_FALSE(bar->IsWindowVisible());
        EXPECT_TRUE(::IsWindow(bar->m_hWnd));
        EXPECT_EQ(bar->MonitorPercent(2, 2, 1), 1);
        EXPECT_EQ(bar->m_Percent, 50.0);
        bar->EndPercent();
    }
}

TEST_F(ProgressWindow, ASecondBeginLeavesTheFirstRunsState) {
    ASSERT_EQ(bar->BeginPercent("First"), 1);
    bar->MonitorPercent(1, 2, 1);
    const HWND frame = bar->m_hWnd;
    ASSERT_EQ(bar->BeginPercent(nullptr), 1);
    EXPECT_EQ(bar->m_hWnd, frame);
    EXPECT_EQ(TextOf(frame), "");
    EXPECT_TRUE(bar->m_Title == "First");
    EXPECT_EQ(bar->m_Percent, 0.0);
    EXPECT_EQ(TextOf(Item(1000)), "");
    EXPECT_EQ(::GetWindow(::GetWindow(frame, GW_CHILD), GW_HWNDNEXT), nullptr)
        << "the first dialog is still there";
}

TEST_F(ProgressWindow, EnterHidesTheDialog) {
    bar->BeginPercent(nullptr);
    ::SendMessage(Dialog(), WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(::IsWindowVisible(Dialog()));
}

TEST_F(ProgressWindow, MessagesOfOtherWindowsAreTakenOrItsOwnLeft) {
    bar->BeginPercent(nullptr);
    Host::Pump();
    host.window.PostMessage(kHostMessage);
    ::PostMessage(Dialog(), WM_USER, 7, 0);
    EXPECT_EQ(bar->MonitorPercent(0, 1, 0), 0);
    EXPECT_EQ(TextOf(Item(1000)), "  7% done.  Press ESC to abort.");
    EXPECT_EQ(host.window.messages, 0);
    Host::Pump();
    EXPECT_EQ(host.window.messages, 1);
}

TEST_F(ProgressWindow, TheEndOfTheApplicationIsSwallowed) {
    bar->BeginPercent(nullptr);
    ::PostQuitMessage(3);
    EXPECT_EQ(bar->MonitorPercent(0, 1, 1), 0);
    EXPECT_EQ(bar->MonitorPercent(0, 1, 1), 0);
    EXPECT_EQ(Host::Pump(), 3);
}

TEST_F(ProgressWindow, TheEndOfTheDialogLeavesADanglingPointer) {
    bar->BeginPercent(nullptr);
    ::DestroyWindow(Dialog());
    EXPECT_EQ(bar->GetProgressBarDialog(), nullptr);
    EXPECT_EQ(bar->MonitorPercent(1, 2, 1), 0);
}

/// Tells when it is deleted.
class WatchedBar : public ProgressBar {
  public:
    explicit WatchedBar(bool& deleted) : m_deleted(deleted) {}
    ~WatchedBar() override { m_deleted = true; }

  private:
    bool& m_deleted;
};

HWND g_doomed = nullptr;

void CALLBACK DestroyDoomed(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/, DWORD /*time*/) {
    ::DestroyWindow(g_doomed);
}

TEST(ProgressWindowLife, TheMainWindowsEndDuringARunIsFatal) {
    Host host;
    bool deleted = false;
    auto* bar = new WatchedBar(deleted);
    {
        const ProgressBarRun run(*bar);
        ASSERT_TRUE(run.IsOpen());
        g_doomed = host.window.m_hWnd;
        ::SetTimer(bar->GetProgressBarDialog()->m_hWnd, 9, 10, &DestroyDoomed);
        int result = 0;
        for (const Deadline deadline; result == 0 && !deadline.IsOver();) {
            result = bar->MonitorPercent(1, 2, 0);
        }
        EXPECT_EQ(result, 1);
        EXPECT_TRUE(deleted);
    }
    EXPECT_EQ(AfxGetMainWnd(), nullptr);
}

/// A host's dialog below the library's.
class HostDialog : public ProgressBarDialog {
  public:
    explicit HostDialog(bool& deleted) : m_deleted(deleted) {}
    ~HostDialog() override { m_deleted = true; }

  private:
    bool& m_deleted;
};

TEST_F(ProgressWindow, AHostsDialogInAWindowOfItsOwnIsNoProgressDialog) {
    bool deleted = false;
    auto* const made = new HostDialog(deleted);
    ASSERT_TRUE(made->Create(MAKEINTRESOURCE(0), &host.window));
    const HWND dialog = made->m_hWnd;
    EXPECT_NE(dynamic_cast<ProgressBarDialog*>(CWnd::FromHandlePermanent(dialog)), nullptr);
    EXPECT_EQ(::SendMessage(dialog, WM_USER, 7, 0), 1);
    EXPECT_EQ(TextOf(::GetDlgItem(dialog, 1000)), "  7% done.  Press ESC to abort.");
    ::SendMessage(dialog, WM_COMMAND, IDCANCEL, 0);
    EXPECT_FALSE(host.window.IsWindowVisible()) << "its parent, which is no ProgressBar";
    EXPECT_TRUE(::IsWindow(dialog));
    ::DestroyWindow(dialog);
    EXPECT_TRUE(deleted);
}

TEST(ProgressWindowLife, AnExceptionOrTheObjectsEndLeavesAWindow) {
    Host host;
    ProgressBar* bar = new ProgressBar;
    try {
        const ProgressBarRun run(*bar, "Doomed");
        throw std::runtime_error("the operation failed");
    } catch (const std::runtime_error&) {
        EXPECT_FALSE(bar->IsWindowVisible());
    }
    const HWND frame = bar->m_hWnd;
    const HWND dialog = bar->GetProgressBarDialog()->m_hWnd;
    delete bar;
    EXPECT_FALSE(::IsWindow(frame));
    EXPECT_FALSE(::IsWindow(dialog));
}

/// A bar whose window cannot be made.
class RefusedBar : public ProgressBar {
  protected:
    BOOL PreCreateWindow(CREATESTRUCT& /*creation*/) override { return FALSE; }
};

TEST(ProgressWindowLife, AWindowThatCannotBeMadeIsShown) {
    Host host;
    RefusedBar bar;
    EXPECT_EQ(bar.BeginPercent("Refused"), 0);
    EXPECT_EQ(bar.m_hWnd, nullptr);
    EXPECT_EQ(bar.MonitorPercent(1, 2, 1), 0);
    EXPECT_EQ(bar.EndPercent(), 1);
    EXPECT_TRUE(host.window.IsWindowEnabled());
}

TEST(ProgressWindowLife, WithoutAMainWindowNothingIsShown) {
    ProgressBar bar;
    EXPECT_EQ(bar.MonitorPercent(1, 2, 1), 0) << "before the first run";
    EXPECT_EQ(bar.BeginPercent("Alone"), 1);
    EXPECT_TRUE(bar.IsWindowVisible());
    EXPECT_EQ(bar.MonitorPercent(1, 2, 1), 0);
    EXPECT_EQ(bar.m_Percent, 50.0);
    EXPECT_EQ(CRuntimeClass::FromName("ProgressBar"), bar.GetRuntimeClass());
}

}  // namespace
