#include <platen/platform/afx.h>

namespace {

/// Registers the dialog that progress_dialog.rc describes, before any test runs.
const bool g_registered = [] {
    CDialogTemplate dialog(WS_CHILD, {0, 0, 190, 60}, "");
    dialog.Add("STATIC", "", 1000, SS_CENTER, {8, 8, 174, 10})
        .Add("STATIC", "", 1001, SS_LEFT, {8, 22, 174, 12})
        .Add("BUTTON", "Cancel", IDCANCEL, WS_TABSTOP, {70, 40, 50, 14});
    return platen::win32::RegisterDialogTemplate(MAKEINTRESOURCE(0), dialog.Bytes());
}();

}  // namespace
