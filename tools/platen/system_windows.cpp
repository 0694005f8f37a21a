#include <fcntl.h>
#include <io.h>

#include <system_error>

#include <platen/platform/win32.h>

#include "system.h"

namespace platen::tool {
namespace {

HANDLE ErrorHandle() {
    return GetStdHandle(STD_ERROR_HANDLE);
}

/// Lets the console understand the sequence that erases a line.
void UnderstandSequences(HANDLE console) {
    DWORD mode = 0;
    if (GetConsoleMode(console, &mode) != FALSE) {
        SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    }
}

}  // namespace

void PrepareStreams() {
    // Lines end as they are written, without a carriage return of the runtime library's.
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    UnderstandSequences(ErrorHandle());
}

/// Under Wine two threads of this runtime (mingw-w64 10) have been seen to wait for each other for
/// ever, so files are taken one after the other.
unsigned MostThreads() {
    return 1;
}

bool IsTerminal(std::FILE* stream) {
    return _isatty(_fileno(stream)) != 0;
}

std::size_t TerminalColumns() {
    CONSOLE_SCREEN_BUFFER_INFO information = {};
    return GetConsoleScreenBufferInfo(ErrorHandle(), &information) == FALSE
               ? 0
               : static_cast<std::size_t>(information.srWindow.Right - information.srWindow.Left +
                                          1);
}

std::string SystemErrorText(int systemError) {
    return std::system_category().message(systemError);
}

}  // namespace platen::tool
