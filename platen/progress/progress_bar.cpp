#include <platen/platform/afx/message_map.h>
#include <platen/progress/main_window.h>
#include <platen/progress/percent.h>
#include <platen/progress/progress_bar.h>

IMPLEMENT_DYNCREATE(ProgressBar, CMiniFrameWnd)

BEGIN_MESSAGE_MAP(ProgressBar, CMiniFrameWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_CLOSE()
END_MESSAGE_MAP()

namespace {

constexpr DWORD kFrameStyle = WS_POPUP | WS_BORDER | MFS_4THICKFRAME;
constexpr DWORD kAskedStyle = WS_POPUP | WS_BORDER | WS_SYSMENU | MFS_SYNCACTIVE;
constexpr UINT kPlaceOnly = SWP_NOZORDER | SWP_NOACTIVATE;
constexpr int kBarItem = 1001;

}  // namespace

ProgressBar::ProgressBar() = default;
ProgressBar::~ProgressBar() = default;

int ProgressBar::BeginPercent(const char* title) {
    m_Abort = 0;
    if (title != nullptr) {
        m_Title = title;
    }
    if (m_hWnd != nullptr) {
        BeginAgain(title);
    } else {
        CWnd* parent = CWnd::FromHandle(platen::LiveMainWindow());
        if (Create(nullptr, title, kAskedStyle, CRect(), parent, 0, nullptr) == FALSE) {
            return 0;
        }
    }
    if (IsWindowVisible() == FALSE) {
        CenterWindow();
        ShowWindow(SW_SHOW);
        UpdateWindow();
        BringWindowToTop();
    }
    return 1;
}

/// A fresh dialog shows what one of a first run shows, and an aborted one has been let go.
void ProgressBar::BeginAgain(const char* title) {
    m_Percent = 0.0;
    SetWindowText(title == nullptr ? "" : title);
    const HWND old = ::GetWindow(m_hWnd, GW_CHILD);
    if (old != nullptr) {
        ::DestroyWindow(old);
    }
    MakeDialog();
}

BOOL ProgressBar::Create(LPCSTR className, LPCSTR windowName, DWORD /*style*/, const RECT& rect,
                         CWnd* parent, UINT identifier, CCreateContext* /*context*/) {
    return CMiniFrameWnd::Create(className, windowName, kFrameStyle, rect, parent, identifier);
}

int ProgressBar::OnCreate(LPCREATESTRUCT creation) {
    if (CMiniFrameWnd::OnCreate(creation) == -1) {
        return -1;
    }
    MakeDialog();
    return 0;
}

/// Puts a new dialog into the frame, which takes its place and size. Without a template the frame
/// stays empty.
void ProgressBar::MakeDialog() {
    m_pProgressBarDialog = new (std::nothrow) ProgressBarDialog;
    if (m_pProgressBarDialog != nullptr &&
        m_pProgressBarDialog->Create(MAKEINTRESOURCE(0), this) == FALSE) {
        delete m_pProgressBarDialog;
        m_pProgressBarDialog = nullptr;
    }
    if (m_pProgressBarDialog == nullptr) {
        return;
    }
    CRect inside;
    m_pProgressBarDialog->GetWindowRect(inside);
    CRect frame = inside;
    CalcWindowRect(frame, adjustBorder);
    SetWindowPos(nullptr, frame.left, frame.top, frame.Width(), frame.Height(), kPlaceOnly);
    m_pProgressBarDialog->SetWindowPos(nullptr, 0, 0, inside.Width(), inside.Height(), kPlaceOnly);
    if (m_pProgressBarDialog->IsWindowVisible() == FALSE) {
        m_pProgressBarDialog->ShowWindow(SW_SHOW);
        m_pProgressBarDialog->UpdateWindow();
        m_pProgressBarDialog->BringWindowToTop();
    }
}

void ProgressBar::OnDestroy() {
    CMiniFrameWnd::OnDestroy();
}

void ProgressBar::OnSize(UINT type, int width, int height) {
    CMiniFrameWnd::OnSize(type, width, height);
}

void ProgressBar::OnClose() {
    if (m_pProgressBarDialog != nullptr && ::IsWindow(m_pProgressBarDialog->m_hWnd) != FALSE) {
        m_pProgressBarDialog->SendMessage(WM_COMMAND, IDCANCEL, 0);
    }
}

int ProgressBar::MonitorPercent(unsigned long done, long total, int update) {
    if (m_pProgressBarDialog == nullptr || ::IsWindow(m_pProgressBarDialog->m_hWnd) == FALSE) {
        return m_Abort;
    }
    if (update != 0) {
        m_Percent =
            platen::PercentOf(static_cast<std::uint32_t>(done), static_cast<std::int32_t>(total));
        ShowPercent();
    }
    return m_Abort != 0 ? m_Abort : PumpMessages();
}

void ProgressBar::ShowPercent() {
    const HWND dialog = m_pProgressBarDialog->m_hWnd;
    const HWND item = ::GetDlgItem(dialog, kBarItem);
    if (::IsWindow(item) != FALSE) {
        ::SendMessage(dialog, WM_USER, platen::WholePercent(m_Percent), 0);
        ::InvalidateRect(item, nullptr, FALSE);
        PaintPercentRect(item, m_Percent);
    }
}

/// Handles what waits for the dialog and its items, and no other window's messages.
int ProgressBar::PumpMessages() {
    const HWND frame = m_hWnd;
    const HWND dialog = m_pProgressBarDialog->m_hWnd;
    // A handler may destroy the frame, and this object with it.
    const auto isAlive = [&] { return CWnd::FromHandlePermanent(frame) == this; };
    MSG message = {};
    while (isAlive() && m_Abort == 0 && ::IsWindow(dialog) != FALSE &&
           ::PeekMessage(&message, dialog, 0, 0, PM_REMOVE) != FALSE) {
        if (message.message == WM_QUIT) {
            // It passes every filter, and belongs to the application's own loop.
            ::PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (::IsDialogMessage(dialog, &message) == FALSE) {
            ::TranslateMessage(&message);
            ::DispatchMessage(&message);
        }
    }
    return isAlive() ? m_Abort : 1;
}

int ProgressBar::EndPercent() {
    if (m_hWnd != nullptr) {
        ShowWindow(SW_HIDE);
    }
    return 1;
}

void ProgressBar::SetTitle(const char* title) {
    m_Title = title;
    if (m_hWnd != nullptr) {
        SetWindowText(m_Title);
    }
}

void ProgressBar::PaintPercentRect(HWND item, double percent) {
    RECT rect = {};
    ::GetClientRect(item, &rect);
    PAINTSTRUCT paint = {};
    const HDC context = ::BeginPaint(item, &paint);
    PaintPercent(context, rect, LTGRAY_BRUSH, WHITE_BRUSH, GRAY_BRUSH, percent);
    ::EndPaint(item, &paint);
}

/// The bar over its background, inside a sunken edge two pixels from the border. The brushes are
/// stock objects.
void ProgressBar::PaintPercent(HDC context, RECT rect, int background, int light, int shadow,
                               double percent) {
    const auto fill = [&](int x, int y, int width, int height) {
        ::PatBlt(context, x, y, width, height, PATCOPY);
    };
    const HGDIOBJ oldBrush = ::SelectObject(context, ::GetStockObject(background));
    fill(rect.left, rect.top, rect.right, rect.bottom);
    ::SelectObject(context, ::GetStockObject(BLACK_BRUSH));
    fill(rect.left, rect.top, platen::FilledWidth(rect.right, percent), rect.bottom);
    const HGDIOBJ oldPen = ::SelectObject(context, ::GetStockObject(BLACK_PEN));

    const CRect edge(rect.left + 2, rect.top + 2, rect.right - 2, rect.bottom - 2);
    const int width = edge.Width() + 1;
    const int height = edge.Height() + 1;
    ::SelectObject(context, ::GetStockObject(light));
    fill(edge.right, edge.top, 1, height);
    fill(edge.left, edge.bottom, width, 1);
    ::SelectObject(context, ::GetStockObject(shadow));
    fill(edge.left, edge.top, width, 1);
    fill(edge.left, edge.top, 1, height);

    ::SelectObject(context, oldBrush);
    ::SelectObject(context, oldPen);
}
