#pragma once

#include <QMainWindow>

#include <platen/platform/afx.h>

namespace inspector {

/// Hands the application's main window and status bar to the library for as long as the object
/// lives, and gives the library the dialog that its progress window needs. The window must outlive
/// the object.
class Host {
  public:
    explicit Host(QMainWindow& window);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

  private:
    CWinApp m_application;
    CWnd m_main;
    CStatusBar m_statusBar;
};

}  // namespace inspector
