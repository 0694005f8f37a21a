#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "tests/support/held_program.h"
#include "tests/support/temporary_file.h"

namespace platen::test {
namespace {

int OpenBrokenPipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return -1;
    }
    close(ends[0]);
    return ends[1];
}

/// The same file behind a number that is no standard stream's, which may be free. Without the file
/// no test has a meaning.
int AboveStreams(int descriptor) {
    const int above = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (above < 0) {
        std::perror("a stream for a program");
        std::abort();
    }
    close(descriptor);
    return above;
}

/// A terminal, which passes every byte as it is.
class Terminal {
  public:
    Terminal() : m_terminal(AboveStreams(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))) {
        grantpt(m_terminal);
        unlockpt(m_terminal);
        termios settings = {};
        tcgetattr(m_terminal, &settings);
        cfmakeraw(&settings);
        tcsetattr(m_terminal, TCSANOW, &settings);
    }
    ~Terminal() { close(m_terminal); }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    [[nodiscard]] std::string Name() const { return ptsname(m_terminal); }
    /// What stands in its buffer once the other side is closed.
    [[nodiscard]] std::string Contents() const {
        std::string text;
        std::array<char, 4096> piece{};
        for (ssize_t got = 0; (got = read(m_terminal, piece.data(), piece.size())) > 0;) {
            text.append(piece.data(), static_cast<std::size_t>(got));
        }
        return text;
    }

  private:
    int m_terminal;
};

/// In the new process. Signals are as they are by default: who runs the tests may ignore some.
[[noreturn]] void Become(char** words, int in, int out, int err, bool traced) {
    dup2(in, STDIN_FILENO);
    dup2(out, STDOUT_FILENO);
    dup2(err, STDERR_FILENO);
    for (const int signal : {SIGHUP, SIGINT, SIGTERM, SIGPIPE, SIGXFSZ}) {
        static_cast<void>(std::signal(signal, SIG_DFL));
    }
    if (!traced || ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0) {
        execv(words[0], words);
    }
    _exit(127);
}

pid_t Start(const std::string& program, const std::vector<std::string>& arguments, int out, int err,
            bool traced) {
    std::vector<char*> words = {const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);
    const int in = AboveStreams(open("/dev/null", O_RDONLY | O_CLOEXEC));
    const pid_t child = fork();
    if (child == 0) {
        Become(words.data(), in, out, err, traced);
    }
    close(in);
    return child;
}

}  // namespace

Outcome RunWatched(const std::string& program, const std::vector<std::string>& arguments,
                   const Streams& streams, bool traced, const Watch& watch) {
    const TemporaryFile outFile;
    const TemporaryFile errFile;
    const auto outTerminal = streams.outIsTerminal ? std::make_unique<Terminal>() : nullptr;
    const auto errTerminal = streams.errIsTerminal ? std::make_unique<Terminal>() : nullptr;
    std::string outPath = streams.outPath.empty() ? outFile.Path() : streams.outPath;
    if (outTerminal != nullptr) {
        outPath = outTerminal->Name();
    }
    const std::string errPath = errTerminal != nullptr ? errTerminal->Name() : errFile.Path();
    constexpr int kFlags = O_WRONLY | O_NOCTTY | O_CLOEXEC;
    const int out =
        AboveStreams(streams.outIsBroken ? OpenBrokenPipe() : open(outPath.c_str(), kFlags));
    const int err = AboveStreams(open(errPath.c_str(), kFlags));
    const int status = watch(Start(program, arguments, out, err, traced));
    close(out);
    close(err);
    Outcome outcome;
    outcome.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    outcome.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    outcome.out = outTerminal != nullptr ? outTerminal->Contents() : outFile.Contents();
    outcome.err = errTerminal != nullptr ? errTerminal->Contents() : errFile.Contents();
    return outcome;
}

Outcome RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const Streams& streams) {
    return RunWatched(program, arguments, streams, false, [](pid_t process) {
        int status = 0;
        return waitpid(process, &status, 0) == process ? status : -1;
    });
}

}  // namespace platen::test
