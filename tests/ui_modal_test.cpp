#include <gtest/gtest.h>

#include <memory>

#include <platen/platen.h>

#include "tests/support/windows/host_application.h"
#include "tests/support/windows/person.h"

namespace {

using namespace platen::test;

constexpr int kEntry = 20;

/// A dialog that notes what was entered and how often it was answered.
class EntryDialog : public CXModalDlg {
  public:
    using CXModalDlg::CXModalDlg;

    std::string text;
    int confirmed = 0;
    int cancelled = 0;

  protected:
    void OnOK() override {
        ++confirmed;
        text = TextOf(::GetDlgItem(m_hWnd, kEntry));
        CXModalDlg::OnOK();
    }
    void OnCancel() override {
        ++cancelled;
        CXModalDlg::OnCancel();
    }
};

/// What a dialog looks like from outside while it is open.
struct Seen {
    HWND owner = nullptr;
    bool ownerWasEnabled = true;
    std::string title;

    Person::Step Look(HWND main) {
        return [this, main](HWND active) {
            if (active == nullptr || active == main) {
                return false;
            }
            owner = ::GetWindow(active, GW_OWNER);
            ownerWasEnabled = ::IsWindowEnabled(owner) != FALSE;
            title = TextOf(active);
            return true;
        };
    }
};

TEST(ModalDialogs, AnEntryIsLostOrTheWrongTemplateShown) {
    Host host;
    struct Case {
        const char* title;
        bool byName;
        bool withParent;
    };
    for (const Case& wanted : {Case{"By name", true, true}, Case{"By name", true, false},
                               Case{"By number", false, true}, Case{"By number", false, false}}) {
        CWnd* parent = wanted.withParent ? &host.window : nullptr;
        EntryDialog byName("ENTRY", parent);
        EntryDialog byNumber(7U, parent);
        EntryDialog& dialog = wanted.byName ? byName : byNumber;
        Seen seen;
        Person person(
            {seen.Look(host.window.m_hWnd), Person::Types("ABC12"), Person::Types({VK_RETURN})});
        EXPECT_EQ(dialog.DoModal(), IDOK);
        EXPECT_EQ(dialog.text, "abc12");
        EXPECT_EQ(dialog.confirmed, 1);
        EXPECT_EQ(seen.owner, host.window.m_hWnd);
        EXPECT_FALSE(seen.ownerWasEnabled);
        EXPECT_EQ(seen.title, wanted.title);
        EXPECT_TRUE(host.window.IsWindowEnabled());
        EXPECT_EQ(dialog.m_hWnd, nullptr);
    }
    EntryDialog dialog("ENTRY", nullptr);
    Person person(
        {Person::SeesOther(host.window.m_hWnd), Person::Types("ABC"), Person::Types({VK_ESCAPE})});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.cancelled, 1);
    EXPECT_EQ(EntryDialog("MISSING", nullptr).DoModal(), -1);
    EXPECT_EQ(EntryDialog(8U, nullptr).DoModal(), -1);
    EXPECT_TRUE(host.window.IsWindowEnabled());
}

TEST(ModalDialogs, TheDefaultParentIsChosenTooLate) {
    Host host;
    CWnd other;
    other.CreateEx(0, nullptr, "Other", WS_OVERLAPPEDWINDOW, CRect(0, 0, 200, 100), nullptr,
                   nullptr);
    other.ShowWindow(SW_SHOW);
    ::SetActiveWindow(other.m_hWnd);
    EntryDialog dialog("ENTRY", nullptr);
    ::SetActiveWindow(host.window.m_hWnd);
    Seen seen;
    Person person({seen.Look(host.window.m_hWnd), Person::Answers(IDOK)});
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(seen.owner, other.m_hWnd);
}

/// A modal state of an application's own.
class State : public CXBaseModal {
  public:
    void Enter(HWND window) { vEnterModal(window); }
    void Exit(HWND window) { vExitModal(window); }
    static int Count() { return iModCnt; }
};

class ModalStates : public testing::Test {
  protected:
    Host host;
    CWnd overlapped;
    CWnd first;
    CWnd second;
    State state;

