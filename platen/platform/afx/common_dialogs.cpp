#include <platen/platform/afx/common_dialogs.h>
#include <platen/platform/afx/message_map.h>

#include <utility>

IMPLEMENT_DYNAMIC(CCommonDialog, CDialog)

namespace {

/// The object whose dialog is about to open.
constinit CCommonDialog* g_opening = nullptr;

}  // namespace

CCommonDialog::CCommonDialog(CWnd* parent) : CDialog(0U, parent) {}

void CCommonDialog::Follow(LPOFNHOOKPROC& hook, DWORD& flags, DWORD hookFlag) {
    if (hook == nullptr || hook == &Hook) {
        hook = &Hook;
        flags |= hookFlag;
        g_opening = this;
    }
}

void CCommonDialog::Unfollow() {
    g_opening = nullptr;
}

UINT_PTR CALLBACK CCommonDialog::Hook(HWND window, UINT message, WPARAM /*wParam*/,
                                      LPARAM /*lParam*/) {
    if (message != WM_INITDIALOG || g_opening == nullptr) {
        return 0;
    }
    // The file dialog calls for a child that is there for additions.
    const auto style = static_cast<DWORD>(::GetWindowLong(window, GWL_STYLE));
    const HWND dialog = (style & WS_CHILD) != 0 ? ::GetParent(window) : window;
    CCommonDialog* object = std::exchange(g_opening, nullptr);
    object->SubclassWindow(dialog);
    return object->OnInitDialog() != FALSE ? TRUE : FALSE;
}

void CCommonDialog::OnOK() {
    Default();
}

void CCommonDialog::OnCancel() {
    Default();
}
