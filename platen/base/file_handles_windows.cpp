#include <platen/base/file_handles.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <new>
#include <vector>

#include <platen/base/leading_handles_windows.h>

namespace platen {
namespace {

struct LeadingHandle {
    void* value;
    void* leadsTo;
    bool isHeld;  ///< by a handle of our own, so that the system gives it to nobody
};

std::mutex g_mutex;
std::vector<LeadingHandle> g_leads;

std::vector<LeadingHandle>::iterator Find(void* value) {
    return std::ranges::find(g_leads, value, &LeadingHandle::value);
}

HFILE ValueOf(HANDLE file) {
    return static_cast<HFILE>(reinterpret_cast<std::intptr_t>(file));
}

/// Opens handles of something else until one of them has the value that was just given up, which
/// the system soon gives out again.
bool HoldValue(void* value) {
    std::array<HANDLE, 256> opened = {};
    std::size_t count = 0;
    bool isHeld = false;
    while (!isHeld && count < opened.size()) {
        HANDLE next = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        if (next == nullptr) {
            break;
        }
        isHeld = next == value;
        if (!isHeld) {
            opened[count++] = next;
        }
    }
    std::for_each_n(opened.begin(), count, [](HANDLE handle) { CloseHandle(handle); });
    return isHeld;
}

}  // namespace

constinit std::atomic<int> g_leadingHandles = 0;

void* WhereItLeads(void* file) {
    const std::lock_guard lock(g_mutex);
    const auto lead = Find(file);
    return lead == g_leads.end() ? file : lead->leadsTo;
}

bool LetGo(void* file) {
    const std::lock_guard lock(g_mutex);
    const auto lead = Find(file);
    if (lead != g_leads.end()) {
        CloseHandle(lead->leadsTo);
        lead->leadsTo = INVALID_HANDLE_VALUE;
        return true;
    }
    try {
        g_leads.push_back({file, INVALID_HANDLE_VALUE, false});
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return false;
    }
    ++g_leadingHandles;
    CloseHandle(file);
    g_leads.back().isHeld = HoldValue(file);
    return true;
}

void Lead(void* file, void* other) {
    const std::lock_guard lock(g_mutex);
    const auto lead = Find(file);
    lead->leadsTo = other;
    if (other == file) {  // it got the value that nobody could hold
        g_leads.erase(lead);
        --g_leadingHandles;
    }
}

bool EndHandle(void* file) {
    if (PlatformHandle(file) == file) {
        return CloseHandle(file) != FALSE;
    }
    const std::lock_guard lock(g_mutex);
    const auto lead = Find(file);
    const LeadingHandle ended = *lead;
    g_leads.erase(lead);
    --g_leadingHandles;
    if (ended.isHeld) {
        CloseHandle(ended.value);
    }
    return CloseHandle(ended.leadsTo) != FALSE;
}

/// A value that we hold and that the system gives out was closed by other means than FILE_close.
HFILE FreshHandle(HFILE file) {
    HANDLE handle = reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(file));
    if (file == HFILE_ERROR || PlatformHandle(handle) == handle) {
        return file;
    }
    const std::lock_guard lock(g_mutex);
    const auto lead = Find(handle);
    if (lead->isHeld) {
        CloseHandle(lead->leadsTo);
        g_leads.erase(lead);
        --g_leadingHandles;
        return file;
    }
    HANDLE other = INVALID_HANDLE_VALUE;
    DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &other, 0, FALSE,
                    DUPLICATE_SAME_ACCESS | DUPLICATE_CLOSE_SOURCE);
    return ValueOf(other);
}

}  // namespace platen
