#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32/types.h>

/// Messages, timers and keys.
///
/// Contract: messages are taken in Win32's order: posted, input, WM_QUIT, WM_PAINT, WM_TIMER.
/// Taking lets Qt work, so the host's own Qt windows live on while one of these loops runs. A
/// filter by window takes the messages of that window and its children, and input for other
/// top-level windows waits for the next call without one. A timer that is not served does not pile
/// up. While the host's own Qt loop runs and nobody takes messages, they are dispatched from there,
/// those of dialogs through IsDialogMessage. Input reaches windows of this library: WM_KEYDOWN,
/// WM_KEYUP (WM_SYSKEYDOWN, WM_SYSKEYUP with Alt), WM_CHAR from TranslateMessage, mouse moves and
/// buttons. Qt's controls and the host's widgets get theirs from Qt; keys that a control leaves
/// alone become messages. Known gaps: WM_COMMAND of a user's click arrives as a posted message;
/// filters by message number hold for posted messages, input, WM_PAINT and WM_TIMER alike.

inline constexpr UINT WM_NULL = 0x0000;
inline constexpr UINT WM_CREATE = 0x0001;
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_MOVE = 0x0003;
inline constexpr UINT WM_SIZE = 0x0005;
inline constexpr UINT WM_ACTIVATE = 0x0006;
inline constexpr UINT WM_SETFOCUS = 0x0007;
inline constexpr UINT WM_KILLFOCUS = 0x0008;
inline constexpr UINT WM_ENABLE = 0x000A;
inline constexpr UINT WM_SETTEXT = 0x000C;
inline constexpr UINT WM_GETTEXT = 0x000D;
inline constexpr UINT WM_GETTEXTLENGTH = 0x000E;
inline constexpr UINT WM_PAINT = 0x000F;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_QUIT = 0x0012;
inline constexpr UINT WM_ERASEBKGND = 0x0014;
inline constexpr UINT WM_SHOWWINDOW = 0x0018;
inline constexpr UINT WM_NEXTDLGCTL = 0x0028;
inline constexpr UINT WM_NCCREATE = 0x0081;
inline constexpr UINT WM_NCDESTROY = 0x0082;
inline constexpr UINT WM_GETDLGCODE = 0x0087;
inline constexpr UINT BM_GETCHECK = 0x00F0;
inline constexpr UINT BM_SETCHECK = 0x00F1;
inline constexpr UINT BM_CLICK = 0x00F5;
inline constexpr UINT WM_KEYFIRST = 0x0100;
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_KEYUP = 0x0101;
inline constexpr UINT WM_CHAR = 0x0102;
inline constexpr UINT WM_SYSKEYDOWN = 0x0104;
inline constexpr UINT WM_SYSKEYUP = 0x0105;
inline constexpr UINT WM_KEYLAST = 0x0108;
inline constexpr UINT WM_INITDIALOG = 0x0110;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr UINT WM_TIMER = 0x0113;
inline constexpr UINT WM_MOUSEFIRST = 0x0200;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_RBUTTONUP = 0x0205;
inline constexpr UINT WM_MOUSELAST = 0x020E;
inline constexpr UINT WM_USER = 0x0400;
inline constexpr UINT WM_APP = 0x8000;

/// Of "msctls_statusbar32". A host's QStatusBar shows part 0 as its message and each further part
/// as a permanent label, made when it is first set.
inline constexpr UINT SB_SETTEXT = WM_USER + 1;
inline constexpr UINT SB_GETTEXT = WM_USER + 2;
inline constexpr UINT SB_GETTEXTLENGTH = WM_USER + 3;
inline constexpr UINT SB_SETPARTS = WM_USER + 4;
inline constexpr UINT SB_GETPARTS = WM_USER + 6;

