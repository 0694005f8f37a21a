#include "examples/inspector/services.h"

#include <QFontDialog>

namespace inspector {

bool AskForFont(QFont& font, QWidget& parent) {
    bool chosen = false;
    font = QFontDialog::getFont(&chosen, font, &parent);
    return chosen;
}

}  // namespace inspector
