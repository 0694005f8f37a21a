#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include <platen/platform/win32/common_dialogs.h>
#include <platen/platform/win32/dialog.h>
#include <platen/platform/win32/message.h>
#include <platen/platform/win32/qt/widgets.h>

namespace platen::win32 {

/// What answers the commands of a dialog's window.
class Answering {
  public:
    virtual ~Answering() = default;
    /// IDOK or IDCANCEL, whoever gave it.
    virtual void Answer(int command) = 0;
};

/// A dialog of Qt's as a Win32 dialog's widget: its buttons become commands of the window, and
/// those end it.
template <class Base>
class CommonDialog : public Hosted<Base>, public Answering {
  public:
    using Hosted<Base>::Hosted;

    void Answer(int command) override {
        if (command == IDOK) {
            Confirm();
        } else {
            Base::reject();
        }
    }

    void accept() override { PostMessage(this->Handle(), WM_COMMAND, IDOK, 0); }
    void reject() override { PostMessage(this->Handle(), WM_COMMAND, IDCANCEL, 0); }
    void done(int result) override {
        EndDialog(this->Handle(), result == QDialog::Accepted ? IDOK : IDCANCEL);
        Base::done(result);
    }

  protected:
    /// Tab goes Qt's way, as all keys do.
    bool focusNextPrevChild(bool next) override {
        return Base::focusNextPrevChild(next);  // NOLINT(bugprone-parent-virtual-call)
    }
    /// Ends the dialog when its choice is valid.
    virtual void Confirm() { Base::accept(); }
};

/// A part of a dialog that goes by an identifier, as a window of a ready-made class.
struct DialogPart {
    QWidget* widget;
    int identifier;
    LPCSTR className;
};

struct MadeDialog {
    QDialog* widget;  ///< a CommonDialog
    std::vector<DialogPart> parts;
};

/// How the record that asks for a dialog wants to hear of it.
struct DialogHook {
    LPCDLGHOOKPROC procedure = nullptr;
    LPARAM record = 0;
};

/// Runs a dialog until it is answered: whether it was confirmed. `make` gets the handle and the
/// owner's widget, which may be null, and what it makes is deleted when the dialog has ended.
bool RunCommonDialog(HWND owner, const DialogHook& hook,
                     const std::function<MadeDialog(HWND handle, QWidget* owner)>& make);

/// What CommDlgExtendedError tells.
void SetDialogError(DWORD error);

}  // namespace platen::win32
