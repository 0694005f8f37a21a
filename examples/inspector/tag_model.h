#pragma once

#include <QAbstractTableModel>
#include <QString>

#include "examples/inspector/document.h"

namespace inspector {

/// The tags of one directory, a row each; values that the user may change are editable.
class TagModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { Number, Name, Type, Count, Value, kColumns };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows another directory, or none for a null document, which stays the caller's.
    void SetDirectory(Document* document, short dir);
    /// Shows the directory anew after tags were added or removed.
    void Refresh();
    [[nodiscard]] const TagEntry& At(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  signals:
    void Changed();
    /// Why the last input was not taken; empty when it was.
    void Answered(const QString& problem);

  private:
    [[nodiscard]] QString TextAt(const TagEntry& tag, int column) const;
    [[nodiscard]] QString ValueText(const TagEntry& tag) const;
    [[nodiscard]] QString HintAt(const TagEntry& tag) const;

    Document* m_document = nullptr;
    short m_dir = 0;
};

}  // namespace inspector
