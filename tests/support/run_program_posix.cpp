#include "tests/support/run_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
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

int OpenTerminal() {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    return terminal >= 0 && grantpt(terminal) == 0 && unlockpt(terminal) == 0 ? terminal : -1;
}

/// What stands in the terminal's buffer once its other side is closed.
std::string ReadAll(int terminal) {
    std::string text;
    std::array<char, 4096> piece{};
    for (ssize_t got = 0; (got = read(terminal, piece.data(), piece.size())) > 0;) {
        text.append(piece.data(), static_cast<std::size_t>(got));
    }
    return text;
}

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
    const std::string outPath = streams.outPath.empty() ? outFile.Path() : streams.outPath;
    const int terminal = streams.errIsTerminal ? OpenTerminal() : -1;
    const char* errPath = streams.errIsTerminal ? ptsname(terminal) : errFile.Name();
    const int out =
        streams.outIsBroken ? OpenBrokenPipe() : open(outPath.c_str(), O_WRONLY | O_CLOEXEC);
    const int err = open(errPath, O_WRONLY | O_NOCTTY | O_CLOEXEC);
    Outcome outcome;
    outcome.exitStatus = Spawn(program, arguments, out, err);
    close(out);
    close(err);
    outcome.out = outFile.Contents();
    outcome.err = streams.errIsTerminal ? ReadAll(terminal) : errFile.Contents();
    close(terminal);
    return outcome;
}

}  // namespace platen::test
