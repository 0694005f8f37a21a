#include <filesystem>

#include "tests/support/hostile_files.h"
#include "tests/support/read_tiff.h"
#include "tests/tiff_soundness.h"

namespace {

using namespace platen::test;

TEST(Hostile, ALoopIsWalkedTwiceOrItsRecordsAreLost) {
    const struct {
        const char* name;
        short records;
    } cases[] = {{"loop of one", 1}, {"loop of two", 2}, {"loop behind a head", 1000}};
    const std::vector<NamedFile> files = HostileFiles();
    for (const auto& test : cases) {
        const auto file = std::ranges::find(files, test.name, &NamedFile::name);
        const ReadTiff<> read(file->bytes);
        EXPECT_EQ(read.status, -3) << test.name;
        ASSERT_EQ(read.Count(), test.records) << test.name;
        EXPECT_EQ(read.Record(static_cast<short>(test.records - 1)).ImageWidth, test.records - 1);
    }
}

TEST(Hostile, MoreDirectoriesThanAnIndexNamesOverrunTheRecords) {
    for (const Order order : kOrders) {
        for (const std::uint32_t count : {32767U, 32768U, 40000U}) {
            const ReadTiff<> read(Pages(count, order));
            EXPECT_EQ(read.status, count == 32767 ? 1 : -3);
            ASSERT_EQ(read.Count(), 32767);
            for (short dir = 0; dir < 32766; ++dir) {
                ASSERT_EQ(read.Record(dir).ImageWidth, dir);
                ASSERT_EQ(read.Record(dir).NumEntries, 1);
            }
            EXPECT_EQ(read.Record(32766).ImageWidth, 32766);
        }
    }
}

/// Legal sharing of values stays far below what a read may spend.
TEST(Hostile, AGoodFileIsTakenForAHostileOne) {
    std::vector<std::uint32_t> map(768, 7);
    const auto page = [&map] {
        return Directory{{Shorts(320, map), Text(305, std::string(200, 's')), Longs(256, {1})}};
    };
    const ReadTiff<> read(Build({.directories = std::vector<Directory>(3000, page())}));
    EXPECT_EQ(read.status, 1);
    EXPECT_EQ(read.Count(), 3000);
    EXPECT_NE(read.Report(), "(abandoned)");
}

Bytes GoodFile(Order order) {
    return Build({.order = order,
                  .data = Bytes(20, 'd'),
                  .directories = {{{Shorts(258, {8, 8, 8}), Longs(273, {8, 9}), Text(305, "abcdef"),
                                    Rationals(282, {{1, 2}}), Shorts(33447, {1, 2, 3, 4})}},
                                  {{Text(271, "ab"), Rationals(319, {{1, 2}, {3, 4}})}},
                                  {{Longs(33445, {1})}}}});
}

int Occurrences(std::string_view text, std::string_view word) {
    int count = 0;
    for (std::size_t at = 0; (at = text.find(word, at)) != text.npos; ++at) {
        ++count;
    }
    return count;
}

TEST(Hostile, ATruncationOfAGoodFileIsMisread) {
    for (const Order order : kOrders) {
        const Bytes whole = GoodFile(order);
        const ReadTiff<> full(whole);
        ASSERT_EQ(full.status, 1);
        ASSERT_EQ(full.Count(), 3);
        for (std::size_t size = 0; size < whole.size(); ++size) {
            const ReadTiff<> read(whole.substr(0, size));
            EXPECT_TRUE(IsSound(read)) << size;
            EXPECT_LE(read.Count(), 3) << size;
            EXPECT_EQ(read.tiff.DirectoriesMet(), Occurrences(read.Report(), "Directory #"))
                << size;
            EXPECT_EQ(read.tiff.IsReadWhole(), read.status == 1) << size;
            EXPECT_EQ(read.tiff.getFileSize(), static_cast<long>(size));
            // The zeros of a cut big-endian offset read as an empty chain.
            const bool empty = order == Order::Motorola && size > 4 && size < 8;
            EXPECT_TRUE(read.status != 1 || size > 28 || empty) << size;
        }
    }
}

/// Cuts its file down to `size` bytes while entry number `at` is parsed.
class ShrinkingTiff : public Tiff {
  public:
    long ParseIFDStdDir(void* file, TiffIFDEntryStruct& entry, short dir) override {
        if (at-- == 0) {
            std::filesystem::resize_file(GetFileName(), size);
        }
        return Tiff::ParseIFDStdDir(file, entry, dir);
    }
    int at = 0;
    std::uintmax_t size = 0;
};

TEST(Hostile, AFileThatShrinksWhileItIsReadCrashesTheReader) {
    Bytes large = GoodFile(Order::Intel);
    large.resize(300000, 'x');
    for (const Bytes& bytes : {GoodFile(Order::Motorola), large}) {
        for (int at = 0; at < 8; ++at) {
            for (const std::uintmax_t size : {0U, 4U, 10U, 60U, 150U}) {
                const TemporaryFile file(bytes);
                ShrinkingTiff tiff;
                tiff.at = at;
                tiff.size = size;
                tiff.ReadSetDump(1);
                void* handle = tiff.Open(file.Name(), 0);
                const long status = tiff.Read(handle);
                EXPECT_TRUE(status == 1 || status == -3) << status;
                EXPECT_GE(tiff.getFileNumIFDStdDir(), 1);
                EXPECT_NE(ReportOf(tiff), "(abandoned)");
                tiff.Close(handle);
            }
        }
    }
}

}  // namespace
