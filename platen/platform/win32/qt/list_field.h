#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;
class QListWidget;

namespace platen::win32 {

/// A field above a list of what may stand in it. Arrows in the field move in the list; a text that
/// is typed is looked for there.
class ListField : public QWidget {
  public:
    /// With `isFree`, other texts than the list's may be typed.
    ListField(const QString& label, bool isFree, QWidget* parent);

    void SetChoices(const QStringList& choices);
    /// Chooses by position; -1 for none.
    void Select(int index);
    [[nodiscard]] int Index() const;
    void SetText(const QString& text);
    /// As the list spells it, or as it was typed.
    [[nodiscard]] QString Text() const;
    [[nodiscard]] QLineEdit* Field() const { return m_field; }

    /// Called after each change by the user.
    std::function<void()> onChange;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Look(const QString& text);
    void Show(int index);
    void Tell() const;

    QLabel* m_label;
    QLineEdit* m_field;
    QListWidget* m_list;
};

}  // namespace platen::win32