    ModalStates() {
        const CRect place(0, 0, 100, 100);
        overlapped.CreateEx(0, nullptr, "", WS_OVERLAPPEDWINDOW, place, nullptr, nullptr);
        first.CreateEx(0, nullptr, "", WS_POPUP, place, host.window.m_hWnd, nullptr);
        second.CreateEx(0, nullptr, "", WS_POPUP, place, nullptr, nullptr);
    }

    /// One letter for each enabled window: main, overlapped, first and second pop-up.
    [[nodiscard]] std::string Enabled() const {
        std::string enabled;
        enabled += host.window.IsWindowEnabled() ? "m" : "";
        enabled += overlapped.IsWindowEnabled() ? "o" : "";
        enabled += first.IsWindowEnabled() ? "1" : "";
        enabled += second.IsWindowEnabled() ? "2" : "";
        return enabled;
    }
};

TEST_F(ModalStates, TheWrongWindowsAreDisabled) {
    const HWND main = host.window.m_hWnd;
    for (const auto& [window, enabled] :
         {std::pair(first.m_hWnd, "o1"), {main, "mo"}, {HWND{nullptr}, "o"}}) {
        state.Enter(window);
        EXPECT_EQ(Enabled(), enabled);
        State().Enter(second.m_hWnd);
        EXPECT_EQ(State::Count(), 2);
        EXPECT_EQ(Enabled(), enabled) << "an inner state switches windows";
        state.Exit(second.m_hWnd);
        EXPECT_EQ(Enabled(), enabled) << "an inner state switches windows";
        state.Exit(window);
        EXPECT_EQ(Enabled(), "mo12");
        EXPECT_EQ(State::Count(), 0);
    }
}

TEST_F(ModalStates, AnExitTooManyIsNotMadeUpFor) {
    first.EnableWindow(FALSE);
    state.Exit(nullptr);
    EXPECT_EQ(State::Count(), -1);
    EXPECT_EQ(Enabled(), "mo2");
    state.Enter(nullptr);
    EXPECT_EQ(State::Count(), 0);
    EXPECT_EQ(Enabled(), "mo2");
    state.Enter(second.m_hWnd);
    state.Exit(second.m_hWnd);
    EXPECT_EQ(Enabled(), "mo12") << "a window that was disabled before stays so";
    host.application.m_pMainWnd = nullptr;
    state.Enter(nullptr);
    EXPECT_EQ(Enabled(), "mo");
    state.Exit(nullptr);
}

TEST(Loading, ClassesAreNotInTheRegistry) {
    const std::pair<const char*, const char*> expected[] = {{"Tiff", "CObject"},
                                                            {"Notifier", "CCmdTarget"},
                                                            {"ProgressBar", "CMiniFrameWnd"},
                                                            {"ProgressBarStatus", "CObject"},
                                                            {"CXModalDlg", "CDialog"},
                                                            {"CXFileDlg", "CFileDialog"},
                                                            {"CXFontDlg", "CFontDialog"},
                                                            {"CXPrintDlg", "CPrintDialog"}};
    for (const auto& [name, base] : expected) {
        int found = 0;
        for (const CRuntimeClass* record = CRuntimeClass::First(); record != nullptr;
             record = record->m_pNextClass) {
            if (std::string(name) == record->m_lpszClassName) {
                ++found;
                EXPECT_STREQ(record->m_pfnGetBaseClass()->m_lpszClassName, base) << name;
            }
        }
        EXPECT_EQ(found, 1) << name;
    }
    EXPECT_EQ(Tiff().GetRuntimeClass(), CRuntimeClass::FromName("Tiff"));
    const std::unique_ptr<CObject> record(
        CRuntimeClass::FromName("ProgressBarStatus")->CreateObject());
    ASSERT_NE(record, nullptr);
    EXPECT_STREQ(record->GetRuntimeClass()->m_lpszClassName, "ProgressBarStatus");
    const CXFontDlg font;
    EXPECT_STREQ(font.GetRuntimeClass()->m_lpszClassName, "CXFontDlg");
    EXPECT_TRUE(font.IsKindOf(RUNTIME_CLASS(CCommonDialog)));
    EXPECT_EQ(CRuntimeClass::FromName("CXModalDlg")->CreateObject(), nullptr);
}

}  // namespace
