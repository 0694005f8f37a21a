#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <limits>

#include "system.h"

namespace platen::tool {

void PrepareStreams() {
    // A reader that goes away, or a file's size limit, is then reported by the write.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

unsigned MostThreads() {
    return std::numeric_limits<unsigned>::max();
}

bool IsTerminal(std::FILE* stream) {
    return isatty(fileno(stream)) != 0;
}

std::size_t TerminalColumns() {
    winsize size = {};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

int SystemError() {
    return errno;
}

void ClearSystemError() {
    errno = 0;
}

std::string SystemErrorText(int systemError) {
    return std::strerror(systemError);
}

}  // namespace platen::tool
