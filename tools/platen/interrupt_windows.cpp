#include <atomic>

#include <platen/base/file_watch.h>
#include <platen/platform/win32.h>

#include "interrupt.h"

namespace platen::tool {
namespace {

constexpr UINT kEndedByInterrupt = 0xC000013A;  // the status that the system itself gives

std::atomic<bool> g_noted = false;

/// The system calls it in a thread of its own.
BOOL WINAPI Note(DWORD /*event*/) {
    g_noted = true;
    StopTransfers(true);
    return TRUE;
}

}  // namespace

InterruptGuard::InterruptGuard() {
    g_noted = false;
    SetConsoleCtrlHandler(&Note, TRUE);
}

InterruptGuard::~InterruptGuard() {
    SetConsoleCtrlHandler(&Note, FALSE);
    StopTransfers(false);
    if (Noted()) {
        ExitProcess(kEndedByInterrupt);
    }
}

bool InterruptGuard::Noted() {
    return g_noted;
}

}  // namespace platen::tool
