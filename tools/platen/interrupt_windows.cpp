#include <atomic>
#include <cstdio>

#include <platen/platform/win32.h>

#include "interrupt.h"

namespace platen::tool {
namespace {

constexpr UINT kEndedByInterrupt = 0xC000013A;  // the status that the system itself gives

std::atomic<bool> g_noted = false;

/// The system calls it in a thread of its own.
BOOL WINAPI Note(DWORD /*event*/) {
    g_noted = true;
    return TRUE;
}

}  // namespace

InterruptGuard::InterruptGuard(std::string halfFile) : m_halfFile(std::move(halfFile)) {
    g_noted = false;
    SetConsoleCtrlHandler(&Note, TRUE);
}

InterruptGuard::~InterruptGuard() {
    SetConsoleCtrlHandler(&Note, FALSE);
    if (Noted()) {
        if (!m_halfFile.empty()) {
            std::remove(m_halfFile.c_str());
        }
        ExitProcess(kEndedByInterrupt);
    }
}

bool InterruptGuard::Noted() {
    return g_noted;
}

}  // namespace platen::tool
