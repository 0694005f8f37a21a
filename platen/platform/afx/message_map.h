#pragma once

#include <platen/platform/afx/dc.h>
#include <platen/platform/afx/geometry.h>
#include <platen/platform/afx/wnd.h>

/// Message maps: which member function answers which message. Between BEGIN_MESSAGE_MAP and
/// END_MESSAGE_MAP, beside the class, stand rows; a message that no row answers goes to the rows of
/// the base, and in the end to the window procedure below.
///
/// The rows `ON_WM_...` call the member function of the usual name and signature. Signatures are
/// checked when compiled: a handler is called through its own type, never through a cast one.

namespace platen::afx {

/// Takes a message's words apart for the member function `Handler`, one function per signature.
template <class Class, auto Handler>
struct MessageHandler {
    static Class& Of(CCmdTarget& target) { return static_cast<Class&>(target); }

    /// void ()
    static LRESULT Plain(CCmdTarget& target, WPARAM /*wParam*/, LPARAM /*lParam*/) {
        (Of(target).*Handler)();
        return 0;
    }
    /// LRESULT (WPARAM, LPARAM)
    static LRESULT Words(CCmdTarget& target, WPARAM wParam, LPARAM lParam) {
        return (Of(target).*Handler)(wParam, lParam);
    }
    /// int (CREATESTRUCT*)
    static LRESULT Creation(CCmdTarget& target, WPARAM /*wParam*/, LPARAM lParam) {
        return (Of(target).*Handler)(reinterpret_cast<LPCREATESTRUCT>(lParam));
    }
    /// void (UINT type, int width, int height)
    static LRESULT Size(CCmdTarget& target, WPARAM wParam, LPARAM lParam) {
        (Of(target).*Handler)(static_cast<UINT>(wParam), Low(lParam), High(lParam));
        return 0;
    }
    /// void (int x, int y)
    static LRESULT Place(CCmdTarget& target, WPARAM /*wParam*/, LPARAM lParam) {
        (Of(target).*Handler)(Low(lParam), High(lParam));
        return 0;
    }
    /// void (BOOL)
    static LRESULT Switch(CCmdTarget& target, WPARAM wParam, LPARAM /*lParam*/) {
        (Of(target).*Handler)(wParam != 0 ? TRUE : FALSE);
        return 0;
    }
    /// void (UINT_PTR)
    static LRESULT Number(CCmdTarget& target, WPARAM wParam, LPARAM /*lParam*/) {
        (Of(target).*Handler)(wParam);
        return 0;
    }
    /// void (CWnd* other)
    static LRESULT Window(CCmdTarget& target, WPARAM wParam, LPARAM /*lParam*/) {
        (Of(target).*Handler)(CWnd::FromHandle(reinterpret_cast<HWND>(wParam)));
        return 0;
    }
    /// BOOL (CDC*)
    static LRESULT Context(CCmdTarget& target, WPARAM wParam, LPARAM /*lParam*/) {
        CDC context;
        context.Attach(reinterpret_cast<HDC>(wParam));
        const LRESULT result = (Of(target).*Handler)(&context);
        context.Detach();
        return result;
    }
    /// void (UINT key, UINT repeats, UINT flags)
    static LRESULT Key(CCmdTarget& target, WPARAM wParam, LPARAM lParam) {
        (Of(target).*Handler)(static_cast<UINT>(wParam), static_cast<UINT>(lParam) & 0xFFFF,
                              static_cast<UINT>(lParam) >> 16);
        return 0;
    }
    /// void (UINT flags, CPoint)
    static LRESULT Mouse(CCmdTarget& target, WPARAM wParam, LPARAM lParam) {
        (Of(target).*Handler)(static_cast<UINT>(wParam), CPoint(Low(lParam), High(lParam)));
        return 0;
    }

  private:
    /// Places left of and above the client area are negative.
    static int Low(LPARAM words) { return static_cast<short>(words & 0xFFFF); }
    static int High(LPARAM words) { return static_cast<short>((words >> 16) & 0xFFFF); }
};

}  // namespace platen::afx

#define BEGIN_MESSAGE_MAP(class_name, base_name)          \
    const AFX_MSGMAP* class_name::GetMessageMap() const { \
        return GetThisMessageMap();                       \
    }                                                     \
    const AFX_MSGMAP* class_name::GetThisMessageMap() {   \
        using ThisClass [[maybe_unused]] = class_name;    \
        using BaseClass = base_name;                      \
        static constexpr AFX_MSGMAP_ENTRY entries[] = {
#define END_MESSAGE_MAP()                                                   \
    { 0, 0, 0, nullptr }                                                    \
    }                                                                       \
    ;                                                                       \
    static const AFX_MSGMAP map = {&BaseClass::GetThisMessageMap, entries}; \
    return &map;                                                            \
    }

