#pragma once

#include <chrono>
#include <cstdint>

namespace platen::tool {

/// A bar on standard error, with rate and time left, for a transfer that lasts longer than a second
/// and when standard error is a terminal. It vanishes with the object.
class TransferProgress {
  public:
    using Clock = std::chrono::steady_clock;
    /// What tells the time.
    using Now = Clock::time_point (*)();

    TransferProgress();
    /// On standard error where `wanted`, whatever that is.
    TransferProgress(bool wanted, Now now);
    ~TransferProgress();
    TransferProgress(const TransferProgress&) = delete;
    TransferProgress& operator=(const TransferProgress&) = delete;

    /// Redraws the bar, unless it was drawn a moment ago. Bytes; `total` is not 0.
    void Show(std::int64_t done, std::int64_t total);

  private:
    bool m_wanted;
    Now m_now;
    bool m_visible = false;
    Clock::time_point m_start;
    Clock::time_point m_nextDraw;
};

}  // namespace platen::tool
