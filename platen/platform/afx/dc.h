#pragma once

#include <platen/platform/afx/gdi_object.h>
#include <platen/platform/afx/geometry.h>
#include <platen/platform/afx/object.h>
#include <platen/platform/api.h>
#include <platen/platform/win32.h>

class CWnd;

/// A device context as an object. One that is created or attached is deleted with the object unless
/// it is detached before; who got the context from a window releases it to the window instead.
///
/// Without a context every operation fails, and what should be told is zero.
class PLATEN_API CDC : public CObject {
    DECLARE_DYNCREATE(CDC)

  public:
    HDC m_hDC = nullptr;

    CDC() = default;
    ~CDC() override;

    /// \name Life
    /// @{
    /// FALSE when there is no context to attach, or one is attached already.
    BOOL Attach(HDC context);
    HDC Detach();
    [[nodiscard]] HDC GetSafeHdc() const { return m_hDC; }
    BOOL CreateDC(LPCSTR driver, LPCSTR device, LPCSTR output, const DEVMODE* settings) {
        return Attach(::CreateDC(driver, device, output, settings));
    }
    /// In memory; like the screen for null.
    BOOL CreateCompatibleDC(const CDC* context) {
        return Attach(::CreateCompatibleDC(context == nullptr ? nullptr : context->m_hDC));
    }
    BOOL DeleteDC() { return ::DeleteDC(Detach()); }
    /// Notes all settings; the number to give to `RestoreDC`.
    int SaveDC() { return ::SaveDC(m_hDC); }
    BOOL RestoreDC(int saved) { return ::RestoreDC(m_hDC, saved); }
    [[nodiscard]] int GetDeviceCaps(int index) const { return ::GetDeviceCaps(m_hDC, index); }
    /// @}

    /// \name From logical units to the device's
    /// Setting answers what was set before.
    /// @{
    int SetMapMode(int mode) { return ::SetMapMode(m_hDC, mode); }
    [[nodiscard]] int GetMapMode() const { return ::GetMapMode(m_hDC); }
    CPoint SetWindowOrg(int x, int y);
    CSize SetWindowExt(int width, int height);
    CPoint SetViewportOrg(int x, int y);
    CSize SetViewportExt(int width, int height);
    [[nodiscard]] CPoint GetWindowOrg() const;
    [[nodiscard]] CSize GetWindowExt() const;
    [[nodiscard]] CPoint GetViewportOrg() const;
    [[nodiscard]] CSize GetViewportExt() const;
    void LPtoDP(LPPOINT points, int count = 1) const { ::LPtoDP(m_hDC, points, count); }
    void DPtoLP(LPPOINT points, int count = 1) const { ::DPtoLP(m_hDC, points, count); }
    /// @}

    /// \name Text
    /// @{
    /// The font before, null on failure; see CFont::FromHandle for how long that object lives.
    CFont* SelectObject(CFont* font);
    BOOL GetTextMetrics(LPTEXTMETRIC metrics) const { return ::GetTextMetrics(m_hDC, metrics); }
    BOOL TextOut(int x, int y, LPCSTR text, int length) {
        return ::TextOut(m_hDC, x, y, text, length);
    }
    [[nodiscard]] CSize GetTextExtent(LPCSTR text, int length) const;
    COLORREF SetTextColor(COLORREF color) { return ::SetTextColor(m_hDC, color); }
    int SetBkMode(int mode) { return ::SetBkMode(m_hDC, mode); }
    /// @}

    /// \name Printing
    /// Values below 1 tell of a failure.
    /// @{
    int StartDoc(const DOCINFO* document) { return ::StartDoc(m_hDC, document); }
    int StartPage() { return ::StartPage(m_hDC); }
    int EndPage() { return ::EndPage(m_hDC); }
    int EndDoc() { return ::EndDoc(m_hDC); }
    int AbortDoc() { return ::AbortDoc(m_hDC); }
    /// @}
};

/// The context for answering a WM_PAINT: painting begins with the object and ends with it.
class PLATEN_API CPaintDC : public CDC {
    DECLARE_DYNAMIC(CPaintDC)

  public:
    PAINTSTRUCT m_ps = {};

    explicit CPaintDC(CWnd* window);
    ~CPaintDC() override;

  private:
    HWND m_window;
};
