#include <platen/platform/afx.h>

namespace {

bool Register(LPCSTR nameOrIdentifier, LPCSTR caption) {
    CDialogTemplate dialog(WS_POPUP | WS_CAPTION | WS_SYSMENU, {10, 10, 120, 60}, caption);
    dialog.Add("EDIT", "", 20, WS_BORDER | WS_TABSTOP, {5, 5, 100, 12})
        .Add("BUTTON", "OK", IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP, {5, 30, 40, 14})
        .Add("BUTTON", "Cancel", IDCANCEL, WS_TABSTOP, {50, 30, 40, 14});
    return platen::win32::RegisterDialogTemplate(nameOrIdentifier, dialog.Bytes());
}

/// Registers the dialogs that entry_dialogs.rc describes, before any test runs.
const bool g_registered = Register("ENTRY", "By name") && Register(MAKEINTRESOURCE(7), "By number");

}  // namespace
