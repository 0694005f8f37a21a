#include <bench/run_command.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace platen::bench {
namespace {

constexpr double kMebibyte = 1 << 20;

double Milliseconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

class OutputTo {
  public:
    explicit OutputTo(const std::string& path) {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, path.c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
    }
    ~OutputTo() { posix_spawn_file_actions_destroy(&m_actions); }
    OutputTo(const OutputTo&) = delete;
    OutputTo& operator=(const OutputTo&) = delete;

    [[nodiscard]] const posix_spawn_file_actions_t* Get() const { return &m_actions; }

  private:
    posix_spawn_file_actions_t m_actions{};
};

Usage Run(Command command) {
    std::vector<char*> words;
    for (std::string& word : command.words) {
        words.push_back(word.data());
    }
    words.push_back(nullptr);
    // Each run writes a new file: giving back the last one's pages is not its work.
    if (command.output != kNowhere) {
        std::filesystem::remove(command.output);
    }
    std::filesystem::remove(command.created);
    const OutputTo output(command.output);
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    const int failure =
        posix_spawnp(&child, words[0], output.Get(), nullptr, words.data(), environ);
    if (failure != 0) {
        throw std::system_error(failure, std::generic_category(), command.words[0]);
    }
    int status = 0;
    rusage usage{};
    while (wait4(child, &status, 0, &usage) < 0) {
        if (errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "wait4");
        }
    }
    const std::chrono::duration<double, std::milli> elapsed =
        std::chrono::steady_clock::now() - start;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw std::runtime_error(command.words[0] + " failed");
    }
    return {elapsed.count(), Milliseconds(usage.ru_utime) + Milliseconds(usage.ru_stime), 0};
}

double Median(std::vector<Usage> runs, double Usage::*value) {
    const auto middle = runs.begin() + static_cast<std::ptrdiff_t>(runs.size() / 2);
    std::ranges::nth_element(runs, middle, {}, value);
    return (*middle).*value;
}

/// What a child of this process is said to have used includes this process, from which it was
/// forked; a small program between the two measures the child alone.
double PeakMemory(const Command& command) {
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("platen-bench-" + std::to_string(getpid()));
    Command measured = command;
    measured.words.insert(measured.words.begin(), {PLATEN_BENCH_MEASURE, file.string()});
    Run(measured);
    double kibibytes = 0;
    std::ifstream(file) >> kibibytes;
    std::filesystem::remove(file);
    return kibibytes * 1024 / kMebibyte;
}

Usage Summary(const std::vector<Usage>& runs, double mebibytes) {
    return {Median(runs, &Usage::elapsed), Median(runs, &Usage::processor), mebibytes};
}

}  // namespace

Pair RunInTurn(const Command& first, const Command& second, int times) {
    std::vector<Usage> firsts;
    std::vector<Usage> seconds;
    for (int i = 0; i <= times; ++i) {
        const Usage one = Run(first);
        const Usage other = Run(second);
        if (i > 0) {
            firsts.push_back(one);
            seconds.push_back(other);
        }
    }
    return {Summary(firsts, PeakMemory(first)), Summary(seconds, PeakMemory(second))};
}

}  // namespace platen::bench
