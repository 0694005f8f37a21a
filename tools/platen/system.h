#pragma once

#include <cstddef>
#include <cstdio>
#include <string>

/// What the program asks of the system beside files.
namespace platen::tool {

/// Lets standard output and error carry every byte as it is, and a write to them that cannot
/// succeed show as a failed write instead of ending the program.
void PrepareStreams();

/// How many threads the program may use side by side.
[[nodiscard]] unsigned MostThreads();

[[nodiscard]] bool IsTerminal(std::FILE* stream);

/// How many columns the terminal behind standard error has; 0 when that cannot be asked.
[[nodiscard]] std::size_t TerminalColumns();

/// The system's number for what failed last in this thread; 0 when nothing did since it was
/// cleared.
[[nodiscard]] int SystemError();
void ClearSystemError();
[[nodiscard]] std::string SystemErrorText(int systemError);

}  // namespace platen::tool
