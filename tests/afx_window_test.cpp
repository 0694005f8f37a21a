#include <gtest/gtest.h>

#include <vector>

#include <platen/platform/afx.h>

#include "tests/support/windows/host_application.h"

namespace {

using namespace platen::test;

/// A frame that notes what reaches it, over a base with a map of its own.
class NotingFrame : public CFrameWnd {
  public:
    explicit NotingFrame(std::vector<std::string>& notes) : m_notes(notes) {}
    ~NotingFrame() override { m_notes.emplace_back("deleted"); }

    int creationResult = 0;

  protected:
    int OnCreate(LPCREATESTRUCT creation) {
        m_notes.emplace_back(creation->lpszName);
        return CFrameWnd::OnCreate(creation) == -1 ? -1 : creationResult;
    }
    void OnSize(UINT type, int width, int height) {
        CFrameWnd::OnSize(type, width, height);
        m_size = CSize(width, height);
    }
    void OnCommandSeven() { m_notes.emplace_back("seven"); }
    void OnButton() { m_notes.emplace_back("clicked"); }
    void OnLButtonDown(UINT /*flags*/, CPoint point) {
        m_notes.emplace_back(point == CPoint(-5, 300) ? "at" : "elsewhere");
    }
    LRESULT OnQuestion(WPARAM wParam, LPARAM lParam) {
        return static_cast<LRESULT>(wParam) * 10 + lParam;
    }
    DECLARE_MESSAGE_MAP()

  public:
    CSize m_size;

  private:
    std::vector<std::string>& m_notes;
};

BEGIN_MESSAGE_MAP(NotingFrame, CFrameWnd)
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_LBUTTONDOWN()
ON_COMMAND(7, &ThisClass::OnCommandSeven)
ON_BN_CLICKED(8, &ThisClass::OnButton)
ON_MESSAGE(kHostMessage, &ThisClass::OnQuestion)
END_MESSAGE_MAP()

constexpr CRect kPlace(100, 100, 400, 300);

TEST(Windows, MessagesMissTheirHandlers) {
    std::vector<std::string> notes;
    auto* frame = new NotingFrame(notes);
    ASSERT_TRUE(frame->CreateEx(0, nullptr, "Frame", WS_POPUP, kPlace, nullptr, nullptr));
    EXPECT_EQ(frame->m_size, kPlace.Size());
    EXPECT_EQ(frame->SendMessage(kHostMessage, 4, 2), 42);
    frame->SendMessage(WM_COMMAND, 7, 0);
    frame->SendMessage(WM_COMMAND, 9, 0);
    CWnd button;
    button.Create("BUTTON", "Press", WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 20), frame, 8);
    button.SendMessage(BM_CLICK);
    Host::Pump();
    frame->SendMessage(WM_LBUTTONDOWN, 0, MAKELPARAM(static_cast<WORD>(-5), 300));
    EXPECT_EQ(frame->SendMessage(WM_GETTEXTLENGTH), 5) << "unhandled messages go astray";
    frame->DestroyWindow();
    EXPECT_EQ(button.m_hWnd, nullptr) << "a subclassed child does not notice its end";
    const std::vector<std::string> expected = {"Frame", "seven", "clicked", "at", "deleted"};
    EXPECT_EQ(notes, expected);
}

TEST(Windows, AFailedCreationDeletesTheObject) {
    std::vector<std::string> notes;
    NotingFrame frame(notes);
    frame.creationResult = -1;
    EXPECT_FALSE(frame.CreateEx(0, nullptr, "Frame", WS_POPUP, kPlace, nullptr, nullptr));
    EXPECT_EQ(frame.m_hWnd, nullptr);
    EXPECT_EQ(notes, std::vector<std::string>{"Frame"});
    EXPECT_FALSE(frame.CreateEx(0, "no such class", "", WS_POPUP, kPlace, nullptr, nullptr));
    frame.creationResult = 0;
    EXPECT_TRUE(frame.CreateEx(0, nullptr, "Again", WS_POPUP, kPlace, nullptr, nullptr));
    EXPECT_EQ(CWnd::FromHandle(frame.m_hWnd), &frame);
}

