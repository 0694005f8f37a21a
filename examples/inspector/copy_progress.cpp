#include "examples/inspector/copy_progress.h"

#include <utility>

namespace inspector {
namespace {

constexpr std::chrono::milliseconds kPatience{200};

}  // namespace

CopyProgress::CopyProgress(QString title)
    : m_title(std::move(title)), m_due(Clock::now() + kPatience) {}

CopyProgress::~CopyProgress() {
    if (m_run != nullptr) {
        vExitModal(m_bar->m_hWnd);
    }
}

int CopyProgress::Report(void* context, std::int64_t done, std::int64_t total) {
    return static_cast<CopyProgress*>(context)->Show(done, total);
}

int CopyProgress::Show(std::int64_t done, std::int64_t total) {
    if (m_run == nullptr) {
        if (Clock::now() < m_due) {
            return 0;
        }
        m_bar = std::make_unique<ProgressBar>();
        m_run = std::make_unique<ProgressBarRun>(*m_bar, m_title.toUtf8().constData());
        vEnterModal(m_bar->m_hWnd);
    }
    const int percent = total > 0 ? static_cast<int>(done * 100 / total) : 0;
    const bool isNew = percent != m_shown;
    m_shown = percent;
    // A copy has less than 2 GiB.
    return m_bar->MonitorPercent(static_cast<unsigned long>(done), static_cast<long>(total),
                                 isNew ? 1 : 0);
}

}  // namespace inspector
