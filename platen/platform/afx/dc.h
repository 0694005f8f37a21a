#pragma once

#include <platen/platform/afx/object.h>
#include <platen/platform/api.h>
#include <platen/platform/win32.h>

class CWnd;

/// A device context as an object. One that is attached is deleted with the object unless it is
/// detached before; who got the context from a window releases it to the window instead.
class PLATEN_API CDC : public CObject {
    DECLARE_DYNCREATE(CDC)

  public:
    HDC m_hDC = nullptr;

    CDC() = default;
    ~CDC() override;

    /// FALSE when there is no context to attach, or one is attached already.
    BOOL Attach(HDC context);
    HDC Detach();
    [[nodiscard]] HDC GetSafeHdc() const { return m_hDC; }
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