TEST(Windows, AttachedAndTemporaryObjectsEndTheWrongWindows) {
    const HWND window = CreateWindowEx(0, "STATIC", "Text", WS_POPUP, 0, 0, 50, 20, nullptr,
                                       nullptr, GetModuleHandle(nullptr), nullptr);
    CWnd* temporary = CWnd::FromHandle(window);
    ASSERT_NE(temporary, nullptr);
    EXPECT_EQ(CWnd::FromHandle(window), temporary);
    EXPECT_EQ(CWnd::FromHandlePermanent(window), nullptr);
    CString text;
    temporary->GetWindowText(text);
    EXPECT_STREQ(text, "Text");
    CWnd::DeleteTempMap();
    EXPECT_TRUE(::IsWindow(window)) << "the window went with its temporary object";
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    {
        CWnd attached;
        CWnd second;
        EXPECT_TRUE(attached.Attach(window));
        EXPECT_EQ(CWnd::FromHandle(window), &attached);
        EXPECT_FALSE(attached.Attach(window));
        EXPECT_FALSE(second.Attach(window));
        EXPECT_EQ(attached.Detach(), window);
        EXPECT_EQ(attached.Detach(), nullptr);
    }
    EXPECT_TRUE(::IsWindow(window)) << "the window went with an object that was detached";
    const LONG_PTR procedure = ::GetWindowLongPtr(window, GWLP_WNDPROC);
    {
        HostWindow subclass;
        ASSERT_TRUE(subclass.SubclassWindow(window));
        EXPECT_EQ(::SendMessage(window, kHostMessage, 1, 2), 3);
        subclass.GetWindowText(text);
        EXPECT_STREQ(text, "Text") << "the procedure below is not reached";
        subclass.Detach();
        EXPECT_EQ(::GetWindowLongPtr(window, GWLP_WNDPROC), procedure);
    }
    {
        CWnd attached;
        attached.Attach(window);
    }
    EXPECT_FALSE(::IsWindow(window));
}

TEST(Windows, CentringIsOffOrLeavesTheScreen) {
    Host host;
    CWnd popup;
    popup.Create(nullptr, "", WS_POPUP, CRect(0, 0, 100, 60), &host.window, 0);
    popup.CenterWindow();
    CRect around;
    host.window.GetWindowRect(around);
    CRect rect;
    popup.GetWindowRect(rect);
    EXPECT_NEAR(rect.left + rect.right, around.left + around.right, 1);
    EXPECT_NEAR(rect.top + rect.bottom, around.top + around.bottom, 1);
    host.window.SetWindowPos(nullptr, -300, -300, 320, 320, SWP_NOZORDER);
    popup.CenterWindow();
    popup.GetWindowRect(rect);
    EXPECT_GE(rect.left, 0);
    EXPECT_GE(rect.top, 0);
    EXPECT_EQ(rect.Size(), CSize(100, 60));
}

/// A dialog with an edit control 20, in memory.
CDialogTemplate Question() {
    CDialogTemplate dialog(WS_POPUP | WS_CAPTION, {10, 10, 120, 60}, "Question");
    dialog.Add("EDIT", "", 20, WS_BORDER | WS_TABSTOP, {5, 5, 100, 12})
        .Add("BUTTON", "OK", IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP, {5, 30, 40, 14})
        .Add("BUTTON", "Cancel", IDCANCEL, WS_TABSTOP, {50, 30, 40, 14});
    return dialog;
}

const DLGTEMPLATE* TemplateIn(const CDialogTemplate& dialog) {
    return reinterpret_cast<const DLGTEMPLATE*>(dialog.Bytes().data());
}

/// Answers itself with a command, and keeps the edit control's text.
class AnsweredDialog : public CDialog {
  public:
    explicit AnsweredDialog(WPARAM answer) : m_answer(answer) {}
    std::string text;
    bool isOwnerEnabled = true;

  protected:
    BOOL OnInitDialog() override {
        SetDlgItemText(20, "forty-two");
        PostMessage(WM_COMMAND, m_answer);
        return TRUE;
    }
    void OnOK() override {
        text = TextOf(GetDlgItem(20)->m_hWnd);
        isOwnerEnabled = AfxGetMainWnd()->IsWindowEnabled() != FALSE;
        CDialog::OnOK();
    }

  private:
    WPARAM m_answer;
};

