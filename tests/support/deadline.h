#pragma once

#include <chrono>

namespace platen::test {

/// The end of waiting for an event that has to come: far later than on any machine, however busy.
class Deadline {
  public:
    [[nodiscard]] bool IsOver() const { return Clock::now() >= m_end; }

  private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point m_end = Clock::now() + std::chrono::minutes(1);
};

}  // namespace platen::test
