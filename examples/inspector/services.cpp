#include "examples/inspector/services.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFontDialog>

namespace inspector {
namespace {

QString Filter() {
    return QCoreApplication::translate("inspector", "TIFF images (*.tif *.tiff);;All files (*)");
}

}  // namespace

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

}  // namespace inspector
