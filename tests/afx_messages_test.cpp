#include <gtest/gtest.h>

#include <sstream>

#include <platen/platform/afx.h>

#include "tests/support/windows/host_application.h"

namespace {

using namespace platen::test;

/// A window that answers every message there is a row for, notes its arguments and passes it on.
class EveryMessage : public CWnd {
  public:
    std::string Take() { return std::exchange(m_notes, std::string()); }

  protected:
    int OnCreate(LPCREATESTRUCT creation) {
        Note("create", creation->cx);
        return CWnd::OnCreate(creation);
    }
    void OnDestroy() {
        Note("destroy");
        CWnd::OnDestroy();
    }
    void OnNcDestroy() {
        Note("gone");
        CWnd::OnNcDestroy();
    }
    void OnSize(UINT type, int width, int height) {
        Note("size", type, width, height);
        CWnd::OnSize(type, width, height);
    }
    void OnMove(int x, int y) {
        Note("move", x, y);
        CWnd::OnMove(x, y);
    }
    void OnClose() {
        Note("close");
        CWnd::OnClose();
    }
    void OnEnable(BOOL enabled) {
        Note("enable", enabled);
        CWnd::OnEnable(enabled);
    }
    void OnTimer(UINT_PTR identifier) {
        Note("timer", identifier);
        CWnd::OnTimer(identifier);
    }
    void OnSetFocus(CWnd* oldWindow) {
        Note("focus", oldWindow == this);
        CWnd::OnSetFocus(oldWindow);
    }
    void OnKillFocus(CWnd* newWindow) {
        Note("no focus", newWindow == nullptr);
        CWnd::OnKillFocus(newWindow);
    }
    void OnPaint() {
        CPaintDC context(this);
        ::PatBlt(context.m_hDC, 0, 0, 20, 20, BLACKNESS);
        Note("paint", context.m_ps.rcPaint.right, context.m_ps.hdc == context.m_hDC);
    }
    BOOL OnEraseBkgnd(CDC* context) {
        Note("erase", context->m_hDC != nullptr);
        CWnd::OnEraseBkgnd(context);
        return TRUE;
    }
    void OnChar(UINT character, UINT repeats, UINT flags) {
        Note("char", character, repeats, flags);
        CWnd::OnChar(character, repeats, flags);
    }
    void OnKeyDown(UINT key, UINT repeats, UINT flags) {
        Note("down", key, repeats, flags);
        CWnd::OnKeyDown(key, repeats, flags);
    }
    void OnKeyUp(UINT key, UINT repeats, UINT flags) {
        Note("up", key, repeats, flags);
        CWnd::OnKeyUp(key, repeats, flags);
    }
    void OnMouseMove(UINT flags, CPoint point) {
        Note("mouse", flags, point.x, point.y);
        CWnd::OnMouseMove(flags, point);
    }
    void OnLButtonDown(UINT flags, CPoint point) {
        Note("left down", flags, point.x, point.y);
        CWnd::OnLButtonDown(flags, point);
    }
    void OnLButtonUp(UINT flags, CPoint point) {
        Note("left up", flags, point.x, point.y);
        CWnd::OnLButtonUp(flags, point);
    }
    void OnLButtonDblClk(UINT flags, CPoint point) {
        Note("left twice", flags, point.x, point.y);
        CWnd::OnLButtonDblClk(flags, point);
    }
    void OnRButtonDown(UINT flags, CPoint point) {
        Note("right down", flags, point.x, point.y);
        CWnd::OnRButtonDown(flags, point);
    }
    void OnRButtonUp(UINT flags, CPoint point) {
        Note("right up", flags, point.x, point.y);
        CWnd::OnRButtonUp(flags, point);
    }
    void OnText() { Note("text of 9"); }
    DECLARE_MESSAGE_MAP()

  private:
    template <typename... Numbers>
    void Note(const char* what, Numbers... numbers) {
        std::ostringstream note;
        note << what;
        ((note << ' ' << +numbers), ...);
        m_notes += note.str() + '\n';
    }

