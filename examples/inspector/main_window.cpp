#include "examples/inspector/main_window.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>
#include <algorithm>

#include "examples/inspector/copy_progress.h"
#include "examples/inspector/file_dialogs.h"
#include "examples/inspector/printing.h"

namespace inspector {
namespace {

/// A report can be much larger than its file.
constexpr std::size_t kMostText = std::size_t{8} << 20;

/// The cursor that says to wait, for as long as the object lives.
class WaitCursor {
  public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

QStringList LocalFiles(const QMimeData& data) {
    QStringList names;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) {
            names += url.toLocalFile();
        }
    }
    return names;
}

QString FileName(const Document& document) {
    return QFileInfo(QString::fromStdString(document.Name())).fileName();
}

QString Shortened(std::string text) {
    const bool cut = text.size() > kMostText;
    text.resize(std::min(text.size(), kMostText));
    return QString::fromStdString(text) +
           (cut ? MainWindow::tr("\n\u2026 and more, which is not shown.") : QString());
}

}  // namespace

void MainWindow::Open(const QStringList& names) {
    QStringList problems;
    for (const QString& name : names) {
        const QFileInfo file(name);
        const std::string path = file.absoluteFilePath().toStdString();
        if (m_tree->Choose(path)) {
            continue;
        }
        const WaitCursor wait;
        auto document = std::make_unique<Document>(path);
        if (!document->Problem().empty()) {
            problems += tr("<p><b>%1</b><br>%2</p>")
                            .arg(file.fileName().toHtmlEscaped(),
                                 QString::fromStdString(document->Problem()).toHtmlEscaped());
        }
        if (document->Directories() > 0) {
            m_tree->Add(std::move(document));
        }
    }
    if (!problems.isEmpty()) {
        QMessageBox::warning(this, tr("Open"), problems.join(QString()));
    }
}

void MainWindow::ChooseFiles() {
    Open(AskForFiles(*this));
}

void MainWindow::SaveAsSource() {
    SaveCopy(m_tree->Current()->ByteOrder());
}

void MainWindow::SaveAsIntel() {
    SaveCopy(platen::kIntel);
}

void MainWindow::SaveAsMotorola() {
    SaveCopy(platen::kMotorola);
}

void MainWindow::SaveCopy(short byteOrder) {
    Document& document = *m_tree->Current();
    const QFileInfo source(QString::fromStdString(document.Name()));
    const QString name = AskForCopyName(
        source.absolutePath() + "/" + source.completeBaseName() + "-copy.tif", *this);
    if (name.isEmpty()) {
        return;
    }
    TiffCopy::Result result;
    {
        CopyProgress progress(tr("Copying %1").arg(source.fileName()));
        result = document.SaveCopy(name.toStdString(), byteOrder, &CopyProgress::Report, &progress);
    }
    ShowTitle();
    switch (result.outcome) {
        case TiffCopy::Outcome::Done:
            statusBar()->showMessage(tr("Saved %1").arg(QFileInfo(name).fileName()));
            break;
        case TiffCopy::Outcome::Aborted:
            statusBar()->showMessage(tr("Stopped; no copy was written"));
            break;
        default: {
            const QString where =
                result.dir >= 0 ? tr("Directory %1: ").arg(result.dir) : QString();
            QMessageBox::warning(this, tr("Save a Copy"),
                                 tr("No copy was written.\n%1%2.").arg(where, result.reason));
        }
    }
}

void MainWindow::Reload() {
    const Document& document = *m_tree->Current();
    if (!MayDiscard(document)) {
        return;
    }
    auto again = std::make_unique<Document>(document.Name());
    if (!again->Problem().empty()) {
        QMessageBox::warning(this, tr("Reload"), QString::fromStdString(again->Problem()));
    }
    m_reported = nullptr;
    m_tree->ReplaceCurrent(std::move(again));
}

void MainWindow::CloseFile() {
    if (MayDiscard(*m_tree->Current())) {
        m_reported = nullptr;
        m_tags->SetDirectory(nullptr, 0);
        m_tree->CloseCurrent();
        ShowChosen();
    }
}

void MainWindow::Print() {
    const Document& document = *m_tree->Current();
    const QString caption =
        tr("%1, directory %2").arg(FileName(document)).arg(m_tree->CurrentDirectory());
    if (PrintPicture(m_image->Shown(), caption, this)) {
        statusBar()->showMessage(tr("Printed %1").arg(caption));
    }
}

