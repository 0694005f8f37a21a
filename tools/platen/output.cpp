#include "output.h"

#include <cstdio>

#include "messages.h"
#include "system.h"

namespace platen::tool {

Output::Output() : m_terminal(tool::IsTerminal(stdout)) {}

void Output::Write(std::string_view text) {
    if (!m_failed) {
        Check(std::fwrite(text.data(), 1, text.size(), stdout) == text.size());
    }
}

void Output::Flush() {
    if (!m_failed) {
        Check(std::fflush(stdout) == 0);
    }
}

bool Output::Finish() {
    Flush();
    return !m_failed;
}

void Output::Check(bool good) {
    if (!good) {
        const int error = SystemError();
        m_failed = true;
        PrintProblem("standard output", {-3, WithReason("could not be written", error)});
    }
}

}  // namespace platen::tool
