#include <platen/base/file_watch.h>

#include <atomic>

#include <platen/base/system_error.h>

namespace platen {
namespace {

thread_local constinit FileWatch* t_innermost = nullptr;
constinit std::atomic<bool> g_stopped = false;
static_assert(std::atomic<bool>::is_always_lock_free);

}  // namespace

FileWatch::FileWatch() : m_outer(t_innermost) {
    t_innermost = this;
}

FileWatch::~FileWatch() {
    t_innermost = m_outer;
}

void FileWatch::Note(Step step) {
    const int reason = step == Step::ReadToEnd ? 0 : SystemError();
    for (FileWatch* watch = t_innermost; watch != nullptr; watch = watch->m_outer) {
        std::optional<int>& first = watch->m_first[static_cast<std::size_t>(step)];
        if (!first) {
            first = reason;
        }
    }
}

void StopTransfers(bool stop) {
    g_stopped.store(stop, std::memory_order_relaxed);
}

bool AreTransfersStopped() {
    return g_stopped.load(std::memory_order_relaxed);
}

}  // namespace platen
