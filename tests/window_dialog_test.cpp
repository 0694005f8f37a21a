#include <gtest/gtest.h>

#include <platen/platform/afx/dialog_template.h>

#include "tests/window_recording.h"

namespace {

using namespace platen::test;

constexpr int kField = 1000;
constexpr int kCheck = 1001;
constexpr int kFirstRadio = 1002;
constexpr int kSecondRadio = 1003;
constexpr int kLabel = 1004;

CDialogTemplate EntryTemplate(DWORD style) {
    CDialogTemplate dialog(style, {10, 10, 160, 100}, "Entry");
    dialog.Add("STATIC", "&Name:", kLabel, SS_LEFT, {5, 5, 40, 10})
        .Add("EDIT", "nobody", kField, WS_TABSTOP | WS_BORDER, {50, 5, 100, 12})
        .Add("BUTTON", "&Keep", kCheck, WS_TABSTOP | BS_AUTOCHECKBOX, {5, 25, 60, 10})
        .Add("BUTTON", "One", kFirstRadio, WS_TABSTOP | WS_GROUP | BS_AUTORADIOBUTTON,
             {5, 40, 60, 10})
        .Add("BUTTON", "Two", kSecondRadio, BS_AUTORADIOBUTTON, {5, 52, 60, 10})
        .Add("BUTTON", "OK", IDOK, WS_TABSTOP | WS_GROUP | BS_DEFPUSHBUTTON, {5, 80, 50, 14})
        .Add("BUTTON", "Cancel", IDCANCEL, WS_TABSTOP, {60, 80, 50, 14});
    return dialog;
}

struct Seen {
    int initialised = 0;
    std::vector<std::pair<int, int>> commands;  ///< identifier and notification
};
Seen g_seen;

INT_PTR CALLBACK NoteCommands(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        g_seen.initialised = static_cast<int>(lParam);
        SetDlgItemText(dialog, kField, "somebody");
        return TRUE;
    }
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        g_seen.commands.emplace_back(LOWORD(wParam), HIWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

/// Presses a key and lets the dialog have it.
void Press(HWND dialog, int key) {
    keybd_event(static_cast<BYTE>(key), 0, 0, 0);
    keybd_event(static_cast<BYTE>(key), 0, KEYEVENTF_KEYUP, 0);
    MSG message;
    while (PeekMessage(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
        if (IsDialogMessage(dialog, &message) == 0) {
            TranslateMessage(&message);
            DispatchMessage(&message);
        }
    }
}

class WindowDialog : public testing::Test {
  protected:
    WindowDialog()
        : m_template(EntryTemplate(WS_POPUP | WS_VISIBLE | DS_MODALFRAME)),
          m_dialog(CreateDialogIndirectParam(
              nullptr, reinterpret_cast<LPCDLGTEMPLATE>(m_template.Bytes().data()), nullptr,
              &NoteCommands, 42)) {
        Pump();
    }
    ~WindowDialog() override { g_seen = {}; }

    [[nodiscard]] HWND Item(int identifier) const { return GetDlgItem(m_dialog, identifier); }
    [[nodiscard]] LRESULT IsChecked(int identifier) const {
        return SendMessage(Item(identifier), BM_GETCHECK, 0, 0);
    }

    CDialogTemplate m_template;
    Scoped m_dialog;
};

TEST_F(WindowDialog, ItemsLieOutsideOrUponEachOther) {
    ASSERT_TRUE(IsWindowVisible(m_dialog));
    EXPECT_EQ(g_seen.initialised, 42);
    RECT client{};
    GetClientRect(m_dialog, &client);
    EXPECT_GT(client.right, 160) << "dialog units are taken for pixels";
    RECT above{};
    for (const int identifier : {kField, kCheck, kFirstRadio, kSecondRadio, +IDOK}) {
        RECT place{};
        ASSERT_TRUE(GetWindowRect(Item(identifier), &place)) << identifier;
        POINT corner{place.left, place.top};
        POINT end{place.right, place.bottom};
        ScreenToClient(m_dialog, &corner);
        ScreenToClient(m_dialog, &end);
        EXPECT_GE(corner.x, 0);
        EXPECT_GT(end.x, corner.x);
        EXPECT_LE(end.x, client.right);
        EXPECT_LE(end.y, client.bottom);
        EXPECT_GE(corner.y, above.bottom) << identifier;
        above.bottom = end.y;
    }
    char text[32];
    GetDlgItemText(m_dialog, kField, text, sizeof(text));
    EXPECT_STREQ(text, "somebody");
    GetDlgItemText(m_dialog, kLabel, text, sizeof(text));
    EXPECT_STREQ(text, "&Name:");
    GetClassName(Item(kField), text, sizeof(text));
    EXPECT_STRCASEEQ(text, "EDIT");
}

TEST_F(WindowDialog, TabSkipsItemsOrEnds) {
    EXPECT_EQ(GetFocus(), Item(kField)) << "the first item does not take the focus";
    for (const int next : {kCheck, kFirstRadio, +IDOK, +IDCANCEL, kField}) {
        Press(m_dialog, VK_TAB);
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), next);
    }
    keybd_event(VK_SHIFT, 0, 0, 0);
    Press(m_dialog, VK_TAB);
    keybd_event(VK_SHIFT, 0, KEYEVENTF_KEYUP, 0);
    Pump();
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDCANCEL);
    EnableWindow(Item(kField), FALSE);
    Press(m_dialog, VK_TAB);
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), kCheck) << "Tab stops at a disabled item";
}

