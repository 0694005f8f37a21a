#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

namespace inspector {

/// Asks for files to open; none when the user cancelled.
QStringList AskForFiles(QWidget& parent);

/// Asks where a copy goes; empty when the user cancelled.
QString AskForCopyName(const QString& proposal, QWidget& parent);

}  // namespace inspector
