#pragma once

#include <cstddef>
#include <cstdio>
#include <string>

/// What the program asks of the system beside files.
namespace platen::tool {

/// Lets standard output and error carry every byte as it is, and a write to them that cannot
/// succeed, or to a file beyond its largest size, show as a failed write instead of ending the
/// program. Where a standard stream is closed, no file takes its place.
void PrepareStreams();

/// How many threads the program may use side by side.
[[nodiscard]] unsigned MostThreads();

[[nodiscard]] bool IsTerminal(std::FILE* stream);

/// How many columns the terminal behind standard error has; 0 when that cannot be asked.
[[nodiscard]] std::size_t TerminalColumns();

[[nodiscard]] std::string SystemErrorText(int systemError);

}  // namespace platen::tool
