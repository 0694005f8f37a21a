#include "tests/memory/counted_reads.h"
#include "tests/memory/failing_allocator.h"
#include "tests/support/hostile_files.h"
#include "tests/tiff_soundness.h"

/// What the engine may spend on a file is counted: no machine's speed has part in it, nor its heap.
namespace {

using namespace platen::test;

class CountingTiff : public Tiff {
  public:
    long ParseIFDStdDir(void* file, TiffIFDEntryStruct& entry, short dir) override {
        ++entries;
        return Tiff::ParseIFDStdDir(file, entry, dir);
    }
    std::size_t entries = 0;
};

TEST(Hostile, AFileCostsStepsOrMemory) {
    for (const NamedFile& file : HostileFiles()) {
        SCOPED_TRACE(file.name);
        g_fileUse = {};
        g_heapUse = {};
        const ReadTiff<CountingTiff> read(file.bytes);
        const FileUse files = g_fileUse;
        const HeapUse heap = g_heapUse;
        EXPECT_TRUE(IsSound(read));
        EXPECT_GT(files.bytes, 0U) << "nothing is counted";
        const std::size_t size = file.bytes.size();
        const std::size_t unit = std::max<std::size_t>(size, 1U << 20U);
        EXPECT_LE(read.tiff.entries, size * 8 / 12 + 65536);
        EXPECT_LE(files.reads, 64 + size / 1024);
        EXPECT_LE(files.bytes, 40 * unit);
        EXPECT_LE(heap.asked, 256 * unit) << "the time to fill it";
        EXPECT_LE(heap.most, static_cast<std::ptrdiff_t>(48 * unit));
    }
}

}  // namespace
