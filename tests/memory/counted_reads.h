#pragma once

#include <cstddef>

namespace platen::test {

/// What this program has asked of files: the linker sends its calls of `pread` through a counter.
struct FileUse {
    std::size_t reads = 0;
    std::size_t bytes = 0;
};

extern FileUse g_fileUse;

}  // namespace platen::test
