#include <platen/base/status_bar.h>
#include <platen/base/system.h>
#include <platen/platform/afx/status_bar.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

using NumberText = std::array<char, 15>;

NumberText Grouped(std::uint64_t number) {
    NumberText text = {};
    BigNumToString(static_cast<LONG>(std::min<std::uint64_t>(number, INT32_MAX)), text.data());
    return text;
}

}  // namespace

int DisplayMemoryStatus() {
    // The system's own figures, since those of HowMuchMemory end at 4 GiB: as signed numbers they
    // would have no meaning from 2 GiB on.
    MEMORYSTATUS status = {};
    status.dwLength = sizeof(status);
    ::GlobalMemoryStatus(&status);
    const std::uint64_t total = status.dwTotalPageFile / 1024;
    const std::uint64_t available = status.dwAvailPageFile / 1024;
    CStatusBar* statusBar = platen::RegisteredStatusBar();
    if (statusBar == nullptr || available == 0 || available >= total) {
        return 0;
    }
    CString text;
    text.Format("Memory (Total = %sK, Available = %sK)", Grouped(total).data(),
                Grouped(available).data());
    if (statusBar->SetPaneText(1, text, TRUE) == FALSE) {
        return 0;  // the bar's window is gone, or has no such pane
    }
    statusBar->Invalidate(TRUE);
    return 1;
}
