#include "examples/inspector/printing.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

namespace inspector {

bool PrintPicture(const QPixmap& picture, const QString& caption, QWidget* parent) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(caption);
    if (picture.width() > picture.height()) {
        printer.setPageOrientation(QPageLayout::Landscape);
    }
    QPrintDialog dialog(&printer, parent);
    if (dialog.exec() != QDialog::Accepted) {
        return false;
    }
    QPainter painter;
    if (!painter.begin(&printer)) {
        return false;
    }
    const QRect page = painter.viewport();
    const int line = 2 * painter.fontMetrics().height();
    const QSize size =
        picture.size().scaled(page.width(), page.height() - line, Qt::KeepAspectRatio);
    const QRect place(QPoint((page.width() - size.width()) / 2, 0), size);
    painter.drawPixmap(place, picture);
    painter.drawText(QRect(0, place.bottom(), page.width(), line), Qt::AlignCenter, caption);
    return painter.end();
}

}  // namespace inspector
