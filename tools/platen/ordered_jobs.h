#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace platen::tool {

/// Jobs 0 to count - 1, worked on by several threads, the calling one among them; results are taken
/// in the order of the jobs. No more than twice as many jobs as threads are started ahead of the
/// one to be taken next, so one slow job does not let the results of all others pile up. Where the
/// system gives no more threads, fewer do the work.
template <typename Result>
class OrderedJobs {
  public:
    OrderedJobs(std::size_t count, unsigned threads, std::function<Result(std::size_t)> work)
        : m_count(count), m_work(std::move(work)), m_window(std::size_t{2} * threads) {
        m_threads.reserve(threads);
        try {
            for (unsigned i = 1; i < threads; ++i) {
                m_threads.emplace_back([this](const std::stop_token& stop) { RunJobs(stop); });
            }
        } catch (const std::exception&) {
            return;
        }
    }

    /// The next result in order; until it is there, the caller works on other jobs. Throws what the
    /// result's job threw.
    Result Take() {
        std::unique_lock lock(m_mutex);
        Slot& slot = m_window[m_taken % m_window.size()];
        while (!slot.IsFilled()) {
            if (MayStart()) {
                RunNext(lock);
            } else {
                m_finished.wait(lock);
            }
        }
        Slot taken = std::exchange(slot, Slot());
        const bool threadsMayWait = !MayStart();
        ++m_taken;
        lock.unlock();
        if (threadsMayWait) {
            m_taking.notify_one();
        }
        if (taken.thrown) {
            std::rethrow_exception(taken.thrown);
        }
        return *std::move(taken.result);
    }

  private:
    /// What a finished job gave; filling it takes no memory.
    struct Slot {
        std::optional<Result> result;
        std::exception_ptr thrown;

        [[nodiscard]] bool IsFilled() const { return result || thrown; }
    };

    [[nodiscard]] bool MayStart() const {
        return m_started < m_count && m_started < m_taken + m_window.size();
    }

    void RunNext(std::unique_lock<std::mutex>& lock) {
        const std::size_t job = m_started++;
        lock.unlock();
        Slot done;
        try {
            done.result.emplace(m_work(job));
        } catch (...) {
            done.thrown = std::current_exception();
        }
        lock.lock();
        m_window[job % m_window.size()] = std::move(done);
        if (job == m_taken) {
            m_finished.notify_one();
        }
    }

    void RunJobs(const std::stop_token& stop) {
        std::unique_lock lock(m_mutex);
        while (m_taking.wait(lock, stop, [this] { return MayStart(); }) && !stop.stop_requested()) {
            RunNext(lock);
        }
    }

    std::size_t m_count;
    std::function<Result(std::size_t)> m_work;
    std::vector<Slot> m_window;  ///< finished, not yet taken; slot by job number
    std::size_t m_started = 0;
    std::size_t m_taken = 0;
    std::mutex m_mutex;
    std::condition_variable m_finished;    ///< the job to be taken next
    std::condition_variable_any m_taking;  ///< makes room in the window
    std::vector<std::jthread> m_threads;   ///< last: stopped and joined before the rest goes
};

/// Runs `work(job)` for every job, on `threads` threads, and hands the results to `take(job,
/// result)` in order, on the calling thread, until that answers false. One thread, or one job, is
/// the calling thread itself.
template <typename Work, typename Take>
void RunInOrder(std::size_t count, unsigned threads, const Work& work, const Take& take) {
    using Result = std::invoke_result_t<Work, std::size_t>;
    if (threads <= 1 || count <= 1) {
        for (std::size_t job = 0; job < count && take(job, work(job)); ++job) {
        }
        return;
    }
    const std::size_t useful = std::min<std::size_t>(threads, count);
    OrderedJobs<Result> jobs(count, static_cast<unsigned>(useful), work);
    for (std::size_t job = 0; job < count && take(job, jobs.Take()); ++job) {
    }
}

}  // namespace platen::tool
