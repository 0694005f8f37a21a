#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32/logical_font.h>
#include <platen/platform/win32/types.h>

/// Ready-made dialogs for files, fonts and printing, over Qt's own.
///
/// Contract: each runs until the user ends it, with the owner disabled meanwhile, and answers TRUE
/// for a choice. FALSE means that it was cancelled or failed, which CommDlgExtendedError tells
/// apart. The dialog's window takes WM_COMMAND with IDOK and IDCANCEL. A hook, asked for by the
/// flag, is called once, with WM_INITDIALOG and the record, when the dialog is about to be shown;
/// its window is the dialog itself. Texts are UTF-8. Known gaps: templates, help buttons and the
/// messages for hooks; flags that are not listed here are ignored.

inline constexpr DWORD FNERR_INVALIDFILENAME = 0x3002;
inline constexpr DWORD FNERR_BUFFERTOOSMALL = 0x3003;
inline constexpr DWORD CDERR_INITIALIZATION = 0x0002;
inline constexpr DWORD PDERR_NODEFAULTPRN = 0x1008;

using LPCDLGHOOKPROC = UINT_PTR(CALLBACK*)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
using LPOFNHOOKPROC = LPCDLGHOOKPROC;
using LPCFHOOKPROC = LPCDLGHOOKPROC;
using LPPRINTHOOKPROC = LPCDLGHOOKPROC;
using LPSETUPHOOKPROC = LPCDLGHOOKPROC;

inline constexpr DWORD OFN_READONLY = 0x00000001;
inline constexpr DWORD OFN_OVERWRITEPROMPT = 0x00000002;  ///< asks before a file is replaced
inline constexpr DWORD OFN_HIDEREADONLY = 0x00000004;     ///< always: there is no such box here
inline constexpr DWORD OFN_NOCHANGEDIR = 0x00000008;      ///< always
inline constexpr DWORD OFN_ENABLEHOOK = 0x00000020;
inline constexpr DWORD OFN_ALLOWMULTISELECT = 0x00000200;
inline constexpr DWORD OFN_PATHMUSTEXIST = 0x00000800;
inline constexpr DWORD OFN_FILEMUSTEXIST = 0x00001000;  ///< and the path
inline constexpr DWORD OFN_EXPLORER = 0x00080000;

struct OPENFILENAME {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    /// Pairs of a description and its patterns ("*.tif;*.tiff"), each with a zero, and a last zero.
    LPCSTR lpstrFilter;
    LPSTR lpstrCustomFilter;  ///< not used
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;  ///< from 1; the one chosen last is stored here
    /// The initial name, with or without a folder; then the path. Several files: the folder, then
    /// the names, each with a zero, and a last zero.
    LPSTR lpstrFile;
    DWORD nMaxFile;  ///< bytes there
    LPSTR lpstrFileTitle;
    DWORD nMaxFileTitle;
    LPCSTR lpstrInitialDir;
    LPCSTR lpstrTitle;
    DWORD Flags;
    WORD nFileOffset;     ///< of the name in lpstrFile
    WORD nFileExtension;  ///< of the extension, behind its dot; 0 when there is none
    /// When not null, a name typed without extension gets that of the filter's first pattern, or
    /// else this one; not in an opening dialog when there is such a file.
    LPCSTR lpstrDefExt;
    LPARAM lCustData;
    LPOFNHOOKPROC lpfnHook;
    LPCSTR lpTemplateName;
    void* pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
};
using LPOPENFILENAME = OPENFILENAME*;

inline constexpr DWORD CF_SCREENFONTS = 0x00000001;
inline constexpr DWORD CF_PRINTERFONTS = 0x00000002;  ///< the same fonts
inline constexpr DWORD CF_SHOWHELP = 0x00000004;      ///< there is no help
inline constexpr DWORD CF_ENABLEHOOK = 0x00000008;
inline constexpr DWORD CF_INITTOLOGFONTSTRUCT = 0x00000040;
inline constexpr DWORD CF_USESTYLE = 0x00000080;  ///< lpszStyle tells the style, and is told it
inline constexpr DWORD CF_EFFECTS = 0x00000100;   ///< underline, strike-out and colour
inline constexpr DWORD CF_LIMITSIZE = 0x00002000;
inline constexpr DWORD CF_FIXEDPITCHONLY = 0x00004000;

