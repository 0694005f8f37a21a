#include <dlfcn.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <limits>

#include "tests/platform_model.h"

/// What the system may do to a transfer: move a part of it, be interrupted, and fail. These tests'
/// own functions stand before the system's.
namespace {

constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

struct {
    std::atomic<std::size_t> most = kNoLimit;        ///< bytes that a call moves
    std::atomic<std::size_t> between = 0;            ///< every so many calls one is interrupted
    std::atomic<std::size_t> untilFault = kNoLimit;  ///< calls that go through
    std::atomic<std::size_t> calls = 0;
} g_system;

/// Whether this call fails; errno says why.
bool Fails() {
    const std::size_t call = ++g_system.calls;
    if (g_system.between != 0 && call % g_system.between == 0) {
        errno = EINTR;
        return true;
    }
    if (g_system.untilFault == 0) {
        errno = EIO;
        return true;
    }
    g_system.untilFault -= g_system.untilFault == kNoLimit ? 0 : 1;
    return false;
}

}  // namespace

ssize_t pread(int file, void* buffer, std::size_t count, off_t position) {
    static const auto next = reinterpret_cast<decltype(&pread)>(dlsym(RTLD_NEXT, "pread64"));
    return Fails() ? -1 : next(file, buffer, std::min<std::size_t>(count, g_system.most), position);
}

ssize_t pwrite(int file, const void* buffer, std::size_t count, off_t position) {
    static const auto next = reinterpret_cast<decltype(&pwrite)>(dlsym(RTLD_NEXT, "pwrite64"));
    return Fails() ? -1 : next(file, buffer, std::min<std::size_t>(count, g_system.most), position);
}

namespace {

using namespace platen::test;

class Transfers : public testing::Test {
  protected:
    ~Transfers() override { Mend(); }

    static void Mend() {
        g_system.most = kNoLimit;
        g_system.between = 0;
        g_system.untilFault = kNoLimit;
    }
    static void FailAfter(std::size_t calls) { g_system.untilFault = calls; }
};

TEST_F(Transfers, APartIsTakenForTheWholeOrForTheEnd) {
    for (const std::size_t most : {1000U, 4095U, 65537U}) {
        const TemporaryFile file(RandomBytes(300001, 1));
        const OpenedFile opened(file, OF_READWRITE);
        g_system.most = most;
        g_system.between = 3;
        const std::size_t before = g_system.calls;
        Model model(opened.handle, file.Contents(), 5);
        model.Run(1000, false);
        model.Run(1000, true);
        EXPECT_GT(g_system.calls, before) << "the system's own functions were called";
        EXPECT_TRUE(file.Contents() == model.Expected()) << most;
    }
}

TEST_F(Transfers, AFailureIsTakenForTheEndOrHidesWhatWentThrough) {
    const std::string bytes = RandomBytes(100000, 2);
    const TemporaryFile file(bytes);
    const OpenedFile opened(file, OF_READWRITE);
    g_system.most = 1000;
    FailAfter(0);
    EXPECT_EQ(ReadFrom(opened.handle, 12), "(failed)");
    FailAfter(2);  // bytes 0 to 1,999 of what the read needs
    _llseek(opened.handle, 2500, 0);
    EXPECT_EQ(ReadFrom(opened.handle, 12), "(failed)") << "taken for the end";
    for (const LONG place : {990, 40000}) {
        Mend();
        g_system.most = 1000;
        _llseek(opened.handle, place, 0);
        FailAfter(1);
        const std::string got = ReadFrom(opened.handle, 30000);
        EXPECT_GT(got.size(), 0U);
        EXPECT_LE(got.size(), 2010U);
        EXPECT_EQ(got, bytes.substr(static_cast<std::size_t>(place), got.size()));
        EXPECT_EQ(ReadFrom(opened.handle, 12), "(failed)");
        Mend();
        const std::string rest = ReadFrom(opened.handle, 200000);
        EXPECT_TRUE(got + rest == bytes.substr(static_cast<std::size_t>(place)));
    }
    _llseek(opened.handle, 10, 0);
    g_system.most = 700;
    FailAfter(2);
    EXPECT_EQ(_lwrite(opened.handle, std::string(5000, 'x').data(), 5000), 1400U);
    EXPECT_EQ(_lwrite(opened.handle, "y", 1), kFailed) << "the next write tells";
    Mend();
    EXPECT_EQ(_lwrite(opened.handle, "y", 1), 1U);
    EXPECT_TRUE(file.Contents() ==
                bytes.substr(0, 10) + std::string(1400, 'x') + "y" + bytes.substr(1411));
}

}  // namespace
