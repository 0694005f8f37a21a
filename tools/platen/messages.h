#pragma once

#include <optional>
#include <string>
#include <string_view>

/// What the program says on standard error. On a terminal, control characters in names are shown
/// escaped.
namespace platen::tool {

/// What is to be said of a file; nothing when `what` is empty.
struct Problem {
    long status = 1;  ///< the engine's; 1 is not said
    std::string what;
    bool isNote = false;  ///< the file was read all the same

    [[nodiscard]] bool Failed() const { return !what.empty() && !isNote; }
};

inline constexpr const char* kNoMemory = "memory is exhausted";

/// `what`, followed by the system's reason when there is one.
std::string WithReason(std::string_view what, std::optional<int> systemError);

/// What a status of the engine below 1 means.
Problem ProblemOf(long status, std::optional<int> systemError);

/// One line: `platen: FILE: what happened (status -3)`.
void PrintProblem(std::string_view file, const Problem& problem);

/// One line without a status: `platen: FILE: directory 2: what happened`; a negative number is no
/// directory.
void PrintFailure(std::string_view file, long long dir, std::string_view what);

/// Moves to the start of a terminal's line and erases it.
inline constexpr const char* kEraseLine = "\r\033[K";

/// Written at once and as a whole, so that lines of several processes do not mix.
void PrintToStandardError(std::string_view text);

/// A text from elsewhere, as it may stand in a message.
std::string InMessage(std::string_view text);

}  // namespace platen::tool
