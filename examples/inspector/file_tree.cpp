#include "examples/inspector/file_tree.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QLocale>
#include <QStyle>

namespace inspector {
namespace {

enum Column { Name, Class, RoleColumn, kColumns };
constexpr int kDirectoryRole = Qt::UserRole;

/// A file's line, with its document.
struct FileItem : QTreeWidgetItem {
    explicit FileItem(std::unique_ptr<Document> opened) : document(std::move(opened)) {}

    std::unique_ptr<Document> document;
};

FileItem* FileItemOf(QTreeWidgetItem* item) {
    while (item != nullptr && item->parent() != nullptr) {
        item = item->parent();
    }
    return static_cast<FileItem*>(item);
}

QString FullClass(const QString& letter) {
    const std::pair<const char*, const char*> kNames[] = {
        {"B", "Bilevel"},
        {"G", "Grayscale"},
        {"P", "Palette colour"},
        {"R", "RGB full colour"},
        {"XK", "Densitometer data"},
        {"XK (old form)", "Densitometer data, old form"}};
    for (const auto& [name, meaning] : kNames) {
        if (letter == name) {
            return FileTree::tr("Class %1: %2").arg(letter, FileTree::tr(meaning));
        }
    }
    return FileTree::tr("None of the classes B, G, P, R and XK");
}

void FillDirectory(QTreeWidgetItem& item, const Document& document, short dir) {
    const TiffIFDStdDirStruct& record = document.Directory(dir);
    const QString className = QString::fromUtf8(document.ClassOf(dir));
    item.setText(
        Name,
        FileTree::tr("%1:  %2 \u00D7 %3").arg(dir).arg(record.ImageWidth).arg(record.ImageLength));
    item.setText(Class, className);
    item.setToolTip(Class, FullClass(className));
    item.setText(RoleColumn, FileTree::tr(document.RoleOf(dir)));
    item.setData(Name, kDirectoryRole, dir);
}

void FillFile(FileItem& item, const QStyle& style) {
    const Document& document = *item.document;
    const QFileInfo file(QString::fromStdString(document.Name()));
    const QString order = document.ByteOrder() == platen::kMotorola
                              ? FileTree::tr("big-endian (MM)")
                              : FileTree::tr("little-endian (II)");
    const QString size = QLocale().formattedDataSize(document.Size());
    const QString problem = QString::fromStdString(document.Problem());
    item.setText(Name, file.fileName());
    item.setIcon(Name, style.standardIcon(problem.isEmpty() ? QStyle::SP_FileIcon
                                                            : QStyle::SP_MessageBoxWarning));
    item.setToolTip(Name, QString("%1\n%2, %3").arg(file.absoluteFilePath(), size, order) +
                              (problem.isEmpty() ? QString() : "\n" + problem));
    for (short dir = 0; dir < document.Directories(); ++dir) {
        auto* child = new QTreeWidgetItem(&item);
        FillDirectory(*child, document, dir);
    }
}

}  // namespace

FileTree::FileTree(QWidget* parent) : QTreeWidget(parent) {
    setColumnCount(kColumns);
    setHeaderLabels({tr("File"), tr("Class"), tr("Role")});
    setFrameShape(QFrame::NoFrame);
    setUniformRowHeights(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(Name, QHeaderView::Stretch);
    connect(this, &QTreeWidget::currentItemChanged, this, &FileTree::Chosen);
}

void FileTree::Add(std::unique_ptr<Document> document) {
    auto* item = new FileItem(std::move(document));
    FillFile(*item, *style());
    addTopLevelItem(item);
    item->setExpanded(true);
    setCurrentItem(item->childCount() > 0 ? item->child(0) : item);
}

void FileTree::CloseCurrent() {
    delete FileItemOf(currentItem());
}

void FileTree::ReplaceCurrent(std::unique_ptr<Document> document) {
    FileItem* item = FileItemOf(currentItem());
    const short dir = CurrentDirectory();
    const bool hadSignals = blockSignals(true);
    qDeleteAll(item->takeChildren());
    item->document = std::move(document);
    FillFile(*item, *style());
    QTreeWidgetItem* child = item->child(dir);
    setCurrentItem(child != nullptr ? child : item);
    blockSignals(hadSignals);
    emit Chosen();
}

bool FileTree::Choose(const std::string& name) {
    for (int i = 0; i < topLevelItemCount(); ++i) {
        auto* item = static_cast<FileItem*>(topLevelItem(i));
        if (item->document->Name() == name) {
            setCurrentItem(item->childCount() > 0 ? item->child(0) : item);
            return true;
        }
    }
    return false;
}

void FileTree::RefreshCurrent() {
    FileItem* item = FileItemOf(currentItem());
    for (int i = 0; item != nullptr && i < item->childCount(); ++i) {
        FillDirectory(*item->child(i), *item->document, static_cast<short>(i));
    }
}

Document* FileTree::Current() const {
    const FileItem* item = FileItemOf(currentItem());
    return item == nullptr ? nullptr : item->document.get();
}

short FileTree::CurrentDirectory() const {
    const QTreeWidgetItem* item = currentItem();
    if (item == nullptr || Current()->Directories() == 0) {
        return -1;
    }
    return static_cast<short>(item->data(Name, kDirectoryRole).toInt());
}

std::vector<Document*> FileTree::Documents() const {
    std::vector<Document*> documents;
    documents.reserve(static_cast<std::size_t>(topLevelItemCount()));
    for (int i = 0; i < topLevelItemCount(); ++i) {
        documents.push_back(static_cast<const FileItem*>(topLevelItem(i))->document.get());
    }
    return documents;
}

}  // namespace inspector
