#include "examples/inspector/tags_page.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include "examples/inspector/add_tag_dialog.h"

namespace inspector {
namespace {

constexpr int kRowSpace = 8;  ///< pixels

/// Tags whose values are codes are chosen from a list.
class ValueDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        const auto tag =
            static_cast<std::uint16_t>(index.siblingAtColumn(TagModel::Number).data().toUInt());
        QComboBox* choice = NewChoiceOfCodes(tag, parent);
        return choice != nullptr ? choice
                                 : QStyledItemDelegate::createEditor(parent, option, index);
    }
    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        if (auto* choice = qobject_cast<QComboBox*>(editor)) {
            const QString code = index.data(Qt::EditRole).toString();
            choice->setCurrentIndex(choice->findData(code));
            if (choice->currentIndex() < 0) {
                choice->setEditText(code);
            }
        } else {
            QStyledItemDelegate::setEditorData(editor, index);
        }
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override {
        if (const auto* choice = qobject_cast<QComboBox*>(editor)) {
            model->setData(index, CodeIn(*choice), Qt::EditRole);
        } else {
            QStyledItemDelegate::setModelData(editor, model, index);
        }
    }
};

}  // namespace

TagsPage::TagsPage(QWidget* parent)
    : QWidget(parent),
      m_table(new QTableView),
      m_add(new QPushButton(tr("&Add Tag\u2026"))),
      m_remove(new QPushButton(tr("&Remove Tag"))),
      m_problem(new QLabel) {
    m_table->setModel(&m_model);
    m_table->setItemDelegateForColumn(TagModel::Value, new ValueDelegate(m_table));
    m_table->setSelectionBehavior(QTableView::SelectRows);
    m_table->setSelectionMode(QTableView::SingleSelection);
    m_table->setAlternatingRowColors(true);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->setFrameShape(QFrame::NoFrame);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowSpace);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_problem->setWordWrap(true);
    m_problem->setStyleSheet("color: #b00020");

    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(6, 0, 6, 6);
    buttons->addWidget(m_add);
    buttons->addWidget(m_remove);
    buttons->addWidget(m_problem, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_table);
    column->addLayout(buttons);

    connect(m_add, &QPushButton::clicked, this, &TagsPage::AddTag);
    connect(m_remove, &QPushButton::clicked, this, &TagsPage::RemoveTag);
    connect(&m_model, &TagModel::Answered, this, &TagsPage::ShowProblem);
    connect(&m_model, &TagModel::Changed, this, &TagsPage::Changed);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &TagsPage::EnableButtons);
    EnableButtons();
}

void TagsPage::SetDirectory(Document* document, short dir) {
    m_document = document;
    m_dir = dir;
    m_model.SetDirectory(document, dir);
    m_table->resizeColumnsToContents();
    ShowProblem({});
    EnableButtons();
}

void TagsPage::AddTag() {
    AddTagDialog dialog(*m_document, m_dir, this);
    if (dialog.exec() == QDialog::Accepted) {
        m_model.Refresh();
        m_table->resizeColumnsToContents();
        ShowProblem({});
        emit Changed();
    }
}

void TagsPage::RemoveTag() {
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    if (rows.isEmpty()) {
        return;
    }
    const std::string problem =
        m_document->RemoveTag(m_dir, m_model.At(rows.first().row()).entry.Tag);
    ShowProblem(QString::fromStdString(problem));
    if (problem.empty()) {
        m_model.Refresh();
        emit Changed();
    }
}

void TagsPage::ShowProblem(const QString& problem) {
    m_problem->setText(problem);
}

void TagsPage::EnableButtons() {
    m_add->setEnabled(m_document != nullptr);
    m_remove->setEnabled(m_table->selectionModel()->hasSelection());
}

}  // namespace inspector
