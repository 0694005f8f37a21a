#include <gtest/gtest.h>

#include "tests/window_recording.h"

namespace {

using namespace platen::test;
using Notes = Recording::Notes;

TEST(WindowLife, CreationTellsInAnotherOrder) {
    Recording recording({WM_NCCREATE, WM_CREATE, WM_SIZE, WM_MOVE, WM_SHOWWINDOW});
    const Scoped popUp(Recording::Make("p", WS_POPUP));
    const Notes created = {{"", WM_NCCREATE}, {"p", WM_CREATE}, {"p", WM_SIZE}, {"p", WM_MOVE}};
    EXPECT_EQ(recording.Take(), created);
    const Scoped child(Recording::Make("c", WS_CHILD | WS_VISIBLE, popUp));
    const Notes createdShown = {
        {"", WM_NCCREATE}, {"c", WM_CREATE}, {"c", WM_SIZE}, {"c", WM_MOVE}, {"c", WM_SHOWWINDOW}};
    EXPECT_EQ(recording.Take(), createdShown);
    EXPECT_FALSE(IsWindowVisible(child)) << "a child of a hidden window is seen";
    ShowWindow(popUp, SW_SHOW);
    EXPECT_TRUE(IsWindowVisible(child));
    const Notes shown = {{"p", WM_SHOWWINDOW}};
    EXPECT_EQ(recording.Take(), shown);
    SetWindowPos(popUp, nullptr, 30, 40, 300, 150, SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowPos(popUp, nullptr, 30, 40, 300, 150, SWP_NOZORDER | SWP_NOACTIVATE);
    const Notes placed = {{"p", WM_MOVE}, {"p", WM_SIZE}};
    Notes told = recording.Take();
    std::ranges::sort(told, {}, &Recording::Note::second);
    EXPECT_EQ(told, placed) << "not once each";
}

LRESULT Refuse(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* const creation = reinterpret_cast<const CREATESTRUCT*>(lParam);
    if (message == WM_NCCREATE && creation->lpCreateParams == nullptr &&
        std::string(creation->lpszName) == "first") {
        return FALSE;
    }
    return message == WM_CREATE ? -1 : DefWindowProc(window, message, wParam, lParam);
}

TEST(WindowLife, ARefusedWindowStays) {
    Recording recording({WM_DESTROY, WM_NCDESTROY}, &Refuse);
    EXPECT_EQ(Recording::Make("first", WS_POPUP), nullptr);
    EXPECT_EQ(Recording::Make("second", WS_POPUP), nullptr);
    EXPECT_EQ(CreateWindowEx(0, "no such class", "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                             nullptr, nullptr),
              nullptr);
    EXPECT_EQ(Recording::Make("orphan", WS_CHILD), nullptr);
}

TEST(WindowLife, DestructionTellsInAnotherOrder) {
    Recording recording({WM_DESTROY, WM_NCDESTROY});
    const HWND window = Recording::Make("w", WS_POPUP);
    const HWND child = Recording::Make("c", WS_CHILD, window);
    const HWND inner = Recording::Make("i", WS_CHILD, child);
    const HWND owned = Recording::Make("o", WS_POPUP, child);
    EXPECT_EQ(GetWindow(owned, GW_OWNER), window) << "a child owns a window";
    PostMessage(child, WM_USER, 0, 0);
    SetTimer(child, 1, 10, nullptr);
    EXPECT_TRUE(DestroyWindow(window));
    const Notes expected = {{"o", WM_DESTROY},   {"o", WM_NCDESTROY}, {"w", WM_DESTROY},
                            {"c", WM_DESTROY},   {"i", WM_DESTROY},   {"i", WM_NCDESTROY},
                            {"c", WM_NCDESTROY}, {"w", WM_NCDESTROY}};
    EXPECT_EQ(recording.Take(), expected);
    for (const HWND gone : {window, child, inner, owned}) {
        EXPECT_FALSE(IsWindow(gone));
        EXPECT_FALSE(DestroyWindow(gone));
        EXPECT_EQ(SendMessage(gone, WM_GETTEXTLENGTH, 0, 0), 0);
        EXPECT_FALSE(PostMessage(gone, WM_USER, 0, 0));
    }
    MSG message;
    EXPECT_FALSE(PeekMessage(&message, nullptr, WM_USER, WM_USER, PM_REMOVE));
}

LRESULT DestroyItself(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SIZE && LOWORD(static_cast<DWORD_PTR>(lParam)) == 77) {
        DestroyWindow(window);
        return 0;
    }
    return DefWindowProc(window, message, wParam, lParam);
}

TEST(WindowLife, AWindowThatEndsItselfIsUsedFurther) {
    Recording recording({WM_NCDESTROY}, &DestroyItself);
    const HWND window = Recording::Make("w", WS_POPUP | WS_VISIBLE);
    SetWindowPos(window, nullptr, 0, 0, 77, 50, SWP_SHOWWINDOW);
    Pump();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(recording.Count(WM_NCDESTROY), 1);
}

LRESULT DestroyWhenShown(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SHOWWINDOW) {
        DestroyWindow(window);
        return 0;
    }
    return DefWindowProc(window, message, wParam, lParam);
}

TEST(WindowLife, AWindowThatEndsWhenShownIsUsedFurther) {
    Recording recording({WM_NCDESTROY}, &DestroyWhenShown);
    EXPECT_FALSE(IsWindow(Recording::Make("shown", WS_POPUP | WS_VISIBLE)));
    const HWND window = Recording::Make("w", WS_POPUP);
    ShowWindow(window, SW_SHOW);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(recording.Count(WM_NCDESTROY), 2);
}

/// A parent that destroys a field once it has changed.
LRESULT DestroyChanged(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE) {
        DestroyWindow(reinterpret_cast<HWND>(lParam));
        return 0;
    }
    return DefWindowProc(window, message, wParam, lParam);
}