/// The size starts at that of lfHeight in whole points, and may be chosen in tenths. A face that
/// the system lacks stays when the user does not change it, and so do the members of the font that
/// the dialog does not show.
struct CHOOSEFONT {
    DWORD lStructSize;
    HWND hwndOwner;
    HDC hDC;  ///< not used
    LPLOGFONT lpLogFont;
    int iPointSize;  ///< the choice, in tenths of a point
    DWORD Flags;
    COLORREF rgbColors;
    LPARAM lCustData;
    LPCFHOOKPROC lpfnHook;
    LPCSTR lpTemplateName;
    HINSTANCE hInstance;
    LPSTR lpszStyle;  ///< 64 bytes
    WORD nFontType;
    int nSizeMin;  ///< points, with CF_LIMITSIZE
    int nSizeMax;
};
using LPCHOOSEFONT = CHOOSEFONT*;

inline constexpr DWORD PD_ALLPAGES = 0x00000000;
inline constexpr DWORD PD_SELECTION = 0x00000001;
inline constexpr DWORD PD_PAGENUMS = 0x00000002;
inline constexpr DWORD PD_NOSELECTION = 0x00000004;
inline constexpr DWORD PD_NOPAGENUMS = 0x00000008;
inline constexpr DWORD PD_COLLATE = 0x00000010;
inline constexpr DWORD PD_PRINTSETUP = 0x00000040;
inline constexpr DWORD PD_RETURNDC = 0x00000100;
inline constexpr DWORD PD_RETURNIC = 0x00000200;  ///< the same as PD_RETURNDC
inline constexpr DWORD PD_ENABLEPRINTHOOK = 0x00001000;
inline constexpr DWORD PD_ENABLESETUPHOOK = 0x00002000;
/// The printer makes the copies if it can.
inline constexpr DWORD PD_USEDEVMODECOPIES = 0x00040000;
/// Printing into a PDF is always offered, as a printer.
inline constexpr DWORD PD_HIDEPRINTTOFILE = 0x00100000;

/// The device context is the caller's, for DeleteDC; so are the two blocks, for GlobalFree. Blocks
/// that are passed in say how the dialog starts, and are replaced.
struct PRINTDLG {
    DWORD lStructSize;
    HWND hwndOwner;
    HGLOBAL hDevMode;
    HGLOBAL hDevNames;
    HDC hDC;
    DWORD Flags;
    WORD nFromPage;
    WORD nToPage;
    WORD nMinPage;
    WORD nMaxPage;
    WORD nCopies;
    HINSTANCE hInstance;
    LPARAM lCustData;
    LPPRINTHOOKPROC lpfnPrintHook;
    LPSETUPHOOKPROC lpfnSetupHook;
    LPCSTR lpPrintTemplateName;
    LPCSTR lpSetupTemplateName;
    HGLOBAL hPrintTemplate;
    HGLOBAL hSetupTemplate;
};
using LPPRINTDLG = PRINTDLG*;

/// A printer's name: at the offset, from the start of the record.
struct DEVNAMES {
    WORD wDriverOffset;
    WORD wDeviceOffset;
    WORD wOutputOffset;
    WORD wDefault;
};

inline constexpr DWORD DM_ORIENTATION = 0x1;
inline constexpr DWORD DM_PAPERSIZE = 0x2;
inline constexpr DWORD DM_COPIES = 0x100;
inline constexpr SHORT DMORIENT_PORTRAIT = 1;
inline constexpr SHORT DMORIENT_LANDSCAPE = 2;

/// A printer's settings, as far as they are known here.
struct DEVMODE {
    BYTE dmDeviceName[32];  ///< cut to fit
    WORD dmSize;
    DWORD dmFields;  ///< which of the following count
    SHORT dmOrientation;
    SHORT dmPaperSize;  ///< one of Win32's DMPAPER_ numbers
    SHORT dmCopies;
};

extern "C" {
PLATEN_API BOOL GetOpenFileName(LPOPENFILENAME choice);
PLATEN_API BOOL GetSaveFileName(LPOPENFILENAME choice);
PLATEN_API BOOL ChooseFont(LPCHOOSEFONT choice);
PLATEN_API BOOL PrintDlg(LPPRINTDLG choice);
/// Why the last of these dialogs failed; 0 when it was confirmed or cancelled.
PLATEN_API DWORD CommDlgExtendedError();
}
