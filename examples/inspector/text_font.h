#pragma once

#include <QColor>
#include <QFont>
#include <QWidget>

#include <platen/ui/log_font.h>

namespace inspector {

/// The font and colour of report and listing, as the user chooses them.
class TextFont {
  public:
    /// The system's font of fixed width.
    TextFont();

    /// The system's font dialog over a window; false when it was cancelled.
    bool Edit(QWidget& parent);

    [[nodiscard]] QFont Font() const;
    [[nodiscard]] QColor Color() const;

  private:
    CLogFont m_font;
};

}  // namespace inspector
