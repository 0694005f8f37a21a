#include "output.h"

#include <cstdio>

#include <platen/base/system_error.h>

#include "messages.h"
#include "shown_text.h"
#include "system.h"

namespace platen::tool {

Output::Output() : m_terminal(tool::IsTerminal(stdout)) {}

void Output::Write(std::string_view bytes) {
    if (!m_failed) {
        Check(std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size());
    }
}

void Output::WriteText(std::string_view text) {
    m_terminal ? Write(ShownText(text)) : Write(text);
}

void Output::WriteReport(std::string_view report) {
    m_terminal ? Write(ShownText(report, LineEnds::Kept)) : Write(report);
}

void Output::Flush() {
    if (!m_failed) {
        Check(std::fflush(stdout) == 0);
    }
}

/// Some file systems tell what went wrong only when a file is closed.
bool Output::Finish() {
    Flush();
    if (!m_failed) {
        Check(std::fclose(stdout) == 0);
    }
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
