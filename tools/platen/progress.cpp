#include "progress.h"

#include <string>

#include "messages.h"
#include "system.h"

namespace platen::tool {

Progress::Progress(std::size_t files) : m_files(files), m_wanted(files > 1 && IsTerminal(stderr)) {}

void Progress::Show(std::size_t done) {
    if (!m_wanted || Clock::now() < m_nextDraw) {
        return;
    }
    PrintToStandardError("\rplaten: " + std::to_string(done) + " of " + std::to_string(m_files) +
                         " files");
    m_visible = true;
    m_nextDraw = Clock::now() + kRedrawInterval;
}

void Progress::Clear() {
    if (m_visible) {
        PrintToStandardError(kEraseLine);
        m_visible = false;
    }
}

}  // namespace platen::tool
