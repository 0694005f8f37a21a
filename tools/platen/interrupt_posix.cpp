#include <array>
#include <csignal>

#include <platen/base/file_watch.h>

#include "interrupt.h"

namespace platen::tool {
namespace {

constexpr std::array<int, 3> kSignals = {SIGINT, SIGTERM, SIGHUP};

/// How the signals were handled before there was a guard.
std::array<struct sigaction, kSignals.size()> g_before;
volatile std::sig_atomic_t g_signal = 0;

void Note(int signal) {
    g_signal = signal;
    StopTransfers(true);
}

}  // namespace

InterruptGuard::InterruptGuard() {
    struct sigaction action = {};
    action.sa_handler = Note;
    g_signal = 0;
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        sigaction(kSignals[i], nullptr, &g_before[i]);
        // Who started the program may want it to go on, as nohup does.
        if (g_before[i].sa_handler != SIG_IGN) {
            sigaction(kSignals[i], &action, nullptr);
        }
    }
}

InterruptGuard::~InterruptGuard() {
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        sigaction(kSignals[i], &g_before[i], nullptr);
    }
    StopTransfers(false);
    if (Noted()) {
        raise(g_signal);
    }
}

bool InterruptGuard::Noted() {
    return g_signal != 0;
}

}  // namespace platen::tool
