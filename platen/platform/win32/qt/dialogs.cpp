#include <QApplication>
#include <QFontMetrics>

#include <platen/platform/win32/dialog.h>
#include <platen/platform/win32/message.h>
#include <platen/platform/win32/qt/activation.h>
#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/dialog_items.h>
#include <platen/platform/win32/qt/dialog_template.h>
#include <platen/platform/win32/qt/modal.h>
#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

/// Dialog units in pixels: `width` for four, `height` for eight.
struct Units {
    int width;
    int height;

    [[nodiscard]] RECT Scale(const RECT& place) const {
        return {place.left * width / 4, place.top * height / 8, place.right * width / 4,
                place.bottom * height / 8};
    }
};

Units UnitsOfFont() {
    const QFontMetrics metrics(QApplication::font());
    const int letters = metrics.horizontalAdvance(
        QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"));
    return {(letters / 26 + 1) / 2, metrics.height()};
}

/// Where a dialog's window belongs, from its client area's place in pixels.
RECT FramePlace(const DialogDescription& description, const RECT& client, HWND parent) {
    RECT frame{0, 0, client.right, client.bottom};
    AdjustWindowRectEx(&frame, description.style, FALSE, description.exStyle);
    const LONG width = frame.right - frame.left;
    const LONG height = frame.bottom - frame.top;
    POINT corner{client.left, client.top};
    if ((description.style & WS_CHILD) != 0) {
        return {corner.x, corner.y, width, height};
    }
    if ((description.style & DS_CENTER) != 0) {
        MONITORINFO monitor{};
        monitor.cbSize = sizeof(monitor);
        GetMonitorInfo(MonitorFromWindow(parent, MONITOR_DEFAULTTONEAREST), &monitor);
        corner = {(monitor.rcWork.left + monitor.rcWork.right - width) / 2,
                  (monitor.rcWork.top + monitor.rcWork.bottom - height) / 2};
    } else if ((description.style & DS_ABSALIGN) == 0 && parent != nullptr) {
        ClientToScreen(parent, &corner);
    }
    return {corner.x, corner.y, width, height};
}

DialogState& StateOf(Window& window) {
    if (window.dialog == nullptr) {
        window.dialog = std::make_unique<DialogState>();
    }
    return *window.dialog;
}

bool MakeItems(HWND dialog, const DialogDescription& description, const Units& units,
               HINSTANCE instance) {
    for (const DialogItem& item : description.items) {
        const RECT place = units.Scale(item.place);
        const HWND made = CreateWindowEx(
            item.exStyle, item.className.c_str(), item.text.c_str(),
            (item.style | WS_CHILD) & ~WS_POPUP, place.left, place.top, place.right, place.bottom,
            dialog, reinterpret_cast<HMENU>(std::uintptr_t{item.identifier}), instance, nullptr);
        Window* const window = Find(dialog);
        if (made == nullptr || window == nullptr) {
            return false;
        }
        if (IsPushButton(made) && (item.style & 0xF) == BS_DEFPUSHBUTTON) {
            StateOf(*window).defaultButton = static_cast<int>(item.identifier);
        }
    }
    return true;
}

void Initialise(HWND dialog, const DialogDescription& description, LPARAM parameter) {
    const HWND first = NextTabItem(dialog, nullptr, false);
    const bool wantsFocus =
        SendMessage(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), parameter) != 0;
    Window* const window = Find(dialog);
    if (window == nullptr) {
        return;
    }
    const bool isPart = (description.style & DS_CONTROL) != 0;
    const bool isShown = (description.style & WS_VISIBLE) != 0;
    if (wantsFocus && (!isPart || isShown)) {
        // The procedure may have changed what comes first.
        StateOf(*window).savedFocus = NextTabItem(dialog, nullptr, false);
        if (StateOf(*window).savedFocus != nullptr) {
            FocusItem(StateOf(*window).savedFocus);
        }
    }
    if (isShown && IsWindow(dialog) != 0 && IsWindowVisible(dialog) == 0) {
        ShowWindow(dialog, SW_SHOWNORMAL);
    }
}

HWND MakeDialog(HINSTANCE instance, LPCDLGTEMPLATE dialogTemplate, HWND parent, DLGPROC procedure,
                LPARAM parameter) {
    if (dialogTemplate == nullptr || !NeedDesktop()) {
        return nullptr;
    }
    const auto description = ParseDialogTemplate(DialogTemplateBytes(dialogTemplate));
    if (!description) {
        return nullptr;
    }
    const Units units = UnitsOfFont();
    const RECT place = FramePlace(*description, units.Scale(description->place), parent);
    const LPCSTR name = description->className.empty() ? "#32770" : description->className.c_str();
    const HWND dialog =
        CreateWindowEx(description->exStyle | WS_EX_CONTROLPARENT, name, description->title.c_str(),
                       description->style & ~WS_VISIBLE, place.left, place.top, place.right,
                       place.bottom, parent, nullptr, instance, nullptr);
    if (dialog == nullptr) {
        return nullptr;
    }
    StateOf(*Find(dialog)).procedure = procedure;
    if (!MakeItems(dialog, *description, units, instance)) {
        DestroyWindow(dialog);
        return nullptr;
    }
    Initialise(dialog, *description, parameter);
    return IsWindow(dialog) != 0 ? dialog : nullptr;
}

