#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32/types.h>

/// Windows, over Qt widgets.
///
/// Contract: a window belongs to the thread of the user interface, which alone may call any of
/// these functions. The first one that needs it makes a QApplication when the program has none;
/// without a display it draws into memory. Handles are never given twice; one that is no longer a
/// window's is safe everywhere, and answers FALSE or 0. Messages are those of
/// <platen/platform/win32/message.h>. Texts are UTF-8. Coordinates are Qt's device-independent
/// pixels.
///
/// Ready-made classes: "STATIC" (text, frames), "BUTTON" (push, default, check, radio, group),
/// "EDIT",
/// "#32770" (a dialog) and "msctls_statusbar32". They are Qt's own controls and keep Qt's ways with
/// keys and mouse; what they do not use goes to the window with the focus as messages. A field of
/// several lines has the scroll bars that its style asks for.
///
/// A child dies with its parent, an owned pop-up with its owner. DestroyWindow sends WM_DESTROY to
/// owned windows first, then to the window, then to its children; WM_NCDESTROY comes from the
/// innermost outwards. It is the same when Qt or a host deletes the widget.
///
/// Known gaps: of a window with a caption the frame belongs to the desktop's window manager and
/// does not count in GetWindowRect and AdjustWindowRectEx; other windows have a frame of one pixel
/// with WS_BORDER, WS_DLGFRAME or WS_THICKFRAME. Children are never drawn over by their parents (as
/// with WS_CLIPCHILDREN). WM_NC messages other than WM_NCCREATE and WM_NCDESTROY, WM_WINDOWPOS
/// messages, WM_GETMINMAXINFO and WM_PARENTNOTIFY are not sent. Nothing is minimised or maximised
/// from here.

inline constexpr DWORD WS_OVERLAPPED = 0;
inline constexpr DWORD WS_TABSTOP = 0x00010000;
inline constexpr DWORD WS_GROUP = 0x00020000;
inline constexpr DWORD WS_MAXIMIZEBOX = 0x00010000;
inline constexpr DWORD WS_MINIMIZEBOX = 0x00020000;
inline constexpr DWORD WS_THICKFRAME = 0x00040000;
inline constexpr DWORD WS_SYSMENU = 0x00080000;
inline constexpr DWORD WS_HSCROLL = 0x00100000;
inline constexpr DWORD WS_VSCROLL = 0x00200000;
inline constexpr DWORD WS_DLGFRAME = 0x00400000;
inline constexpr DWORD WS_BORDER = 0x00800000;
inline constexpr DWORD WS_CAPTION = WS_BORDER | WS_DLGFRAME;
inline constexpr DWORD WS_CLIPCHILDREN = 0x02000000;
inline constexpr DWORD WS_CLIPSIBLINGS = 0x04000000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_POPUP = 0x80000000;
inline constexpr DWORD WS_OVERLAPPEDWINDOW =
    WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
inline constexpr DWORD WS_POPUPWINDOW = WS_POPUP | WS_BORDER | WS_SYSMENU;
inline constexpr DWORD WS_EX_DLGMODALFRAME = 0x0001;
inline constexpr DWORD WS_EX_TOPMOST = 0x0008;
inline constexpr DWORD WS_EX_TOOLWINDOW = 0x0080;
inline constexpr DWORD WS_EX_WINDOWEDGE = 0x0100;
inline constexpr DWORD WS_EX_CLIENTEDGE = 0x0200;
inline constexpr DWORD WS_EX_CONTROLPARENT = 0x10000;

inline constexpr UINT CS_VREDRAW = 0x1;
inline constexpr UINT CS_HREDRAW = 0x2;
inline constexpr UINT CS_DBLCLKS = 0x8;

inline constexpr int CW_USEDEFAULT = -0x7FFFFFFF - 1;

inline constexpr DWORD SS_LEFT = 0x0;
inline constexpr DWORD SS_CENTER = 0x1;
inline constexpr DWORD SS_RIGHT = 0x2;
inline constexpr DWORD SS_BLACKRECT = 0x4;
inline constexpr DWORD SS_GRAYRECT = 0x5;
inline constexpr DWORD SS_WHITERECT = 0x6;
inline constexpr DWORD SS_BLACKFRAME = 0x7;
inline constexpr DWORD SS_GRAYFRAME = 0x8;
inline constexpr DWORD SS_WHITEFRAME = 0x9;
inline constexpr DWORD SS_SIMPLE = 0xB;
inline constexpr DWORD SS_LEFTNOWORDWRAP = 0xC;
inline constexpr DWORD SS_NOPREFIX = 0x80;
inline constexpr DWORD SS_SUNKEN = 0x1000;

inline constexpr DWORD BS_PUSHBUTTON = 0x0;
inline constexpr DWORD BS_DEFPUSHBUTTON = 0x1;
inline constexpr DWORD BS_CHECKBOX = 0x2;
inline constexpr DWORD BS_AUTOCHECKBOX = 0x3;
inline constexpr DWORD BS_RADIOBUTTON = 0x4;
inline constexpr DWORD BS_GROUPBOX = 0x7;
inline constexpr DWORD BS_AUTORADIOBUTTON = 0x9;

