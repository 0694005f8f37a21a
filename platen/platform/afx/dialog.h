#pragma once

#include <platen/platform/afx/wnd.h>

/// A dialog from a template: one of the application's resources, by name or identifier, or one in
/// memory. Modal with `DoModal`, modeless with `Create`.
///
/// The commands IDOK and IDCANCEL, which Enter and Escape become, call `OnOK` and `OnCancel`.
class PLATEN_API CDialog : public CWnd {
    DECLARE_DYNAMIC(CDialog)

  public:
    /// For `Create` and for `InitModalIndirect`.
    CDialog() = default;
    /// For `DoModal`. Without a parent it is the application's main window.
    explicit CDialog(LPCSTR templateName, CWnd* parent = nullptr);
    explicit CDialog(UINT templateIdentifier, CWnd* parent = nullptr);

    /// Names a template in memory for `DoModal`; it must live until that returns.
    BOOL InitModalIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent = nullptr);
    /// Shows the dialog and runs until it ends: the result given to `EndDialog`, or -1 when nothing
    /// could be shown.
    virtual int DoModal();

    using CWnd::Create;
    /// A modeless dialog; FALSE when there is no such template, or memory is exhausted.
    BOOL Create(LPCSTR templateName, CWnd* parent = nullptr);
    BOOL Create(UINT templateIdentifier, CWnd* parent = nullptr);
    BOOL CreateIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent = nullptr);

    /// Ends a modal dialog; hides a modeless one.
    void EndDialog(int result);

    /// Called once, before the dialog is shown. TRUE lets the system set the focus.
    virtual BOOL OnInitDialog();
    /// Leaves Tab, Enter, Escape and the like to the system.
    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    /// Ends the dialog with IDOK. A modeless dialog overrides it.
    virtual void OnOK();
    /// Ends the dialog with IDCANCEL. A modeless dialog overrides it.
    virtual void OnCancel();

    /// The window that is disabled while the dialog is modal: the parent's or, without one, the
    /// application's main window; null when there is neither.
    [[nodiscard]] HWND Owner() const;

    DECLARE_MESSAGE_MAP()

  private:
    static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam);

    CString m_templateName;
    UINT m_templateIdentifier = 0;  ///< counts when the name is empty
    const DLGTEMPLATE* m_template = nullptr;
    CWnd* m_parent = nullptr;
};
