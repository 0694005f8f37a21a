#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32/message.h>
#include <platen/platform/win32/types.h>

/// Dialogs from templates in memory.
///
/// Contract: a template is laid out as Win32 has it, plain or extended. Its units are a quarter of
/// the mean width and an eighth of the height of the application's font, in which the dialog is
/// shown; the template's own font is not used. Controls are made in the template's order.
/// Known gaps: no menus, no creation data of items; letters alone are not mnemonics (Alt with the
/// letter works).

inline constexpr DWORD DS_ABSALIGN = 0x0001;
inline constexpr DWORD DS_SETFONT = 0x0040;
inline constexpr DWORD DS_MODALFRAME = 0x0080;
inline constexpr DWORD DS_CONTROL = 0x0400;
inline constexpr DWORD DS_CENTER = 0x0800;

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;

/// Values of a dialog, for GetWindowLongPtr and SetWindowLongPtr.
inline constexpr int DWLP_MSGRESULT = 0;
inline constexpr int DWLP_DLGPROC = sizeof(LRESULT);
inline constexpr int DWLP_USER = DWLP_DLGPROC + static_cast<int>(sizeof(DLGPROC));

/// The default button, by identifier: asked for (low word of the answer, DC_HASDEFID in the high
/// word) and set.
inline constexpr UINT DM_GETDEFID = 0x0400;
inline constexpr UINT DM_SETDEFID = 0x0401;
inline constexpr WORD DC_HASDEFID = 0x534B;

#pragma pack(push, 2)
/// Followed by menu, class and title (each 0, or 0xFFFF and a number, or UTF-16 text), with
/// DS_SETFONT a point size and a face name, then the items.
struct DLGTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    WORD cdit;
    SHORT x;
    SHORT y;
    SHORT cx;
    SHORT cy;
};
/// Starts at a multiple of four bytes; followed by class (0xFFFF and 0x80 button, 0x81 edit, 0x82
/// static; or UTF-16 text), title, and the length of creation data.
struct DLGITEMTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    SHORT x;
    SHORT y;
    SHORT cx;
    SHORT cy;
    WORD id;
};
#pragma pack(pop)
using LPCDLGTEMPLATE = const DLGTEMPLATE*;

extern "C" {
/// A modeless dialog; 0 when it cannot be made. `procedure` may be null. It receives WM_INITDIALOG
/// when all items are there, and by answering TRUE has the first item take the focus. The dialog is
/// shown when its template has WS_VISIBLE.
PLATEN_API HWND CreateDialogIndirectParam(HINSTANCE instance, LPCDLGTEMPLATE dialogTemplate,
                                          HWND parent, DLGPROC procedure, LPARAM parameter);
/// A modal dialog, until EndDialog; the owner is disabled meanwhile. Its result, or -1 when the
/// dialog cannot be made.
PLATEN_API INT_PTR DialogBoxIndirectParam(HINSTANCE instance, LPCDLGTEMPLATE dialogTemplate,
                                          HWND parent, DLGPROC procedure, LPARAM parameter);
/// Hides a modal dialog and has its loop end with `result`.
PLATEN_API BOOL EndDialog(HWND dialog, INT_PTR result);
/// Does for a modeless dialog what a key means in it (Tab and arrows, Enter for the push
/// button with the focus or else the default one, Escape as IDCANCEL), and dispatches the other
/// messages for it and its items. FALSE when the message is not for the dialog.
PLATEN_API BOOL IsDialogMessage(HWND dialog, LPMSG message);
/// What a dialog does with the messages that its procedure leaves alone.
PLATEN_API LRESULT DefDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
PLATEN_API BOOL SetDlgItemText(HWND dialog, int identifier, LPCSTR text);
PLATEN_API UINT GetDlgItemText(HWND dialog, int identifier, LPSTR text, int capacity);
}
