#include <platen/platform/win32/qt/list_field.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

namespace platen::win32 {

ListField::ListField(const QString& label, bool isFree, QWidget* parent)
    : QWidget(parent),
      m_label(new QLabel(label, this)),
      m_field(new QLineEdit(this)),
      m_list(new QListWidget(this)) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(m_label);
    column->addWidget(m_field);
    column->addWidget(m_list);
    m_label->setBuddy(m_field);
    m_field->setReadOnly(!isFree);
    m_field->installEventFilter(this);
    // Who clicks on the list goes on in the field.
    m_list->setFocusPolicy(Qt::ClickFocus);
    m_list->setFocusProxy(m_field);
    m_list->setUniformItemSizes(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(m_field, &QLineEdit::textEdited, this, [this](const QString& text) {
        Look(text);
        Tell();
    });
    connect(m_list, &QListWidget::itemClicked, this, [this] {
        Show(m_list->currentRow());
        Tell();
    });
}

void ListField::SetChoices(const QStringList& choices) {
    m_list->clear();
    m_list->addItems(choices);
}

void ListField::Select(int index) {
    Show(index);
}

int ListField::Index() const {
    return m_list->currentRow();
}

void ListField::SetText(const QString& text) {
    m_field->setText(text);
    Look(text);
}

QString ListField::Text() const {
    const QListWidgetItem* const item = m_list->currentItem();
    return item == nullptr ? m_field->text() : item->text();
}

bool ListField::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(watched, event);
    }
    auto& key = static_cast<QKeyEvent&>(*event);
    const bool moves = key.key() == Qt::Key_Up || key.key() == Qt::Key_Down ||
                       key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown;
    const bool searches = m_field->isReadOnly() && !key.text().isEmpty() && key.text()[0].isPrint();
    if (!moves && !searches) {
        return QWidget::eventFilter(watched, event);
    }
    if (moves) {
        QCoreApplication::sendEvent(m_list, event);
    } else {
        m_list->keyboardSearch(key.text());
    }
    Show(m_list->currentRow());
    Tell();
    return true;
}

/// The item of that text is chosen; else the list shows where it would stand.
void ListField::Look(const QString& text) {
    const auto whole = m_list->findItems(text, Qt::MatchFixedString);
    m_list->setCurrentItem(whole.isEmpty() ? nullptr : whole.front());
    const auto like = m_list->findItems(text, Qt::MatchStartsWith);
    if (!whole.isEmpty()) {
        m_list->scrollToItem(whole.front());
    } else if (!text.isEmpty() && !like.isEmpty()) {
        m_list->scrollToItem(like.front(), QAbstractItemView::PositionAtTop);
    }
}

void ListField::Show(int index) {
    m_list->setCurrentRow(index);
    const QListWidgetItem* const item = m_list->item(index);
    m_field->setText(item == nullptr ? QString() : item->text());
    m_field->selectAll();
    if (item != nullptr) {
        m_list->scrollToItem(item);
    }
}

void ListField::Tell() const {
    if (onChange) {
        onChange();
    }
}

}  // namespace platen::win32
