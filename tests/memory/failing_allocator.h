#pragma once

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

}  // namespace platen::test
