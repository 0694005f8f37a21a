#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <string_view>
#include <utility>

#include "interrupt.h"
#include "stream.h"

namespace platen::tool {
namespace {

/// Null is no descriptor.
void* HandleOf(int descriptor) {
    return reinterpret_cast<void*>(static_cast<std::intptr_t>(descriptor) + 1);
}

int DescriptorOf(void* handle) {
    return static_cast<int>(reinterpret_cast<std::intptr_t>(handle)) - 1;
}

/// The descriptor that a name stands for, or -1. Opened by its name a file would be written from
/// its start, and a socket not at all.
int DescriptorNamed(std::string_view name) {
    if (name == "/dev/stdout") {
        return STDOUT_FILENO;
    }
    if (name == "/dev/stderr") {
        return STDERR_FILENO;
    }
    for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
        if (name.starts_with(folder)) {
            const char* end = name.data() + name.size();
            int number = -1;
            const auto parsed = std::from_chars(name.data() + folder.size(), end, number);
            return parsed.ec == std::errc() && parsed.ptr == end ? number : -1;
        }
    }
    return -1;
}

/// Whether a call that was interrupted is to be made again.
bool GoesOn() {
    return errno == EINTR && !InterruptGuard::Noted();
}

bool WaitForRoom(int descriptor) {
    pollfd room = {descriptor, POLLOUT, 0};
    return poll(&room, 1, -1) >= 0 || GoesOn();
}

}  // namespace

bool Stream::IsNamed(const std::string& name) {
    struct stat status = {};
    return DescriptorNamed(name) >= 0 ||
           (stat(name.c_str(), &status) == 0 &&
            (S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode) || S_ISSOCK(status.st_mode)));
}

bool Stream::Open(const std::string& name) {
    const int named = DescriptorNamed(name);
    int descriptor = -1;
    do {
        descriptor = named >= 0 ? fcntl(named, F_DUPFD_CLOEXEC, 0)
                                : open(name.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
    } while (descriptor < 0 && GoesOn());
    m_handle = HandleOf(descriptor);
    return m_handle != nullptr;
}

bool Stream::Write(const void* bytes, std::size_t size) {
    const int descriptor = DescriptorOf(m_handle);
    const auto* next = static_cast<const char*>(bytes);
    while (size > 0) {
        const ssize_t written = write(descriptor, next, size);
        if (written > 0) {
            next += written;
            size -= static_cast<std::size_t>(written);
        } else if (written == 0 || (!GoesOn() && (errno != EAGAIN || !WaitForRoom(descriptor)))) {
            return false;
        }
    }
    return true;
}

bool Stream::Close() {
    void* const handle = std::exchange(m_handle, nullptr);
    return handle == nullptr || close(DescriptorOf(handle)) == 0;
}

}  // namespace platen::tool
