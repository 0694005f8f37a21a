#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <cstring>

#include <platen/platform/win32/message.h>
#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/painting.h>
#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

constexpr DWORD kStateStyles = WS_VISIBLE | WS_DISABLED;

LRESULT CopyText(const std::string& text, WPARAM capacity, LPARAM buffer) {
    if (capacity == 0) {
        return 0;
    }
    auto* const target = reinterpret_cast<char*>(buffer);
    const std::size_t length = text.copy(target, capacity - 1);
    target[length] = 0;
    return static_cast<LRESULT>(length);
}

void SetText(Window& window, LPCSTR text) {
    window.text = text == nullptr ? "" : text;
    if (window.widget && !window.IsChild()) {
        window.widget->setWindowTitle(QString::fromStdString(window.text));
    }
    NoteWork();
}

LRESULT PaintNothing(HWND handle) {
    PAINTSTRUCT paint;
    BeginPaint(handle, &paint);
    EndPaint(handle, &paint);
    return 0;
}

DWORD StyleOf(const Window& window) {
    return window.style | (IsShownInParent(window) ? WS_VISIBLE : 0);
}

LONG_PTR* DialogValue(Window& window, int index) {
    if (window.dialog == nullptr) {
        return nullptr;
    }
    if (index == DWLP_MSGRESULT) {
        return &window.dialog->messageResult;
    }
    return index == DWLP_USER ? &window.dialog->user : nullptr;
}

HCURSOR CursorOf(LPCSTR name) {
    return reinterpret_cast<HCURSOR>(const_cast<char*>(name));
}

HCURSOR g_cursor = nullptr;

}  // namespace
}  // namespace platen::win32

using namespace platen::win32;

LRESULT DefWindowProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* const window = Find(handle);
    if (window == nullptr) {
        return 0;
    }
    switch (message) {
        case WM_NCCREATE:
            SetText(*window, reinterpret_cast<const CREATESTRUCT*>(lParam)->lpszName);
            return TRUE;
        case WM_SETTEXT:
            SetText(*window, reinterpret_cast<LPCSTR>(lParam));
            return TRUE;
        case WM_GETTEXT:
            return CopyText(window->text, wParam, lParam);
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(window->text.size());
        case WM_PAINT:
            return PaintNothing(handle);
        case WM_ERASEBKGND:
            return EraseBackground(reinterpret_cast<HDC>(wParam), window->windowClass->background);
        case WM_CLOSE:
            DestroyWindow(handle);
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE) {
                SetFocus(handle);
            }
            return 0;
        default:
            return 0;
    }
}

BOOL SetWindowText(HWND window, LPCSTR text) {
    const LPCSTR known = text == nullptr ? "" : text;
    return SendMessage(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(known)) != 0 ? TRUE : FALSE;
}

int GetWindowText(HWND window, LPSTR text, int capacity) {
    if (capacity <= 0) {
        return 0;
    }
    *text = 0;
    return static_cast<int>(SendMessage(window, WM_GETTEXT, static_cast<WPARAM>(capacity),
                                        reinterpret_cast<LPARAM>(text)));
}

int GetWindowTextLength(HWND window) {
    return static_cast<int>(SendMessage(window, WM_GETTEXTLENGTH, 0, 0));
}

LONG GetWindowLong(HWND window, int index) {
    return static_cast<LONG>(GetWindowLongPtr(window, index));
}

LONG SetWindowLong(HWND window, int index, LONG value) {
    return static_cast<LONG>(SetWindowLongPtr(window, index, value));
}

LONG_PTR GetWindowLongPtr(HWND handle, int index) {
    Window* const window = Find(handle);
    if (window == nullptr) {
        return 0;
    }
    switch (index) {
        case GWL_STYLE:
            return static_cast<LONG>(StyleOf(*window));
        case GWL_EXSTYLE:
            return static_cast<LONG>(window->exStyle);
        case GWLP_ID:
            return window->identifier;
        case GWLP_USERDATA:
            return window->userData;
        case GWLP_WNDPROC:
            return reinterpret_cast<LONG_PTR>(window->procedure);
        case GWLP_HINSTANCE:
            return reinterpret_cast<LONG_PTR>(window->instance);
        case DWLP_DLGPROC:
            return window->dialog == nullptr
                       ? 0
                       : reinterpret_cast<LONG_PTR>(window->dialog->procedure);
        default:
            const LONG_PTR* const value = DialogValue(*window, index);
            return value == nullptr ? 0 : *value;
    }
}

LONG_PTR SetWindowLongPtr(HWND handle, int index, LONG_PTR value) {
    Window* const window = Find(handle);
    if (window == nullptr) {
        return 0;
    }
    const LONG_PTR before = GetWindowLongPtr(handle, index);
    switch (index) {
        case GWL_STYLE:
            window->style =
                (window->style & kStateStyles) | (static_cast<DWORD>(value) & ~kStateStyles);
            break;
        case GWL_EXSTYLE:
            window->exStyle = static_cast<DWORD>(value);
            break;
        case GWLP_ID:
            window->identifier = value;
            break;
        case GWLP_USERDATA:
            window->userData = value;
            break;
        case GWLP_WNDPROC:
            window->procedure = reinterpret_cast<WNDPROC>(value);
            break;
        case DWLP_DLGPROC:
            if (window->dialog != nullptr) {
                window->dialog->procedure = reinterpret_cast<DLGPROC>(value);
            }
            break;
        default:
            if (LONG_PTR* const place = DialogValue(*window, index)) {
                *place = value;
            }
    }
    return before;
}

BOOL DrawMenuBar(HWND window) {
    const Window* const found = Find(window);
    const auto* const main =
        found == nullptr ? nullptr : qobject_cast<QMainWindow*>(found->widget.data());
    // Asking a main window for its menu bar would make one.
    if (QWidget* const menu = main == nullptr ? nullptr : main->menuWidget()) {
        menu->repaint();
    }
    return found != nullptr ? TRUE : FALSE;
}

HCURSOR LoadCursor(HINSTANCE /*instance*/, LPCSTR name) {
    return name == IDC_ARROW || name == IDC_WAIT ? CursorOf(name) : nullptr;
}

HCURSOR SetCursor(HCURSOR cursor) {
    const HCURSOR before = std::exchange(g_cursor, cursor);
    const HCURSOR wait = CursorOf(IDC_WAIT);
    if (!NeedDesktop() || (before == wait) == (cursor == wait)) {
        return before;
    }
    if (cursor == wait) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
    return before;
}

HMODULE GetModuleHandle(LPCSTR name) {
    // Nothing is looked up by it, so any address of the program serves.
    static char program = 0;
    return name == nullptr ? reinterpret_cast<HMODULE>(&program) : nullptr;
}
