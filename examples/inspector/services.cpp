#include "examples/inspector/services.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFontDialog>
#include <QProgressDialog>

namespace inspector {
namespace {

QString Filter() {
    return QCoreApplication::translate("inspector", "TIFF images (*.tif *.tiff);;All files (*)");
}

}  // namespace

class CopyProgress::Window : public QProgressDialog {
    using QProgressDialog::QProgressDialog;
};

QStringList AskForFiles(QWidget& parent) {
    return QFileDialog::getOpenFileNames(&parent, {}, {}, Filter());
}

QString AskForCopyName(const QString& proposal, QWidget& parent) {
    return QFileDialog::getSaveFileName(&parent, {}, proposal, Filter());
}

bool AskForFont(QFont& font, QWidget& parent) {
    bool chosen = false;
    font = QFontDialog::getFont(&chosen, font, &parent);
    return chosen;
}

CopyProgress::CopyProgress(const QString& title, QWidget& parent)
    : m_window(std::make_unique<Window>(title, QString(), 0, 100, &parent)) {
    m_window->setWindowModality(Qt::WindowModal);
}

CopyProgress::~CopyProgress() = default;

int CopyProgress::Report(void* context, std::int64_t done, std::int64_t total) {
    Window& window = *static_cast<CopyProgress*>(context)->m_window;
    window.setValue(total > 0 ? static_cast<int>(done * 100 / total) : 0);
    return window.wasCanceled() ? 1 : 0;
}

}  // namespace inspector
