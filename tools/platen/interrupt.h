#pragma once

#include <string>

namespace platen::tool {

/// While it lives, an interrupt from the keyboard or a request to end does not end the program at
/// once, so that no half file is left. One object at a time.
class InterruptGuard {
  public:
    /// Interrupts are noted, for work that looks at `Noted`.
    InterruptGuard() : InterruptGuard(std::string()) {}
    /// For work that cannot be stopped: an interrupt removes the half file and ends the program, on
    /// Windows, where an open file cannot be removed, once the work is done. An empty name is no
    /// file.
    explicit InterruptGuard(std::string halfFile);
    /// An interrupt that was noted now has its effect, which as a rule ends the program.
    ~InterruptGuard();
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;

    [[nodiscard]] static bool Noted();

  private:
    std::string m_halfFile;
};

}  // namespace platen::tool
