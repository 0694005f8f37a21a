#pragma once

#include <sys/types.h>

#include <functional>

#include "tests/support/run_program.h"

/// Running programs as Linux alone can.
namespace platen::test {

/// How a program is seen to its end: given its process, answers the status that `waitpid` gave.
using Watch = std::function<int(pid_t process)>;

/// Runs a program as RunProgram does, under a watch; a traced one waits for that to let it go on.
Outcome RunWatched(const std::string& program, const std::vector<std::string>& arguments,
                   const Streams& streams, bool traced, const Watch& watch);

/// Runs a program and holds it when it is about to write to a file, no standard stream, for the
/// `write`-th time: `act` is called with its process, which then goes on. Calls nothing when it
/// ends before.
Outcome RunHeld(const std::string& program, const std::vector<std::string>& arguments, int write,
                const std::function<void(pid_t process)>& act, const Streams& streams = {});

}  // namespace platen::test
