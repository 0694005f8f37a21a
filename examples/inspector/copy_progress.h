#pragma once

#include <QString>
#include <chrono>
#include <cstdint>
#include <memory>

#include <platen/progress/progress_bar.h>
#include <platen/ui/base_modal.h>

namespace inspector {

/// The library's progress window for a copy that takes longer than a moment. While it is there, the
/// application's other windows take no input; Escape stops the copy.
class CopyProgress : private CXBaseModal {
  public:
    explicit CopyProgress(QString title);
    ~CopyProgress();
    CopyProgress(const CopyProgress&) = delete;
    CopyProgress& operator=(const CopyProgress&) = delete;

    /// For TiffCopy::CopyTo, with the object as the context.
    static int Report(void* context, std::int64_t done, std::int64_t total);

  private:
    int Show(std::int64_t done, std::int64_t total);

    using Clock = std::chrono::steady_clock;

    QString m_title;
    Clock::time_point m_due;  ///< when the window is to appear
    std::unique_ptr<ProgressBar> m_bar;
    std::unique_ptr<ProgressBarRun> m_run;
    int m_shown = -1;  ///< percent
};

}  // namespace inspector
