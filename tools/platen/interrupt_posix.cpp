#include <unistd.h>

#include <array>
#include <csignal>

#include "interrupt.h"

namespace platen::tool {
namespace {

constexpr std::array<int, 3> kSignals = {SIGINT, SIGTERM, SIGHUP};

/// How the signals were handled before there was a guard.
std::array<struct sigaction, kSignals.size()> g_before;
volatile std::sig_atomic_t g_signal = 0;
const char* volatile g_halfFile = nullptr;

void Note(int signal) {
    g_signal = signal;
}

/// The handler is gone when it runs, so that the signal raised anew has its usual effect.
void RemoveAndEnd(int signal) {
    unlink(g_halfFile);
    raise(signal);
}

}  // namespace

InterruptGuard::InterruptGuard(std::string halfFile) : m_halfFile(std::move(halfFile)) {
    struct sigaction action = {};
    action.sa_handler = Note;
    g_signal = 0;
    if (!m_halfFile.empty()) {
        g_halfFile = m_halfFile.c_str();
        action.sa_handler = RemoveAndEnd;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
    }
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
    if (Noted()) {
        raise(g_signal);
    }
}

bool InterruptGuard::Noted() {
    return g_signal != 0;
}

}  // namespace platen::tool
