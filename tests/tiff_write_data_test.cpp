#include <filesystem>

#include "tests/tiff_writing.h"

namespace {

using namespace platen::test;

/// Bytes that repeat at no distance that a chunk has.
Bytes Pattern(std::size_t size, std::uint32_t seed = 1) {
    Bytes bytes(size, '\0');
    for (char& byte : bytes) {
        seed = seed * 1103515245 + 12345;
        byte = static_cast<char>(seed >> 16U);
    }
    return bytes;
}

Bytes Turned(Bytes bytes) {
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        std::swap(bytes[i], bytes[i + 1]);
    }
    return bytes;
}

struct Layout {
    std::uint32_t width, length;
    std::uint16_t samples, bits;

    [[nodiscard]] std::size_t Size() const {
        return std::size_t{width} * length * (std::size_t{samples} * bits / 8);
    }
};

std::vector<Entry> EntriesOf(const Layout& image, const Entry& offsets) {
    const Entry bits = Shorts(258, std::vector<std::uint32_t>(image.samples, image.bits));
    return {Longs(254, {0}), Longs(256, {image.width}),   Longs(257, {image.length}), bits,
            offsets,         Shorts(277, {image.samples})};
}

Bytes CopyOf(Tiff& tiff, short format) {
    const TemporaryFile copy;
    return tiff.WriteCopy(copy.Name(), format) == 1 ? copy.Contents() : Bytes();
}

constexpr Layout kImages[] = {{100, 50, 1, 8},    // one chunk
                              {101, 1, 1, 8},     // an odd size
                              {300, 200, 1, 16},  // 109 rows, then 91
                              {300, 218, 1, 16},  // twice 109 rows
                              {1000, 10, 3, 8},   // all rows fit
                              {10, 600, 1, 8},    // more than 256 rows
                              {65535, 4, 1, 8},   // the widest row that fits
                              {65536, 3, 1, 8},   // the narrowest one that does not
                              {40001, 3, 1, 16},  // pieces that must not cut a pixel
                              {70001, 2, 3, 8},   //
                              {1, 65536, 1, 16},  // more rows than 16 bits count
                              {2, 70001, 1, 8},   //
                              {50, 20, 2, 8},     // two bytes a pixel, hence turned
                              {50, 20, 3, 16},    // six, hence not
                              {50, 20, 1, 32},    //
                              {50, 20, 1, 12},    // one and a half: counts as one
                              {16, 16, 1, 1}};    // no whole byte: no area

TEST(WriteCopy, ImageDataIsCutMovedOrTurnedWrongly) {
    for (const Layout& image : kImages) {
        for (const Order order : kOrders) {
            constexpr std::uint32_t kGap = 13;
            const Bytes pixels = Pattern(image.Size());
            const Bytes source = Build({.order = order,
                                        .data = Pattern(kGap, 9) + pixels + "behind",
                                        .directories = {{EntriesOf(image, Longs(273, {21}))}}});
            for (const short format : kFormats) {
                SCOPED_TRACE(testing::Message() << image.width << "x" << image.length << "x"
                                                << image.samples << "x" << image.bits);
                ReadTiff<> read(source);
                const Bytes copy = CopyOf(read.tiff, format);
                const bool turned = format == platen::kMotorola && image.samples * image.bits == 16;
                EXPECT_TRUE(copy.substr(8, image.Size()) == (turned ? Turned(pixels) : pixels));
                EXPECT_EQ(NumberAt(copy, 4, 4, OrderOf(format)), 8 + image.Size());
                EXPECT_EQ(read.Record().StripOffsetsLong[0], 8U) << "is not relocated";
                EXPECT_EQ(read.Record().ReadDataOffset, 8 + kGap);
                EXPECT_EQ(read.file.Contents(), source);
                const ReadTiff<> back(copy);
                EXPECT_EQ(back.status, 1);
                EXPECT_EQ(back.Record().ImageLength, static_cast<std::int32_t>(image.length));
            }
        }
    }
}

TEST(WriteNew, ImageDataIsNotZeroOrOfAnotherSize) {
    for (const Layout& image : kImages) {
        Tiff tiff;
        tiff.ReAllocStdTiff();
        for (const short dir : std::vector<short>{0, 1}) {
            SetImage(tiff, image.width, image.length, image.bits, dir);
            SetNumber(tiff, 277, image.samples, dir);
        }
        const Bytes bytes = WrittenNew(tiff, platen::kIntel);
        const std::size_t end = 8 + 2 * image.Size();
        EXPECT_EQ(NumberAt(bytes, 4, 4, Order::Intel), end);
        EXPECT_EQ(bytes.find_first_not_of('\0', 8), end) << "in the areas or the entry count";
        EXPECT_EQ(tiff.getStdDir()[1].StripOffsetsLong[0], 8 + image.Size());
    }
}