TEST(WindowLife, AFieldThatEndsAsItChangesIsUsedFurther) {
    Recording recording({WM_COMMAND}, &DestroyChanged);
    const Scoped around(Recording::Make("w", WS_POPUP | WS_VISIBLE));
    const auto changed = [&around](DWORD style) {
        const HWND field = CreateWindowEx(0, "EDIT", "before", WS_CHILD | WS_VISIBLE | style, 0, 0,
                                          50, 20, around, nullptr, nullptr, nullptr);
        SetWindowText(field, "after");
        return field;
    };
    EXPECT_FALSE(IsWindow(changed(0)));
    EXPECT_TRUE(IsWindow(changed(ES_MULTILINE))) << "told of a text that the program set";
    EXPECT_GE(recording.Count(WM_COMMAND), 1);
}

TEST(WindowLife, RelationsAndNumbersGoAstray) {
    Recording recording({});
    const Scoped window(Recording::Make("w", WS_POPUP));
    const HWND first = Recording::Make("1", WS_CHILD, window, 7);
    const HWND second = Recording::Make("2", WS_CHILD, window, 8);
    EXPECT_EQ(GetWindow(window, GW_CHILD), first);
    EXPECT_EQ(GetWindow(first, GW_HWNDNEXT), second);
    EXPECT_EQ(GetWindow(second, GW_HWNDNEXT), nullptr);
    EXPECT_EQ(GetParent(second), window);
    EXPECT_EQ(GetDlgItem(window, 8), second);
    EXPECT_EQ(GetDlgCtrlID(first), 7);
    EXPECT_EQ(GetDlgItem(window, 9), nullptr);
    EXPECT_TRUE(IsChild(window, first));
    EXPECT_FALSE(IsChild(first, window));
    BringWindowToTop(second);
    EXPECT_EQ(GetWindow(window, GW_CHILD), second);
    SetWindowLongPtr(first, GWLP_USERDATA, 42);
    EXPECT_EQ(SetWindowLongPtr(first, GWLP_USERDATA, 43), 42);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLong(first, GWL_STYLE)) & (WS_CHILD | WS_VISIBLE),
              WS_CHILD);
    char text[4] = "";
    SetWindowText(window, "long name");
    EXPECT_EQ(GetWindowText(window, text, sizeof(text)), 3);
    EXPECT_STREQ(text, "lon") << "a text is not cut to its buffer";
    EXPECT_EQ(GetWindowTextLength(window), 9);
}