void RestoreFocus(HWND dialog, Window& window) {
    DialogState& state = StateOf(window);
    const HWND saved = std::exchange(state.savedFocus, nullptr);
    const HWND item = IsChild(dialog, saved) != 0 && IsUsable(saved)
                          ? saved
                          : NextTabItem(dialog, nullptr, false);
    if (item != nullptr) {
        FocusItem(item);
    }
}

void SaveFocus(HWND dialog, Window& window) {
    if (const HWND focus = GetFocus(); IsChild(dialog, focus) != 0) {
        StateOf(window).savedFocus = focus;
    }
}

LRESULT DefaultOf(HWND dialog, Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE) {
                RestoreFocus(dialog, window);
            } else {
                SaveFocus(dialog, window);
            }
            return 0;
        case WM_SETFOCUS:
            RestoreFocus(dialog, window);
            return 0;
        case WM_SHOWWINDOW:
            if (wParam == 0) {
                SaveFocus(dialog, window);
            }
            return 0;
        case WM_CLOSE:
            PostMessage(dialog, WM_COMMAND, IDCANCEL,
                        reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDCANCEL)));
            return 0;
        case DM_GETDEFID: {
            const int button = StateOf(window).defaultButton;
            return button == 0 ? 0 : MAKELRESULT(static_cast<WORD>(button), DC_HASDEFID);
        }
        case DM_SETDEFID:
            StateOf(window).defaultButton = static_cast<int>(wParam);
            return TRUE;
        case WM_NEXTDLGCTL:
            FocusItem(LOWORD(static_cast<DWORD_PTR>(lParam)) != 0
                          ? reinterpret_cast<HWND>(wParam)
                          : NextTabItem(dialog, GetFocus(), wParam != 0));
            return 0;
        default:
            return DefWindowProc(dialog, message, wParam, lParam);
    }
}

/// The modal loop. WM_QUIT ends it and goes on to the loop around it.
void DispatchUntilEnd(HWND dialog) {
    const auto goesOn = [dialog] {
        const Window* const window = Find(dialog);
        return window != nullptr && !window->dialog->hasEnded;
    };
    MSG message;
    while (goesOn()) {
        if (GetMessage(&message, nullptr, 0, 0) == 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (IsDialogMessage(dialog, &message) == 0) {
            TranslateMessage(&message);
            DispatchMessage(&message);
        }
    }
}

}  // namespace

INT_PTR RunModal(HWND parent, const std::function<HWND(HWND owner)>& make) {
    const HWND owner = TopLevelOf(parent);
    const bool ownerWasDisabled = owner == nullptr || EnableWindow(owner, FALSE) != 0;
    const HWND dialog = make(owner);
    INT_PTR result = -1;
    if (dialog != nullptr) {
        if (!Find(dialog)->dialog->hasEnded) {
            ShowWindow(dialog, SW_SHOWNORMAL);
        }
        DispatchUntilEnd(dialog);
        const Window* const window = Find(dialog);
        result = window == nullptr ? 0 : window->dialog->result;
    }
    // Before the dialog goes, so that its owner and no other program becomes active.
    if (!ownerWasDisabled) {
        EnableWindow(owner, TRUE);
    }
    DestroyWindow(dialog);
    return result;
}

}  // namespace platen::win32

using namespace platen::win32;

LRESULT DefDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = Find(dialog);
    if (window == nullptr) {
        return 0;
    }
    DialogState& state = StateOf(*window);
    if (state.procedure != nullptr) {
        state.messageResult = 0;
        const INT_PTR result = state.procedure(dialog, message, wParam, lParam);
        window = Find(dialog);
        if (window == nullptr || message == WM_INITDIALOG) {
            return result;
        }
        if (result != 0) {
            return StateOf(*window).messageResult;
        }
    }
    return DefaultOf(dialog, *window, message, wParam, lParam);
}

HWND CreateDialogIndirectParam(HINSTANCE instance, LPCDLGTEMPLATE dialogTemplate, HWND parent,
                               DLGPROC procedure, LPARAM parameter) {
    return MakeDialog(instance, dialogTemplate, parent, procedure, parameter);
}

INT_PTR DialogBoxIndirectParam(HINSTANCE instance, LPCDLGTEMPLATE dialogTemplate, HWND parent,
                               DLGPROC procedure, LPARAM parameter) {
    return RunModal(parent, [&](HWND owner) {
        return MakeDialog(instance, dialogTemplate, owner, procedure, parameter);
    });
}

BOOL EndDialog(HWND dialog, INT_PTR result) {
    const Window* const window = Find(dialog);
    if (window == nullptr || window->dialog == nullptr) {
        return FALSE;
    }
    window->dialog->hasEnded = true;
    window->dialog->result = result;
    if (const HWND owner = GetWindow(dialog, GW_OWNER)) {
        EnableWindow(owner, TRUE);
    }
    ShowWindow(dialog, SW_HIDE);
    // A loop that waits sees that there is nothing to wait for.
    PostMessage(nullptr, WM_NULL, 0, 0);
    return TRUE;
}

BOOL SetDlgItemText(HWND dialog, int identifier, LPCSTR text) {
    return SetWindowText(GetDlgItem(dialog, identifier), text);
}

UINT GetDlgItemText(HWND dialog, int identifier, LPSTR text, int capacity) {
    if (capacity > 0) {
        *text = 0;
    }
    return static_cast<UINT>(GetWindowText(GetDlgItem(dialog, identifier), text, capacity));
}
