#include "tests/memory/counted_reads.h"

#include <sys/types.h>

namespace platen::test {

FileUse g_fileUse;

}  // namespace platen::test

namespace {

ssize_t Counted(ssize_t got) {
    ++platen::test::g_fileUse.reads;
    platen::test::g_fileUse.bytes += got > 0 ? static_cast<std::size_t>(got) : 0;
    return got;
}

}  // namespace

extern "C" {
ssize_t __real_pread(int file, void* buffer, std::size_t count, long position);
ssize_t __real_pread64(int file, void* buffer, std::size_t count, off64_t position);
ssize_t __real___pread64_chk(int file, void* buffer, std::size_t count, off64_t position,
                             std::size_t size);

ssize_t __wrap_pread(int file, void* buffer, std::size_t count, long position) {
    return Counted(__real_pread(file, buffer, count, position));
}
ssize_t __wrap_pread64(int file, void* buffer, std::size_t count, off64_t position) {
    return Counted(__real_pread64(file, buffer, count, position));
}
/// What a compiler calls that knows the buffer's size.
ssize_t __wrap___pread64_chk(int file, void* buffer, std::size_t count, off64_t position,
                             std::size_t size) {
    return Counted(__real___pread64_chk(file, buffer, count, position, size));
}
}
