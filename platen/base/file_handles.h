#pragma once

#include <atomic>

#include <platen/platform/win32.h>

/// What the handles of the FILE_ functions can do and the platform's cannot on every system: go
/// over to another file while they are open. On Linux the handle itself becomes one of the other
/// file. On Windows it leads to a handle of that file from then on, and closing it closes both; so
/// handles that went over are used through the FILE_ functions alone.
namespace platen {

/// Opens an existing file as `_lopen` does. On Windows the file can be replaced while it is open,
/// unless the mode denies something to others.
HFILE OpenExisting(const char* name, LONG mode);

/// Makes `file` a handle of the file that `other` is of, at its start, and ends `other`, whose
/// access it takes. False when that failed: `file` is what it was, and `other` the caller's.
bool GoOver(void* file, void* other);

/// Closes a handle; false when that failed, or when it names no open file.
bool EndHandle(void* file);

/// A handle just opened leads nowhere yet: one of the same value, closed by other means than
/// FILE_close, may have.
void ForgetLead(void* file);

/// How many open handles lead to others.
extern std::atomic<int> g_leadingHandles;
void* WhereItLeads(void* file);

/// The platform's handle behind `file`.
inline void* PlatformHandle(void* file) {
    return g_leadingHandles.load(std::memory_order_relaxed) == 0 ? file : WhereItLeads(file);
}

}  // namespace platen
