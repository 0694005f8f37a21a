#include "examples/inspector/host.h"

#include <QStatusBar>

#include <platen/platform/win32/qt_window.h>
#include <platen/progress/report.h>

namespace inspector {
namespace {

/// The library looks for dialog 0, its text 1000 and its bar 1001.
void RegisterProgressDialog() {
    CDialogTemplate dialog(WS_CHILD, {0, 0, 190, 60}, "");
    dialog.Add("STATIC", "", 1000, SS_CENTER, {8, 8, 174, 10})
        .Add("STATIC", "", 1001, SS_LEFT, {8, 22, 174, 12})
        .Add("BUTTON", "Cancel", IDCANCEL, WS_TABSTOP | BS_DEFPUSHBUTTON, {70, 40, 50, 14});
    platen::win32::RegisterDialogTemplate(MAKEINTRESOURCE(0), dialog.Bytes());
}

}  // namespace

Host::Host(QMainWindow& window) {
    RegisterProgressDialog();
    m_main.Attach(PlatenWindowOfWidget(&window));
    m_application.m_pMainWnd = &m_main;
    m_statusBar.Attach(PlatenWindowOfWidget(window.statusBar()));
    CORE_SetStatusBar(&m_statusBar);
}

Host::~Host() {
    CORE_SetStatusBar(nullptr);
    m_statusBar.Detach();
    m_application.m_pMainWnd = nullptr;
    m_main.Detach();
}

}  // namespace inspector
