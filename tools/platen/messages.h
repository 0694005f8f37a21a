#pragma once

#include <string>
#include <string_view>

/// What the program says on standard error.
namespace platen::tool {

/// What went wrong with a file; nothing when `what` is empty.
struct Problem {
    long status = 1;
    std::string what;
};

/// `what`, followed by the system's reason when there is one.
std::string WithReason(std::string_view what, int systemError);

/// What a status of the engine below 1 means.
Problem ProblemOf(long status, int systemError);

/// One line: `platen: FILE: what happened (status -3)`.
void PrintProblem(std::string_view file, const Problem& problem);

/// One line without a status: `platen: FILE: directory 2: what happened`; a negative number is no
/// directory.
void PrintFailure(std::string_view file, long long dir, std::string_view what);

/// Moves to the start of a terminal's line and erases it.
inline constexpr const char* kEraseLine = "\r\033[K";

/// Written at once and as a whole, so that lines of several processes do not mix.
void PrintToStandardError(std::string_view text);

}  // namespace platen::tool
