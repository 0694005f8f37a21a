#include <platen/platform/afx/common_dialogs.h>
#include <platen/platform/afx/dc.h>
#include <platen/platform/afx/message_map.h>

#include <cstdio>

IMPLEMENT_DYNAMIC(CFontDialog, CCommonDialog)

CFontDialog::CFontDialog(LOGFONT* initial, DWORD flags, CDC* printer, CWnd* parent)
    : CCommonDialog(parent) {
    m_cf.lStructSize = sizeof(m_cf);
    m_cf.Flags = flags;
    m_cf.lpLogFont = &m_lf;
    m_cf.lpszStyle = m_szStyleName;
    if (initial != nullptr) {
        m_lf = *initial;
        m_cf.lpLogFont = initial;
        m_cf.Flags |= CF_INITTOLOGFONTSTRUCT;
    }
    if (printer != nullptr) {
        m_cf.hDC = printer->m_hDC;
        m_cf.Flags |= CF_PRINTERFONTS;
    }
}

int CFontDialog::DoModal() {
    m_cf.hwndOwner = Owner();
    Follow(m_cf.lpfnHook, m_cf.Flags, CF_ENABLEHOOK);
    const LOGFONT before = *m_cf.lpLogFont;
    const BOOL chosen = ::ChooseFont(&m_cf);
    Unfollow();
    if (chosen == FALSE) {
        // Not every system leaves it alone.
        *m_cf.lpLogFont = before;
        return IDCANCEL;
    }
    m_lf = *m_cf.lpLogFont;
    return IDOK;
}

void CFontDialog::SetStyleName(LPCSTR name) {
    std::snprintf(m_szStyleName, sizeof(m_szStyleName), "%s", name == nullptr ? "" : name);
}
