#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QWidget>

#include "examples/inspector/tag_model.h"

namespace inspector {

/// The table of a directory's tags, with what adds, changes and removes them.
class TagsPage : public QWidget {
    Q_OBJECT

  public:
    explicit TagsPage(QWidget* parent = nullptr);

    /// The document stays the caller's and may be null.
    void SetDirectory(Document* document, short dir);

  signals:
    void Changed();

  private:
    void AddTag();
    void RemoveTag();
    void ShowProblem(const QString& problem);
    void EnableButtons();

    Document* m_document = nullptr;
    short m_dir = 0;
    TagModel m_model;
    QTableView* m_table;
    QPushButton* m_add;
    QPushButton* m_remove;
    QLabel* m_problem;
};

}  // namespace inspector
