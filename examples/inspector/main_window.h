#pragma once

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QStringList>
#include <QTabWidget>
#include <memory>

#include "examples/inspector/file_tree.h"
#include "examples/inspector/host.h"
#include "examples/inspector/image_view.h"
#include "examples/inspector/tags_page.h"
#include "examples/inspector/text_font.h"

namespace inspector {

/// The application's window: files on the left, the image of the chosen directory in the middle,
/// what is known of it on the right.
class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    MainWindow();
    ~MainWindow() override;

    /// Opens files, and tells of those that cannot be.
    void Open(const QStringList& names);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void BuildPanes();
    void BuildFileActions();
    void BuildViewActions();
    QAction* NewAction(const QIcon& icon, const QString& text, const QKeySequence& keys,
                       void (MainWindow::*slot)());

    void ChooseFiles();
    void SaveAsSource();
    void SaveAsIntel();
    void SaveAsMotorola();
    void SaveCopy(short byteOrder);
    void Reload();
    void CloseFile();
    void Print();
    void ChooseFont();
    void About();

    void ShowChosen();
    void ShowPicture();
    /// Fills the page that is in front.
    void ShowTexts();
    void AfterEdit();
    void EnableActions();
    void ShowTitle();
    void ShowZoom(double zoom);
    void ShowPixel(QPoint pixel, QRgb color);
    /// Asks before changes get lost; false to keep them.
    bool MayDiscard(const Document& document);

    FileTree* m_tree;
    ImageView* m_image;
    QTabWidget* m_pages;
    TagsPage* m_tags;
    QPlainTextEdit* m_report;
    QPlainTextEdit* m_listing;
    QLabel* m_pixel;
    QLabel* m_zoom;
    const Document* m_reported = nullptr;  ///< whose report stands on its page
    QList<QAction*> m_needFile;
    QList<QAction*> m_needPicture;
    std::unique_ptr<Host> m_host;
    TextFont m_font;
    QAction* m_stretch = nullptr;
    QAction* m_colorTable = nullptr;
};

}  // namespace inspector
