#include <QStatusBar>
#include <map>

#include <platen/platform/win32/message.h>
#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/widgets.h>
#include <platen/platform/win32/qt/window_record.h>
#include <platen/platform/win32/qt_window.h>

namespace platen::win32 {
namespace {

/// The class of a host's widget goes by the name of its Qt class.
const WindowClass& ClassOf(const QWidget& widget) {
    if (qobject_cast<const QStatusBar*>(&widget) != nullptr) {
        return *FindClass(STATUSCLASSNAME);
    }
    static auto* const classes = new std::map<std::string, WindowClass>;
    const char* const name = widget.metaObject()->className();
    return classes->try_emplace(name, WindowClass{name, &HostProcedure, 0, nullptr, nullptr})
        .first->second;
}

DWORD StyleOf(const QWidget& widget) {
    if (!widget.isWindow()) {
        return WS_CHILD | (widget.isEnabled() ? 0 : WS_DISABLED);
    }
    const bool isPopUp = widget.windowType() != Qt::Window;
    return (isPopUp ? WS_POPUP : WS_OVERLAPPED) | WS_CAPTION | WS_SYSMENU;
}

}  // namespace

HWND Adopt(QWidget* widget) {
    if (widget == nullptr || !NeedDesktop()) {
        return nullptr;
    }
    if (const HWND known = HandleOf(widget)) {
        return known;
    }
    QWidget* const around = widget->parentWidget();
    auto window = std::make_unique<Window>();
    window->windowClass = &ClassOf(*widget);
    window->procedure = window->windowClass->procedure;
    window->style = StyleOf(*widget);
    window->isHosts = true;
    window->sizeTold = true;
    window->text = widget->windowTitle().toStdString();
    if (around != nullptr) {
        window->parent = Adopt(widget->isWindow() ? around->window() : around);
    }
    Window& added = *AddWindow(std::move(window));
    const HWND handle = added.handle;
    SetWidget(added, widget);
    QObject::connect(widget, &QObject::destroyed, [handle] { WidgetDies(handle); });
    return handle;
}

LRESULT HostProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* const window = Find(handle);
    if (window == nullptr) {
        return 0;
    }
    switch (message) {
        case WM_GETTEXT:
        case WM_GETTEXTLENGTH:
            // The host may have changed its title meanwhile.
            if (window->widget) {
                window->text = window->widget->windowTitle().toStdString();
            }
            break;
        case WM_CLOSE:
            if (window->widget) {
                window->widget->close();
            }
            return 0;
        case WM_ACTIVATE:
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            if (window->widget) {
                window->widget->update();
            }
            break;
        default:
            break;
    }
    return DefWindowProc(handle, message, wParam, lParam);
}

}  // namespace platen::win32

HWND PlatenWindowOfWidget(QWidget* widget) {
    return platen::win32::Adopt(widget);
}

QWidget* PlatenWidgetOfWindow(HWND window) {
    const platen::win32::Window* const found = platen::win32::Find(window);
    return found == nullptr ? nullptr : found->widget.data();
}
