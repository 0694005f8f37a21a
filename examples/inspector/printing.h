#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>

namespace inspector {

/// Asks for a printer and prints the picture as large as the page allows, with a line of text below
/// it. False when the user cancelled, or the printer failed.
bool PrintPicture(const QPixmap& picture, const QString& caption, QWidget* parent);

}  // namespace inspector
