#include <platen/platform/afx/application.h>
#include <platen/platform/afx/dialog.h>
#include <platen/platform/afx/message_map.h>

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

namespace {

/// The application's template of that name, which may be an identifier; null when there is none.
const DLGTEMPLATE* FindTemplate(LPCSTR name) {
    const HMODULE application = ::GetModuleHandle(nullptr);
    const HRSRC resource = ::FindResource(application, name, RT_DIALOG);
    const HGLOBAL loaded = resource == nullptr ? nullptr : ::LoadResource(application, resource);
    return loaded == nullptr ? nullptr : static_cast<const DLGTEMPLATE*>(::LockResource(loaded));
}

HWND ParentOrMainWindow(CWnd* parent) {
    CWnd* window = parent == nullptr ? AfxGetMainWnd() : parent;
    return window == nullptr ? nullptr : window->m_hWnd;
}

}  // namespace

CDialog::CDialog(LPCSTR templateName, CWnd* parent)
    : m_templateName(templateName), m_parent(parent) {}

CDialog::CDialog(UINT templateIdentifier, CWnd* parent)
    : m_templateIdentifier(templateIdentifier), m_parent(parent) {}

INT_PTR CALLBACK CDialog::DialogProcedure(HWND window, UINT message, WPARAM /*wParam*/,
                                          LPARAM lParam) {
    if (message != WM_INITDIALOG) {
        return FALSE;
    }
    auto* dialog = reinterpret_cast<CDialog*>(lParam);
    dialog->SubclassWindow(window);
    return dialog->OnInitDialog();
}

BOOL CDialog::InitModalIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent) {
    m_template = dialogTemplate;
    m_parent = parent;
    return TRUE;
}

int CDialog::DoModal() {
    const DLGTEMPLATE* dialogTemplate = m_template;
    if (dialogTemplate == nullptr) {
        dialogTemplate =
            FindTemplate(m_templateName.IsEmpty() ? MAKEINTRESOURCE(m_templateIdentifier)
                                                  : static_cast<LPCSTR>(m_templateName));
    }
    if (dialogTemplate == nullptr || m_hWnd != nullptr) {
        return -1;
    }
    return static_cast<int>(::DialogBoxIndirectParam(::GetModuleHandle(nullptr), dialogTemplate,
                                                     Owner(), &DialogProcedure,
                                                     reinterpret_cast<LPARAM>(this)));
}

BOOL CDialog::Create(LPCSTR templateName, CWnd* parent) {
    return CreateIndirect(FindTemplate(templateName), parent);
}

BOOL CDialog::Create(UINT templateIdentifier, CWnd* parent) {
    return Create(static_cast<LPCSTR>(MAKEINTRESOURCE(templateIdentifier)), parent);
}

BOOL CDialog::CreateIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent) {
    if (dialogTemplate == nullptr || m_hWnd != nullptr) {
        return FALSE;
    }
    const HWND window = Creating([&] {
        return ::CreateDialogIndirectParam(::GetModuleHandle(nullptr), dialogTemplate,
                                           ParentOrMainWindow(parent), &DialogProcedure,
                                           reinterpret_cast<LPARAM>(this));
    });
    return window != nullptr ? TRUE : FALSE;
}

HWND CDialog::Owner() const {
    return ParentOrMainWindow(m_parent);
}

void CDialog::EndDialog(int result) {
    ::EndDialog(m_hWnd, result);
}

BOOL CDialog::OnInitDialog() {
    return TRUE;
}

BOOL CDialog::PreTranslateMessage(MSG* message) {
    return ::IsDialogMessage(m_hWnd, message);
}

void CDialog::OnOK() {
    EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}
