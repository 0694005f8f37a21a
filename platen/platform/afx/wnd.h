#pragma once

#include <platen/platform/afx/cmd_target.h>
#include <platen/platform/afx/geometry.h>
#include <platen/platform/afx/string.h>

class CDC;
class CWnd;
struct CCreateContext;

namespace platen::afx {
template <class Object, auto HandleOf>
class ObjectTable;
}

/// A window as an object. Windows and their objects belong to the thread of the user interface.
///
/// A window that the object creates sends its messages through the object's message map; one that
/// is attached is only wrapped, and one that is subclassed is both.
///
/// Who ends whom: when a created or subclassed window is destroyed, the object is detached from it
/// and `PostNcDestroy` is called, which does nothing here and deletes the object in frames. When
/// the object is destroyed first, it destroys a window that it still has, an attached one included:
/// detach a window that is to live on. The end of a merely attached window goes unnoticed; the
/// object then keeps a handle of no window, on which every operation fails without harm.
class PLATEN_API CWnd : public CCmdTarget {
    DECLARE_DYNCREATE(CWnd)

  public:
    HWND m_hWnd = nullptr;

    /// What CalcWindowRect adds: the border alone, or a client edge as well.
    enum AdjustType : UINT { adjustBorder = 0, adjustOutside = 1 };

    CWnd() = default;
    ~CWnd() override;

    /// \name Objects of windows
    /// @{
    /// The window's object: the one attached to it, or else a temporary one, which the library owns
    /// and which serves until the application is next idle or the window is gone. Null for null,
    /// and when memory is exhausted.
    static CWnd* FromHandle(HWND window);
    /// The object attached to a window, or null.
    static CWnd* FromHandlePermanent(HWND window);
    /// Releases the temporary objects. The application object calls it when idle.
    static void DeleteTempMap();
    /// Makes this the window's object. FALSE when either already has the other kind.
    BOOL Attach(HWND window);
    /// Attaches, and leads the window's messages through the message map.
    BOOL SubclassWindow(HWND window);
    /// Parts object and window; a subclassed window gets its own procedure back.
    HWND Detach();
    [[nodiscard]] HWND GetSafeHwnd() const { return m_hWnd; }
    /// @}

    /// \name Life
    /// Creation that fails leaves the object to its owner, without a window; `PostNcDestroy` is not
    /// called then.
    /// @{
    /// A child or pop-up window. A null class name stands for the library's own class.
    virtual BOOL Create(LPCSTR className, LPCSTR windowName, DWORD style, const RECT& rect,
                        CWnd* parent, UINT identifier, CCreateContext* context = nullptr);
    BOOL CreateEx(DWORD extendedStyle, LPCSTR className, LPCSTR windowName, DWORD style,
                  const RECT& rect, HWND parent, HMENU menuOrIdentifier);
    /// FALSE when there is no window. The object may be gone afterwards.
    virtual BOOL DestroyWindow();
    /// @}

    /// \name The window's state
    /// @{
    [[nodiscard]] DWORD GetStyle() const;
    [[nodiscard]] DWORD GetExStyle() const;
    [[nodiscard]] int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    BOOL ShowWindow(int command) { return ::ShowWindow(m_hWnd, command); }
    [[nodiscard]] BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
    BOOL EnableWindow(BOOL enable = TRUE) { return ::EnableWindow(m_hWnd, enable); }
    [[nodiscard]] BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    void SetWindowText(LPCSTR text) { ::SetWindowText(m_hWnd, text); }
    void GetWindowText(CString& text) const;
    BOOL SetWindowPos(const CWnd* insertAfter, int x, int y, int width, int height, UINT flags);
    void GetWindowRect(LPRECT rect) const { ::GetWindowRect(m_hWnd, rect); }
    void GetClientRect(LPRECT rect) const { ::GetClientRect(m_hWnd, rect); }
    /// Turns the rectangle of a client area into that of a window with this window's styles.
    virtual void CalcWindowRect(LPRECT rect, UINT adjustType = adjustBorder);
    /// Centres the window over another one, or over its parent or owner, or, when that is null or
    /// hidden, in the work area of the screen; the whole window stays on the screen if it fits.
    void CenterWindow(CWnd* over = nullptr);
    void BringWindowToTop() { ::BringWindowToTop(m_hWnd); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    void Invalidate(BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, erase); }
    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
    [[nodiscard]] CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    [[nodiscard]] CWnd* GetWindow(UINT relation) const;
    UINT_PTR SetTimer(UINT_PTR identifier, UINT milliseconds);
    BOOL KillTimer(UINT_PTR identifier) { return ::KillTimer(m_hWnd, identifier); }
    /// @}

    /// \name Items of a dialog
    /// @{
    [[nodiscard]] CWnd* GetDlgItem(int identifier) const;
    void SetDlgItemText(int identifier, LPCSTR text);
    /// @}

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    /// Sees each message of the window and of its children before it is dispatched by the
    /// application object; TRUE when that is to be left out.
    virtual BOOL PreTranslateMessage(MSG* message);

    /// \name For the window procedure
    /// @{
    /// Handles a message: the message map, or else the procedure below.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// @}

  protected:
    /// The last word on class, styles and place before a window is created; FALSE stops it.
    virtual BOOL PreCreateWindow(CREATESTRUCT& creation);
    /// The last call when the window is gone; the object may delete itself.
    virtual void PostNcDestroy();
    /// A command from a control, or with 0 in lParam from elsewhere; TRUE when handled.
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    /// What a window without the message map would do.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// Lets the procedure below handle the message that is being handled.
    LRESULT Default();

    /// \name Handlers
    /// They call `Default`; so do their arguments not count when a derived class calls them.
    /// @{
    afx_msg int OnCreate(LPCREATESTRUCT creation);
    afx_msg void OnDestroy();
    afx_msg void OnNcDestroy();
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnMove(int x, int y);
    afx_msg void OnClose();
    afx_msg void OnEnable(BOOL enabled);
    afx_msg void OnTimer(UINT_PTR identifier);
    afx_msg void OnSetFocus(CWnd* oldWindow);
    afx_msg void OnKillFocus(CWnd* newWindow);
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* context);
    afx_msg void OnChar(UINT character, UINT repeats, UINT flags);
    afx_msg void OnKeyDown(UINT key, UINT repeats, UINT flags);
    afx_msg void OnKeyUp(UINT key, UINT repeats, UINT flags);
    afx_msg void OnMouseMove(UINT flags, CPoint point);
    afx_msg void OnLButtonDown(UINT flags, CPoint point);
    afx_msg void OnLButtonUp(UINT flags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT flags, CPoint point);
    afx_msg void OnRButtonDown(UINT flags, CPoint point);
    afx_msg void OnRButtonUp(UINT flags, CPoint point);
    /// @}

    /// Runs a call that creates this object's window, so that a failing one leaves the object
    /// alone.
    template <class Call>
    auto Creating(Call call) {
        m_creating = true;
        const auto result = call();
        m_creating = false;
        return result;
    }

    DECLARE_MESSAGE_MAP()

  private:
    template <class Object, auto HandleOf>
    friend class platen::afx::ObjectTable;

    WNDPROC m_below = nullptr;  ///< the procedure of a subclassed window
    CWnd* m_next = nullptr;     ///< the table's chain
    bool m_creating = false;
};
