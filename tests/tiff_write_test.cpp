#include <functional>

#include "tests/tiff_writing.h"

namespace {

using namespace platen::test;

constexpr std::uint32_t kResolution[] = {72, 1};

/// A file that was laid out by hand.
std::string Expected(const std::string& name) {
    return Shown(FileContents(PLATEN_TEST_DATA "/" + name));
}

TEST(WriteNew, AByteOfASmallFileDiffers) {
    Tiff tiff;
    SetImage(tiff, 4, 2, 8);
    for (const int tag : {259, 262}) {
        SetNumber(tiff, static_cast<std::uint16_t>(tag), 1);
    }
    SetNumber(tiff, 278, 2);
    SetLongs(tiff, 279, {8});
    tiff.setTAG(282, AddressOf(kResolution), 1, 0);
    tiff.setTAG(283, AddressOf(kResolution), 1, 0);
    SetNumber(tiff, 296, 2);
    EXPECT_EQ(Shown(WrittenNew(tiff, platen::kIntel)), Expected("small.intel"));
    EXPECT_EQ(Shown(WrittenNew(tiff, platen::kMotorola)), Expected("small.motorola"));
}

TEST(WriteNew, AnOldFormDirectoryIsNotMergedIntoTheFirst) {
    Tiff tiff;
    tiff.ReAllocStdTiff();
    tiff.ReAllocStdTiff();
    for (short dir = 0; dir < 3; ++dir) {
        SetNumber(tiff, 277, 0, dir);
    }
    SetNumber(tiff, 254, 0, 0);
    SetNumber(tiff, 33445, 1, 1);
    SetText(tiff, 33448, "wxyz", 1);
    SetNumber(tiff, 255, 3, 2);
    EXPECT_EQ(Shown(WrittenNew(tiff, platen::kIntel)), Expected("old_form.intel"));
    EXPECT_EQ(Shown(WrittenNew(tiff, platen::kMotorola)), Expected("old_form.motorola"));
    const TiffIFDStdDirStruct* records = tiff.getStdDir();
    const std::uint32_t placed[] = {records[0].WriteNumEntries, records[0].WriteLinkOffset,
                                    records[0].WriteIFDOffset,  records[1].WriteIFDOffset,
                                    records[2].WriteNumEntries, records[2].WriteLinkOffset,
                                    records[2].WriteIFDOffset};
    const std::uint32_t expected[] = {3, 4, 8, 0, 1, 46, 50};
    EXPECT_TRUE(std::ranges::equal(placed, expected));
}

TEST(WriteNew, ADirectoryWithoutASubfileTypeIsWritten) {
    Tiff tiff;
    tiff.ReAllocStdTiff();
    EXPECT_EQ(WrittenNew(tiff, platen::kIntel), Hex("49 49 2A 00 00 00 00 00 00 00 00 00"));
    tiff.getStdDir()->WriteIFDOffset = 77;
    EXPECT_EQ(WrittenNew(tiff, platen::kMotorola), Hex("4D 4D 00 2A 00 00 00 4D 00 00 00 00"));
    SetNumber(tiff, 33445, 0, 0);  // directory 0 is of the old form: none is written
    SetNumber(tiff, 254, 0, 1);
    EXPECT_EQ(WrittenNew(tiff, platen::kIntel), Hex("49 49 2A 00 4D 00 00 00 00 00 00 00"));
    tiff.FreeStdTiff();
    EXPECT_EQ(WrittenNew(tiff, platen::kIntel), Hex("49 49 2A 00 00 00 00 00 00 00 00 00"));
}

struct Walk {
    const char* expected;  ///< tag/type/count of every entry but the first, NewSubfileType
    std::function<void(Tiff&)> prepare;
};

/// Two 32-bit or four 16-bit numbers.
template <typename T>
std::function<void(Tiff&)> Values(std::uint16_t tag, std::vector<T> values) {
    return [=](Tiff& tiff) { SetArray(tiff, tag, values); };
}

std::function<void(Tiff&)> Private(std::uint32_t count, std::size_t slot) {
    return [=](Tiff& tiff) {
        SetNumber(tiff, 33445, 0);
        tiff.getStdDir()->ColorTableCount = count;
        tiff.getStdDir()->ColorTable[slot] = 9;
    };
}

TEST(WriteNew, ATagIsWrittenWithoutBeingThereOrLeftOut) {
    using Long = std::uint32_t;
    using Short = std::uint16_t;
    const Walk walks[] = {
        {" 277/3/1", [](Tiff&) {}},
        {"", [](Tiff& t) { SetNumber(t, 277, 0); }},
        {" 277/3/1", [](Tiff& t) { SetText(t, 33448, "text"); }},
        {" 277/3/1 33445/4/1", [](Tiff& t) { SetNumber(t, 33445, 0); }},
        {" 277/3/1 33445/4/1 33448/2/4",
         [](Tiff& t) { SetNumber(t, 33445, 0), SetText(t, 33448, "abc"); }},
        {" 277/3/1 33445/4/1", Private(17, 17)},
        {" 277/3/1 33445/4/1", Private(0, 0)},
        {" 277/3/1 33445/4/1", Private(0xFFFFFFFF, 0)},
        {" 277/3/1 33445/4/1 33447/3/17", Private(17, 16)},
        {" 277/3/1 33445/4/1 33447/3/1", Private(1, 0)},
        {" 277/3/1 33445/4/1 33447/3/18", Private(99, 17)},
        {" 277/3/1 297/3/2", Values<Short>(297, {1, 32767})},
        {" 277/3/1", Values<Short>(297, {1, 32768})},
        {" 277/3/1", Values<Short>(297, {65535, 1})},
        {" 258/3/1 277/3/1", Values<Short>(258, {8})},
        {" 258/3/3 277/3/1", Values<Short>(258, {8, 8, 8})},
        {" 258/3/0 277/3/1",
         [](Tiff& t) { SetShorts(t, 258, {8}), t.getStdDir()->BitsPerSampleCount = 0; }},
        {" 277/3/1 282/5/1", Values<Long>(282, {0, 0})},
        {" 277/3/1", Values<Long>(282, {300, 0xFFFFFFFF})},
        {" 277/3/1", Values<Long>(283, {0xFFFFFFFF, 1})},
        {" 277/3/1", Values<Long>(318, {1, 1, 1, 0xFFFFFFFF})},
        {" 277/3/1 318/5/2", Values<Long>(318, {1, 1, 1, 1})},
        {" 277/3/1 319/5/6", Values<Long>(319, std::vector<Long>(12, 3))},
        {" 277/3/1 292/4/1", [](Tiff& t) { SetNumber(t, 292, 0); }},
        {" 272/2/2 271/2/3 277/3/1", [](Tiff& t) { SetText(t, 271, "ab"), SetText(t, 272, "c"); }},
        {" 256/4/1 257/4/1 277/3/1", [](Tiff& t) { SetNumber(t, 256, 1), SetNumber(t, 257, 1); }},
        {" 277/3/1", [](Tiff& t) {
             for (const Short tag : std::vector<Short>{256, 257, 264, 265, 278, 281}) {
                 SetNumber(t, tag, 0);
             }
             SetNumber(t, 322, 16), SetNumber(t, 323, 16);
             SetLongs(t, 324, {8}), SetLongs(t, 325, {8});
         }}};
    for (const Walk& walk : walks) {
        for (const short format : kFormats) {
            OpenTiff tiff;
            SetNumber(tiff, 254, 0);
            walk.prepare(tiff);
            const Bytes bytes = WrittenNew(tiff, format);
            ASSERT_FALSE(bytes.empty());
            std::uint32_t offset = tiff.getStdDir()->WriteIFDOffset;
            std::string entries;
            for (const RawEntry& entry : RawDirectory(bytes, offset)) {
                entries += std::string(" ") + std::to_string(entry.tag) + "/" +
                           std::to_string(entry.type) + "/" + std::to_string(entry.count);
            }
            EXPECT_EQ(entries, std::string(" 254/4/1") + walk.expected);
            EXPECT_EQ(tiff.WriteGetIFDNum(0), std::ranges::count(entries, ' '));
            EXPECT_EQ(tiff.Status(), -6);
            EXPECT_EQ(tiff.WriteIFDStdDir(FILE_none(), 0, 0, 0), std::ranges::count(entries, ' '));
        }
    }
}

TEST(WriteNew, TheNarrowFormDoesNotWinWhenBothAreHeld) {
    ReadTiff<> read(
        Build({.directories = {{{Longs(254, {0}), Longs(273, {100, 200}), Shorts(273, {7, 9})}}}}));
    std::uint32_t offset = 8;
    const Bytes bytes = WrittenNew(read.tiff, platen::kMotorola);
    EXPECT_EQ(Shown(RawDirectory(bytes, offset).at(1).values), "07 00 09 00 ");
}

TEST(WriteNew, LongValuesAreCutOrTurnedWrongWhereABufferEnds) {
    std::vector<std::uint16_t> shorts(20001);
    std::vector<std::uint32_t> longs(5003);
    for (std::size_t i = 0; i < shorts.size(); ++i) {
        shorts[i] = static_cast<std::uint16_t>(i * 7919);
        longs[i % longs.size()] = static_cast<std::uint32_t>(i * 77777777);
    }
    for (const short format : kFormats) {
        Tiff tiff;
        constexpr short kPages = 300;
        for (short dir = 0; dir < kPages; ++dir) {
            SetNumber(tiff, 254, 2, dir);
            SetText(tiff, 305, std::string("page ") + std::to_string(dir * 37), dir);
            if (dir % 100 == 50) {
                SetShorts(tiff, 320, shorts, dir);
                SetLongs(tiff, 279, longs, dir);
                SetText(tiff, 270, std::string(9001, 'x'), dir);
            }
            if (dir + 1 < kPages) {
                tiff.ReAllocStdTiff();
            }
        }
        const ReadTiff<> read(WrittenNew(tiff, format));
        ASSERT_EQ(read.status, 1);
        ASSERT_EQ(read.Count(), kPages);
        for (short dir = 0; dir < kPages; ++dir) {
            EXPECT_EQ(read.Record(dir).Software, std::string("page ") + std::to_string(dir * 37));
        }
        const TiffIFDStdDirStruct& record = read.Record(150);
        EXPECT_TRUE(std::equal(shorts.begin(), shorts.end(), record.ColorMap));
        EXPECT_TRUE(std::equal(longs.begin(), longs.end(), record.StripByteCountsLong));
        EXPECT_EQ(record.ImageDescription, std::string(9001, 'x'));
    }
}

struct EntryCase {
    std::uint16_t tag;
    short type;
    std::int32_t count;
    std::intptr_t value;
    const char* intel;  ///< the entry, then what stands at the file's end
    const char* motorola;
};

TEST(WriteEntry, AValueStandsInAnotherPlaceOrOrder) {
    constexpr std::uint16_t kShorts[] = {1, 2, 0xFFFE};
    constexpr std::uint32_t kLongs[] = {1, 2, 3, 0xFFFFFFFE};
    const EntryCase cases[] = {
        {256, 4, 1, 100, "00 01 04 00 01 00 00 00 64 00 00 00",
         "01 00 00 04 00 00 00 01 00 00 00 64"},
        {259, 3, 1, 1, "03 01 03 00 01 00 00 00 01 00 00 00",
         "01 03 00 03 00 00 00 01 00 01 00 00"},
        {33445, 4, 1, -2, "A5 82 04 00 01 00 00 00 FE FF FF FF",
         "82 A5 00 04 00 00 00 01 FF FF FF FE"},
        {258, 3, 2, AddressOf(kShorts), "02 01 03 00 02 00 00 00 01 00 02 00",
         "01 02 00 03 00 00 00 02 00 01 00 02"},
        {258, 3, 3, AddressOf(kShorts), "02 01 03 00 03 00 00 00 28 00 00 00 01 00 02 00 FE FF",
         "01 02 00 03 00 00 00 03 00 00 00 28 00 01 00 02 FF FE"},
        {273, 4, 2, AddressOf(kLongs),
         "11 01 04 00 02 00 00 00 28 00 00 00 01 00 00 00 02 00 00 00",
         "01 11 00 04 00 00 00 02 00 00 00 28 00 00 00 01 00 00 00 02"},
        {282, 5, 1, AddressOf(kLongs),
         "1A 01 05 00 01 00 00 00 28 00 00 00 01 00 00 00 02 00 00 00",
         "01 1A 00 05 00 00 00 01 00 00 00 28 00 00 00 01 00 00 00 02"},
        {318, 5, 2, AddressOf(kLongs),
         "3E 01 05 00 02 00 00 00 28 00 00 00 01 00 00 00 02 00 00 00 03 00 00 00 FE FF FF FF",
         "01 3E 00 05 00 00 00 02 00 00 00 28 00 00 00 01 00 00 00 02 00 00 00 03 FF FF FF FE"},
        {305, 2, 4, AddressOf("abc"), "31 01 02 00 04 00 00 00 61 62 63 00",
         "01 31 00 02 00 00 00 04 61 62 63 00"},
        {305, 2, 2, AddressOf("a"), "31 01 02 00 02 00 00 00 61 00 00 00",
         "01 31 00 02 00 00 00 02 61 00 00 00"},
        {305, 2, 5, AddressOf("abcd"), "31 01 02 00 05 00 00 00 28 00 00 00 61 62 63 64 00",
         "01 31 00 02 00 00 00 05 00 00 00 28 61 62 63 64 00"},
        {305, 2, 0, AddressOf("a"), "31 01 02 00 00 00 00 00 00 00 00 00",
         "01 31 00 02 00 00 00 00 00 00 00 00"},
        {258, 3, 0, 0, "02 01 03 00 00 00 00 00 00 00 00 00",
         "01 02 00 03 00 00 00 00 00 00 00 00"},
        {258, 3, -1, 7, "02 01 03 00 FF FF FF FF 07 00 00 00",
         "01 02 00 03 FF FF FF FF 00 07 00 00"},
        {256, 4, -9, 100, "00 01 04 00 F7 FF FF FF 64 00 00 00",
         "01 00 00 04 FF FF FF F7 00 00 00 64"},
        {305, 2, -1, 0, "31 01 02 00 FF FF FF FF 00 00 00 00",
         "01 31 00 02 FF FF FF FF 00 00 00 00"},
        {282, 5, 0, 0, "", ""},
        {282, 5, -1, 0, "", ""},
        {320, 1, 1, 7, "", ""},
        {320, 0, 1, 7, "", ""},
        {320, 7, 9, AddressOf(kLongs), "", ""}};
    for (const EntryCase& c : cases) {
        for (const short format : kFormats) {
            SCOPED_TRACE(testing::Message() << c.tag << " type " << c.type << " count " << c.count);
            const Bytes expected = Hex(format == platen::kIntel ? c.intel : c.motorola);
            const TemporaryFile file(Bytes(40, '\x77'));
            void* handle = FILE_open(file.Name(), 2, nullptr);
            FILE_lseek(handle, 10, 0);
            OpenTiff tiff;
            EXPECT_EQ(tiff.WriteIFDEntry(handle, static_cast<short>(c.tag), c.type, c.count,
                                         c.value, format),
                      1);
            EXPECT_EQ(tiff.Status(), 1);
            EXPECT_EQ(FILE_lseek(handle, 0, 1), expected.empty() ? 10 : 22);
            FILE_close(handle);
            const Bytes behind = expected.empty() ? Bytes() : expected.substr(12);
            const Bytes whole = Bytes(10, '\x77') +
                                (expected.empty() ? Bytes(12, '\x77') : expected.substr(0, 12)) +
                                Bytes(18, '\x77') + behind;
            EXPECT_EQ(Shown(file.Contents()), Shown(whole));
            EXPECT_EQ(tiff.WriteIFDEntry(FILE_none(), 256, c.type, c.count, c.value, format), -6);
            EXPECT_EQ(tiff.Status(), -6);
        }
    }
}

TEST(WriteEntry, AnEntryAtTheEndOfTheFileIsOverwrittenByItsValues) {
    const TemporaryFile file;
    void* handle = FILE_open(file.Name(), 2, nullptr);
    const Rational resolution = {1, 2};
    Tiff tiff;
    tiff.WriteIFDEntry(handle, 282, platen::kTypeRational, 1,
                       reinterpret_cast<std::intptr_t>(&resolution), platen::kIntel);
    FILE_close(handle);
    EXPECT_EQ(Shown(file.Contents()), Shown(Hex("1A 01 05 00 01 00 00 00 00 00 00 00"
                                                "01 00 00 00 02 00 00 00")));
}

TEST(WriteSteps, AStepWritesOtherBytesOrAnotherStatus) {
    OpenTiff tiff;
    SetNumber(tiff, 254, 0);
    tiff.getStdDir()->WriteIFDOffset = 0x01020304;
    const TemporaryFile file;
    void* handle = FILE_open(file.Name(), 2, nullptr);
    for (const short format : kFormats) {
        EXPECT_EQ(tiff.WriteHeader(handle, format), 1);
        EXPECT_EQ(tiff.Write1stOffset(handle, format), 1);
        EXPECT_EQ(tiff.WriteBlankOffset(handle, format), 1);
        EXPECT_EQ(tiff.WriteBlankIFD(handle, format), 1);
        EXPECT_EQ(tiff.Status(), 1);
    }
    FILE_close(handle);
    EXPECT_EQ(Shown(file.Contents()),
              Shown(Hex("49 49 2A 00 04 03 02 01 00 00 00 00"
                        "00 00  00 00 04 00 01 00 00 00 00 00 00 00"
                        "00 00 04 00 01 00 00 00 00 00 00 00  00 00 00 00  00 00 00 00"
                        "4D 4D 00 2A 01 02 03 04 00 00 00 00"
                        "00 00  00 00 00 04 00 00 00 01 00 00 00 00"
                        "00 00 00 04 00 00 00 01 00 00 00 00  00 00 00 00  00 00 00 00")));
    tiff.WriteGetIFDNum(0);
    EXPECT_EQ(tiff.WriteFullOffset(handle, platen::kIntel), 1);
    EXPECT_EQ(tiff.WriteUserData(0, nullptr), 1);
    EXPECT_EQ(tiff.Status(), -6) << "the status is touched";
    tiff.WriteSetFormat(platen::kMotorola);
    EXPECT_EQ(tiff.getFormat(), platen::kMotorola);
}

}  // namespace
