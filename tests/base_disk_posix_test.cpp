#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <string>

#include <platen/base/files.h>

#include "tests/support/temporary_file.h"

namespace {

using namespace platen::test;

TEST(FileHandles, AWriteToAFullDiskIsLostSilently) {
    void* full = FILE_open("/dev/full", 1, nullptr);
    ASSERT_NE(full, FILE_none());
    EXPECT_EQ(FILE_write(full, "abc", 3), -1);
    FILE_close(full);

    // A disk that fills up in the middle of a transfer: what went through is counted.
    rlimit before = {};
    getrlimit(RLIMIT_FSIZE, &before);
    auto* handler = std::signal(SIGXFSZ, SIG_IGN);
    const TemporaryFile file;
    void* handle = FILE_open(file.Name(), 1, nullptr);
    const rlimit small = {1000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string bytes(1500, 'a');
    const LONG first = FILE_write(handle, bytes.data(), 1500);
    const LONG second = FILE_write(handle, bytes.data(), 1500);
    setrlimit(RLIMIT_FSIZE, &before);
    static_cast<void>(std::signal(SIGXFSZ, handler));
    EXPECT_EQ(first, 1000);
    EXPECT_EQ(second, -1);
    FILE_close(handle);
}

}  // namespace
