#pragma once

#include <string>
#include <vector>

namespace platen::test {

/// Where a program's standard output and error go; both are captured unless something else is said.
struct Streams {
    std::string outPath = {};    ///< an existing file or device instead
    bool outIsBroken = false;    ///< a pipe that nobody reads instead
    bool outIsTerminal = false;  ///< what is written to the terminal is captured; not on Windows
    bool errIsTerminal = false;  ///< the same
};

struct Outcome {
    int exitStatus = -1;  ///< -1: not started, or ended by a signal
    int signal = 0;       ///< that ended it; not on Windows
    std::string out;
    std::string err;
};

/// Runs a program to its end, with empty standard input.
Outcome RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const Streams& streams = {});

}  // namespace platen::test