inline constexpr DWORD ES_LEFT = 0x0;
inline constexpr DWORD ES_CENTER = 0x1;
inline constexpr DWORD ES_RIGHT = 0x2;
inline constexpr DWORD ES_MULTILINE = 0x4;
inline constexpr DWORD ES_PASSWORD = 0x20;
inline constexpr DWORD ES_AUTOHSCROLL = 0x80;
inline constexpr DWORD ES_READONLY = 0x800;
inline constexpr DWORD ES_WANTRETURN = 0x1000;

inline constexpr LPCSTR STATUSCLASSNAME = "msctls_statusbar32";

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOWNOACTIVATE = 4;
inline constexpr int SW_SHOW = 5;

inline constexpr UINT SWP_NOSIZE = 0x01;
inline constexpr UINT SWP_NOMOVE = 0x02;
inline constexpr UINT SWP_NOZORDER = 0x04;
inline constexpr UINT SWP_NOREDRAW = 0x08;
inline constexpr UINT SWP_NOACTIVATE = 0x10;
inline constexpr UINT SWP_FRAMECHANGED = 0x20;
inline constexpr UINT SWP_SHOWWINDOW = 0x40;
inline constexpr UINT SWP_HIDEWINDOW = 0x80;
inline constexpr HWND HWND_TOP = nullptr;
inline const HWND HWND_TOPMOST = reinterpret_cast<HWND>(-1);  // NOLINT(performance-no-int-to-ptr)
inline const HWND HWND_NOTOPMOST = reinterpret_cast<HWND>(-2);

inline constexpr UINT GW_HWNDNEXT = 2;
inline constexpr UINT GW_OWNER = 4;
inline constexpr UINT GW_CHILD = 5;

inline constexpr int GWL_ID = -12;
inline constexpr int GWL_STYLE = -16;
inline constexpr int GWL_EXSTYLE = -20;
inline constexpr int GWLP_WNDPROC = -4;
inline constexpr int GWLP_HINSTANCE = -6;
inline constexpr int GWLP_ID = -12;
inline constexpr int GWLP_USERDATA = -21;

inline constexpr int COLOR_WINDOW = 5;
inline constexpr int COLOR_WINDOWTEXT = 8;
inline constexpr int COLOR_BTNFACE = 15;

inline constexpr DWORD MONITOR_DEFAULTTOPRIMARY = 1;
inline constexpr DWORD MONITOR_DEFAULTTONEAREST = 2;

inline const LPCSTR IDC_ARROW = MAKEINTRESOURCE(32512);
inline const LPCSTR IDC_WAIT = MAKEINTRESOURCE(32514);

/// A window class. The background is a brush, or a system colour's number plus one, or null, and
/// then the window draws its own background. Icon, cursor, menu and extra bytes are not used.
struct WNDCLASS {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
};

/// What WM_NCCREATE and WM_CREATE carry.
struct CREATESTRUCT {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCSTR lpszName;
    LPCSTR lpszClass;
    DWORD dwExStyle;
};
using LPCREATESTRUCT = CREATESTRUCT*;

struct MONITORINFO {
    DWORD cbSize;
    RECT rcMonitor;
    RECT rcWork;  ///< without the desktop's own bars
    DWORD dwFlags;
};
using LPMONITORINFO = MONITORINFO*;

extern "C" {
/// Makes a class known by its name, in any case of letters; 0 when the name is missing or taken.
PLATEN_API ATOM RegisterClass(const WNDCLASS* description);
/// Nothing to do: the ready-made classes are always there.
PLATEN_API void InitCommonControls();
/// The window's class; the number of characters, cut to fit `capacity` with its terminating zero.
PLATEN_API int GetClassName(HWND window, LPSTR text, int capacity);

/// A new window. A child (WS_CHILD) needs a parent, and its "menu" is its identifier; other windows
/// are owned by the parent's top-level window. The window receives WM_NCCREATE, WM_CREATE and, when
/// it is a child or pop-up, WM_SIZE and WM_MOVE; an overlapped window gets those when it is first
/// shown. 0 when the class is not known or the window refuses (FALSE from WM_NCCREATE, -1 from
/// WM_CREATE).
PLATEN_API HWND CreateWindowEx(DWORD exStyle, LPCSTR className, LPCSTR name, DWORD style, int x,
                               int y, int width, int height, HWND parent, HMENU menu,
                               HINSTANCE instance, LPVOID parameter);
/// Destroys a window, its children and what it owns. A widget of the host only loses its handle.
PLATEN_API BOOL DestroyWindow(HWND window);
PLATEN_API BOOL IsWindow(HWND window);
PLATEN_API LRESULT DefWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
PLATEN_API LRESULT CallWindowProc(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                                  LPARAM lParam);

/// Whether the window and all its parents are shown.
PLATEN_API BOOL IsWindowVisible(HWND window);
/// Shows or hides; answers whether the window was shown before. SW_SHOW and SW_SHOWNORMAL activate
/// a top-level window. Returns when the desktop shows a top-level window, at the latest after 1 s.
PLATEN_API BOOL ShowWindow(HWND window, int how);
/// Has what is invalid of the window and its children painted now.
PLATEN_API BOOL UpdateWindow(HWND window);
PLATEN_API BOOL BringWindowToTop(HWND window);
/// Moves, sizes, shows or hides; of orders only HWND_TOP is followed. Child positions are in the
/// parent's client area. Activates as Win32 does, unless SWP_NOACTIVATE.
PLATEN_API BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height,
                             UINT flags);
