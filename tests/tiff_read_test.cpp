#include <platen/tiff/TiffCopy.h>

#include "tests/support/read_tiff.h"

namespace {

using namespace platen::test;

std::vector<Entry> Image(std::uint32_t width, std::uint32_t length, std::uint32_t bits,
                         const Entry& offsets) {
    return {Longs(256, {width}), Longs(257, {length}), Shorts(258, {bits}), offsets};
}

TEST(Read, AHeaderIsAcceptedOrRejectedWrongly) {
    const Bytes good = Build({.directories = {{{Shorts(256, {5})}}}});
    const struct {
        Bytes bytes;
        long status;
        short format;
    } cases[] = {
        {good, 1, 0x4949},
        {Build({.order = Order::Motorola, .directories = {{}}}), 1, 0x4D4D},
        {Build({.version = 50, .directories = {{}}}), 1, 0x4949},
        {Build({.order = Order::Motorola, .version = 0x2A00, .directories = {{}}}), -2, 0x4D4D},
        {"IM" + good.substr(2), -3, 0},
        {"", -3, 0},
        {"II", -2, 0x4949},
        {"II*", -3, 0x4949},  // 42 in its first byte is enough; the offset is missing
        {Build({}), 1, 0x4949},
        {Build({.first = 8}), -3, 0x4949},
        {Build({.first = 0xFFFFFFFF}), -3, 0x4949},
    };
    for (const auto& test : cases) {
        const ReadTiff<> read(test.bytes);
        EXPECT_EQ(read.status, test.status) << "case " << &test - cases;
        EXPECT_EQ(read.tiff.getFormat(), test.format) << "case " << &test - cases;
        EXPECT_EQ(read.tiff.getFileSize(), static_cast<long>(test.bytes.size()));
        EXPECT_EQ(read.Count(), 1);
    }
}

TEST(Read, TheEndOfTheChainIsTakenForAFailure) {
    Bytes bytes = Build({.directories = {{{Shorts(256, {5})}}}});  // 26 bytes, link at 22
    for (const std::uint32_t link : {26U, 27U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        Patch(bytes, 22, link, 4, Order::Intel);
        const ReadTiff<> read(bytes);
        EXPECT_EQ(read.status, 1) << link;
        EXPECT_EQ(read.Count(), 1) << link;
        EXPECT_EQ(read.Record().NumEntries, 1) << link;
    }
    Patch(bytes, 22, 25, 4, Order::Intel);  // one byte of a count is left, then nothing
    const ReadTiff<> read(bytes);
    EXPECT_EQ(read.status, -3);
    EXPECT_EQ(read.Count(), 2);
    EXPECT_EQ(read.Record().ImageWidth, 5);
}

TEST(Read, TheImageIsHeldAgainstTheFileWrongly) {
    const struct {
        std::vector<Entry> entries;
        long status;
        bool whole = true;
    } cases[] = {
        {Image(10, 10, 8, Longs(273, {100})), 1},      // ends at 200
        {Image(10, 11, 8, Longs(273, {100})), -3},     // ends beyond it
        {Image(10, 11, 7, Longs(273, {100})), 1},      // whole bytes alone count
        {Image(10, 10, 16, Longs(273, {0})), 1},       // ends at 200
        {Image(10, 10, 16, Shorts(273, {1})), -3},     //
        {Image(10, 10, 8, Shorts(273, {0xFFFF})), 1},  // a short offset has a sign
        {Image(1, 1, 8, Longs(273, {0x90000000})), 1},
        {Image(0xFFFFFFFF, 10, 8, Longs(273, {300})), -3},  // -10 + 300
        {Image(65536, 65536, 8, Longs(273, {8})), 1},       // wraps to 8
        {Image(1, 1, 0x8008, Longs(273, {8})), 1},
        {{Longs(256, {1000}), Longs(257, {1000}), Longs(273, {8})}, 1},
        {{Longs(256, {1000}), Longs(257, {1000}), Longs(273, {500}), Word(258, 3, 0, 0)},
         -4,
         false},
        {{Shorts(258, {8}), Longs(273, {199}), Shorts(273, {2})}, -3},
        {{Shorts(258, {8}), Rationals(282, {}), Longs(273, {201})}, -3, false},
    };
    for (const auto& test : cases) {
        Bytes bytes = Build({.directories = {{test.entries}}});
        bytes.resize(200);
        const ReadTiff<> read(bytes);
        EXPECT_EQ(read.status, test.status) << "case " << &test - cases;
        EXPECT_EQ(read.tiff.IsReadWhole(), test.whole) << "case " << &test - cases;
    }
    // Only the first directory's image is tested.
    EXPECT_EQ(ReadTiff<>(Build({.directories = {{}, {Image(99, 99, 8, Longs(273, {8}))}}})).status,
              1);
}

TEST(Read, AShortLastEntryIsRejectedOrReadsOtherBytes) {
    // Two entries announced; the second has 5 bytes, tag 257 and half a type, before the file ends.
    Bytes bytes = Build({.directories = {{{Longs(256, {7}), Longs(257, {9})}}}});
    bytes.resize(8 + 2 + 12 + 5);
    const ReadTiff<> read(bytes);
    EXPECT_EQ(read.status, -3);
    EXPECT_EQ(read.Record().ImageWidth, 7);
    EXPECT_EQ(read.Record().ImageLength, 7) << "the rest is the entry before";
}

TEST(Read, ValuesBeyondTheEndAreNotZero) {
    Bytes bytes = Build({.directories = {{{Shorts(258, {1, 2, 3, 4}), Text(305, "abcdefgh")}}}});
    bytes.resize(bytes.size() - 5);
    const ReadTiff<> read(bytes);
    EXPECT_EQ(read.status, 1);
    EXPECT_STREQ(read.Record().Software, "abcd");
    const ReadTiff<> beyond(
        Build({.directories = {{{Word(258, 3, 3, 0x7FFFFFFF), Word(282, 5, 1, 0xFFFFFFF0)}}}}));
    EXPECT_EQ(beyond.status, 1);
    EXPECT_EQ(beyond.Record().BitsPerSample[2], 0);
    EXPECT_EQ(beyond.Record().XResolution, (Rational{0, 0}));
}

TEST(Read, ATextWithoutATerminatorRunsOn) {
    for (std::uint32_t count = 1; count < 40; ++count) {
        const ReadTiff<> read(Build({.data = Bytes(64, 'x'),
                                     .directories = {{{Word(305, platen::kTypeAscii, count,
                                                            count > 4 ? 8 : 0x78787878)}}}}));
        const std::size_t expected = count > 4 ? count : count - 1;
        EXPECT_EQ(std::string(read.Record().Software), std::string(expected, 'x'));
    }
}

TEST(Open, AnswerStatusOrNameIsWrong) {
    const TemporaryFile file(Build({.directories = {{}}}));
    Tiff tiff;
    void* handle = tiff.Open(file.Name(), 2);
    EXPECT_EQ(tiff.getFileAttributes(), 2);
    EXPECT_EQ(tiff.Read(handle), 1);
    EXPECT_STREQ(tiff.GetFileName(), file.Name()) << "the name survives a read";
    EXPECT_EQ(tiff.Close(handle), FILE_none());
    EXPECT_EQ(tiff.Read(handle), -3) << "a closed handle";
    for (const char* none : {"/nonexistent/file", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(tiff.Open(none, 0), FILE_none());
    }
}

TEST(Open, TheObjectsOwnNameIsLost) {
    const TemporaryFile file(Build({.directories = {{}}}));
    Tiff tiff;
    tiff.Close(tiff.Open(file.Name(), 0));
    void* again = tiff.Open(tiff.GetFileName(), 2);
    EXPECT_NE(again, FILE_none());
    EXPECT_EQ(tiff.getFileAttributes(), 2);
    EXPECT_STREQ(tiff.GetFileName(), file.Name());
    tiff.Close(again);
    EXPECT_EQ(tiff.SetFileName(tiff.GetFileName()), 1);
    EXPECT_STREQ(tiff.GetFileName(), file.Name());
    EXPECT_EQ(tiff.SetFileName(tiff.GetFileName() + 3), 1);
    EXPECT_STREQ(tiff.GetFileName(), file.Name() + 3);
}

/// Keeps private tag 34000; tag 34001 stops the walk.
class InstrumentTiff : public Tiff {
  public:
    long ParseIFDStdDir(void* file, TiffIFDEntryStruct& entry, short dir) override {
        ++entries;
        return Tiff::ParseIFDStdDir(file, entry, dir);
    }
    long ParseIFDCustomDir(void* file, TiffIFDEntryStruct& entry, short dir) override {
        if (entry.Tag == 34001) {
            m_Status = -2;
            return 0;
        }
        std::uint16_t* values = GetWORDArray(file, entry);
        kept.assign(values, values + entry.Count);
        DeleteBLOCK(reinterpret_cast<std::uint8_t*>(values));
        keptIn = dir;
        return 1;
    }
    int entries = 0;
    std::vector<std::uint16_t> kept;
    short keptIn = -1;
};

TEST(Subclass, ItsTagIsNotHandedOnOrItsStopIsIgnored) {
    for (const Order order : kOrders) {
        const ReadTiff<InstrumentTiff> read(
            Build({.order = order,
                   .directories = {{{Longs(256, {7})}},
                                   {{Shorts(34000, {1, 2, 40000}), Longs(256, {9})}}}}));
        EXPECT_EQ(read.status, 1);
        EXPECT_EQ(read.tiff.entries, 3);
        EXPECT_EQ(read.tiff.kept, (std::vector<std::uint16_t>{1, 2, 40000}));
        EXPECT_EQ(read.tiff.keptIn, 1);
        EXPECT_EQ(read.Record(1).ImageWidth, 9);
    }
    const ReadTiff<InstrumentTiff> stopped(
        Build({.directories = {{{Longs(256, {7}), Longs(34001, {1}), Longs(257, {8})}}, {{}}}}));
    EXPECT_EQ(stopped.status, -2);
    EXPECT_EQ(stopped.Count(), 1);
    EXPECT_EQ(stopped.Record().ImageLength, 0);
}

/// Notes where the file stands at each entry, halves every ImageWidth where it stands in the file,
/// and doubles the ImageLength behind it.
template <typename Base>
class Patcher : public Base {
  public:
    long ParseIFDStdDir(void* file, TiffIFDEntryStruct& entry, short dir) override {
        places.push_back(FILE_lseek(file, 0, 1));
        if (entry.Tag == 256) {
            entry.ValueOffset /= 2;
            FILE_lseek(file, -12, 1);
            FILE_write(file, &entry, sizeof(entry));
            TiffIFDEntryStruct behind = {};
            FILE_read(file, &behind, sizeof(behind));
            behind.ValueOffset *= 2;
            FILE_lseek(file, -12, 1);
            FILE_write(file, &behind, sizeof(behind));
            FILE_lseek(file, -12, 1);
        }
        return Base::ParseIFDStdDir(file, entry, dir);
    }
    long ParseIFDCustomDir(void* file, TiffIFDEntryStruct& entry, short dir) override {
        EXPECT_EQ(FILE_lseek(file, 0, 1), places.back());
        return Base::ParseIFDCustomDir(file, entry, dir);
    }
    std::vector<LONG> places;
};

template <typename Base>
void ExpectPatched() {
    const auto build = [](std::uint32_t width, std::uint32_t length) {
        std::vector<Entry> entries = {Longs(256, {width}), Longs(257, {length})};
        for (std::uint16_t tag = 40000; tag < 40050; ++tag) {
            entries.push_back(Longs(tag, {tag}));
        }
        return Build({.directories = {{entries}, {entries}}});
    };
    const TemporaryFile file(build(8, 5));
    Patcher<Base> tiff;
    void* handle = tiff.Open(file.Name(), 2);
    EXPECT_EQ(tiff.Read(handle), 1);
    ASSERT_EQ(tiff.places.size(), 104U);
    for (std::size_t i = 0; i < tiff.places.size(); ++i) {
        const std::size_t start = i < 52 ? 10 : 10 + 52 * 12 + 4 + 2;
        EXPECT_EQ(tiff.places[i], static_cast<LONG>(start + (i % 52 + 1) * 12)) << i;
    }
    EXPECT_EQ(tiff.getStdDir()[1].ImageWidth, 4);
    EXPECT_EQ(tiff.getStdDir()[1].ImageLength, 10) << "read before it was written";
    EXPECT_TRUE(file.Contents() == build(4, 10));
    tiff.Close(handle);
}

TEST(Subclass, ItSeesTheFileBehindAnotherEntry) {
    ExpectPatched<Tiff>();
    ExpectPatched<TiffCopy>();
}

TEST(Blocks, ABlockIsHeldAgainstAnotherFile) {
    ReadTiff<> read(Build({.directories = {{{Shorts(256, {5})}}}}));
    ASSERT_EQ(read.status, 1);
    const TemporaryFile other(Bytes(300000, 'b'));
    void* handle = FILE_open(other.Name(), 0, nullptr);
    constexpr long kBytes = 400000;
    auto* block = read.tiff.CreateBLOCK(handle, 0, kBytes);
    ASSERT_NE(block, nullptr);
    EXPECT_TRUE(Bytes(block, block + kBytes) == Bytes(300000, 'b') + Bytes(100000, '\0'));
    read.tiff.DeleteBLOCK(block);
    auto* words = read.tiff.GetWORDArray(handle, {258, platen::kTypeShort, 150000, 0});
    ASSERT_NE(words, nullptr);
    EXPECT_EQ(words[149999], 0x6262);
    read.tiff.DeleteBLOCK(reinterpret_cast<std::uint8_t*>(words));
    EXPECT_EQ(read.tiff.GetWORDArray(handle, {258, platen::kTypeShort, 0x30000000, 0}), nullptr)
        << "an entry has memory taken that no file has values for";
    FILE_close(handle);
    EXPECT_EQ(Tiff().GetLONGArray(read.handle, {273, platen::kTypeLong, 0x10000000, 0}), nullptr);
}

TEST(Blocks, ARawBlockMovesTheFileOrReadsBeyondIt) {
    const TemporaryFile file("0123456789");
    Tiff tiff;
    void* handle = tiff.Open(file.Name(), 0);
    FILE_lseek(handle, 3, 0);
    const struct {
        long offset;
        long size;
        const char* text;
    } cases[] = {{0, 4, "0123"}, {8, 3, "89"},    {10, 2, ""},     {0x7FFFFFFF, 2, ""},
                 {-1, 2, ""},    {0, 0, nullptr}, {0, -1, nullptr}};
    for (const auto& test : cases) {
        auto* block = tiff.CreateBLOCK(handle, test.offset, test.size);
        ASSERT_EQ(block == nullptr, test.text == nullptr) << test.offset;
        if (block != nullptr) {
            std::string expected = test.text;
            expected.resize(static_cast<std::size_t>(test.size));
            EXPECT_EQ(std::string(block, block + test.size), expected) << test.offset;
        }
        EXPECT_EQ(tiff.DeleteBLOCK(block), nullptr);
        EXPECT_EQ(FILE_lseek(handle, 0, 1), 3) << test.offset;
    }
    tiff.Close(handle);
}

TEST(ByteOrder, AnyWordButIntelLeavesTheBytes) {
    EXPECT_EQ(SwapSHORT(0x1234, 0x4949), 0x1234);
    EXPECT_EQ(SwapSHORT(0x1234, 0x4D4D), 0x3412);
    EXPECT_EQ(SwapSHORT(0x1234, 0), 0x3412);
}

TEST(Object, ItsMembersStartOrResetWrong) {
    Tiff tiff;
    tiff.SetFileName("first");
    EXPECT_EQ(tiff.SetFileName("second"), 1);
    tiff.setFormat(0x4D4D);
    tiff.setFileSize(77);
    tiff.ResetFileVars();
    EXPECT_EQ(tiff.getFormat(), 0);
    EXPECT_EQ(tiff.getFileSize(), 0);
    EXPECT_EQ(tiff.getFileAttributes(), -1);
    EXPECT_STREQ(tiff.GetFileName(), "second");
    tiff.ResetGlbVars();
    EXPECT_EQ(tiff.GetFileName(), nullptr);
    EXPECT_EQ(tiff.FreeStdTiff(), 1);
    TiffIFDEntryStruct entry = {256, 3, 1, 5};
    EXPECT_EQ(tiff.ParseIFDStdDir(FILE_none(), entry, 0), -4);
    EXPECT_EQ(tiff.AllocStdTiff(), 1);
    EXPECT_EQ(tiff.getFileNumIFDStdDir(), 1);
}

}  // namespace
