#pragma once

#include <platen/platform/afx/wnd.h>

/// The thread of the user interface: its main window and its message loop.
class PLATEN_API CWinThread : public CCmdTarget {
    DECLARE_DYNAMIC(CWinThread)

  public:
    /// Not owned. Null until the application sets it, and again when the window is destroyed.
    CWnd* m_pMainWnd = nullptr;
    /// The message taken last.
    MSG m_msgCur = {};

    CWinThread() = default;

    /// Called by the application's start code; FALSE says that nothing is to be run.
    virtual BOOL InitInstance();
    /// Dispatches messages until the application is to end: the result of `ExitInstance`.
    virtual int Run();
    /// The program's exit status: what was given to PostQuitMessage.
    virtual int ExitInstance();
    /// Waits for a message and dispatches it; FALSE when that message says that the application is
    /// to end.
    virtual BOOL PumpMessage();
    /// Offers a message to its window and to the windows around it, up to the main window; TRUE
    /// when one of them has handled it.
    virtual BOOL PreTranslateMessage(MSG* message);
    /// Called when no message waits, with a count from 0; TRUE when there is more to do.
    virtual BOOL OnIdle(LONG count);
};

/// The application object. A program has at most one, which lives as long as windows are used; the
/// library copes with none.
class PLATEN_API CWinApp : public CWinThread {
    DECLARE_DYNAMIC(CWinApp)

  public:
    CWinApp();
    ~CWinApp() override;

    /// The wait cursor: 1 asks for it, -1 takes that back, 0 shows it again where it is still asked
    /// for. Requests nest.
    virtual void DoWaitCursor(int change);

  private:
    int m_waiting = 0;
    HCURSOR m_usualCursor = nullptr;
};

struct AFX_MODULE_STATE {
    CWinApp* m_pCurrentWinApp;  ///< null when there is none
};

/// Never null.
PLATEN_API AFX_MODULE_STATE* AfxGetModuleState();
/// The application object, or null.
PLATEN_API CWinApp* AfxGetApp();
/// The application's main window, or null.
PLATEN_API CWnd* AfxGetMainWnd();
