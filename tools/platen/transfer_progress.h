#pragma once

#include <chrono>
#include <cstdint>

namespace platen::tool {

/// A bar on standard error, with rate and time left, for a transfer that lasts longer than a second
/// and when standard error is a terminal. It vanishes with the object.
class TransferProgress {
  public:
    TransferProgress();
    ~TransferProgress();
    TransferProgress(const TransferProgress&) = delete;
    TransferProgress& operator=(const TransferProgress&) = delete;

    /// Redraws the bar, unless it was drawn a moment ago. Bytes; `total` is not 0.
    void Show(std::int64_t done, std::int64_t total);

  private:
    using Clock = std::chrono::steady_clock;

    bool m_wanted;
    bool m_visible = false;
    Clock::time_point m_start;
    Clock::time_point m_nextDraw;
};

}  // namespace platen::tool
