#include "tests/support/held_program.h"

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace platen::test {
namespace {

/// How a stop at a system call differs from one by a signal.
constexpr int kAtCall = SIGTRAP | 0x80;

bool IsAboutToWrite(pid_t process) {
    __ptrace_syscall_info call{};
    // The size stands where the call takes an address.
    ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof(call), &call);
    if (call.op != PTRACE_SYSCALL_INFO_ENTRY) {
        return false;
    }
    switch (call.entry.nr) {
        case SYS_write:
        case SYS_pwrite64:
        case SYS_writev:
        case SYS_pwritev:
        case SYS_sendfile:
            return call.entry.args[0] > STDERR_FILENO;
        default:
            return call.entry.nr == SYS_copy_file_range;
    }
}

/// Lets a traced process go on to its next call, or to its end. The status of that.
int GoOn(pid_t process, int signal) {
    int status = 0;
    ptrace(PTRACE_SYSCALL, process, nullptr, signal);
    return waitpid(process, &status, 0) == process ? status : -1;
}

int HoldOnce(pid_t process, int write, const std::function<void(pid_t)>& act) {
    int status = 0;
    if (waitpid(process, &status, 0) != process || !WIFSTOPPED(status)) {
        return status;
    }
    ptrace(PTRACE_SETOPTIONS, process, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    int writes = 0;
    for (status = GoOn(process, 0); WIFSTOPPED(status);) {
        const int stop = WSTOPSIG(status);
        if (stop == kAtCall && IsAboutToWrite(process) && ++writes == write) {
            act(process);
            ptrace(PTRACE_DETACH, process, nullptr, 0);
            return waitpid(process, &status, 0) == process ? status : -1;
        }
        status = GoOn(process, stop == kAtCall || stop == SIGTRAP ? 0 : stop);
    }
    return status;
}

}  // namespace

Outcome RunHeld(const std::string& program, const std::vector<std::string>& arguments, int write,
                const std::function<void(pid_t)>& act, const Streams& streams) {
    return RunWatched(program, arguments, streams, true,
                      [&](pid_t process) { return HoldOnce(process, write, act); });
}

}  // namespace platen::test