TEST(WriteCopy, ADirectorysImageIsTakenFromAnotherPlace) {
    const Layout wide = {40, 10, 1, 8};
    const Layout narrow = {30, 10, 1, 8};
    const Bytes data = Pattern(2000);
    std::vector<Entry> untyped = EntriesOf(wide, Longs(273, {8}));
    untyped.erase(untyped.begin());
    const Bytes source =
        Build({.data = data,
               .directories = {
                   {EntriesOf(wide, Longs(273, {1008, 77}))},
                   {untyped},                                              // passed over
                   {EntriesOf(narrow, Shorts(273, {508, 77}))},            // not relocated
                   {EntriesOf(wide, Word(273, platen::kTypeByte, 1, 9))},  // without strip offsets
                   {EntriesOf(narrow, Longs(273, {108}))}}});
    ReadTiff<> read(source);
    read.tiff.getStdDir()[2].ReadDataOffset = 8;
    const Bytes expected =
        data.substr(1000, 400) + data.substr(500, 300) + Bytes(400, '\0') + data.substr(100, 300);
    const Bytes copy = CopyOf(read.tiff, platen::kMotorola);
    EXPECT_TRUE(copy.substr(8, 1400) == expected);
    EXPECT_EQ(read.Record(0).StripOffsetsLong[0], 8U);
    EXPECT_EQ(read.Record(0).StripOffsetsLong[1], 77U);
    EXPECT_EQ(read.Record(1).StripOffsetsLong[0], 8U);
    EXPECT_EQ(read.Record(1).ReadDataOffset, 0U);
    EXPECT_EQ(read.Record(2).StripOffsetsShort[0], 508U);
    EXPECT_EQ(read.Record(4).StripOffsetsLong[0], 8U + 400 + 300 + 400);
    // A second layout takes the places of the first one for those of the data.
    EXPECT_TRUE(CopyOf(read.tiff, platen::kIntel).substr(8, 400) == source.substr(8, 400));

    void* handle = read.handle;
    for (const short dir : std::vector<short>{0, 4}) {
        EXPECT_EQ(read.tiff.WriteSeek2Data(handle, dir), 0);
        EXPECT_EQ(FILE_lseek(handle, 0, 1),
                  static_cast<std::int32_t>(read.Record(dir).ReadDataOffset));
    }
    for (const short dir : std::vector<short>{5, 32767, -1}) {
        FILE_lseek(handle, 3, 0);
        EXPECT_EQ(read.tiff.WriteSeek2Data(handle, dir), 1);
        EXPECT_EQ(FILE_lseek(handle, 0, 1), 3);
    }
}

TEST(WriteCopy, AnImageThatEndsBeyondItsFileChangesTheLayout) {
    const Layout image = {300, 200, 1, 16};
    const Bytes source =
        Build({.data = Pattern(70000), .directories = {{EntriesOf(image, Longs(273, {8}))}}});
    ReadTiff<> read(source);
    EXPECT_EQ(read.status, -3);
    const Bytes expected = source.substr(8) + Bytes(image.Size() - (source.size() - 8), '\0');
    const Bytes copy = CopyOf(read.tiff, platen::kIntel);
    EXPECT_TRUE(copy.substr(8, image.Size()) == expected);
    EXPECT_EQ(NumberAt(copy, 4, 4, Order::Intel), 8 + image.Size());
    FILE_close(read.handle);
    read.handle = FILE_none();
    EXPECT_EQ(CopyOf(read.tiff, platen::kIntel).substr(8, image.Size()), Bytes(image.Size(), '\0'))
        << "without a source the areas are zero";
}

/// A larger window of the source is at hand when its pixels change.
TEST(WriteCopy, PixelsThatWereReplacedSinceAreNotCopied) {
    const Layout image = {200, 100, 1, 8};
    const Bytes source = Build(
        {.data = Pattern(image.Size()), .directories = {{EntriesOf(image, Longs(273, {8}))}}});
    for (const bool isOtherProcess : {false, true}) {
        ReadTiff<> read(source);
        const Bytes pixels = Pattern(image.Size(), 77);
        if (isOtherProcess) {
            read.file.Overwrite(8, pixels);
        } else {
            void* other = FILE_open(read.file.Name(), 1, nullptr);
            FILE_lseek(other, 8, 0);
            FILE_write(other, pixels.data(), static_cast<LONG>(pixels.size()));
            FILE_close(other);
        }
        EXPECT_TRUE(CopyOf(read.tiff, platen::kIntel).substr(8, image.Size()) == pixels)
            << isOtherProcess;
    }
}

