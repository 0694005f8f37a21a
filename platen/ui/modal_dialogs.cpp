#include <platen/ui/modal_dialogs.h>

namespace {

CWnd* ParentOrActiveWindow(CWnd* parent) {
    if (parent != nullptr) {
        return parent;
    }
    const HWND active = GetActiveWindow();
    return active == nullptr ? nullptr : CWnd::FromHandle(active);
}

}  // namespace

IMPLEMENT_DYNAMIC(CXModalDlg, CDialog)
IMPLEMENT_DYNAMIC(CXFileDlg, CFileDialog)
IMPLEMENT_DYNAMIC(CXFontDlg, CFontDialog)
IMPLEMENT_DYNAMIC(CXPrintDlg, CPrintDialog)

BEGIN_MESSAGE_MAP(CXModalDlg, CDialog)
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(CXPrintDlg, CPrintDialog)
END_MESSAGE_MAP()

CXModalDlg::CXModalDlg(const char* templateName, CWnd* parent)
    : CDialog(templateName, ParentOrActiveWindow(parent)) {}

CXModalDlg::CXModalDlg(unsigned int templateIdentifier, CWnd* parent)
    : CDialog(templateIdentifier, ParentOrActiveWindow(parent)) {}

CXModalDlg::~CXModalDlg() = default;

int CXModalDlg::DoModal() {
    return CDialog::DoModal();
}

void CXModalDlg::OnOK() {
    CDialog::OnOK();
}

void CXModalDlg::OnCancel() {
    CDialog::OnCancel();
}

CXFileDlg::CXFileDlg(int open, const char* defaultExtension, const char* fileName,
                     unsigned long flags, const char* filter, CWnd* parent)
    : CFileDialog(open, defaultExtension, fileName, static_cast<DWORD>(flags), filter,
                  ParentOrActiveWindow(parent)) {}

CXFileDlg::~CXFileDlg() = default;

int CXFileDlg::DoModal() {
    return CFileDialog::DoModal();
}

void CXFileDlg::OnOK() {
    CCommonDialog::OnOK();
}

void CXFileDlg::OnCancel() {
    CCommonDialog::OnCancel();
}

CXFontDlg::CXFontDlg(LOGFONT* initial, unsigned long flags, CDC* printer, CWnd* parent)
    : CFontDialog(initial, static_cast<DWORD>(flags), printer, ParentOrActiveWindow(parent)) {}

CXFontDlg::~CXFontDlg() = default;

int CXFontDlg::DoModal() {
    return CFontDialog::DoModal();
}

void CXFontDlg::OnOK() {
    CCommonDialog::OnOK();
}

void CXFontDlg::OnCancel() {
    CCommonDialog::OnCancel();
}

CXPrintDlg::CXPrintDlg(int setupOnly, unsigned long flags, CWnd* parent)
    : CPrintDialog(setupOnly, static_cast<DWORD>(flags), ParentOrActiveWindow(parent)) {}

CXPrintDlg::~CXPrintDlg() = default;

int CXPrintDlg::DoModal() {
    return CPrintDialog::DoModal();
}

void CXPrintDlg::OnOK() {
    CCommonDialog::OnOK();
}

void CXPrintDlg::OnCancel() {
    CCommonDialog::OnCancel();
}
