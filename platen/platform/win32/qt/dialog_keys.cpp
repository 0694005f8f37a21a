#include <platen/platform/win32/dialog.h>
#include <platen/platform/win32/message.h>
#include <platen/platform/win32/qt/dialog_items.h>
#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

void Command(HWND dialog, int identifier) {
    SendMessage(dialog, WM_COMMAND, MAKEWPARAM(static_cast<WORD>(identifier), BN_CLICKED),
                reinterpret_cast<LPARAM>(GetDlgItem(dialog, identifier)));
}

/// Enter means the push button with the focus, else the default one, else OK. A button that is
/// disabled does nothing.
void PressDefault(HWND dialog) {
    const HWND focus = GetFocus();
    int identifier = IDOK;
    if (IsChild(dialog, focus) != 0 && IsPushButton(focus)) {
        identifier = GetDlgCtrlID(focus);
    } else if (const auto known = static_cast<DWORD_PTR>(SendMessage(dialog, DM_GETDEFID, 0, 0));
               HIWORD(known) == DC_HASDEFID) {
        identifier = LOWORD(known);
    }
    const HWND button = GetDlgItem(dialog, identifier);
    if (button == nullptr || IsWindowEnabled(button) != 0) {
        Command(dialog, identifier);
    }
}

/// Radio buttons are marked as the focus passes over them.
void MoveInGroup(HWND item, bool previous) {
    const HWND next = NextGroupItem(item, previous);
    const Window* const window = Find(next);
    if (window == nullptr || next == item) {
        return;
    }
    constexpr DWORD kButtonKind = 0xF;
    const bool isRadio = window->windowClass->name == "BUTTON" &&
                         (window->style & kButtonKind) == BS_AUTORADIOBUTTON;
    SetFocus(next);
    if (isRadio) {
        SendMessage(next, BM_CLICK, 0, 0);
    }
}

/// Whether the key meant something in the dialog.
bool TakeKey(HWND dialog, const MSG& message) {
    const auto wants = SendMessage(message.hwnd, WM_GETDLGCODE, message.wParam,
                                   reinterpret_cast<LPARAM>(&message));
    if ((wants & DLGC_WANTALLKEYS) != 0) {
        return false;
    }
    switch (message.wParam) {
        case VK_TAB:
            if ((wants & DLGC_WANTTAB) != 0) {
                return false;
            }
            SendMessage(dialog, WM_NEXTDLGCTL, GetKeyState(VK_SHIFT) < 0 ? TRUE : FALSE, 0);
            return true;
        case VK_LEFT:
        case VK_UP:
        case VK_RIGHT:
        case VK_DOWN:
            if ((wants & DLGC_WANTARROWS) != 0 || message.hwnd == dialog) {
                return false;
            }
            MoveInGroup(message.hwnd, message.wParam == VK_LEFT || message.wParam == VK_UP);
            return true;
        case VK_RETURN:
            PressDefault(dialog);
            return true;
        case VK_ESCAPE:
        case VK_CANCEL:
            Command(dialog, IDCANCEL);
            return true;
        default:
            return false;
    }
}

}  // namespace
}  // namespace platen::win32

BOOL IsDialogMessage(HWND dialog, LPMSG message) {
    if (IsWindow(dialog) == 0 || (message->hwnd != dialog && IsChild(dialog, message->hwnd) == 0)) {
        return FALSE;
    }
    if (message->message != WM_KEYDOWN || !platen::win32::TakeKey(dialog, *message)) {
        TranslateMessage(message);
        DispatchMessage(message);
    }
    return TRUE;
}
