#include <platen/base/file_handles.h>

namespace platen {

constinit std::atomic<int> g_leadingHandles = 0;

void* WhereItLeads(void* file) {
    return file;
}

bool EndHandle(void* file) {
    return CloseHandle(file) != FALSE;
}

HFILE FreshHandle(HFILE file) {
    return file;
}

}  // namespace platen
