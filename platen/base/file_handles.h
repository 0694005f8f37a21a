#pragma once

#include <atomic>

#include <platen/platform/win32.h>

/// What the handles of the FILE_ functions can do and the platform's cannot on every system: become
/// handles of another file. On Linux the handle itself does. Windows does not replace a file that
/// is open: there the handle lets its file go, and then leads to a handle of the other one. It is a
/// handle for the FILE_ functions alone from then on.
namespace platen {

/// Closes a handle; false when that failed, or when it names no open file.
bool EndHandle(void* file);

/// A handle just opened, or another one of the same file in its place: its value must not be one
/// that leads to another.
HFILE FreshHandle(HFILE file);

/// How many handles lead to others.
extern std::atomic<int> g_leadingHandles;
void* WhereItLeads(void* file);

/// The platform's handle behind `file`.
inline void* PlatformHandle(void* file) {
    return g_leadingHandles.load(std::memory_order_relaxed) == 0 ? file : WhereItLeads(file);
}

}  // namespace platen
