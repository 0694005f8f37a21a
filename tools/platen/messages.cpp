#include "messages.h"

#include <cstdio>

#include "shown_text.h"
#include "system.h"

namespace platen::tool {
namespace {

const char* Meaning(long status) {
    switch (status) {
        case 0:
            return "could not be opened";
        case -2:
            return "unsupported version";
        case -3:
            return "read failure or inconsistent file";
        case -4:
            return "memory exhausted, or a value that cannot be fetched";
        default:
            return "failed";
    }
}

}  // namespace

std::string WithReason(std::string_view what, std::optional<int> systemError) {
    std::string text(what);
    if (systemError.value_or(0) != 0) {
        text.append(": ").append(SystemErrorText(*systemError));
    }
    return text;
}

Problem ProblemOf(long status, std::optional<int> systemError) {
    return {status, WithReason(Meaning(status), systemError)};
}

void PrintProblem(std::string_view file, const Problem& problem) {
    std::string line = "platen: ";
    line.append(InMessage(file)).append(problem.isNote ? ": note: " : ": ").append(problem.what);
    if (problem.status != 1) {
        line.append(" (status ").append(std::to_string(problem.status)).append(")");
    }
    PrintToStandardError(line.append("\n"));
}

void PrintFailure(std::string_view file, long long dir, std::string_view what) {
    std::string line = "platen: ";
    line.append(InMessage(file)).append(": ");
    if (dir >= 0) {
        line.append("directory ").append(std::to_string(dir)).append(": ");
    }
    PrintToStandardError(line.append(what).append("\n"));
}

void PrintToStandardError(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stderr);
}

std::string InMessage(std::string_view text) {
    return IsTerminal(stderr) ? ShownText(text) : std::string(text);
}

}  // namespace platen::tool
