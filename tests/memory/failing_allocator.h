#pragma once

#include <cstddef>

namespace platen::test {

/// Which of the coming allocations of this program fail: those of malloc, calloc, realloc and of
/// the `new` that does not throw.
struct Failure {
    int countdown = 0;      ///< allocations until the one that fails; 0: none fails
    bool lasting = false;   ///< all after it fail too
    bool happened = false;  ///< set when one has failed
    bool throwing = false;  ///< those of the `new` that throws count too
};

extern Failure g_failure;

/// What this thread has asked of the heap, in bytes.
struct HeapUse {
    std::size_t asked = 0;    ///< all that was ever asked for
    std::ptrdiff_t held = 0;  ///< what is not given back; negative for blocks of other origin
    std::ptrdiff_t most = 0;  ///< the highest that `held` was
};

extern thread_local constinit HeapUse g_heapUse;

}  // namespace platen::test
