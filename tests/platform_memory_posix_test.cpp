#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>

#include <platen/platform/win32.h>
#include <platen/platform/win32/memory_figures.h>

namespace {

namespace fs = std::filesystem;
using platen::win32::MemoryFigures;

constexpr std::uint64_t kMebibyte = 1 << 20;

/// Folders that stand for /proc and /sys/fs/cgroup: 1000 MiB of memory, 600 available, 500 of swap
/// with 400 free.
class MemoryFiguresTest : public testing::Test {
  protected:
    MemoryFiguresTest() {
        Write("proc/meminfo",
              "MemTotal:        1024000 kB\nMemFree:          1 kB\nMemAvailable:  614400 kB\n"
              "SwapTotal:        512000 kB\nSwapFree:       409600 kB\n");
    }
    ~MemoryFiguresTest() override { fs::remove_all(m_root); }

    void Write(const std::string& path, const std::string& text) {
        fs::create_directories((m_root / path).parent_path());
        std::ofstream(m_root / path) << text;
    }
    [[nodiscard]] MemoryFigures Read() const {
        return platen::win32::ReadMemoryFigures((m_root / "proc").string(),
                                                (m_root / "group").string());
    }
    static std::string Mebibytes(std::uint64_t count) { return std::to_string(count * kMebibyte); }

  private:
    fs::path m_root = fs::path(testing::TempDir()) / ("platen-memory-" + std::to_string(getpid()));
};

void Expect(const MemoryFigures& figures, const std::array<std::uint64_t, 4>& mebibytes) {
    EXPECT_EQ(figures.totalPhysical, mebibytes[0] * kMebibyte);
    EXPECT_EQ(figures.availablePhysical, mebibytes[1] * kMebibyte);
    EXPECT_EQ(figures.totalSwap, mebibytes[2] * kMebibyte);
    EXPECT_EQ(figures.availableSwap, mebibytes[3] * kMebibyte);
}

TEST_F(MemoryFiguresTest, TheMachinesFiguresAreMixedUp) {
    Expect(Read(), {1000, 600, 500, 400});
}

TEST_F(MemoryFiguresTest, LimitsOfAGroupAreMissed) {
    Write("proc/self/cgroup", "0::/outer/inner\n");
    Write("group/outer/memory.max", Mebibytes(300));
    Write("group/outer/memory.current", Mebibytes(150));
    Write("group/outer/memory.stat", "anon 1\ninactive_file " + Mebibytes(50) + "\n");
    Write("group/outer/inner/memory.max", "max\n");
    Write("group/outer/inner/memory.swap.max", Mebibytes(100));
    Write("group/outer/inner/memory.swap.current", Mebibytes(70));
    Expect(Read(), {300, 200, 100, 30});
}

TEST_F(MemoryFiguresTest, LimitsOfAGroupOfVersion1AreMissed) {
    Write("proc/self/cgroup", "5:cpu:/x\n4:memory:/box\n0::/\n");
    Write("group/memory/box/memory.limit_in_bytes", Mebibytes(200));
    Write("group/memory/box/memory.usage_in_bytes", Mebibytes(250));
    Write("group/memory/box/memory.memsw.limit_in_bytes", Mebibytes(260));
    Write("group/memory/box/memory.memsw.usage_in_bytes", Mebibytes(265));
    Expect(Read(), {200, 0, 60, 45});
}

TEST(MemoryStatus, TellsNothingOfThisMachine) {
    MEMORYSTATUS status{};
    GlobalMemoryStatus(&status);
    EXPECT_EQ(status.dwLength, sizeof(status));
    EXPECT_GT(status.dwTotalPhys, kMebibyte);
    EXPECT_LE(status.dwAvailPhys, status.dwTotalPhys);
    EXPECT_GE(status.dwTotalPageFile, status.dwTotalPhys);
    EXPECT_LE(status.dwMemoryLoad, 100U);
}

}  // namespace