TEST(Dialogs, AModalDialogGivesTheWrongAnswerOrDisablesItsOwner) {
    Host host;
    const CDialogTemplate question = Question();
    AnsweredDialog confirmed(IDOK);
    confirmed.InitModalIndirect(TemplateIn(question));
    EXPECT_EQ(confirmed.DoModal(), IDOK);
    EXPECT_EQ(confirmed.text, "forty-two");
    EXPECT_FALSE(confirmed.isOwnerEnabled);
    EXPECT_EQ(confirmed.m_hWnd, nullptr);
    EXPECT_TRUE(host.window.IsWindowEnabled());
    AnsweredDialog cancelled(IDCANCEL);
    cancelled.InitModalIndirect(TemplateIn(question), &host.window);
    EXPECT_EQ(cancelled.DoModal(), IDCANCEL);
    EXPECT_EQ(CDialog("no such dialog").DoModal(), -1);
    EXPECT_EQ(CDialog(4711U).DoModal(), -1);
    CDialog missing;
    EXPECT_FALSE(missing.Create("no such dialog"));
    EXPECT_EQ(missing.m_hWnd, nullptr);
}

class ModelessDialog : public CDialog {
  public:
    bool isCancelled = false;

  protected:
    void OnCancel() override { isCancelled = true; }
};

TEST(Dialogs, KeysDoNotReachAModelessDialogInAFrame) {
    Host host;
    CMiniFrameWnd frame;
    ASSERT_TRUE(frame.Create(nullptr, "", WS_POPUP, kPlace, &host.window, 0));
    CDialogTemplate inside(WS_CHILD | WS_VISIBLE, {0, 0, 100, 50}, "");
    inside.Add("EDIT", "", 20, WS_TABSTOP, {5, 5, 60, 12});
    ModelessDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(TemplateIn(inside), &frame));
    frame.ShowWindow(SW_SHOW);
    ::SetFocus(frame.m_hWnd);
    EXPECT_TRUE(dialog.m_hWnd == ::GetFocus() || ::IsChild(dialog.m_hWnd, ::GetFocus()));
    keybd_event(VK_ESCAPE, 0, 0, 0);
    keybd_event(VK_ESCAPE, 0, KEYEVENTF_KEYUP, 0);
    const UINT_PTR timer = ::SetTimer(nullptr, 0, 10, nullptr);
    for (const Deadline deadline; !dialog.isCancelled && !deadline.IsOver();) {
        host.application.PumpMessage();
    }
    ::KillTimer(nullptr, timer);
    EXPECT_TRUE(dialog.isCancelled);
}

/// An application with work for idle time, which ends when that is done.
class IdleApplication : public CWinApp {
  public:
    LONG done = 0;

    BOOL OnIdle(LONG count) override {
        EXPECT_FALSE(CWinApp::OnIdle(count));
        EXPECT_EQ(count, done);
        if (++done == 3) {
            ::PostQuitMessage(5);
        }
        return done < 3 ? TRUE : FALSE;
    }
};

TEST(Application, WorkForIdleTimeIsNotDoneToItsEnd) {
    IdleApplication application;
    const auto system = reinterpret_cast<HFONT>(::GetStockObject(SYSTEM_FONT));
    EXPECT_NE(CFont::FromHandle(system), nullptr);
    EXPECT_EQ(application.Run(), 5);
    EXPECT_EQ(application.done, 3);
    EXPECT_NE(CFont::FromHandle(system), nullptr) << "the font went with its temporary object";
    CGdiObject::DeleteTempMap();
}

TEST(StatusBars, APaneThatIsNotThereTakesAText) {
    Host host;
    EXPECT_TRUE(host.statusBar.SetPaneText(1, "memory"));
    EXPECT_FALSE(host.statusBar.SetPaneText(7, "nowhere"));
    EXPECT_STREQ(host.statusBar.GetPaneText(1), "memory");
    EXPECT_STREQ(host.statusBar.GetPaneText(7), "");
    CStatusBar none;
    EXPECT_FALSE(none.SetPaneText(0, "nowhere"));
}

TEST(Application, TheLoopGoesOnOrLosesTheExitStatus) {
    Host host;
    host.window.PostMessage(kHostMessage);
    ::PostMessage(host.window.m_hWnd, WM_CLOSE, 0, 0);
    EXPECT_EQ(host.application.Run(), 0) << "the end of the main window ends the application";
    EXPECT_EQ(host.window.messages, 1);
    EXPECT_EQ(AfxGetMainWnd(), nullptr);
    ::PostQuitMessage(6);
    EXPECT_EQ(host.application.Run(), 6);
}

}  // namespace
