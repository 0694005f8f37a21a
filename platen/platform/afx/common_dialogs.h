#pragma once

#include <string>
#include <vector>

#include <platen/platform/afx/dialog.h>

class CDC;

/// The system's own dialogs. The object stands for the dialog's window while that is open, from
/// `OnInitDialog` on, so a derived class can handle its messages.
///
/// Each has the system's record as a member, filled when the object is built; change it before
/// `DoModal`. Texts and records that are passed as pointers must live until `DoModal` returns,
/// unless said otherwise. A host that sets the record's hook itself does without the object's
/// handling of messages.
class PLATEN_API CCommonDialog : public CDialog {
    DECLARE_DYNAMIC(CCommonDialog)

  public:
    explicit CCommonDialog(CWnd* parent);

  protected:
    /// Lets the system's dialog do what its button does. It stays open when the choice is not
    /// valid.
    void OnOK() override;
    void OnCancel() override;

    /// Makes the next dialog to be shown this object's, through a record's hook and its flag for
    /// that. A host's own hook stays.
    void Follow(LPOFNHOOKPROC& hook, DWORD& flags, DWORD hookFlag);
    /// The dialog has ended or never came.
    static void Unfollow();

  private:
    static UINT_PTR CALLBACK Hook(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
};

/// A place in a list of chosen files; null behind the last.
using POSITION = const char*;

/// Choosing files to open, or a file to save to.
class PLATEN_API CFileDialog : public CCommonDialog {
    DECLARE_DYNAMIC(CFileDialog)

  public:
    OPENFILENAME m_ofn = {};

    /// The texts are copied. The filter is pairs of a description and patterns, "TIFF
    /// files|*.tif;*.tiff|All files|*.*||". The extension is that of names typed without one.
    explicit CFileDialog(BOOL open, LPCSTR defaultExtension = nullptr, LPCSTR fileName = nullptr,
                         DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                         LPCSTR filter = nullptr, CWnd* parent = nullptr);

    /// IDOK, or IDCANCEL also when the dialog could not be shown; CommDlgExtendedError then tells
    /// why. When more files are chosen than this object's room for names holds, the room grows and
    /// the dialog opens again. A host that sets `m_ofn.lpstrFile` provides its own room; a choice
    /// that does not fit there is FNERR_BUFFERTOOSMALL.
    int DoModal() override;

    /// \name The choice
    /// Of several files (OFN_ALLOWMULTISELECT) the path is that of their folder, and the other
    /// texts tell of the first.
    /// @{
    [[nodiscard]] CString GetPathName() const;
    [[nodiscard]] CString GetFileName() const;
    /// Without the dot; empty when there is none.
    [[nodiscard]] CString GetFileExt() const;
    /// The name without extension.
    [[nodiscard]] CString GetFileTitle() const;
    /// One or several files: the first place, then path by path. The places end with the next
    /// `DoModal`.
    [[nodiscard]] POSITION GetStartPosition() const;
    CString GetNextPathName(POSITION& position) const;
    [[nodiscard]] BOOL GetReadOnlyPref() const;
    /// @}

  private:
    BOOL Ask();
    void MakeRoom(std::size_t size);
    [[nodiscard]] bool HasSeveral() const;

    bool m_open;
    std::string m_defaultExtension;
    std::string m_filter;
    std::vector<char> m_names;
};

/// Choosing a font.
class PLATEN_API CFontDialog : public CCommonDialog {
    DECLARE_DYNAMIC(CFontDialog)

  public:
    CHOOSEFONT m_cf = {};
    /// The font chosen last, or the initial one.
    LOGFONT m_lf = {};
    /// The style's name, such as "Bold Italic"; the dialog starts with it when its flags have
    /// CF_USESTYLE.
    char m_szStyleName[64] = {};

    /// With an initial font the dialog starts with it, and a confirmed choice is written there.
    /// With a printer's context the printer's fonts are offered too.
    explicit CFontDialog(LOGFONT* initial = nullptr, DWORD flags = CF_EFFECTS | CF_SCREENFONTS,
                         CDC* printer = nullptr, CWnd* parent = nullptr);

    /// IDOK or IDCANCEL.
    int DoModal() override;

    /// Cuts a name that is too long.
    void SetStyleName(LPCSTR name);

    /// \name The choice
    /// @{
    void GetCurrentFont(LOGFONT* font) const { *font = m_lf; }
    [[nodiscard]] CString GetFaceName() const { return m_lf.lfFaceName; }
    [[nodiscard]] CString GetStyleName() const { return m_szStyleName; }
    /// In tenths of a point.
    [[nodiscard]] int GetSize() const { return m_cf.iPointSize; }
    [[nodiscard]] COLORREF GetColor() const { return m_cf.rgbColors; }
    [[nodiscard]] int GetWeight() const { return static_cast<int>(m_lf.lfWeight); }
    [[nodiscard]] BOOL IsBold() const { return m_lf.lfWeight > FW_NORMAL ? TRUE : FALSE; }
    [[nodiscard]] BOOL IsItalic() const { return m_lf.lfItalic != 0 ? TRUE : FALSE; }
    [[nodiscard]] BOOL IsUnderline() const { return m_lf.lfUnderline != 0 ? TRUE : FALSE; }
    [[nodiscard]] BOOL IsStrikeOut() const { return m_lf.lfStrikeOut != 0 ? TRUE : FALSE; }
    /// @}
};

/// Choosing a printer and what to print.
///
/// `m_pd.hDC`, `m_pd.hDevMode` and `m_pd.hDevNames` belong to the caller once `DoModal` has
/// answered: DeleteDC and GlobalFree end them. The two blocks may be handed to another dialog,
/// which then starts with that printer and its settings.
class PLATEN_API CPrintDialog : public CCommonDialog {
    DECLARE_DYNAMIC(CPrintDialog)

  public:
    PRINTDLG m_pd = {};

    /// For the printer's settings alone, or to print; only then is there a device context.
    explicit CPrintDialog(BOOL setupOnly,
                          DWORD flags = PD_ALLPAGES | PD_USEDEVMODECOPIES | PD_NOPAGENUMS |
                                        PD_HIDEPRINTTOFILE | PD_NOSELECTION,
                          CWnd* parent = nullptr);

    /// IDOK, or IDCANCEL also when there is no printer; CommDlgExtendedError then tells why.
    int DoModal() override;

    /// \name The choice
    /// @{
    [[nodiscard]] HDC GetPrinterDC() const { return m_pd.hDC; }
    [[nodiscard]] CString GetDeviceName() const;
    /// How many were asked for. With PD_USEDEVMODECOPIES the printer makes them, as far as it can;
    /// `m_pd.nCopies` is how often the application still has to print.
    [[nodiscard]] int GetCopies() const;
    [[nodiscard]] BOOL PrintAll() const;
    [[nodiscard]] BOOL PrintRange() const { return HasFlag(PD_PAGENUMS); }
    [[nodiscard]] BOOL PrintSelection() const { return HasFlag(PD_SELECTION); }
    [[nodiscard]] BOOL PrintCollate() const { return HasFlag(PD_COLLATE); }
    /// -1 unless a range was chosen.
    [[nodiscard]] int GetFromPage() const;
    [[nodiscard]] int GetToPage() const;
    /// @}

  protected:
    DECLARE_MESSAGE_MAP()

  private:
    [[nodiscard]] BOOL HasFlag(DWORD flag) const { return (m_pd.Flags & flag) != 0 ? TRUE : FALSE; }
};
