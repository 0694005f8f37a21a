#pragma once

#include <platen/platform/afx.h>
#include <platen/platform/api.h>
#include <platen/ui/base_modal.h>

/// Modal dialogs whose parent, when none is given, is the window that is active for the thread when
/// the object is built; null when no window is active. Otherwise they are the framework's own
/// dialogs, which hold and document their results. Arguments are read while the object is built
/// and, where the framework's dialog keeps them, until it ends; the parent must outlive `DoModal`.
///
/// `DoModal` answers what the framework's does: IDOK, IDCANCEL, or -1 when nothing could be shown.

/// A dialog from a template of the application.
class PLATEN_API CXModalDlg : public CDialog, public virtual CXBaseModal {
    DECLARE_DYNAMIC(CXModalDlg)

  public:
    CXModalDlg(const char* templateName, CWnd* parent);
    CXModalDlg(unsigned int templateIdentifier, CWnd* parent);
    ~CXModalDlg() override;

    int DoModal() override;

  protected:
    void OnOK() override;
    void OnCancel() override;

    DECLARE_MESSAGE_MAP()
};

/// Choosing files to open, or a file to save to.
class PLATEN_API CXFileDlg : public CFileDialog, public virtual CXBaseModal {
    DECLARE_DYNAMIC(CXFileDlg)

  public:
    CXFileDlg(int open, const char* defaultExtension, const char* fileName, unsigned long flags,
              const char* filter, CWnd* parent);
    ~CXFileDlg() override;

    int DoModal() override;

  protected:
    void OnOK() override;
    void OnCancel() override;
};

/// Choosing a font.
class PLATEN_API CXFontDlg : public CFontDialog, public virtual CXBaseModal {
    DECLARE_DYNAMIC(CXFontDlg)

  public:
    explicit CXFontDlg(LOGFONT* initial = nullptr,
                       unsigned long flags = CF_EFFECTS | CF_SCREENFONTS, CDC* printer = nullptr,
                       CWnd* parent = nullptr);
    ~CXFontDlg() override;

    int DoModal() override;

  protected:
    void OnOK() override;
    void OnCancel() override;
};

/// Choosing a printer and what to print.
class PLATEN_API CXPrintDlg : public CPrintDialog, public virtual CXBaseModal {
    DECLARE_DYNAMIC(CXPrintDlg)

  public:
    CXPrintDlg(int setupOnly, unsigned long flags, CWnd* parent);
    ~CXPrintDlg() override;

    int DoModal() override;

  protected:
    void OnOK() override;
    void OnCancel() override;

    DECLARE_MESSAGE_MAP()
};
