#pragma once

#include <platen/platform/afx/wnd.h>

/// Styles of mini-frames. They share bits with styles that only child windows use; a window without
/// a caption, as the library makes them, looks the same with them and without.
inline constexpr DWORD MFS_SYNCACTIVE = 0x0100;
inline constexpr DWORD MFS_4THICKFRAME = 0x0200;

/// A top-level window that holds others. Frames are made with `new`: when its window is destroyed,
/// the object deletes itself. One that is deleted first destroys its window, so an object on the
/// stack is right only where its window cannot go before it does.
class PLATEN_API CFrameWnd : public CWnd {
    DECLARE_DYNCREATE(CFrameWnd)

  public:
    CFrameWnd() = default;

  protected:
    void PostNcDestroy() override;

    afx_msg int OnCreate(LPCREATESTRUCT creation);
    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT type, int width, int height);
};

/// A small frame, usually a pop-up owned by the main window, around one window.
class PLATEN_API CMiniFrameWnd : public CFrameWnd {
    DECLARE_DYNCREATE(CMiniFrameWnd)

  public:
    CMiniFrameWnd() = default;

  protected:
    /// Hands the focus on to the window inside, so that its keys work at once.
    afx_msg void OnSetFocus(CWnd* oldWindow);

    DECLARE_MESSAGE_MAP()
};
