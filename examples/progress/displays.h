#pragma once

#include <functional>

#include "examples/progress/long_job.h"

namespace example {

/// Which of the library's two progress displays a run uses.
enum class DisplayKind { Window, StatusBar };

/// What a run does by itself, at a whole percentage (-1: never): so that a script can look at a
/// display, or stop a run without a person.
struct Script {
    int holdAt = -1;    ///< goes on reporting and pumping, computes no more and tells of letters
    int escapeAt = -1;  ///< presses Escape
};

/// Computes the whole job. False when the user stopped it. `look` is called at each whole percent.
bool Run(LongJob& job, DisplayKind display, const Script& script,
         const std::function<void()>& look);

}  // namespace example