#define PLATEN_MESSAGE_ROW(message, code, identifier, handler, signature) \
    {message, code, identifier, &platen::afx::MessageHandler<ThisClass, handler>::signature},
#define PLATEN_WINDOW_MESSAGE(message, handler, signature) \
    PLATEN_MESSAGE_ROW(message, 0, 0, &ThisClass::handler, signature)

/// LRESULT Handler(WPARAM, LPARAM)
#define ON_MESSAGE(message, handler) PLATEN_MESSAGE_ROW(message, 0, 0, handler, Words)
/// void Handler(), for a command or a control's notification
#define ON_COMMAND(identifier, handler) ON_CONTROL(0, identifier, handler)
#define ON_CONTROL(code, identifier, handler) \
    PLATEN_MESSAGE_ROW(WM_COMMAND, code, identifier, handler, Plain)
#define ON_BN_CLICKED(identifier, handler) ON_CONTROL(BN_CLICKED, identifier, handler)
#define ON_EN_CHANGE(identifier, handler) ON_CONTROL(EN_CHANGE, identifier, handler)

#define ON_WM_CREATE() PLATEN_WINDOW_MESSAGE(WM_CREATE, OnCreate, Creation)
#define ON_WM_DESTROY() PLATEN_WINDOW_MESSAGE(WM_DESTROY, OnDestroy, Plain)
#define ON_WM_NCDESTROY() PLATEN_WINDOW_MESSAGE(WM_NCDESTROY, OnNcDestroy, Plain)
#define ON_WM_SIZE() PLATEN_WINDOW_MESSAGE(WM_SIZE, OnSize, Size)
#define ON_WM_MOVE() PLATEN_WINDOW_MESSAGE(WM_MOVE, OnMove, Place)
#define ON_WM_CLOSE() PLATEN_WINDOW_MESSAGE(WM_CLOSE, OnClose, Plain)
#define ON_WM_ENABLE() PLATEN_WINDOW_MESSAGE(WM_ENABLE, OnEnable, Switch)
#define ON_WM_TIMER() PLATEN_WINDOW_MESSAGE(WM_TIMER, OnTimer, Number)
#define ON_WM_SETFOCUS() PLATEN_WINDOW_MESSAGE(WM_SETFOCUS, OnSetFocus, Window)
#define ON_WM_KILLFOCUS() PLATEN_WINDOW_MESSAGE(WM_KILLFOCUS, OnKillFocus, Window)
#define ON_WM_PAINT() PLATEN_WINDOW_MESSAGE(WM_PAINT, OnPaint, Plain)
#define ON_WM_ERASEBKGND() PLATEN_WINDOW_MESSAGE(WM_ERASEBKGND, OnEraseBkgnd, Context)
#define ON_WM_CHAR() PLATEN_WINDOW_MESSAGE(WM_CHAR, OnChar, Key)
#define ON_WM_KEYDOWN() PLATEN_WINDOW_MESSAGE(WM_KEYDOWN, OnKeyDown, Key)
#define ON_WM_KEYUP() PLATEN_WINDOW_MESSAGE(WM_KEYUP, OnKeyUp, Key)
#define ON_WM_MOUSEMOVE() PLATEN_WINDOW_MESSAGE(WM_MOUSEMOVE, OnMouseMove, Mouse)
#define ON_WM_LBUTTONDOWN() PLATEN_WINDOW_MESSAGE(WM_LBUTTONDOWN, OnLButtonDown, Mouse)
#define ON_WM_LBUTTONUP() PLATEN_WINDOW_MESSAGE(WM_LBUTTONUP, OnLButtonUp, Mouse)
#define ON_WM_LBUTTONDBLCLK() PLATEN_WINDOW_MESSAGE(WM_LBUTTONDBLCLK, OnLButtonDblClk, Mouse)
#define ON_WM_RBUTTONDOWN() PLATEN_WINDOW_MESSAGE(WM_RBUTTONDOWN, OnRButtonDown, Mouse)
#define ON_WM_RBUTTONUP() PLATEN_WINDOW_MESSAGE(WM_RBUTTONUP, OnRButtonUp, Mouse)
