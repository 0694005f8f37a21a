#pragma once

#include <array>
#include <csignal>
#include <string>

namespace platen::tool {

/// While it lives, SIGINT, SIGTERM and SIGHUP do not end the program at once, so that no half file
/// is left. One object at a time.
class InterruptGuard {
  public:
    /// Signals are noted, for work that looks at `Noted`.
    InterruptGuard() : InterruptGuard(std::string()) {}
    /// For work that cannot be stopped: a signal removes the half file and ends the program. An
    /// empty name is no file.
    explicit InterruptGuard(std::string halfFile);
    /// A signal that was noted now has its effect, which as a rule ends the program.
    ~InterruptGuard();
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;

    [[nodiscard]] static bool Noted();

  private:
    static constexpr std::array<int, 3> kSignals = {SIGINT, SIGTERM, SIGHUP};

    std::string m_halfFile;
    std::array<struct sigaction, kSignals.size()> m_before{};
};

}  // namespace platen::tool