    std::string m_notes;
};

BEGIN_MESSAGE_MAP(EveryMessage, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_NCDESTROY()
ON_WM_SIZE()
ON_WM_MOVE()
ON_WM_CLOSE()
ON_WM_ENABLE()
ON_WM_TIMER()
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_CHAR()
ON_WM_KEYDOWN()
ON_WM_KEYUP()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONUP()
ON_EN_CHANGE(9, &ThisClass::OnText)
END_MESSAGE_MAP()

TEST(Messages, ARowHandsOnAnotherMessageOrOtherArguments) {
    EveryMessage window;
    ASSERT_TRUE(
        window.CreateEx(0, nullptr, "", WS_POPUP, CRect(10, 20, 110, 70), nullptr, nullptr));
    EXPECT_EQ(window.Take(), "create 100\nsize 0 100 50\nmove 10 20\n");
    struct Case {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        const char* note;
    };
    const auto self = reinterpret_cast<WPARAM>(window.m_hWnd);
    const LPARAM place = MAKELPARAM(static_cast<WORD>(-7), 300);
    const Case cases[] = {
        {WM_SIZE, 2, MAKELPARAM(40, 30), "size 2 40 30\n"},
        {WM_MOVE, 0, place, "move -7 300\n"},
        {WM_ENABLE, 5, 0, "enable 1\n"},
        {WM_TIMER, 3, 0, "timer 3\n"},
        {WM_SETFOCUS, self, 0, "focus 1\n"},
        {WM_KILLFOCUS, 0, 0, "no focus 1\n"},
        {WM_CHAR, 'x', 0x00020003, "char 120 3 2\n"},
        {WM_KEYDOWN, VK_TAB, 0x00020001, "down 9 1 2\n"},
        {WM_KEYUP, VK_TAB, static_cast<LPARAM>(0xC0020001U), "up 9 1 49154\n"},
        {WM_MOUSEMOVE, MK_LBUTTON, place, "mouse 1 -7 300\n"},
        {WM_LBUTTONDOWN, 0, place, "left down 0 -7 300\n"},
        {WM_LBUTTONUP, 0, place, "left up 0 -7 300\n"},
        {WM_LBUTTONDBLCLK, 0, place, "left twice 0 -7 300\n"},
        {WM_RBUTTONDOWN, 0, place, "right down 0 -7 300\n"},
        {WM_RBUTTONUP, 0, place, "right up 0 -7 300\n"},
        {WM_COMMAND, MAKEWPARAM(9, EN_CHANGE), 0, "text of 9\n"},
        {WM_COMMAND, MAKEWPARAM(9, BN_CLICKED), 0, ""},
    };
    for (const Case& sent : cases) {
        window.SendMessage(sent.message, sent.wParam, sent.lParam);
        EXPECT_EQ(window.Take(), sent.note);
    }
    EXPECT_EQ(window.GetExStyle() & WS_EX_TOPMOST, 0U);
    EXPECT_NE(window.SetTimer(4, 10), 0U);
    std::string ticked;
    EXPECT_TRUE(PumpUntil([&] { return !(ticked += window.Take()).empty(); }));
    EXPECT_TRUE(ticked.starts_with("timer 4\n")) << ticked;
    EXPECT_TRUE(window.KillTimer(4));
    EXPECT_FALSE(window.KillTimer(4));
    window.ShowWindow(SW_SHOWNOACTIVATE);
    window.UpdateWindow();
    EXPECT_NE(window.Take().find("paint 100 1\n"), std::string::npos);
    HDC context = ::GetDC(window.m_hWnd);
    EXPECT_EQ(::GetPixel(context, 5, 5), RGB(0, 0, 0));
    ::ReleaseDC(window.m_hWnd, context);
    window.ShowWindow(SW_HIDE);
    window.Take();
    window.SendMessage(WM_CLOSE);
    EXPECT_EQ(window.Take(), "close\ndestroy\ngone\n") << "a handler does not pass its message on";
}

}  // namespace
