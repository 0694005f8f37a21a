#pragma once

#include <array>

namespace platen {

/// Why an output is not to be had.
struct OutputFailure {
    const char* reason = nullptr;  ///< a constant text for people; null: nothing failed
    int systemError = 0;   ///< errno, on Windows the last error; 0: the system gave no reason
    bool isGuard = false;  ///< what stands there would suffer by it: may be insisted on
};

/// What a new file does not have of the one that it replaced: constant texts for people, up to the
/// first null.
using OutputNotes = std::array<const char*, 6>;

}  // namespace platen
