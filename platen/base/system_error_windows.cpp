#include <platen/base/system_error.h>
#include <platen/platform/win32.h>

namespace platen {

int SystemError() {
    return static_cast<int>(GetLastError());
}

void SetSystemError(int error) {
    SetLastError(static_cast<DWORD>(error));
}

void ClearSystemError() {
    SetLastError(ERROR_SUCCESS);
}

}  // namespace platen
