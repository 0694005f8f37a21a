#include <QWindow>

#include <platen/platform/win32/message.h>
#include <platen/platform/win32/qt/activation.h>
#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/painting.h>
#include <platen/platform/win32/qt/pump.h>
#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

/// Or will never be: because it is gone, hidden again, or has no extent.
bool IsExposed(const void* handle) {
    const Window* const window = Find(static_cast<HWND>(const_cast<void*>(handle)));
    const QWidget* const widget = window == nullptr ? nullptr : window->widget.data();
    const QWindow* const native = widget == nullptr ? nullptr : widget->windowHandle();
    return native == nullptr || native->isExposed() || !widget->isVisible() ||
           widget->size().isEmpty();
}

/// A window's place beside its siblings is settled by now: its children are shown with it.
void InvalidateShown(HWND handle) {
    const Window* const window = Find(handle);
    if (window == nullptr || !IsShown(handle)) {
        return;
    }
    InvalidateRect(handle, nullptr, TRUE);
    for (const HWND child : ChildrenOf(handle)) {
        InvalidateShown(child);
    }
}

void Show(HWND handle, bool activate) {
    Window* const window = Find(handle);
    QWidget& widget = *window->widget;
    const bool isTopLevel = !window->IsChild();
    window->style |= WS_VISIBLE;
    widget.setAttribute(Qt::WA_ShowWithoutActivating, !activate);
    widget.show();
    if (isTopLevel && activate) {
        Activate(handle);
    }
    TellPlace(handle);
    InvalidateShown(handle);
    if (isTopLevel) {
        WaitUntil(&IsExposed, handle);
    }
}

void Hide(HWND handle) {
    Window* const window = Find(handle);
    window->style &= ~WS_VISIBLE;
    LeaveWindow(handle);
    if (const Window* const left = Find(handle); left != nullptr && left->widget) {
        DropInvalid(handle);
        left->widget->hide();
    }
}

/// Outermost windows first.
void PaintInvalid(HWND handle) {
    const Window* const window = Find(handle);
    if (window == nullptr) {
        return;
    }
    if (!window->invalid.isEmpty() && IsShown(handle)) {
        SendMessage(handle, WM_PAINT, 0, 0);
    }
    for (const HWND child : ChildrenOf(handle)) {
        PaintInvalid(child);
    }
}

}  // namespace
}  // namespace platen::win32

using namespace platen::win32;

BOOL IsWindowVisible(HWND window) {
    return IsShown(window) ? TRUE : FALSE;
}

BOOL ShowWindow(HWND handle, int how) {
    const Window* window = Find(handle);
    if (window == nullptr || !window->widget) {
        return FALSE;
    }
    const bool wasShown = IsShownInParent(*window);
    const bool show = how != SW_HIDE;
    const bool activate = how != SW_SHOWNOACTIVATE;
    if (wasShown != show) {
        SendMessage(handle, WM_SHOWWINDOW, show ? TRUE : FALSE, 0);
        window = Find(handle);
    }
    if (window != nullptr && window->widget && wasShown != show) {
        show ? Show(handle, activate) : Hide(handle);
    } else if (window != nullptr && show && activate && !window->IsChild()) {
        Activate(handle);
    }
    NoteWork();
    return wasShown ? TRUE : FALSE;
}

BOOL UpdateWindow(HWND handle) {
    if (Find(handle) == nullptr) {
        return FALSE;
    }
    PaintInvalid(handle);
    if (const Window* const window = Find(handle); window != nullptr && window->widget) {
        window->widget->repaint();
    }
    NoteWork();
    return TRUE;
}

BOOL BringWindowToTop(HWND handle) {
    const Window* const window = Find(handle);
    if (window == nullptr || !window->widget) {
        return FALSE;
    }
    MoveToFront(handle);
    Raise(*window->widget);
    if (!window->IsChild() && IsShown(handle)) {
        Activate(handle);
    }
    return TRUE;
}
