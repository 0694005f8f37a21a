#include <platen/base/file_handles.h>
#include <platen/platform/win32/descriptors.h>

namespace platen {

constinit std::atomic<int> g_leadingHandles = 0;

void* WhereItLeads(void* file) {
    return file;
}

void ForgetLead(void* /*file*/) {}

HFILE OpenExisting(const char* name, LONG mode) {
    return _lopen(name, mode);
}

bool GoOver(void* file, void* other) {
    if (!win32::MoveHandle(file, win32::DescriptorBehind(other))) {
        return false;
    }
    EndHandle(other);
    return true;
}

bool EndHandle(void* file) {
    return CloseHandle(file) != FALSE;
}

}  // namespace platen
