#pragma once

#include <cerrno>

namespace platen::win32 {

/// Makes a system call again for as long as a signal interrupts it.
template <typename Call>
auto Uninterrupted(Call call) {
    auto answer = call();
    while (answer < 0 && errno == EINTR) {
        answer = call();
    }
    return answer;
}

}  // namespace platen::win32
