#include "examples/inspector/add_tag_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <algorithm>

#include <platen/tiff/tags.h>

namespace inspector {
namespace {

constexpr std::uint32_t kMostCodes = 256;
constexpr std::uint16_t kLastTag = 33452;

QString HintFor(std::uint16_t tag) {
    switch (KindOf(tag)) {
        case TagKind::Word:
            return AddTagDialog::tr("A whole number from 0 to 65535.");
        case TagKind::Long:
            return AddTagDialog::tr("A whole number.");
        case TagKind::Words:
            return AddTagDialog::tr("Whole numbers from 0 to 65535, with spaces between them.");
        case TagKind::Fractions:
            return AddTagDialog::tr("Fractions such as 300/1, with spaces between them.");
        default:
            return AddTagDialog::tr("Any text.");
    }
}

}  // namespace

QComboBox* NewChoiceOfCodes(std::uint16_t tag, QWidget* parent) {
    auto* choice = new QComboBox(parent);
    choice->setEditable(true);
    choice->setInsertPolicy(QComboBox::NoInsert);
    for (std::uint32_t code = 0; code < kMostCodes; ++code) {
        if (const auto meaning = TagMeaning(tag, code)) {
            const QString number = QString::number(code);
            choice->addItem(number + "  " + QString::fromStdString(*meaning), number);
        }
    }
    if (choice->count() == 0) {
        delete choice;
        return nullptr;
    }
    return choice;
}

QString CodeIn(const QComboBox& choice) {
    return choice.currentText().section("  ", 0, 0);
}

AddTagDialog::AddTagDialog(Document& document, short dir, QWidget* parent)
    : QDialog(parent),
      m_document(document),
      m_dir(dir),
      m_tag(new QComboBox),
      m_value(new QLineEdit),
      m_hint(new QLabel) {
    setWindowTitle(tr("Add Tag"));
    const auto& present = document.Tags(dir);
    for (std::uint16_t tag = 0; tag <= kLastTag; ++tag) {
        const bool isThere = std::ranges::any_of(
            present, [tag](const TagEntry& entry) { return entry.entry.Tag == tag; });
        if (IsEditable(tag) && !isThere) {
            m_tag->addItem(QString("%1  %2").arg(tag).arg(platen::TagName(tag)), tag);
        }
    }
    m_hint->setWordWrap(true);
    m_value->setMinimumWidth(320);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* form = new QFormLayout(this);
    form->addRow(tr("&Tag:"), m_tag);
    form->addRow(tr("&Value:"), m_value);
    form->addRow({}, m_hint);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &AddTagDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &AddTagDialog::reject);
    connect(m_tag, &QComboBox::currentIndexChanged, this, &AddTagDialog::ShowHint);
    m_tag->setCurrentIndex(m_tag->findText("Artist", Qt::MatchContains));
    ShowHint();
}

std::uint16_t AddTagDialog::Tag() const {
    return static_cast<std::uint16_t>(m_tag->currentData().toUInt());
}

void AddTagDialog::ShowHint() {
    m_hint->setText(HintFor(Tag()));
    m_hint->setStyleSheet({});
}

void AddTagDialog::accept() {
    const std::string problem = m_document.SetTag(m_dir, Tag(), m_value->text().toStdString());
    if (problem.empty()) {
        QDialog::accept();
        return;
    }
    m_hint->setText(QString::fromStdString(problem));
    m_hint->setStyleSheet("color: #b00020");
}

}  // namespace inspector
