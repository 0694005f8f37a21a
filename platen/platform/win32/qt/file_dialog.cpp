#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>
#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include <platen/platform/win32/qt/common_dialog.h>

namespace platen::win32 {
namespace {

/// The identifier of the field for names.
constexpr int kNameField = 0x047C;

struct Filter {
    QString description;
    QStringList patterns;

    /// As Qt wants it.
    [[nodiscard]] QString Name() const {
        return QStringLiteral("%1 (%2)").arg(description, patterns.join(' '));
    }
    /// What the first pattern adds to a name; empty when that is not fixed.
    [[nodiscard]] QString Extension() const {
        const QString first = patterns.value(0);
        const QString extension = first.mid(first.indexOf('.') + 1);
        return first.startsWith(QLatin1String("*.")) && !extension.contains('*') &&
                       !extension.contains('?')
                   ? extension
                   : QString();
    }
};

std::vector<Filter> ParseFilters(LPCSTR text) {
    std::vector<Filter> filters;
    while (text != nullptr && *text != 0) {
        Filter filter{QString::fromUtf8(text), {}};
        text += std::strlen(text) + 1;
        filter.patterns = QString::fromUtf8(text).split(';', Qt::SkipEmptyParts);
        for (QString& pattern : filter.patterns) {
            // Names without a dot are files, too.
            pattern =
                pattern.trimmed() == QLatin1String("*.*") ? QStringLiteral("*") : pattern.trimmed();
        }
        text += std::strlen(text) + 1;
        filters.push_back(std::move(filter));
    }
    return filters;
}

/// What the user has chosen.
struct FileChoice {
    QStringList paths;
    qsizetype filter = 0;
};

class FileDialog : public CommonDialog<QFileDialog> {
  public:
    FileDialog(HWND handle, QWidget* parent, const OPENFILENAME& wanted, bool opens,
               FileChoice& choice)
        : CommonDialog(handle, parent),
          m_choice(choice),
          m_filters(ParseFilters(wanted.lpstrFilter)),
          m_opens(opens),
          m_mustHavePath((wanted.Flags & (OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST)) != 0),
          m_addsExtension(wanted.lpstrDefExt != nullptr),
          m_extension(QString::fromUtf8(wanted.lpstrDefExt)) {
        setOption(DontUseNativeDialog);
        setOption(HideNameFilterDetails);
        setOption(DontConfirmOverwrite, (wanted.Flags & OFN_OVERWRITEPROMPT) == 0);
        setAcceptMode(opens ? AcceptOpen : AcceptSave);
        setFileMode(opens && (wanted.Flags & OFN_ALLOWMULTISELECT) != 0 ? ExistingFiles
                    : opens && (wanted.Flags & OFN_FILEMUSTEXIST) != 0  ? ExistingFile
                                                                        : AnyFile);
        ShowDetails();
        setWindowTitle(wanted.lpstrTitle != nullptr ? QString::fromUtf8(wanted.lpstrTitle)
                       : opens                      ? tr("Open")
                                                    : tr("Save As"));
        OfferFilters(wanted.nFilterIndex);
        StartAt(QFile::decodeName(wanted.lpstrFile), QFile::decodeName(wanted.lpstrInitialDir));
    }

    [[nodiscard]] std::vector<DialogPart> Parts() const {
        const auto* const buttons = findChild<QDialogButtonBox*>();
        const auto confirm = m_opens ? QDialogButtonBox::Open : QDialogButtonBox::Save;
        return {{findChild<QLineEdit*>(QStringLiteral("fileNameEdit")), kNameField, "EDIT"},
                {buttons->button(confirm), IDOK, "BUTTON"},
                {buttons->button(QDialogButtonBox::Cancel), IDCANCEL, "BUTTON"}};
    }

    void done(int result) override {
        if (result == Accepted) {
            m_choice = {selectedFiles(), FilterIndex()};
        }
        CommonDialog::done(result);
    }

  protected:
    void Confirm() override {
        setDefaultSuffix(QString());
        HeedTypedNames();
        const QStringList typed = selectedFiles();
        const auto exists = [](const QString& path) { return QFileInfo::exists(path); };
        if (m_addsExtension && !(m_opens && std::ranges::all_of(typed, exists))) {
            const qsizetype filter = FilterIndex();
            const bool isKnown = filter >= 0 && filter < std::ssize(m_filters);
            const QString usual =
                isKnown ? m_filters[static_cast<std::size_t>(filter)].Extension() : QString();
            setDefaultSuffix(usual.isEmpty() ? m_extension : usual);
        }
        for (const QString& path : typed) {
            const QString folder = QFileInfo(path).path();
            if (m_mustHavePath && !QFileInfo(folder).isDir()) {
                QMessageBox::warning(this, windowTitle(),
                                     tr("%1\nDirectory not found.\nPlease verify the correct "
                                        "directory name was given.")
                                         .arg(folder));
                return;
            }
        }
        CommonDialog::Confirm();
    }