inline constexpr WORD WA_INACTIVE = 0;
inline constexpr WORD WA_ACTIVE = 1;
inline constexpr WORD WA_CLICKACTIVE = 2;
inline constexpr WPARAM SIZE_RESTORED = 0;
inline constexpr WORD BN_CLICKED = 0;
inline constexpr WORD EN_CHANGE = 0x0300;
inline constexpr WPARAM BST_UNCHECKED = 0;
inline constexpr WPARAM BST_CHECKED = 1;
inline constexpr WPARAM MK_LBUTTON = 0x1;
inline constexpr WPARAM MK_RBUTTON = 0x2;
inline constexpr WPARAM MK_SHIFT = 0x4;
inline constexpr WPARAM MK_CONTROL = 0x8;
inline constexpr LRESULT DLGC_WANTARROWS = 0x1;
inline constexpr LRESULT DLGC_WANTTAB = 0x2;
inline constexpr LRESULT DLGC_WANTALLKEYS = 0x4;
inline constexpr LRESULT DLGC_STATIC = 0x100;

/// Letters and digits are their ASCII codes.
inline constexpr int VK_CANCEL = 0x03;
inline constexpr int VK_BACK = 0x08;
inline constexpr int VK_TAB = 0x09;
inline constexpr int VK_RETURN = 0x0D;
inline constexpr int VK_SHIFT = 0x10;
inline constexpr int VK_CONTROL = 0x11;
inline constexpr int VK_MENU = 0x12;
inline constexpr int VK_PAUSE = 0x13;
inline constexpr int VK_CAPITAL = 0x14;
inline constexpr int VK_ESCAPE = 0x1B;
inline constexpr int VK_SPACE = 0x20;
inline constexpr int VK_PRIOR = 0x21;
inline constexpr int VK_NEXT = 0x22;
inline constexpr int VK_END = 0x23;
inline constexpr int VK_HOME = 0x24;
inline constexpr int VK_LEFT = 0x25;
inline constexpr int VK_UP = 0x26;
inline constexpr int VK_RIGHT = 0x27;
inline constexpr int VK_DOWN = 0x28;
inline constexpr int VK_INSERT = 0x2D;
inline constexpr int VK_DELETE = 0x2E;
inline constexpr int VK_F1 = 0x70;

inline constexpr UINT PM_NOREMOVE = 0;
inline constexpr UINT PM_REMOVE = 1;
inline constexpr DWORD KEYEVENTF_KEYUP = 2;

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;  ///< milliseconds
    POINT pt;    ///< where on the screen one of this library's windows last saw the mouse
};
using LPMSG = MSG*;

extern "C" {
/// Waits for a message and takes it: FALSE for WM_QUIT, else TRUE. Waiting costs no time.
PLATEN_API BOOL GetMessage(LPMSG message, HWND window, UINT first, UINT last);
/// The same without waiting: FALSE when none is there. With PM_NOREMOVE the message stays.
/// WM_PAINT stays until the window has been painted.
PLATEN_API BOOL PeekMessage(LPMSG message, HWND window, UINT first, UINT last, UINT remove);
/// Posts WM_CHAR for a key that stands for a character.
PLATEN_API BOOL TranslateMessage(const MSG* message);
PLATEN_API LRESULT DispatchMessage(const MSG* message);
/// Calls the window's procedure; 0 when the handle names no window.
PLATEN_API LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// A null window posts to the thread. FALSE when the handle names no window.
PLATEN_API BOOL PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
PLATEN_API void PostQuitMessage(int exitCode);

/// A repeating timer of at least 10 ms; the same identifier again starts it anew. Without a window
/// the identifier is chosen here and answered. Calls `procedure` when it is not null, else WM_TIMER
/// goes to the window.
PLATEN_API UINT_PTR SetTimer(HWND window, UINT_PTR timer, UINT milliseconds, TIMERPROC procedure);
PLATEN_API BOOL KillTimer(HWND window, UINT_PTR timer);

/// Negative while the key is down; the low bit turns with each press. As the messages taken so far
/// have it. A key counts as up 30 ms after its release, so that a desktop's automatic repeating
/// does not look like one; leaving the program lets go of all keys.
PLATEN_API SHORT GetKeyState(int key);
/// Presses or, with KEYEVENTF_KEYUP, lets go of a key as if by hand, without the 30 ms. Known when
/// messages are next taken; at once while no window has the focus.
PLATEN_API void keybd_event(BYTE key, BYTE scanCode, DWORD flags, ULONG_PTR extra);
}
