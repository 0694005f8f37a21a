#include <algorithm>
#include <array>
#include <cstdint>
#include <mutex>
#include <new>
#include <vector>

#include <platen/base/file_handles.h>

namespace platen {
namespace {

struct Lead {
    void* from;
    void* to;
};

std::mutex g_mutex;
std::vector<Lead> g_leads;

/// Takes out where a handle leads; null when it leads nowhere.
void* TakeLead(void* file) {
    if (g_leadingHandles.load(std::memory_order_relaxed) == 0) {
        return nullptr;
    }
    const std::lock_guard lock(g_mutex);
    const auto lead = std::ranges::find(g_leads, file, &Lead::from);
    if (lead == g_leads.end()) {
        return nullptr;
    }
    void* const to = lead->to;
    g_leads.erase(lead);
    --g_leadingHandles;
    return to;
}

bool AddLead(void* file, void* other) {
    const std::lock_guard lock(g_mutex);
    try {
        g_leads.push_back({file, other});
    } catch (const std::bad_alloc&) {
        return false;
    }
    ++g_leadingHandles;
    return true;
}

}  // namespace

constinit std::atomic<int> g_leadingHandles = 0;

void* WhereItLeads(void* file) {
    const std::lock_guard lock(g_mutex);
    const auto lead = std::ranges::find(g_leads, file, &Lead::from);
    return lead == g_leads.end() ? file : lead->to;
}

void ForgetLead(void* file) {
    if (void* stale = TakeLead(file)) {
        CloseHandle(stale);
    }
}

HFILE OpenExisting(const char* name, LONG mode) {
    constexpr std::array<DWORD, 3> kAccess = {GENERIC_READ, GENERIC_WRITE,
                                              GENERIC_READ | GENERIC_WRITE};
    constexpr LONG kAccessBits = 0x03;
    constexpr LONG kSharing = 0x70;
    const auto access = static_cast<std::size_t>(mode & kAccessBits);
    const LONG sharing = mode & kSharing;
    const bool deniesNothing = sharing == OF_SHARE_COMPAT || sharing == OF_SHARE_DENY_NONE;
    if (name == nullptr || access >= kAccess.size() || !deniesNothing) {
        return _lopen(name, mode);
    }
    HANDLE file =
        CreateFileA(name, kAccess[access], FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    return static_cast<HFILE>(reinterpret_cast<std::intptr_t>(file));
}

bool GoOver(void* file, void* other) {
    void* const before = TakeLead(file);
    if (!AddLead(file, other)) {
        if (before != nullptr) {
            AddLead(file, before);  // the room that it had is still there
        }
        return false;
    }
    if (before != nullptr) {
        CloseHandle(before);
    }
    return true;
}

bool EndHandle(void* file) {
    void* const to = TakeLead(file);
    const bool led = to == nullptr || CloseHandle(to) != FALSE;
    return CloseHandle(file) != FALSE && led;
}

}  // namespace platen
