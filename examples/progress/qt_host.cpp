/// A Qt application as the host: its own main window and status bar are handed to the library.
#include <QAction>
#include <QApplication>
#include <QCommandLineParser>
#include <QImage>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>

#include <cstdio>

#include <platen/platform/afx.h>
#include <platen/platform/win32/qt_window.h>
#include <platen/progress/report.h>

#include "examples/progress/displays.h"

namespace {

using example::DisplayKind;
using example::LongJob;

class Window : public QMainWindow {
  public:
    Window() {
        setWindowTitle("Two displays of a long job");
        QToolBar* bar = addToolBar("Run");
        bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        const QIcon icon = style()->standardIcon(QStyle::SP_MediaPlay);
        connect(bar->addAction(icon, "Run with a window"), &QAction::triggered, this,
                [this] { RunAndShow(DisplayKind::Window, {}); });
        connect(bar->addAction(icon, "Run in the status bar"), &QAction::triggered, this,
                [this] { RunAndShow(DisplayKind::StatusBar, {}); });
        m_picture = new QLabel("Start the job from the toolbar. Escape stops it.");
        m_picture->setAlignment(Qt::AlignCenter);
        m_picture->setMinimumSize(LongJob::kWidth, LongJob::kHeight);
        setCentralWidget(m_picture);
        statusBar()->showMessage("Ready");
    }

    void RunAndShow(DisplayKind display, const example::Script& script) {
        LongJob job;
        const bool finished = Run(job, display, script, [&] { Show(job); });
        Show(job);
        std::printf("%s at row %d of %d\n", finished ? "finished" : "stopped", job.Done(),
                    LongJob::kHeight);
        std::fflush(stdout);
    }

  private:
    void Show(const LongJob& job) {
        m_picture->setPixmap(
            QPixmap::fromImage(QImage(job.Pixels().data(), LongJob::kWidth, LongJob::kHeight,
                                      LongJob::kWidth, QImage::Format_Grayscale8)));
    }

    QLabel* m_picture;
};

/// The progress window's content: the library looks for dialog 0, its text 1000 and its bar 1001.
void RegisterProgressDialog() {
    CDialogTemplate dialog(WS_CHILD, {0, 0, 190, 60}, "");
    dialog.Add("STATIC", "", 1000, SS_CENTER, {8, 8, 174, 10})
        .Add("STATIC", "", 1001, SS_LEFT, {8, 22, 174, 12})
        .Add("BUTTON", "Cancel", IDCANCEL, WS_TABSTOP | BS_DEFPUSHBUTTON, {70, 40, 50, 14});
    platen::win32::RegisterDialogTemplate(MAKEINTRESOURCE(0), dialog.Bytes());
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication qt(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions(
        {{"run", "Run at once with <display> (window or status), then leave.", "display"},
         {"hold-at", "Stay at <percent>.", "percent", "-1"},
         {"escape-at", "Press Escape at <percent>.", "percent", "-1"}});
    parser.process(qt);

    Window window;
    window.show();
    RegisterProgressDialog();
    CWinApp application;
    CWnd main;
    main.Attach(PlatenWindowOfWidget(&window));
    application.m_pMainWnd = &main;
    CStatusBar statusBar;
    statusBar.Attach(PlatenWindowOfWidget(window.statusBar()));
    CORE_SetStatusBar(&statusBar);

    if (parser.isSet("run")) {
        const example::Script script = {parser.value("hold-at").toInt(),
                                        parser.value("escape-at").toInt()};
        window.RunAndShow(
            parser.value("run") == "window" ? DisplayKind::Window : DisplayKind::StatusBar, script);
    } else {
        QApplication::exec();
    }

    CORE_SetStatusBar(nullptr);
    statusBar.Detach();
    main.Detach();
    return 0;
}