TEST_F(WindowDialog, KeysMissTheirMeaning) {
    using Commands = std::vector<std::pair<int, int>>;
    Press(m_dialog, 'X');
    char text[32];
    GetDlgItemText(m_dialog, kField, text, sizeof(text));
    EXPECT_STREQ(text, "x") << "the field's text is not selected when the focus comes";
    Press(m_dialog, VK_RETURN);
    Press(m_dialog, VK_ESCAPE);
    SendMessage(m_dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(IDCANCEL)), TRUE);
    Press(m_dialog, VK_RETURN);
    const Commands pressed = {{IDOK, BN_CLICKED}, {IDCANCEL, BN_CLICKED}, {IDCANCEL, BN_CLICKED}};
    EXPECT_EQ(g_seen.commands, pressed);
    g_seen.commands.clear();
    SetFocus(Item(kCheck));
    Press(m_dialog, VK_SPACE);
    EXPECT_EQ(IsChecked(kCheck), LRESULT{BST_CHECKED});
    SendMessage(Item(kCheck), BM_CLICK, 0, 0);
    EXPECT_EQ(IsChecked(kCheck), LRESULT{BST_UNCHECKED});
    const Commands toggled = {{kCheck, BN_CLICKED}, {kCheck, BN_CLICKED}};
    EXPECT_EQ(g_seen.commands, toggled);
    g_seen.commands.clear();
    SendMessage(m_dialog, WM_CLOSE, 0, 0);
    Pump();
    const Commands closed = {{IDCANCEL, 0}};
    EXPECT_EQ(g_seen.commands, closed);
}

TEST_F(WindowDialog, RadioButtonsOfAGroupAreBothMarked) {
    SendMessage(Item(kFirstRadio), BM_CLICK, 0, 0);
    EXPECT_EQ(IsChecked(kFirstRadio), LRESULT{BST_CHECKED});
    SetFocus(Item(kFirstRadio));
    Press(m_dialog, VK_DOWN);
    EXPECT_EQ(IsChecked(kFirstRadio), LRESULT{BST_UNCHECKED});
    EXPECT_EQ(IsChecked(kSecondRadio), LRESULT{BST_CHECKED});
}

INT_PTR CALLBACK AnswerAtOnce(HWND dialog, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    if (message == WM_INITDIALOG) {
        EXPECT_FALSE(IsWindowEnabled(GetWindow(dialog, GW_OWNER)));
        PostMessage(dialog, WM_COMMAND, IDOK, 0);
    }
    if (message == WM_COMMAND && LOWORD(wParam) == IDOK) {
        EndDialog(dialog, 17);
    }
    return FALSE;
}

LRESULT DestroyWhenFocused(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETFOCUS) {
        DestroyWindow(window);
        return 0;
    }
    return DefWindowProc(window, message, wParam, lParam);
}

TEST_F(WindowDialog, AnItemThatEndsWhenFocusedIsUsedFurther) {
    Recording recording({}, &DestroyWhenFocused);
    const HWND last = Recording::Make("last", WS_CHILD | WS_VISIBLE, m_dialog, 77);
    SetFocus(Item(IDCANCEL));
    Press(m_dialog, VK_DOWN);
    EXPECT_FALSE(IsWindow(last));
    EXPECT_TRUE(IsWindow(m_dialog));
}

TEST(WindowDialogs, AFontsStyleSpoilsATemplateWithoutOne) {
    constexpr DWORD kFixedSystemFont = 0x8;
    for (const DWORD style : {DWORD{DS_SETFONT}, kFixedSystemFont, DS_SETFONT | kFixedSystemFont}) {
        const CDialogTemplate described = EntryTemplate(WS_POPUP | style);
        const Scoped dialog(CreateDialogIndirectParam(
            nullptr, reinterpret_cast<LPCDLGTEMPLATE>(described.Bytes().data()), nullptr, nullptr,
            0));
        ASSERT_NE(dialog, nullptr) << style;
        char text[32];
        GetDlgItemText(dialog, IDCANCEL, text, sizeof(text));
        EXPECT_STREQ(text, "Cancel") << style;
    }
}

TEST(WindowDialogs, AModalDialogLeavesItsOwnerDisabled) {
    Recording recording({});
    const Scoped owner(Recording::Make("owner", WS_POPUP | WS_VISIBLE));
    const CDialogTemplate dialog = EntryTemplate(WS_POPUP | DS_MODALFRAME);
    const auto* const bytes = reinterpret_cast<LPCDLGTEMPLATE>(dialog.Bytes().data());
    EXPECT_EQ(DialogBoxIndirectParam(nullptr, bytes, owner, &AnswerAtOnce, 0), 17);
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(GetActiveWindow(), owner);
    CDialogTemplate unknown = EntryTemplate(WS_POPUP);
    unknown.Add("no such class", "", 7, 0, {0, 0, 10, 10});
    EXPECT_EQ(
        DialogBoxIndirectParam(nullptr, reinterpret_cast<LPCDLGTEMPLATE>(unknown.Bytes().data()),
                               owner, nullptr, 0),
        -1);
    EXPECT_TRUE(IsWindowEnabled(owner));
}

}  // namespace
