#include <QFontDatabase>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <chrono>

#include <platen/base/system.h>

#include "examples/inspector/icons.h"
#include "examples/inspector/main_window.h"

/// How the window is put together.
namespace inspector {
namespace {

constexpr std::chrono::seconds kMemoryInterval{2};

QPlainTextEdit* NewTextPage() {
    auto* page = new QPlainTextEdit;
    page->setReadOnly(true);
    page->setAcceptDrops(false);
    page->document()->setDocumentMargin(8);
    page->setFrameShape(QFrame::NoFrame);
    page->setLineWrapMode(QPlainTextEdit::NoWrap);
    page->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return page;
}

}  // namespace

MainWindow::MainWindow()
    : m_tree(new FileTree),
      m_image(new ImageView),
      m_pages(new QTabWidget),
      m_tags(new TagsPage),
      m_report(NewTextPage()),
      m_listing(NewTextPage()),
      m_pixel(new QLabel),
      m_zoom(new QLabel) {
    setAcceptDrops(true);
    resize(1360, 820);
    BuildPanes();
    BuildFileActions();
    BuildViewActions();
    connect(m_tree, &FileTree::Chosen, this, &MainWindow::ShowChosen);
    connect(m_tags, &TagsPage::Changed, this, &MainWindow::AfterEdit);
    connect(m_pages, &QTabWidget::currentChanged, this, &MainWindow::ShowTexts);
    connect(m_image, &ImageView::ZoomChanged, this, &MainWindow::ShowZoom);
    connect(m_image, &ImageView::PointedAt, this, &MainWindow::ShowPixel);
    ShowChosen();
    m_host = std::make_unique<Host>(*this);
    auto* clock = new QTimer(this);
    connect(clock, &QTimer::timeout, this, [] { DisplayMemoryStatus(); });
    clock->start(kMemoryInterval);
    DisplayMemoryStatus();
}

MainWindow::~MainWindow() {
    // It ends later than what its signals reach.
    m_tree->disconnect(this);
}

void MainWindow::BuildPanes() {
    m_pages->setDocumentMode(true);
    m_pages->addTab(m_tags, tr("&Tags"));
    m_pages->addTab(m_report, tr("&Report"));
    m_pages->addTab(m_listing, tr("&Listing"));
    auto* panes = new QSplitter;
    panes->setChildrenCollapsible(false);
    panes->setHandleWidth(4);
    panes->addWidget(m_tree);
    panes->addWidget(m_image);
    panes->addWidget(m_pages);
    panes->setStretchFactor(1, 1);
    panes->setSizes({300, 560, 500});
    setCentralWidget(panes);
    m_pixel->setMinimumWidth(fontMetrics().horizontalAdvance("00000, 00000:  RGB 255 255 255"));
    m_zoom->setMinimumWidth(fontMetrics().horizontalAdvance("6400 %"));
    statusBar()->addPermanentWidget(m_pixel);
    statusBar()->addPermanentWidget(m_zoom);
}

QAction* MainWindow::NewAction(const QIcon& icon, const QString& text, const QKeySequence& keys,
                               void (MainWindow::*slot)()) {
    auto* action = new QAction(icon, text, this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, slot);
    return action;
}

void MainWindow::BuildFileActions() {
    const auto icon = [this](QStyle::StandardPixmap which) { return style()->standardIcon(which); };
    QAction* open = NewAction(icon(QStyle::SP_DialogOpenButton), tr("&Open\u2026"),
                              QKeySequence::Open, &MainWindow::ChooseFiles);
    QAction* save = NewAction(icon(QStyle::SP_DialogSaveButton), tr("&Save a Copy\u2026"),
                              QKeySequence::Save, &MainWindow::SaveAsSource);
    QAction* intel = NewAction({}, tr("Save a Copy as &Little-Endian (II)\u2026"),
                               QKeySequence("Ctrl+Shift+I"), &MainWindow::SaveAsIntel);
    QAction* motorola = NewAction({}, tr("Save a Copy as &Big-Endian (MM)\u2026"),
                                  QKeySequence("Ctrl+Shift+M"), &MainWindow::SaveAsMotorola);
    QAction* print = NewAction(SignIcon(Sign::Print), tr("&Print\u2026"), QKeySequence::Print,
                               &MainWindow::Print);
    QAction* reload = NewAction(icon(QStyle::SP_BrowserReload), tr("&Reload"),
                                QKeySequence::Refresh, &MainWindow::Reload);
    QAction* close = NewAction(icon(QStyle::SP_DialogCloseButton), tr("&Close File"),
                               QKeySequence("Ctrl+W"), &MainWindow::CloseFile);
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    menu->addActions({open, reload, close});
    menu->addSeparator();
    menu->addActions({save, intel, motorola});
    menu->addSeparator();
    menu->addAction(print);
    menu->addSeparator();
    QAction* quit = menu->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);
    quit->setMenuRole(QAction::QuitRole);
    m_needFile = {save, intel, motorola, reload, close};
    m_needPicture = {print};

    QToolBar* bar = addToolBar(tr("File"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->addActions({open, save, print});
    bar->addSeparator();
    auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(save));
    button->addActions({intel, motorola});
    button->setPopupMode(QToolButton::MenuButtonPopup);
}

void MainWindow::BuildViewActions() {
    const auto viewAction = [this](Sign sign, const QString& text, const QKeySequence& keys,
                                   void (ImageView::*slot)()) {
        auto* action = new QAction(SignIcon(sign), text, this);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, m_image, slot);
        m_needPicture += action;
        return action;
    };
    const auto toggle = [this](Sign sign, const QString& text, const QKeySequence& keys) {
        QAction* action = NewAction(SignIcon(sign), text, keys, &MainWindow::ShowPicture);
        action->setCheckable(true);
        return action;
    };
    const QList<QAction*> zooms = {
        viewAction(Sign::Fit, tr("&Fit"), QKeySequence("Ctrl+0"), &ImageView::Fit),
        viewAction(Sign::ActualSize, tr("&Actual Size"), QKeySequence("Ctrl+1"),
                   &ImageView::ShowActualSize),
        viewAction(Sign::ZoomIn, tr("Zoom &In"), QKeySequence::ZoomIn, &ImageView::ZoomIn),
        viewAction(Sign::ZoomOut, tr("Zoom &Out"), QKeySequence::ZoomOut, &ImageView::ZoomOut)};
    m_stretch = toggle(Sign::Contrast, tr("&Stretch Contrast"), QKeySequence("Ctrl+T"));
    m_stretch->setToolTip(tr("Show gray from the darkest to the brightest sample of the image"));
    m_colorTable = toggle(Sign::ColorTable, tr("&Colour Table"), QKeySequence("Ctrl+K"));
    m_colorTable->setToolTip(tr("Show gray in colours, by the steps of the file's colour table"));
    m_needPicture += m_stretch;

    QMenu* menu = menuBar()->addMenu(tr("&View"));
    menu->addActions(zooms);
    menu->addSeparator();
    menu->addActions({m_stretch, m_colorTable});
    menu->addSeparator();
    menu->addAction(tr("&Text Font\u2026"), this, &MainWindow::ChooseFont);
    menuBar()->addMenu(tr("&Help"))->addAction(tr("&About"), this, &MainWindow::About);

    QToolBar* bar = addToolBar(tr("View"));
    bar->setMovable(false);
    bar->addActions(zooms);
    bar->addSeparator();
    bar->addActions({m_stretch, m_colorTable});
}

}  // namespace inspector
