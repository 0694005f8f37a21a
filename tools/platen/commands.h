#pragma once

#include <CLI/CLI.hpp>

/// The subcommands. Each adds itself to the program's command line and, when it is the one that was
/// asked for, runs at the end of parsing and stores the program's exit status.
namespace platen::tool {

enum ExitStatus : int {
    kDone = 0,
    kFileFailed = 1,  ///< a file could not be read or written
    kWrongUsage = 2
};

void AddDump(CLI::App& program, int& exitStatus);
void AddInfo(CLI::App& program, int& exitStatus);
void AddList(CLI::App& program, int& exitStatus);
void AddGet(CLI::App& program, int& exitStatus);
void AddSet(CLI::App& program, int& exitStatus);
void AddCopy(CLI::App& program, int& exitStatus);
void AddBlank(CLI::App& program, int& exitStatus);

}  // namespace platen::tool
