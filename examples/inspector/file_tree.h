#pragma once

#include <QTreeWidget>
#include <memory>

#include "examples/inspector/document.h"

namespace inspector {

/// The open files, and below each its directories. It owns the documents.
class FileTree : public QTreeWidget {
    Q_OBJECT

  public:
    explicit FileTree(QWidget* parent = nullptr);

    /// Adds a document and chooses its first directory.
    void Add(std::unique_ptr<Document> document);
    /// Closes the chosen file.
    void CloseCurrent();
    /// Puts another document in the place of the chosen one.
    void ReplaceCurrent(std::unique_ptr<Document> document);
    /// Chooses a file that is already open; false when it is not.
    bool Choose(const std::string& name);
    /// Shows anew what the chosen file's tags decide: classes and roles.
    void RefreshCurrent();

    /// The chosen file; null without one.
    [[nodiscard]] Document* Current() const;
    /// The chosen directory: the first one when the file itself is chosen, -1 without any.
    [[nodiscard]] short CurrentDirectory() const;
    [[nodiscard]] std::vector<Document*> Documents() const;

  signals:
    void Chosen();
};

}  // namespace inspector
