#include "examples/inspector/tag_model.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

#include <platen/tiff/tags.h>

namespace inspector {
namespace {

constexpr std::size_t kNumbersShown = 24;
constexpr std::size_t kNumbersEdited = 4096;

/// Between text and background, still well readable.
QColor FixedValueColor() {
    QColor color = QApplication::palette().color(QPalette::Text);
    color.setAlphaF(0.55F);
    return color;
}

}  // namespace

void TagModel::SetDirectory(Document* document, short dir) {
    beginResetModel();
    m_document = document;
    m_dir = dir;
    endResetModel();
}

void TagModel::Refresh() {
    SetDirectory(m_document, m_dir);
}

const TagEntry& TagModel::At(int row) const {
    return m_document->Tags(m_dir)[static_cast<std::size_t>(row)];
}

int TagModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || m_document == nullptr
               ? 0
               : static_cast<int>(m_document->Tags(m_dir).size());
}

int TagModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant TagModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const char* titles[kColumns] = {"Tag", "Name", "Type", "Count", "Value"};
    if (role == Qt::TextAlignmentRole) {
        return {Qt::AlignLeft | Qt::AlignVCenter};
    }
    return role == Qt::DisplayRole && orientation == Qt::Horizontal ? tr(titles[section])
                                                                    : QVariant();
}

QString TagModel::ValueText(const TagEntry& tag) const {
    const std::uint16_t number = tag.entry.Tag;
    QString text = QString::fromStdString(m_document->ValueOf(m_dir, tag, kNumbersShown));
    const TagKind kind = KindOf(number);
    if (kind == TagKind::Word || kind == TagKind::Long) {
        if (const auto meaning = TagMeaning(number, text.toUInt())) {
            text += "  " + QString::fromStdString(*meaning);
        }
    }
    return text;
}

QString TagModel::TextAt(const TagEntry& tag, int column) const {
    switch (column) {
        case Number:
            return QString::number(tag.entry.Tag);
        case Name: {
            const char* name = platen::TagName(tag.entry.Tag);
            return name == nullptr ? tr("(unknown)") : QString::fromLatin1(name);
        }
        case Type:
            return FieldTypeName(tag.entry.Type);
        case Count:
            return QString::number(tag.entry.Count);
        default:
            return ValueText(tag);
    }
}

QString TagModel::HintAt(const TagEntry& tag) const {
    if (tag.changed) {
        return tr("Differs from the file. Save a copy to keep it.");
    }
    if (IsEditable(tag.entry.Tag)) {
        return tr("Double-click the value to change it.");
    }
    return KindOf(tag.entry.Tag) == TagKind::Unknown
               ? tr("A tag that is copied as it is.")
               : tr("Says how the image lies in the file, and cannot be changed.");
}

QVariant TagModel::data(const QModelIndex& index, int role) const {
    if (m_document == nullptr || !index.isValid()) {
        return {};
    }
    const TagEntry& tag = At(index.row());
    switch (role) {
        case Qt::DisplayRole:
            return TextAt(tag, index.column());
        case Qt::EditRole:
            return QString::fromStdString(m_document->ValueOf(m_dir, tag, kNumbersEdited));
        case Qt::ToolTipRole:
            return HintAt(tag);
        case Qt::FontRole: {
            QFont font;
            font.setBold(tag.changed && index.column() == Value);
            return font;
        }
        case Qt::BackgroundRole:
            return tag.changed ? QVariant(QColor(255, 236, 170)) : QVariant();
        case Qt::ForegroundRole:
            if (tag.changed) {
                return QColor(Qt::black);
            }
            return index.column() == Value && !IsEditable(tag.entry.Tag)
                       ? QVariant(FixedValueColor())
                       : QVariant();
        default:
            return {};
    }
}

Qt::ItemFlags TagModel::flags(const QModelIndex& index) const {
    const bool editable = index.column() == Value && IsEditable(At(index.row()).entry.Tag);
    return QAbstractTableModel::flags(index) | (editable ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

bool TagModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || value == data(index, Qt::EditRole)) {
        return false;
    }
    const std::uint16_t tag = At(index.row()).entry.Tag;
    const std::string problem = m_document->SetTag(m_dir, tag, value.toString().toStdString());
    emit Answered(QString::fromStdString(problem));
    if (!problem.empty()) {
        return false;
    }
    emit dataChanged(this->index(index.row(), 0), this->index(index.row(), Value));
    emit Changed();
    return true;
}

}  // namespace inspector
