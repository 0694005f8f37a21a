#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <limits>

#include "system.h"

namespace platen::tool {

namespace {

/// The next file that is opened would be read or written in the stream's place. What holds the
/// place instead cannot be used as the stream is used.
void HoldPlaceOf(int stream) {
    if (fcntl(stream, F_GETFD) == -1) {
        open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

}  // namespace

void PrepareStreams() {
    // A reader that goes away, or a file's size limit, is then reported by the write.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    // Each takes the lowest place that is free.
    HoldPlaceOf(STDIN_FILENO);
    HoldPlaceOf(STDOUT_FILENO);
    HoldPlaceOf(STDERR_FILENO);
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

std::string SystemErrorText(int systemError) {
    return std::strerror(systemError);
}

}  // namespace platen::tool
