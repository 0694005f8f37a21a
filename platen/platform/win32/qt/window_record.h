#pragma once

#include <QImage>
#include <QPointer>
#include <QRect>
#include <QRegion>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include <platen/platform/win32/dialog.h>
#include <platen/platform/win32/window.h>

namespace platen::win32 {

struct Window;

/// What a window is made of: the procedure, the brush, and how its widget is made.
struct WindowClass {
    std::string name;
    WNDPROC procedure = nullptr;
    UINT style = 0;
    HBRUSH background = nullptr;
    /// Null: a plain widget.
    QWidget* (*makeWidget)(HWND handle, const Window& window, QWidget* parent) = nullptr;
};

/// What only a dialog has.
struct DialogState {
    DLGPROC procedure = nullptr;
    LONG_PTR messageResult = 0;
    LONG_PTR user = 0;
    INT_PTR result = 0;
    HWND savedFocus = nullptr;
    int defaultButton = 0;
    bool hasEnded = false;
};

/// What is known of a window.
struct Window {
    HWND handle = nullptr;
    QPointer<QWidget> widget;  ///< null once Qt or the host has deleted it
    const WindowClass* windowClass = nullptr;
    WNDPROC procedure = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    HINSTANCE instance = nullptr;
    LONG_PTR identifier = 0;
    LONG_PTR userData = 0;
    HWND parent = nullptr;  ///< a child's parent, another window's owner
    int border = 0;         ///< from the window's edge to its client area
    bool isHosts = false;   ///< the widget was there before the handle
    bool isDying = false;
    bool widgetDies = false;  ///< someone else is deleting the widget
    bool sizeTold = false;
    QRect told;  ///< client area as WM_SIZE and WM_MOVE last had it
    std::string text;
    std::vector<std::string> parts;  ///< a status bar's texts
    QRegion invalid;
    bool erase = false;
    QImage picture;  ///< what was drawn, of the client area
    std::unique_ptr<DialogState> dialog;

    [[nodiscard]] bool IsChild() const { return (style & WS_CHILD) != 0; }
    [[nodiscard]] QSize ClientSize() const;
};

/// The window of a handle, or null.
Window* Find(HWND handle);
/// The window that stands for exactly this widget, or null.
HWND HandleOf(const QWidget* widget);
/// The same for the widget or the nearest one around it.
HWND NearestHandle(const QWidget* widget);
/// The handle of a host's widget, made if it has none yet.
HWND Adopt(QWidget* widget);

/// All windows: children in the order of their making, top-level ones in front of older ones.
const std::vector<HWND>& AllWindows();
std::vector<HWND> ChildrenOf(HWND parent);
/// The window itself or the one around it that is no child.
HWND TopLevelOf(HWND handle);
/// Whether the window and all around it are shown or (IsUsable) enabled.
bool IsShown(HWND handle);
bool IsUsable(HWND handle);
/// Whether the window would be seen if all around it are.
bool IsShownInParent(const Window& window);
void MoveToFront(HWND handle);
/// The siblings from one with WS_GROUP to the next, in which the window is.
std::vector<HWND> GroupOf(HWND handle);

/// A new record in the table, without a widget.
Window* AddWindow(std::unique_ptr<Window> window);
/// Ties the record to its widget.
void SetWidget(Window& window, QWidget* widget);
/// Takes the record out of the table.
void ForgetWindow(HWND handle);

const WindowClass* FindClass(LPCSTR nameOrAtom);

/// What Qt or the host deletes is told its end first.
void WidgetDies(HWND handle);
/// Tells the window where it is, when that has changed.
void TellPlace(HWND handle);
/// How wide a frame the styles ask for that is not the desktop's.
int BorderOf(DWORD style, DWORD exStyle);

}  // namespace platen::win32
