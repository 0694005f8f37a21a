#include <QCloseEvent>
#include <QMouseEvent>
#include <QPainter>

#include <platen/platform/win32/message.h>
#include <platen/platform/win32/qt/keys.h>
#include <platen/platform/win32/qt/queue.h>
#include <platen/platform/win32/qt/widgets.h>

namespace platen::win32 {
namespace {

void PostKey(HWND handle, const QKeyEvent& event) {
    constexpr LPARAM kWasDown = LPARAM{1} << 30;
    constexpr LPARAM kGoesUp = LPARAM{1} << 31;
    const int key = VirtualKeyOf(event.key());
    const bool isPress = event.type() == QEvent::KeyPress;
    if (key == 0 && event.text().isEmpty()) {
        return;
    }
    const bool withAlt = event.modifiers().testFlag(Qt::AltModifier);
    const UINT message =
        isPress ? (withAlt ? WM_SYSKEYDOWN : WM_KEYDOWN) : (withAlt ? WM_SYSKEYUP : WM_KEYUP);
    LPARAM lParam = 1 | static_cast<LPARAM>(event.nativeScanCode() & 0xFF) << 16;
    lParam |= isPress ? (event.isAutoRepeat() ? kWasDown : 0) : kWasDown | kGoesUp;
    const HWND focus = GetFocus();
    PostInput(IsWindow(focus) != 0 ? focus : handle, message, static_cast<WPARAM>(key), lParam,
              event.text().toStdString());
}

WPARAM Held(const QMouseEvent& event) {
    WPARAM held = 0;
    held |= event.buttons().testFlag(Qt::LeftButton) ? MK_LBUTTON : 0;
    held |= event.buttons().testFlag(Qt::RightButton) ? MK_RBUTTON : 0;
    held |= event.modifiers().testFlag(Qt::ShiftModifier) ? MK_SHIFT : 0;
    held |= event.modifiers().testFlag(Qt::ControlModifier) ? MK_CONTROL : 0;
    return held;
}

void PostMouse(HWND handle, UINT message, const QMouseEvent& event) {
    const Window* const window = Find(handle);
    if (window == nullptr) {
        return;
    }
    const QPoint place = event.position().toPoint() - QPoint(window->border, window->border);
    NoteMouse(event.globalPosition().toPoint());
    PostInput(handle, message, Held(event),
              MAKELPARAM(static_cast<WORD>(place.x()), static_cast<WORD>(place.y())));
}

void PostButton(HWND handle, const QMouseEvent& event, UINT left, UINT right) {
    if (event.button() == Qt::LeftButton || event.button() == Qt::RightButton) {
        PostMouse(handle, event.button() == Qt::LeftButton ? left : right, event);
    }
}

}  // namespace

PlainWidget::PlainWidget(HWND handle, QWidget* parent, Qt::WindowFlags flags)
    : Hosted(handle, parent, flags) {
    setMouseTracking(true);
}

void PlainWidget::paintEvent(QPaintEvent* event) {
    Hosted::paintEvent(event);
    const Window* const window = Find(Handle());
    if (window != nullptr && window->border > 0) {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void PlainWidget::closeEvent(QCloseEvent* event) {
    event->ignore();
    PostMessage(Handle(), WM_CLOSE, 0, 0);
}

void PlainWidget::keyPressEvent(QKeyEvent* event) {
    PostKey(Handle(), *event);
}

void PlainWidget::keyReleaseEvent(QKeyEvent* event) {
    PostKey(Handle(), *event);
}

void PlainWidget::mousePressEvent(QMouseEvent* event) {
    PostButton(Handle(), *event, WM_LBUTTONDOWN, WM_RBUTTONDOWN);
}

void PlainWidget::mouseReleaseEvent(QMouseEvent* event) {
    PostButton(Handle(), *event, WM_LBUTTONUP, WM_RBUTTONUP);
}

void PlainWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    const Window* const window = Find(Handle());
    const bool asDouble = window != nullptr && (window->windowClass->style & CS_DBLCLKS) != 0;
    PostButton(Handle(), *event, asDouble ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, WM_RBUTTONDOWN);
}

void PlainWidget::mouseMoveEvent(QMouseEvent* event) {
    PostMouse(Handle(), WM_MOUSEMOVE, *event);
}

}  // namespace platen::win32
