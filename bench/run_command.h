#pragma once

#include <string>
#include <vector>

/// Whole processes, timed from outside.
namespace platen::bench {

inline constexpr const char* kNowhere = "/dev/null";

/// A program with its arguments, and where its output goes.
struct Command {
    std::vector<std::string> words;
    std::string output = kNowhere;
    std::string created = {};  ///< a file that it writes itself
};

struct Usage {
    double elapsed = 0;    ///< milliseconds from before its start until after its end
    double processor = 0;  ///< milliseconds, user and system
    double mebibytes = 0;  ///< at most resident
};

struct Pair {
    Usage first;
    Usage second;
};

/// Both commands in turn, after one run of each that does not count. Throws when one of them fails.
Pair RunInTurn(const Command& first, const Command& second, int times);

}  // namespace platen::bench
