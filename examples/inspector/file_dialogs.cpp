#include "examples/inspector/file_dialogs.h"

#include <platen/platform/win32/qt_window.h>
#include <platen/ui/modal_dialogs.h>

namespace inspector {
namespace {

constexpr char kFilter[] = "TIFF images|*.tif;*.tiff|All files|*||";
constexpr char kExtension[] = "tif";

CWnd* WindowOf(QWidget& widget) {
    return CWnd::FromHandle(PlatenWindowOfWidget(&widget));
}

QString TextOf(const CString& text) {
    return QString::fromUtf8(static_cast<const char*>(text));
}

}  // namespace

QStringList AskForFiles(QWidget& parent) {
    CXFileDlg dialog(1, kExtension, nullptr,
                     OFN_ALLOWMULTISELECT | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY, kFilter,
                     WindowOf(parent));
    QStringList names;
    if (dialog.DoModal() == IDOK) {
        for (POSITION position = dialog.GetStartPosition(); position != nullptr;) {
            names += TextOf(dialog.GetNextPathName(position));
        }
    }
    return names;
}

QString AskForCopyName(const QString& proposal, QWidget& parent) {
    CXFileDlg dialog(0, kExtension, proposal.toUtf8().constData(),
                     OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY, kFilter, WindowOf(parent));
    return dialog.DoModal() == IDOK ? TextOf(dialog.GetPathName()) : QString();
}

}  // namespace inspector
