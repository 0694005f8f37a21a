#include <platen/base/system_error.h>

#include <cerrno>

namespace platen {

int SystemError() {
    return errno;
}

void SetSystemError(int error) {
    errno = error;
}

void ClearSystemError() {
    errno = 0;
}

}  // namespace platen