  private:
    /// Qt takes what is marked in the list, where typed names that the filter hides are missing.
    /// The marks count only when the field says the same.
    void HeedTypedNames() {
        QStringList marked;
        for (const QString& path : selectedFiles()) {
            marked.push_back(QFileInfo(path).fileName());
        }
        const QString text =
            marked.size() == 1 ? marked.front() : '"' + marked.join(QStringLiteral("\" \"")) + '"';
        const auto* const field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        auto* const list = findChild<QListView*>(QStringLiteral("listView"));
        if (field != nullptr && list != nullptr && field->text() != text) {
            list->clearSelection();
        }
    }

    /// Sizes, kinds and dates in full.
    void ShowDetails() {
        setViewMode(Detail);
        if (auto* const files = findChild<QTreeView*>(QStringLiteral("treeView"))) {
            files->header()->setStretchLastSection(false);
            files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
            files->header()->setSectionResizeMode(0, QHeaderView::Stretch);
        }
        resize(fontMetrics().averageCharWidth() * 120, fontMetrics().height() * 32);
    }

    void OfferFilters(DWORD first) {
        QStringList names;
        for (const Filter& filter : m_filters) {
            names.push_back(filter.Name());
        }
        if (!names.isEmpty()) {
            setNameFilters(names);
            selectNameFilter(names.value(static_cast<qsizetype>(first) - 1, names.front()));
        }
    }

    void StartAt(const QString& name, const QString& folder) {
        const QFileInfo initial(name);
        if (name.contains('/') && initial.absoluteDir().exists()) {
            setDirectory(initial.absolutePath());
        } else if (!folder.isEmpty()) {
            setDirectory(folder);
        }
        if (!initial.fileName().isEmpty()) {
            selectFile(initial.fileName());
        }
        if (auto* const field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
            field->setFocus();
            field->selectAll();
        }
    }

    [[nodiscard]] qsizetype FilterIndex() const {
        const auto* const kinds = findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        return kinds == nullptr ? -1 : kinds->currentIndex();
    }

    FileChoice& m_choice;
    std::vector<Filter> m_filters;
    bool m_opens;
    bool m_mustHavePath;
    bool m_addsExtension;
    QString m_extension;
};

/// The paths as they stand in lpstrFile, with the last zero of a list.
std::string ListOf(const QStringList& paths) {
    if (paths.size() == 1) {
        return QFile::encodeName(paths.front()).toStdString() + '\0';
    }
    const QDir folder = QFileInfo(paths.front()).absoluteDir();
    std::string list = QFile::encodeName(folder.absolutePath()).toStdString() + '\0';
    for (const QString& path : paths) {
        list += QFile::encodeName(folder.relativeFilePath(path)).toStdString() + '\0';
    }
    return list;
}

/// Stores the choice in the record; false when there is too little room.
bool Store(OPENFILENAME& record, const FileChoice& choice) {
    const std::string list = ListOf(choice.paths);
    const std::size_t needed = list.size() + ((record.Flags & OFN_ALLOWMULTISELECT) != 0 ? 1 : 0);
    if (record.lpstrFile == nullptr || needed > record.nMaxFile) {
        if (record.lpstrFile != nullptr && record.nMaxFile >= sizeof(WORD)) {
            const auto told = static_cast<WORD>(std::min<std::size_t>(needed, 0xFFFF));
            std::memcpy(record.lpstrFile, &told, sizeof(told));
        }
        return false;
    }
    std::memset(record.lpstrFile, 0, needed);
    list.copy(record.lpstrFile, list.size());
    const bool isSingle = choice.paths.size() == 1;
    const std::string_view first(list.c_str());
    const std::size_t name = isSingle ? first.rfind('/') + 1 : first.size() + 1;
    const std::size_t dot = isSingle ? first.rfind('.') : std::string_view::npos;
    const bool hasExtension = dot != std::string_view::npos && dot >= name;
    record.nFileOffset = static_cast<WORD>(name);
    record.nFileExtension = static_cast<WORD>(hasExtension ? dot + 1 : 0);
    record.nFilterIndex = static_cast<DWORD>(choice.filter + 1);
    const std::string_view title = first.substr(isSingle ? name : first.size());
    if (record.lpstrFileTitle != nullptr && title.size() < record.nMaxFileTitle) {
        record.lpstrFileTitle[title.copy(record.lpstrFileTitle, title.size())] = 0;
    }
    return true;
}

BOOL AskForFile(OPENFILENAME& record, bool opens) {
    DialogHook hook;
    if ((record.Flags & OFN_ENABLEHOOK) != 0) {
        hook = {record.lpfnHook, reinterpret_cast<LPARAM>(&record)};
    }
    FileChoice choice;
    const bool isConfirmed =
        RunCommonDialog(record.hwndOwner, hook, [&](HWND handle, QWidget* owner) {
            auto* const dialog = new FileDialog(handle, owner, record, opens, choice);
            return MadeDialog{dialog, dialog->Parts()};
        });
    if (!isConfirmed || choice.paths.isEmpty()) {
        return FALSE;
    }
    if (!Store(record, choice)) {
        SetDialogError(FNERR_BUFFERTOOSMALL);
        return FALSE;
    }
    return TRUE;
}

}  // namespace
}  // namespace platen::win32

BOOL GetOpenFileName(LPOPENFILENAME choice) {
    return platen::win32::AskForFile(*choice, true);
}

BOOL GetSaveFileName(LPOPENFILENAME choice) {
    return platen::win32::AskForFile(*choice, false);
}
