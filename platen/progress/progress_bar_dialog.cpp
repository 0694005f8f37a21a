#include <platen/platform/afx/message_map.h>
#include <platen/progress/percent.h>
#include <platen/progress/progress_bar.h>

BEGIN_MESSAGE_MAP(ProgressBarDialog, CDialog)
ON_MESSAGE(WM_USER, &ThisClass::OnUpdatePercent)
ON_WM_DESTROY()
END_MESSAGE_MAP()

namespace {

constexpr UINT kTemplate = 0;
constexpr int kTextItem = 1000;

}  // namespace

ProgressBarDialog::ProgressBarDialog() : CDialog(kTemplate, nullptr) {}
ProgressBarDialog::~ProgressBarDialog() = default;

/// The frame around the dialog; null when that is no ProgressBar, or one that is being deleted.
ProgressBar* ProgressBarDialog::Frame() const {
    CWnd* parent = CWnd::FromHandlePermanent(::GetParent(m_hWnd));
    const bool isFrame = parent != nullptr && parent->IsKindOf(RUNTIME_CLASS(ProgressBar));
    return isFrame ? static_cast<ProgressBar*>(parent) : nullptr;
}

void ProgressBarDialog::OnDestroy() {
    ProgressBar* frame = Frame();
    if (frame != nullptr && frame->m_pProgressBarDialog == this) {
        frame->m_pProgressBarDialog = nullptr;
    }
    CDialog::OnDestroy();
}

void ProgressBarDialog::PostNcDestroy() {
    delete this;
}

void ProgressBarDialog::OnOK() {}

void ProgressBarDialog::OnCancel() {
    ProgressBar* frame = Frame();
    if (frame != nullptr) {
        frame->m_Abort = 1;
        frame->m_pProgressBarDialog = nullptr;
    }
    const HWND parent = ::GetParent(m_hWnd);
    if (parent != nullptr) {
        ::ShowWindow(parent, SW_HIDE);
    }
}

LRESULT ProgressBarDialog::OnUpdatePercent(WPARAM wParam, LPARAM /*lParam*/) {
    SetDlgItemText(kTextItem, platen::TextOfPercent(static_cast<int>(wParam)).data());
    return 1;
}
