#include <platen/platform/win32/qt/activation.h>

#include <QApplication>
#include <QTimer>
#include <utility>

#include <platen/platform/win32/message.h>
#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

/// The windows that this library has told. Qt follows a little later, or has gone ahead.
HWND g_focus = nullptr;
HWND g_active = nullptr;

/// The window that Qt has been asked to make active and has not told of yet: what it tells of
/// others meanwhile is older than that.
HWND g_awaited = nullptr;
int g_requests = 0;
/// After that many milliseconds the window system has refused, and what Qt has counts.
constexpr int kRefusedAfter = 500;

void Await(HWND handle, const QWidget& widget) {
    if (g_awaited == nullptr && QApplication::activeWindow() == &widget) {
        return;  // nothing changes, and nothing will be told
    }
    g_awaited = handle;
    QTimer::singleShot(kRefusedAfter, qApp, [request = ++g_requests] {
        if (g_awaited != nullptr && request == g_requests) {
            g_awaited = nullptr;
            FollowActiveWindow(QApplication::activeWindow());
        }
    });
}

/// Whether what Qt tells of a top-level window, or of none, is older than what it was asked for.
bool IsOutdated(HWND told) {
    if (told == g_awaited || IsWindow(g_awaited) == FALSE) {
        g_awaited = nullptr;
    }
    return g_awaited != nullptr;
}

void ChangeFocus(HWND now) {
    const HWND before = std::exchange(g_focus, now);
    if (before == now) {
        return;
    }
    SendMessage(before, WM_KILLFOCUS, reinterpret_cast<WPARAM>(now), 0);
    if (g_focus == now) {
        SendMessage(now, WM_SETFOCUS, reinterpret_cast<WPARAM>(before), 0);
    }
}

void ChangeActive(HWND now) {
    const HWND before = std::exchange(g_active, now);
    if (before == now) {
        return;
    }
    SendMessage(before, WM_ACTIVATE, WA_INACTIVE, reinterpret_cast<LPARAM>(now));
    if (g_active == now) {
        SendMessage(now, WM_ACTIVATE, WA_ACTIVE, reinterpret_cast<LPARAM>(before));
    }
    const Window* const window = Find(now);
    if (g_active != now || IsWithin(now, g_focus)) {
        return;
    }
    // Qt gives a host's window its own focus back.
    if (window == nullptr || window->isHosts) {
        ChangeFocus(nullptr);
    } else {
        SetFocus(now);
    }
}

}  // namespace

bool IsWithin(HWND outer, HWND window) {
    return outer == window || IsChild(outer, window) != 0;
}

void Raise(QWidget& widget) {
    // What draws into memory has no order of windows, and says so each time.
    if (!widget.isWindow() || QGuiApplication::platformName() != u"offscreen") {
        widget.raise();
    }
}

void FollowFocus(QWidget* now) {
    const EventScope scope;
    const HWND nearest = NearestHandle(now);
    if (IsOutdated(TopLevelOf(nearest))) {
        return;
    }
    const Window* const window = Find(nearest);
    // A part of one of this library's controls stands for it; a host's widget only for itself.
    const bool stands = window != nullptr && (!window->isHosts || window->widget == now);
    const HWND top = stands ? TopLevelOf(nearest) : nullptr;
    if (stands && top != g_active) {
        // The window chooses where its focus goes when it becomes active.
        ChangeActive(top);
    } else if (now != nullptr) {
        ChangeFocus(stands ? nearest : nullptr);
    }
}

void FollowActiveWindow(QWidget* widget) {
    const EventScope scope;
    const HWND handle = widget == nullptr ? nullptr : HandleOf(widget->window());
    if (IsOutdated(handle)) {
        return;
    }
    if (widget == nullptr) {
        ChangeFocus(nullptr);
    }
    ChangeActive(handle);
}

void Activate(HWND handle) {
    const Window* const window = Find(handle);
    if (window == nullptr || !IsUsable(handle)) {
        return;
    }
    if (window->widget) {
        Raise(*window->widget);
        window->widget->activateWindow();
        Await(handle, *window->widget);
    }
    ChangeActive(handle);
    NoteWork();
}

void LeaveWindow(HWND handle) {
    if (g_active == handle) {
        const Window* const window = Find(handle);
        const HWND owner = window == nullptr ? nullptr : TopLevelOf(window->parent);
        if (owner != nullptr && IsShown(owner) && IsUsable(owner)) {
            Activate(owner);
        } else {
            ChangeActive(nullptr);
        }
    }
    if (g_focus != nullptr && IsWithin(handle, g_focus)) {
        ChangeFocus(nullptr);
    }
}

}  // namespace platen::win32

using namespace platen::win32;

HWND GetActiveWindow() {
    if (IsWindow(g_active) != 0) {
        return g_active;
    }
    return NeedDesktop() ? Adopt(QApplication::activeWindow()) : nullptr;
}

HWND SetActiveWindow(HWND window) {
    const HWND before = GetActiveWindow();
    const Window* const found = Find(window);
    if (found == nullptr || found->IsChild()) {
        return nullptr;
    }
    Activate(window);
    return before;
}

HWND GetFocus() {
    if (IsWindow(g_focus) != 0) {
        return g_focus;
    }
    QWidget* const widget = NeedDesktop() ? QApplication::focusWidget() : nullptr;
    const Window* const nearest = Find(NearestHandle(widget));
    return widget == nullptr || (nearest != nullptr && !nearest->isHosts) ? nullptr : Adopt(widget);
}

HWND SetFocus(HWND handle) {
    const HWND before = GetFocus();
    if (handle == nullptr) {
        ChangeFocus(nullptr);
        if (QWidget* const widget = NeedDesktop() ? QApplication::focusWidget() : nullptr) {
            widget->clearFocus();
        }
        return before;
    }
    if (Find(handle) == nullptr || !IsUsable(handle)) {
        return nullptr;
    }
    const HWND top = TopLevelOf(handle);
    if (g_active != top && IsShown(top)) {
        Activate(top);
    }
    ChangeFocus(handle);
    const Window* const window = Find(handle);
    if (g_focus == handle && window != nullptr && window->widget) {
        window->widget->setFocus(Qt::OtherFocusReason);
    }
    return before;
}

BOOL EnableWindow(HWND handle, BOOL enable) {
    Window* window = Find(handle);
    if (window == nullptr) {
        return FALSE;
    }
    const bool wasDisabled = (window->style & WS_DISABLED) != 0;
    if (wasDisabled != (enable != 0)) {
        return wasDisabled ? TRUE : FALSE;
    }
    window->style ^= WS_DISABLED;
    if (window->IsChild() && window->widget) {
        window->widget->setEnabled(enable != 0);
    }
    if (enable == 0 && g_focus == handle) {
        SetFocus(nullptr);
    }
    SendMessage(handle, WM_ENABLE, enable != 0 ? TRUE : FALSE, 0);
    NoteWork();
    return wasDisabled ? TRUE : FALSE;
}

BOOL IsWindowEnabled(HWND window) {
    const Window* const found = Find(window);
    return found != nullptr && (found->style & WS_DISABLED) == 0 ? TRUE : FALSE;
}
