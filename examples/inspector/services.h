#pragma once

#include <QFont>
#include <QWidget>

namespace inspector {

/// Lets the user choose the font of the texts; false when cancelled.
bool AskForFont(QFont& font, QWidget& parent);

}  // namespace inspector
