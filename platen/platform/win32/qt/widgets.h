#pragma once

#include <QPaintEvent>
#include <QWidget>
#include <utility>

#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/window_record.h>

class QKeyEvent;
class QMouseEvent;
class QPainter;

namespace platen::win32 {

/// What each widget that stands for a window does beside its Qt class: it tells its place, shows
/// what was drawn, leaves Tab to the dialog and says when it ends.
template <class Base>
class Hosted : public Base {
  public:
    template <class... Arguments>
    explicit Hosted(HWND handle, Arguments&&... arguments)
        : Base(std::forward<Arguments>(arguments)...), m_handle(handle) {}
    ~Hosted() override { WidgetDies(m_handle); }

    [[nodiscard]] HWND Handle() const { return m_handle; }

  protected:
    bool event(QEvent* event) override {
        const EventScope scope;
        const bool handled = Base::event(event);
        if (event->type() == QEvent::Resize || event->type() == QEvent::Move) {
            TellPlace(m_handle);
        }
        return handled;
    }
    void paintEvent(QPaintEvent* event) override {
        Base::paintEvent(event);
        ShowPicture(m_handle, *this);
    }
    bool focusNextPrevChild(bool /*next*/) override { return false; }

  private:
    static void ShowPicture(HWND handle, QWidget& widget);

    HWND m_handle;
};

/// Paints a window's picture into its widget.
void PaintPicture(HWND handle, QWidget& widget);

template <class Base>
void Hosted<Base>::ShowPicture(HWND handle, QWidget& widget) {
    PaintPicture(handle, widget);
}

/// A window of a host's class or a dialog: all input becomes messages.
class PlainWidget : public Hosted<QWidget> {
  public:
    PlainWidget(HWND handle, QWidget* parent, Qt::WindowFlags flags);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
};

/// Registered with the classes; see WindowClass::makeWidget.
QWidget* MakeStatic(HWND handle, const Window& window, QWidget* parent);
QWidget* MakeButton(HWND handle, const Window& window, QWidget* parent);
QWidget* MakeEdit(HWND handle, const Window& window, QWidget* parent);
QWidget* MakeStatusBar(HWND handle, const Window& window, QWidget* parent);

LRESULT StaticProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT ButtonProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT EditProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT StatusBarProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
/// Of a host's own widget.
LRESULT HostProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
/// What all controls do: Qt paints them, over a picture that is gone where the control is invalid.
LRESULT ControlProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace platen::win32
