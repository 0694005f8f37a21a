#include <QApplication>
#include <QScreen>

#include <platen/platform/win32/message.h>
#include <platen/platform/win32/qt/activation.h>
#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/painting.h>
#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

RECT RectOf(const QRect& rectangle) {
    return {rectangle.x(), rectangle.y(), rectangle.x() + rectangle.width(),
            rectangle.y() + rectangle.height()};
}

/// The client area's corner on the screen.
QPoint Corner(const Window& window) {
    return window.widget ? window.widget->mapToGlobal(QPoint(window.border, window.border))
                         : QPoint();
}

/// A child's place counts from its parent's client area.
QPoint Origin(const Window& window) {
    const Window* const parent = window.IsChild() ? Find(window.parent) : nullptr;
    return parent == nullptr ? QPoint() : Corner(*parent);
}

}  // namespace

int BorderOf(DWORD style, DWORD exStyle) {
    const bool hasFrame = (style & (WS_BORDER | WS_DLGFRAME | WS_THICKFRAME)) != 0 ||
                          (exStyle & WS_EX_CLIENTEDGE) != 0;
    const bool isDesktops = (style & WS_CHILD) == 0 && (style & WS_CAPTION) == WS_CAPTION;
    return hasFrame && !isDesktops ? 1 : 0;
}

void TellPlace(HWND handle) {
    Window* const window = Find(handle);
    if (window == nullptr || !window->widget || window->isDying) {
        return;
    }
    const QRect now(Corner(*window) - Origin(*window), window->ClientSize());
    const QRect before = std::exchange(window->told, now);
    const bool isFirst = !std::exchange(window->sizeTold, true);
    if (isFirst || before.size() != now.size()) {
        ResizePicture(*window, before.size());
        SendMessage(handle, WM_SIZE, SIZE_RESTORED,
                    MAKELPARAM(static_cast<WORD>(now.width()), static_cast<WORD>(now.height())));
    }
    if (isFirst || before.topLeft() != now.topLeft()) {
        SendMessage(handle, WM_MOVE, 0,
                    MAKELPARAM(static_cast<WORD>(now.x()), static_cast<WORD>(now.y())));
    }
}

}  // namespace platen::win32

using namespace platen::win32;

BOOL GetWindowRect(HWND window, LPRECT rectangle) {
    const Window* const found = Find(window);
    if (found == nullptr || !found->widget) {
        return FALSE;
    }
    const QPoint inset(found->border, found->border);
    *rectangle = RectOf(QRect(Corner(*found) - inset, found->widget->size()));
    return TRUE;
}

BOOL GetClientRect(HWND window, LPRECT rectangle) {
    const Window* const found = Find(window);
    if (found == nullptr) {
        return FALSE;
    }
    *rectangle = RectOf(QRect(QPoint(), found->ClientSize()));
    return TRUE;
}

BOOL AdjustWindowRectEx(LPRECT rectangle, DWORD style, BOOL /*menu*/, DWORD exStyle) {
    const int border = BorderOf(style, exStyle);
    *rectangle = {rectangle->left - border, rectangle->top - border, rectangle->right + border,
                  rectangle->bottom + border};
    return TRUE;
}

BOOL ClientToScreen(HWND window, LPPOINT point) {
    const Window* const found = Find(window);
    if (found == nullptr) {
        return FALSE;
    }
    const QPoint corner = Corner(*found);
    *point = {point->x + corner.x(), point->y + corner.y()};
    return TRUE;
}

BOOL ScreenToClient(HWND window, LPPOINT point) {
    const Window* const found = Find(window);
    if (found == nullptr) {
        return FALSE;
    }
    const QPoint corner = Corner(*found);
    *point = {point->x - corner.x(), point->y - corner.y()};
    return TRUE;
}

BOOL SetWindowPos(HWND handle, HWND after, int x, int y, int width, int height, UINT flags) {
    const Window* const window = Find(handle);
    if (window == nullptr || !window->widget) {
        return FALSE;
    }
    QWidget& widget = *window->widget;
    QRect place = widget.geometry();
    if ((flags & SWP_NOSIZE) == 0) {
        place.setSize(QSize(std::max(width, 0), std::max(height, 0)));
    }
    if ((flags & SWP_NOMOVE) == 0) {
        const Window* const parent = window->IsChild() ? Find(window->parent) : nullptr;
        const int inset = parent == nullptr ? 0 : parent->border;
        place.moveTo(x + inset, y + inset);
    }
    const bool isChild = window->IsChild();
    widget.setGeometry(place);
    TellPlace(handle);
    if ((flags & SWP_NOZORDER) == 0 && after == HWND_TOP && IsWindow(handle) != 0) {
        BringWindowToTop(handle);
    }
    if ((flags & SWP_HIDEWINDOW) != 0) {
        ShowWindow(handle, SW_HIDE);
    } else if ((flags & SWP_SHOWWINDOW) != 0) {
        ShowWindow(handle, SW_SHOWNOACTIVATE);
    }
    if ((flags & SWP_NOACTIVATE) == 0 && !isChild && IsWindowVisible(handle) != 0) {
        Activate(handle);
    }
    NoteWork();
    return TRUE;
}

HMONITOR MonitorFromWindow(HWND window, DWORD /*otherwise*/) {
    if (!NeedDesktop()) {
        return nullptr;
    }
    const Window* const found = Find(window);
    QScreen* const screen = found != nullptr && found->widget ? found->widget->screen()
                                                              : QGuiApplication::primaryScreen();
    // A monitor is its number, counted from 1.
    return reinterpret_cast<HMONITOR>(QGuiApplication::screens().indexOf(screen) + 1);
}

BOOL GetMonitorInfo(HMONITOR monitor, LPMONITORINFO information) {
    const auto number = reinterpret_cast<std::intptr_t>(monitor);
    const auto screens = NeedDesktop() ? QGuiApplication::screens() : QList<QScreen*>();
    if (number < 1 || number > screens.size()) {
        return FALSE;
    }
    const QScreen& screen = *screens[number - 1];
    information->rcMonitor = RectOf(screen.geometry());
    information->rcWork = RectOf(screen.availableGeometry());
    information->dwFlags = &screen == QGuiApplication::primaryScreen() ? 1 : 0;
    return TRUE;
}
