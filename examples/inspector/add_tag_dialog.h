#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>

#include "examples/inspector/document.h"

namespace inspector {

/// The codes of a tag with their meanings, free text allowed; null for a tag without codes. The
/// parent owns it.
QComboBox* NewChoiceOfCodes(std::uint16_t tag, QWidget* parent);

/// The code that was chosen or typed.
QString CodeIn(const QComboBox& choice);

/// Asks for a tag that the directory does not have, and its value; sets it when confirmed.
class AddTagDialog : public QDialog {
    Q_OBJECT

  public:
    AddTagDialog(Document& document, short dir, QWidget* parent);

    void accept() override;

  private:
    [[nodiscard]] std::uint16_t Tag() const;
    void ShowHint();

    Document& m_document;
    short m_dir;
    QComboBox* m_tag;
    QLineEdit* m_value;
    QLabel* m_hint;
};

}  // namespace inspector
