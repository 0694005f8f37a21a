#pragma once

namespace platen::tool {

/// While it lives, an interrupt from the keyboard or a request to end does not end the program at
/// once, so that no half file is left: it is noted, and no file is read or written any more, so
/// that the work ends by its failure. One object at a time.
class InterruptGuard {
  public:
    InterruptGuard();
    /// An interrupt that was noted now has its effect, which as a rule ends the program.
    ~InterruptGuard();
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;

    [[nodiscard]] static bool Noted();
};

}  // namespace platen::tool
