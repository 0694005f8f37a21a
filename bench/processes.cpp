#include <bench/processes.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include <bench/scratch.h>

namespace platen::bench {
namespace {

constexpr double kMebibyte = 1 << 20;
constexpr const char* kNowhere = "/dev/null";

/// A program with its arguments, and where its output goes.
struct Command {
    std::vector<std::string> words;
    std::string output;
};

struct Usage {
    double elapsed = 0;    ///< milliseconds from before its start until after its end
    double processor = 0;  ///< milliseconds, user and system
    double mebibytes = 0;  ///< at most resident
};

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
    if (command.output != kNowhere) {
        // Each run writes a new file: giving back the last one's pages is not its work.
        std::filesystem::remove(command.output);
    }
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
    return {elapsed.count(), Milliseconds(usage.ru_utime) + Milliseconds(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) * 1024 / kMebibyte};
}

double Median(std::vector<Usage> runs, double Usage::*value) {
    const auto middle = runs.begin() + static_cast<std::ptrdiff_t>(runs.size() / 2);
    std::ranges::nth_element(runs, middle, {}, value);
    return (*middle).*value;
}

/// Median times, and the most memory.
Usage Summary(const std::vector<Usage>& runs) {
    return {Median(runs, &Usage::elapsed), Median(runs, &Usage::processor),
            std::ranges::max_element(runs, {}, &Usage::mebibytes)->mebibytes};
}

struct Pair {
    Usage first;
    Usage second;
};

/// Both commands in turn, after one run of each that does not count.
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
    return {Summary(firsts), Summary(seconds)};
}

double SizeOf(const std::string& path) {
    return static_cast<double>(std::filesystem::file_size(path)) / kMebibyte;
}

const char* Verdict(bool met) {
    return met ? "met" : "MISSED";
}

void PrintTimes(const char* what, const Usage& usage) {
    std::printf("%-28s %9.3f ms of processor time, %9.3f ms elapsed\n", what, usage.processor,
                usage.elapsed);
}

void CompareDumps(const std::string& program, const Scratch& scratch) {
    const std::string file =
        scratch.Write("many.tif", {32000, test::PageLayout::ValuesBehind, false});
    const Command dump{{program, "dump", file}, scratch.Path("dump.txt")};
    const Command tiffdump{{"tiffdump", file}, scratch.Path("tiffdump.txt")};
    const auto [platen, libtiff] = RunInTurn(dump, tiffdump, 7);
    const double ratio = libtiff.processor / platen.processor;
    PrintTimes("platen dump, 32,000 pages", platen);
    PrintTimes("tiffdump, the same file", libtiff);
    std::printf("%-28s %.2f times (elapsed %.2f); at least 5: %s\n", "", ratio,
                libtiff.elapsed / platen.elapsed, Verdict(ratio >= 5));
    const double fileSize = SizeOf(file);
    const double reportSize = SizeOf(dump.output);
    const double allowed = 3 * fileSize + reportSize + 30;
    std::printf("%-28s %.2f MiB; at most %.2f (file %.2f, report %.2f): %s\n",
                "memory of platen dump", platen.mebibytes, allowed, fileSize, reportSize,
                Verdict(platen.mebibytes <= allowed));
}

void CompareStarts(const std::string& program, const Scratch& scratch) {
    const std::string file = scratch.Write("small.tif", {});
    const Command info{{program, "info", file}, kNowhere};
    const Command nothing{{PLATEN_BENCH_NOTHING}, kNowhere};
    const auto [platen, least] = RunInTurn(info, nothing, 301);
    const double ratio = platen.elapsed / least.elapsed;
    PrintTimes("platen info, one page", platen);
    PrintTimes("a program that does nothing", least);
    std::printf("%-28s %.2f times elapsed; at most 1.5: %s\n", "", ratio, Verdict(ratio <= 1.5));
}

}  // namespace

int CompareProcesses(const char* program) {
    const Scratch scratch;
    CompareDumps(program, scratch);
    CompareStarts(program, scratch);
    std::printf("Medians of times; memory is the most that was resident.\n");
    return 0;
}

}  // namespace platen::bench
