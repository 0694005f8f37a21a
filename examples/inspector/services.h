#pragma once

#include <QFont>
#include <QString>
#include <QStringList>
#include <QWidget>

/// The library's services for its host, as this application uses them.
namespace inspector {

/// Asks for files to open; none when the user cancelled.
QStringList AskForFiles(QWidget& parent);

/// Asks where a copy goes; empty when the user cancelled.
QString AskForCopyName(const QString& proposal, QWidget& parent);

/// Lets the user choose the font of the texts; false when cancelled.
bool AskForFont(QFont& font, QWidget& parent);

}  // namespace inspector
