#include <platen/platform/afx.h>
#include <platen/ui/base_modal.h>

namespace {

/// Which windows are switched, and how.
struct Switching {
    HWND modal;
    BOOL enabled;
};

BOOL CALLBACK SwitchPopup(HWND window, LPARAM parameter) {
    const auto& switching = *reinterpret_cast<const Switching*>(parameter);
    const auto style = static_cast<DWORD>(GetWindowLong(window, GWL_STYLE));
    if ((style & WS_POPUP) != 0 && window != switching.modal) {
        EnableWindow(window, switching.enabled);
    }
    return TRUE;
}

void SwitchOtherWindows(HWND modal, BOOL enabled) {
    CWnd* main = AfxGetMainWnd();
    if (main != nullptr && main->GetSafeHwnd() != modal) {
        main->EnableWindow(enabled);
    }
    const Switching switching = {modal, enabled};
    EnumThreadWindows(GetCurrentThreadId(), &SwitchPopup, reinterpret_cast<LPARAM>(&switching));
}

}  // namespace

int CXBaseModal::iModCnt = 0;

void CXBaseModal::vEnterModal(HWND modal) {
    if (iModCnt == 0) {
        SwitchOtherWindows(modal, FALSE);
    }
    ++iModCnt;
}

void CXBaseModal::vExitModal(HWND modal) {
    --iModCnt;
    if (iModCnt == 0) {
        SwitchOtherWindows(modal, TRUE);
    }
}
