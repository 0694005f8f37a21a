#include <platen/platform/afx/common_dialogs.h>
#include <platen/platform/afx/message_map.h>

IMPLEMENT_DYNAMIC(CPrintDialog, CCommonDialog)

BEGIN_MESSAGE_MAP(CPrintDialog, CCommonDialog)
END_MESSAGE_MAP()

CPrintDialog::CPrintDialog(BOOL setupOnly, DWORD flags, CWnd* parent) : CCommonDialog(parent) {
    m_pd.lStructSize = sizeof(m_pd);
    m_pd.Flags = flags & ~static_cast<DWORD>(PD_RETURNIC);
    m_pd.Flags |= setupOnly != FALSE ? PD_PRINTSETUP : PD_RETURNDC;
}

int CPrintDialog::DoModal() {
    m_pd.hwndOwner = Owner();
    if (HasFlag(PD_PRINTSETUP)) {
        Follow(m_pd.lpfnSetupHook, m_pd.Flags, PD_ENABLESETUPHOOK);
    } else {
        Follow(m_pd.lpfnPrintHook, m_pd.Flags, PD_ENABLEPRINTHOOK);
    }
    const BOOL chosen = ::PrintDlg(&m_pd);
    Unfollow();
    return chosen != FALSE ? IDOK : IDCANCEL;
}

CString CPrintDialog::GetDeviceName() const {
    const auto* names = static_cast<const DEVNAMES*>(::GlobalLock(m_pd.hDevNames));
    if (names == nullptr) {
        return {};
    }
    CString device = reinterpret_cast<LPCSTR>(names) + names->wDeviceOffset;
    ::GlobalUnlock(m_pd.hDevNames);
    return device;
}

int CPrintDialog::GetCopies() const {
    int copies = m_pd.nCopies;
    if (HasFlag(PD_USEDEVMODECOPIES)) {
        if (const auto* mode = static_cast<const DEVMODE*>(::GlobalLock(m_pd.hDevMode))) {
            copies = mode->dmCopies;
            ::GlobalUnlock(m_pd.hDevMode);
        }
    }
    return copies;
}

BOOL CPrintDialog::PrintAll() const {
    return PrintRange() == FALSE && PrintSelection() == FALSE ? TRUE : FALSE;
}

int CPrintDialog::GetFromPage() const {
    return PrintRange() != FALSE ? m_pd.nFromPage : -1;
}

int CPrintDialog::GetToPage() const {
    return PrintRange() != FALSE ? m_pd.nToPage : -1;
}