/// In screen coordinates.
PLATEN_API BOOL GetWindowRect(HWND window, LPRECT rectangle);
/// From (0, 0).
PLATEN_API BOOL GetClientRect(HWND window, LPRECT rectangle);
/// Makes a window's rectangle of a client rectangle. Menus are not counted.
PLATEN_API BOOL AdjustWindowRectEx(LPRECT rectangle, DWORD style, BOOL menu, DWORD exStyle);
PLATEN_API BOOL ClientToScreen(HWND window, LPPOINT point);
PLATEN_API BOOL ScreenToClient(HWND window, LPPOINT point);

/// A child's parent, or a pop-up's owner; 0 for others.
PLATEN_API HWND GetParent(HWND window);
/// GW_OWNER, GW_CHILD (the first child) or GW_HWNDNEXT (the next among siblings).
PLATEN_API HWND GetWindow(HWND window, UINT relation);
PLATEN_API BOOL IsChild(HWND parent, HWND window);
/// The direct child with that identifier.
PLATEN_API HWND GetDlgItem(HWND dialog, int identifier);
PLATEN_API int GetDlgCtrlID(HWND window);
/// Calls for each top-level window, the host's own Qt windows among them, until one call answers
/// FALSE. `thread` is GetCurrentThreadId's answer in the thread of the user interface.
PLATEN_API BOOL EnumThreadWindows(DWORD thread, WNDENUMPROC each, LPARAM lParam);
PLATEN_API DWORD GetCurrentThreadId();

/// A null text counts as empty.
PLATEN_API BOOL SetWindowText(HWND window, LPCSTR text);
/// The number of characters, cut to fit `capacity` with its terminating zero.
PLATEN_API int GetWindowText(HWND window, LPSTR text, int capacity);
PLATEN_API int GetWindowTextLength(HWND window);

/// Answers whether the window was disabled before. A disabled top-level window takes no keys,
/// mouse, wheel, touch or closing by the user, but keeps its looks; ask IsWindowEnabled, not Qt.
/// Keys still count for GetKeyState.
PLATEN_API BOOL EnableWindow(HWND window, BOOL enable);
PLATEN_API BOOL IsWindowEnabled(HWND window);
/// The active top-level window, which may be one of the host's own Qt windows.
PLATEN_API HWND GetActiveWindow();
PLATEN_API HWND SetActiveWindow(HWND window);
/// The window that gets keys; 0 while another program is active.
PLATEN_API HWND GetFocus();
/// Answers the window that had the focus before; 0 also when a disabled window is asked for.
PLATEN_API HWND SetFocus(HWND window);

/// GWL_STYLE, GWL_EXSTYLE, GWL_ID. Changing styles changes no looks, except WS_VISIBLE and
/// WS_DISABLED, which are the window's state and stay as they are.
PLATEN_API LONG GetWindowLong(HWND window, int index);
PLATEN_API LONG SetWindowLong(HWND window, int index, LONG value);
/// Also GWLP_WNDPROC, GWLP_USERDATA, GWLP_ID and the dialog's DWLP_ values. Answers the old value.
PLATEN_API LONG_PTR GetWindowLongPtr(HWND window, int index);
PLATEN_API LONG_PTR SetWindowLongPtr(HWND window, int index, LONG_PTR value);

/// Redraws the menu bar of a host's QMainWindow; other windows have none.
PLATEN_API BOOL DrawMenuBar(HWND window);
/// IDC_ARROW or IDC_WAIT, without an instance.
PLATEN_API HCURSOR LoadCursor(HINSTANCE instance, LPCSTR name);
/// Answers the cursor before. IDC_WAIT stays over all windows of the program until another is set;
/// with IDC_ARROW or null each window shows its own again.
PLATEN_API HCURSOR SetCursor(HCURSOR cursor);
PLATEN_API HMONITOR MonitorFromWindow(HWND window, DWORD otherwise);
PLATEN_API BOOL GetMonitorInfo(HMONITOR monitor, LPMONITORINFO information);
/// Only the program itself, by a null name.
PLATEN_API HMODULE GetModuleHandle(LPCSTR name);
/// COLOR_WINDOW, COLOR_WINDOWTEXT and COLOR_BTNFACE of the desktop's palette; 0 for others.
PLATEN_API DWORD GetSysColor(int index);
}