TEST(WriteNew, ASizeThatIsNotPositiveReservesOrWritesSomething) {
    const Layout cases[] = {
        {0xFFFFFFFF, 10, 1, 8}, {10, 0x80000000, 1, 8}, {0, 10, 1, 8}, {10, 10, 1, 0}};
    for (const Layout& c : cases) {
        Tiff tiff;
        SetImage(tiff, c.width, c.length, c.bits);
        SetNumber(tiff, 277, c.samples);
        EXPECT_EQ(NumberAt(WrittenNew(tiff, platen::kIntel), 4, 4, Order::Intel), 8U);
    }
    Tiff tiff;
    SetImage(tiff, 10, 10, 8);
    SetNumber(tiff, 277, 0);  // counts as 1
    EXPECT_EQ(NumberAt(WrittenNew(tiff, platen::kIntel), 4, 4, Order::Intel), 108U);
    EXPECT_EQ(tiff.getStdDir()->WriteIFDOffset, 108U);
}

TEST(WriteInto, AnOpenFileGetsOtherBytesOrIsClosed) {
    const Bytes source = SmallFile();
    const struct {
        long (Tiff::*toName)(const char*, short);
        long (Tiff::*intoFile)(void*, short);
    } ways[] = {{&Tiff::WriteCopy, &Tiff::WriteCopyInto}, {&Tiff::WriteNew, &Tiff::WriteNewInto}};
    for (const auto& way : ways) {
        const TemporaryFile named;
        const TemporaryFile open;
        ASSERT_EQ((ReadTiff<>(source).tiff.*way.toName)(named.Name(), platen::kMotorola), 1);
        void* file = FILE_open(open.Name(), 2, nullptr);
        EXPECT_EQ((ReadTiff<>(source).tiff.*way.intoFile)(file, platen::kMotorola), 1);
        EXPECT_EQ(FILE_lseek(file, 0, 2), static_cast<LONG>(named.Contents().size()));
        FILE_close(file);
        EXPECT_EQ(Shown(open.Contents()), Shown(named.Contents()));
    }
}

TEST(WriteNew, AFileBeyondTwoGibibytesIsBegun) {
    // clang-format off
    const std::vector<Layout> cases[] = {
        {{50000, 50000, 1, 8}}, {{0x7FFFFFFF, 1, 1, 8}}, {{0x10000, 0x10000, 1, 8}},
        {{0x7FFFFFFF, 0x7FFFFFFF, 65535, 65535}},
        std::vector<Layout>(3, {0x7FFFFFFF, 0x7FFFFFFF, 65535, 65535})};
    // clang-format on
    for (const auto& images : cases) {
        ReadTiff<OpenTiff> read(SmallFile());
        for (short dir = 0; const Layout& image : images) {
            if (dir > 0) {
                read.tiff.ReAllocStdTiff();
            }
            SetImage(read.tiff, image.width, image.length, image.bits, dir);
            SetNumber(read.tiff, 277, image.samples, dir++);
        }
        const TemporaryFile old("precious");
        const std::string fresh = old.Path() + ".new";
        for (const char* name : {old.Name(), fresh.c_str()}) {
            EXPECT_EQ(read.tiff.WriteNew(name, platen::kIntel), -1);
            EXPECT_EQ(read.tiff.Status(), 0);
            EXPECT_EQ(read.tiff.WriteCopy(name, platen::kMotorola), -1);
            EXPECT_EQ(read.tiff.Status(), 0);
        }
        void* open = FILE_open(old.Name(), 2, nullptr);
        EXPECT_EQ(read.tiff.WriteNewInto(open, platen::kIntel), -1);
        EXPECT_EQ(read.tiff.WriteCopyInto(open, platen::kIntel), -1);
        FILE_close(open);
        EXPECT_EQ(old.Contents(), "precious");
        EXPECT_FALSE(std::filesystem::exists(fresh));
        EXPECT_EQ(read.Record().WriteIFDOffset, 0U) << "the records are laid out";
        EXPECT_EQ(read.Record().StripOffsetsLong[0], 0U);

        // Step by step, the step that needs the positions fails, and no data is begun.
        void* handle = FILE_open(old.Name(), 2, nullptr);
        read.tiff.WriteSetupStructs();
        EXPECT_EQ(read.tiff.WriteDATA(handle), 1);
        EXPECT_EQ(read.tiff.WriteDATA(handle, platen::kIntel), 1);
        EXPECT_LT(FILE_lseek(handle, 0, 2), 100);
        EXPECT_EQ(read.tiff.WriteFullIFD(handle, platen::kIntel), -3);
        FILE_close(handle);
    }
}

}  // namespace