void MainWindow::ChooseFont() {
    if (m_font.Edit(*this)) {
        for (QPlainTextEdit* page : {m_report, m_listing}) {
            QPalette colors = page->palette();
            colors.setColor(QPalette::Text, m_font.Color());
            page->setPalette(colors);
            page->setFont(m_font.Font());
        }
    }
}

void MainWindow::About() {
    QMessageBox::about(this, tr("About the Inspector"),
                       tr("<p><b>Inspector</b></p><p>Shows what is in TIFF files, changes their "
                          "tags and saves copies. An example of the platen library.</p>"));
}

void MainWindow::ShowChosen() {
    Document* document = m_tree->Current();
    const short dir = m_tree->CurrentDirectory();
    m_tags->SetDirectory(dir >= 0 ? document : nullptr, dir);
    ShowPicture();
    ShowTexts();
    ShowTitle();
    EnableActions();
}

void MainWindow::ShowPicture() {
    Document* document = m_tree->Current();
    const short dir = m_tree->CurrentDirectory();
    if (document == nullptr || dir < 0) {
        m_image->SetNothing(tr("Open TIFF files, or drop them here."));
        return;
    }
    const WaitCursor wait;
    m_image->SetPicture(document->Show(dir, {m_stretch->isChecked(), m_colorTable->isChecked()}));
}

void MainWindow::ShowTexts() {
    Document* document = m_tree->Current();
    const short dir = m_tree->CurrentDirectory();
    if (document == nullptr || dir < 0) {
        m_report->clear();
        m_listing->clear();
    } else if (m_pages->currentWidget() == m_report && m_reported != document) {
        const WaitCursor wait;
        m_report->setPlainText(Shortened(document->Report()));
        m_reported = document;
    } else if (m_pages->currentWidget() == m_listing) {
        m_listing->setPlainText(Shortened(document->Listing(dir)));
    }
}

void MainWindow::AfterEdit() {
    m_tree->RefreshCurrent();
    ShowPicture();
    ShowTexts();
    ShowTitle();
    EnableActions();
}

void MainWindow::EnableActions() {
    const Document* document = m_tree->Current();
    const short dir = m_tree->CurrentDirectory();
    for (QAction* action : m_needFile) {
        action->setEnabled(document != nullptr);
    }
    for (QAction* action : m_needPicture) {
        action->setEnabled(m_image->HasPicture());
    }
    m_colorTable->setEnabled(m_image->HasPicture() && document != nullptr && dir >= 0 &&
                             document->HasColorTable(dir));
}

void MainWindow::ShowTitle() {
    const Document* document = m_tree->Current();
    setWindowModified(document != nullptr && document->IsEdited());
    setWindowTitle(document == nullptr ? tr("Inspector")
                                       : tr("%1[*] \u2013 Inspector").arg(FileName(*document)));
}

void MainWindow::ShowZoom(double zoom) {
    QString text = zoom > 0 ? tr("%1 %").arg(zoom * 100, 0, 'f', zoom < 0.1 ? 1 : 0) : QString();
    if (zoom > 0 && m_image->Step() > 1) {
        text += tr(" (1 pixel of %1 each way)").arg(m_image->Step());
    }
    m_zoom->setText(text);
}

void MainWindow::ShowPixel(QPoint pixel, QRgb color) {
    if (pixel.x() < 0) {
        m_pixel->clear();
        return;
    }
    const QString place = tr("%1, %2").arg(pixel.x()).arg(pixel.y());
    const bool isGray = qRed(color) == qGreen(color) && qGreen(color) == qBlue(color);
    m_pixel->setText(isGray ? tr("%1:  gray %2").arg(place).arg(qRed(color))
                            : tr("%1:  RGB %2 %3 %4")
                                  .arg(place)
                                  .arg(qRed(color))
                                  .arg(qGreen(color))
                                  .arg(qBlue(color)));
}

bool MainWindow::MayDiscard(const Document& document) {
    return !document.IsEdited() ||
           QMessageBox::question(
               this, tr("Unsaved Changes"),
               tr("The changes to %1 are not saved. Discard them?").arg(FileName(document)),
               QMessageBox::Discard | QMessageBox::Cancel,
               QMessageBox::Cancel) == QMessageBox::Discard;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    const auto documents = m_tree->Documents();
    const bool agreed = std::ranges::all_of(
        documents, [this](const Document* document) { return MayDiscard(*document); });
    event->setAccepted(agreed);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!LocalFiles(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    Open(LocalFiles(*event->mimeData()));
}

}  // namespace inspector