TEST(WindowLife, FrameAndClientAreaDisagree) {
    Recording recording({});
    RECT frame{50, 60, 250, 160};
    const DWORD style = WS_POPUP | WS_BORDER;
    ASSERT_TRUE(AdjustWindowRectEx(&frame, style, FALSE, 0));
    const Scoped window(Recording::Make("w", style));
    SetWindowPos(window, nullptr, frame.left, frame.top, frame.right - frame.left,
                 frame.bottom - frame.top, SWP_NOZORDER);
    RECT rectangle{};
    GetClientRect(window, &rectangle);
    EXPECT_EQ(rectangle.right, 200);
    EXPECT_EQ(rectangle.bottom, 100);
    POINT corner{0, 0};
    ClientToScreen(window, &corner);
    EXPECT_EQ(corner.x, 50);
    EXPECT_EQ(corner.y, 60);
    const HWND child = Recording::Make("c", WS_CHILD, window);
    SetWindowPos(child, nullptr, 5, 6, 20, 10, SWP_NOZORDER);
    GetWindowRect(child, &rectangle);
    EXPECT_EQ(rectangle.left, 55) << "a child does not count from the client area";
    EXPECT_EQ(rectangle.bottom, 76);
}

BOOL CALLBACK CollectWindows(HWND window, LPARAM lParam) {
    auto& windows = *reinterpret_cast<std::vector<HWND>*>(lParam);
    windows.push_back(window);
    return windows.size() < 100 ? TRUE : FALSE;
}

TEST(WindowLife, TopLevelWindowsAreMissed) {
    Recording recording({});
    const Scoped window(Recording::Make("w", WS_POPUP));
    const Scoped owned(Recording::Make("o", WS_POPUP, window));
    const HWND child = Recording::Make("c", WS_CHILD, window);
    std::vector<HWND> windows;
    EXPECT_TRUE(EnumThreadWindows(GetCurrentThreadId(), &CollectWindows,
                                  reinterpret_cast<LPARAM>(&windows)));
    EXPECT_EQ(std::ranges::count(windows, HWND(window)), 1);
    EXPECT_EQ(std::ranges::count(windows, HWND(owned)), 1);
    EXPECT_EQ(std::ranges::count(windows, child), 0);
}

TEST(WindowLife, FocusAndActivityGoAstray) {
    Recording recording({WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS, WM_ENABLE});
    const Scoped first(Recording::Make("1", WS_POPUP | WS_VISIBLE));
    const HWND child = Recording::Make("c", WS_CHILD | WS_VISIBLE, first);
    EXPECT_EQ(GetActiveWindow(), first);
    EXPECT_EQ(GetFocus(), first);
    recording.Take();
    EXPECT_EQ(SetFocus(child), first);
    const Notes moved = {{"1", WM_KILLFOCUS}, {"c", WM_SETFOCUS}};
    EXPECT_EQ(recording.Take(), moved);
    {
        const Scoped second(Recording::Make("2", WS_POPUP | WS_VISIBLE, first));
        const Notes activated = {
            {"1", WM_ACTIVATE}, {"2", WM_ACTIVATE}, {"c", WM_KILLFOCUS}, {"2", WM_SETFOCUS}};
        EXPECT_EQ(recording.Take(), activated);
        EXPECT_EQ(GetActiveWindow(), second);
    }
    EXPECT_EQ(GetActiveWindow(), first) << "the owner does not become active again";
    recording.Take();
    EXPECT_FALSE(EnableWindow(first, FALSE));
    EXPECT_TRUE(EnableWindow(first, FALSE));
    EXPECT_EQ(recording.Count(WM_ENABLE), 1);
    EXPECT_FALSE(IsWindowEnabled(first));
    EXPECT_TRUE(IsWindowEnabled(child)) << "children count as disabled themselves";
    SetFocus(nullptr);
    EXPECT_EQ(SetFocus(child), nullptr);
    EXPECT_NE(GetFocus(), child) << "a child of a disabled window takes the focus";
    EXPECT_TRUE(EnableWindow(first, TRUE));
    EXPECT_TRUE(IsWindowEnabled(first));
}

}  // namespace
