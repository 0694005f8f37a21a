#pragma once

#include <platen/platform/afx/dialog.h>
#include <platen/platform/afx/frame.h>
#include <platen/platform/api.h>

class ProgressBarDialog;

/// A small window that shows how far a long operation is and lets the user abort it, with Escape,
/// with Cancel, or by closing the window. For operations on the thread of the user interface:
///
///     BeginPercent(title);
///     while (there is more && MonitorPercent(done, total, 1) == 0) { do a piece of it }
///     EndPercent();
///
/// The window holds a dialog from the application's dialog template with identifier 0. Of its items
/// the library uses 1000, which receives the text, and 1001, into which it paints the bar.
///
/// It is a frame, with the frames' rules: it is owned by the main window and ends with it, and the
/// object is deleted with the window. An object on the stack must end before the main window.
class PLATEN_API ProgressBar : public CMiniFrameWnd {
    DECLARE_DYNCREATE(ProgressBar)

  public:
    CString m_Title;         ///< the title given last
    int m_Abort = 0;         ///< 1 once the user aborted, until the next BeginPercent
    double m_Percent = 0.0;  ///< the percentage computed last
    /// Not owned; deletes itself with its window. Null without a window and after an abort.
    ProgressBarDialog* m_pProgressBarDialog = nullptr;

    ProgressBar();
    ~ProgressBar() override;

    /// Shows the window, centred over the main window: 1, or 0 when it cannot be created. A null
    /// title gives none. On an object that has been begun before, the same window is shown again
    /// and starts from 0, after an abort too.
    int BeginPercent(const char* title);
    /// Tells that `done` of `total` is done, both taken as 32-bit numbers, and shows it when
    /// `update` is not 0. Handles the messages that wait for the window. 1 when the user has
    /// aborted, or the window was destroyed meanwhile and this object with it; otherwise 0.
    int MonitorPercent(unsigned long done, long total, int update);
    /// Hides the window. Always 1.
    int EndPercent();

    void SetTitle(const char* title);
    /// The dialog inside, or null.
    ProgressBarDialog* GetProgressBarDialog() { return m_pProgressBarDialog; }

    /// Always a pop-up with a border, whatever the style; the context is not passed on.
    BOOL Create(LPCSTR className, LPCSTR windowName, DWORD style, const RECT& rect, CWnd* parent,
                UINT identifier, CCreateContext* context = nullptr) override;

    afx_msg int OnCreate(LPCREATESTRUCT creation);
    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT type, int width, int height);
    /// Cancels; the window stays, hidden.
    afx_msg void OnClose();

    DECLARE_MESSAGE_MAP()

  private:
    void MakeDialog();
    void BeginAgain(const char* title);
    void ShowPercent();
    int PumpMessages();
    void PaintPercent(HDC context, RECT rect, int background, int light, int shadow,
                      double percent);
    void PaintPercentRect(HWND item, double percent);
};

/// The dialog inside of a ProgressBar, which deletes itself with its window. Made from template 0.
class PLATEN_API ProgressBarDialog : public CDialog {
  public:
    ProgressBarDialog();
    ~ProgressBarDialog() override;

  protected:
    void PostNcDestroy() override;
    /// Enter has nothing to confirm; the dialog stays.
    void OnOK() override;
    /// Aborts: hides the frame and tells it.
    void OnCancel() override;
    afx_msg void OnDestroy();
    /// WM_USER: shows wParam as the percentage. 1.
    afx_msg LRESULT OnUpdatePercent(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

  private:
    [[nodiscard]] ProgressBar* Frame() const;
};

/// Begins a run of a ProgressBar and ends it when the block is left, by an exception too.
class ProgressBarRun {
  public:
    explicit ProgressBarRun(ProgressBar& bar, const char* title = nullptr) : m_bar(bar) {
        if (bar.BeginPercent(title) != 0) {
            m_window = bar.m_hWnd;
        }
    }
    ~ProgressBarRun() {
        // The bar may have been deleted with its window.
        if (m_window != nullptr && CWnd::FromHandlePermanent(m_window) == &m_bar) {
            m_bar.EndPercent();
        }
    }
    ProgressBarRun(const ProgressBarRun&) = delete;
    ProgressBarRun& operator=(const ProgressBarRun&) = delete;

    /// Whether there is a window to show the run.
    [[nodiscard]] bool IsOpen() const { return m_window != nullptr; }

  private:
    ProgressBar& m_bar;
    HWND m_window = nullptr;
};
