#include <platen/platform/win32/qt/common_dialog.h>

#include <memory>

#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/modal.h>
#include <platen/platform/win32/qt/painting.h>
#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

DWORD g_error = 0;

INT_PTR CALLBACK CommonProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    Window* const window = Find(dialog);
    if (window == nullptr) {
        return FALSE;
    }
    if (message == WM_ERASEBKGND) {
        ClearPicture(reinterpret_cast<HDC>(wParam));
        SetWindowLongPtr(dialog, DWLP_MSGRESULT, TRUE);
        return TRUE;
    }
    // Qt gives the focus back to where it was, and leaves what is marked there.
    if (message == WM_ACTIVATE || message == WM_SETFOCUS || message == WM_SHOWWINDOW) {
        return TRUE;
    }
    const int command = LOWORD(wParam);
    if (message != WM_COMMAND || (command != IDOK && command != IDCANCEL)) {
        return FALSE;
    }
    if (auto* const answering = dynamic_cast<Answering*>(window->widget.data())) {
        answering->Answer(command);
    }
    // A question of Qt's own may have been asked meanwhile, and not every desktop goes back then.
    const Window* const left = Find(dialog);
    if (left != nullptr && !left->dialog->hasEnded && GetActiveWindow() == nullptr) {
        SetActiveWindow(dialog);
    }
    return TRUE;
}

HWND AddDialog(HWND owner) {
    auto window = std::make_unique<Window>();
    window->windowClass = FindClass("#32770");
    window->procedure = window->windowClass->procedure;
    window->style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    window->parent = owner;
    // Qt deals with its focus and keys.
    window->isHosts = true;
    window->dialog = std::make_unique<DialogState>();
    window->dialog->procedure = &CommonProcedure;
    return AddWindow(std::move(window))->handle;
}

/// The dialog itself deletes its parts.
void AddPart(HWND dialog, const DialogPart& part) {
    if (part.widget == nullptr) {
        return;
    }
    auto window = std::make_unique<Window>();
    window->windowClass = FindClass(part.className);
    window->procedure = window->windowClass->procedure;
    window->style = WS_CHILD | WS_VISIBLE;
    window->identifier = part.identifier;
    window->parent = dialog;
    window->isHosts = true;
    Window& added = *AddWindow(std::move(window));
    SetWidget(added, part.widget);
    QObject::connect(part.widget, &QObject::destroyed,
                     [handle = added.handle] { WidgetDies(handle); });
}

}  // namespace

bool RunCommonDialog(HWND owner, const DialogHook& hook,
                     const std::function<MadeDialog(HWND handle, QWidget* owner)>& make) {
    g_error = 0;
    if (!NeedDesktop()) {
        g_error = CDERR_INITIALIZATION;
        return false;
    }
    QPointer<QWidget> widget;
    const INT_PTR result = RunModal(owner, [&](HWND top) {
        const HWND handle = AddDialog(top);
        const Window* const around = Find(top);
        const MadeDialog made = make(handle, around == nullptr ? nullptr : around->widget.data());
        widget = made.widget;
        SetWidget(*Find(handle), made.widget);
        Find(handle)->text = made.widget->windowTitle().toStdString();
        for (const DialogPart& part : made.parts) {
            AddPart(handle, part);
        }
        if (hook.procedure != nullptr) {
            hook.procedure(handle, WM_INITDIALOG, 0, hook.record);
        }
        return Find(handle) == nullptr ? nullptr : handle;
    });
    Bury(widget);
    return result == IDOK;
}

void SetDialogError(DWORD error) {
    g_error = error;
}

}  // namespace platen::win32

DWORD CommDlgExtendedError() {
    return platen::win32::g_error;
}
