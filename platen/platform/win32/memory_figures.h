#pragma once

#include <cstdint>
#include <string>

namespace platen::win32 {

/// Bytes.
struct MemoryFigures {
    std::uint64_t totalPhysical = 0;
    std::uint64_t availablePhysical = 0;
    std::uint64_t totalSwap = 0;
    std::uint64_t availableSwap = 0;
};

/// What the process may use: the machine's memory as `processFolder` (/proc) tells it, cut to the
/// limits of the process's control group and the groups above it below `groupFolder`
/// (/sys/fs/cgroup), of version 2 or 1. All zero when the machine's memory cannot be read.
MemoryFigures ReadMemoryFigures(const std::string& processFolder, const std::string& groupFolder);

}  // namespace platen::win32
