#include "tests/support/run_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

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

/// A terminal, which passes every byte as it is.
class Terminal {
  public:
    Terminal() : m_terminal(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
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

int Spawn(const std::string& program, const std::vector<std::string>& arguments, int out, int err) {
    std::vector<char*> words = {const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, out, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, err, STDERR_FILENO);
    pid_t child = -1;
    const int failure =
        posix_spawn(&child, program.c_str(), &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = -1;
    if (failure != 0 || waitpid(child, &status, 0) != child) {
        return -1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

Outcome RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const Streams& streams) {
    const TemporaryFile outFile;
    const TemporaryFile errFile;
    const Terminal outTerminal;
    const Terminal errTerminal;
    std::string outPath = streams.outPath.empty() ? outFile.Path() : streams.outPath;
    if (streams.outIsTerminal) {
        outPath = outTerminal.Name();
    }
    const std::string errPath = streams.errIsTerminal ? errTerminal.Name() : errFile.Path();
    constexpr int kFlags = O_WRONLY | O_NOCTTY | O_CLOEXEC;
    const int out = streams.outIsBroken ? OpenBrokenPipe() : open(outPath.c_str(), kFlags);
    const int err = open(errPath.c_str(), kFlags);
    Outcome outcome;
    outcome.exitStatus = Spawn(program, arguments, out, err);
    close(out);
    close(err);
    outcome.out = streams.outIsTerminal ? outTerminal.Contents() : outFile.Contents();
    outcome.err = streams.errIsTerminal ? errTerminal.Contents() : errFile.Contents();
    return outcome;
}

}  // namespace platen::test
