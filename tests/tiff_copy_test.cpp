#include <platen/base/system_error.h>

#include "tests/tiff_copying.h"

namespace {

namespace fs = std::filesystem;
using namespace platen::test;

using Outcome = TiffCopy::Outcome;
using Result = TiffCopy::Result;

std::vector<RawEntry> Entries(const Bytes& bytes) {
    const Order order = bytes[0] == 'I' ? Order::Intel : Order::Motorola;
    std::uint32_t offset = NumberAt(bytes, 4, 4, order);
    return RawDirectory(bytes, offset);
}

std::string Find(const Bytes& bytes, std::uint32_t tag) {
    for (const RawEntry& entry : Entries(bytes)) {
        if (entry.tag == tag) {
            return std::to_string(entry.type) + ", " + std::to_string(entry.count) + ": " +
                   Shown(entry.values);
        }
    }
    return "absent";
}

/// Entries of types and counts that records do not hold, beside those of tags they do not know.
std::vector<Entry> OtherEntries(Order order) {
    std::vector<std::uint32_t> wide = {0x01020304, 0x05060708};  // one DOUBLE
    if (order == Order::Motorola) {
        std::swap(wide[0], wide[1]);
    }
    std::vector<std::uint32_t> letters;
    for (const char letter : {'o', 'n', 'e', '\0', 't', 'w', 'o', '\0'}) {
        letters.push_back(static_cast<std::uint32_t>(letter));
    }
    return {{270, platen::kTypeAscii, 8, 1, letters},
            Bytes8(271, {1, 2, 3, 4, 5}),
            Rationals(282, {{1, 2}, {3, 4}}),
            Shorts(297, {1, 2, 3}),
            Shorts(339, {1}),
            Shorts(338, {1, 2}),
            Shorts(340, {1, 2, 3}),
            Longs(341, {0x01020304}),
            Longs(342, {0x01020304, 5}),
            Bytes8(700, {1, 2, 3}),
            {701, 7, 9, 1, {1, 2, 3, 4, 5, 6, 7, 8, 9}},
            {702, 8, 2, 2, {0xFFFF, 2}},
            {703, 9, 1, 4, {0xFFFFFFFE}},
            {704, 10, 1, 4, {0xFFFFFFFE, 7}},
            {705, 11, 1, 4, {0x3F800000}},
            {706, 12, 1, 4, wide},
            {707, 6, 4, 1, {1, 2, 3, 4}},
            Text(708, "ab"),
            Text(709, "a longer text"),
            Word(710, platen::kTypeShort, 0, 0),
            Text(33448, "without FileTag")};
}

TEST_F(Copy, PixelsThatWereReplacedSinceAreNotCopied) {
    for (const bool isOtherProcess : {false, true}) {
        Put("in.tif", Gray({}));
        const Bytes pixels(100, '\x55');
        const auto replace = [&](TiffCopy&) {
            if (isOtherProcess) {
                std::fstream(Path("in.tif"), std::ios::in | std::ios::out | std::ios::binary)
                        .seekp(8)
                    << pixels;
                return;
            }
            void* other = FILE_open(Path("in.tif").c_str(), 1, nullptr);
            FILE_lseek(other, 8, 0);
            FILE_write(other, pixels.data(), static_cast<LONG>(pixels.size()));
            FILE_close(other);
        };
        ASSERT_EQ(CopyTo("out.tif", platen::kIntel, replace).outcome, Outcome::Done);
        EXPECT_TRUE(FileContents(Path("out.tif")).substr(8, 100) == pixels) << isOtherProcess;
    }
}

TEST_F(Copy, AnEntryThatNoRecordHoldsIsLostOrTurnedWrongly) {
    for (const Order order : kOrders) {
        const Bytes source = Gray(OtherEntries(order), order);
        Put("in.tif", source);
        for (const short format : kFormats) {
            const Result result = CopyTo("out.tif", format);
            ASSERT_EQ(result.outcome, Outcome::Done) << result.reason;
            const Bytes copy = FileContents(Path("out.tif"));
            for (const RawEntry& entry : Entries(source)) {
                EXPECT_EQ(Find(copy, entry.tag), Find(source, entry.tag)) << entry.tag;
            }
            EXPECT_EQ(Find(copy, 254), "4, 1: 00 00 00 00 ");
            const std::vector<RawEntry> entries = Entries(copy);
            EXPECT_EQ(
                std::ranges::adjacent_find(entries, std::ranges::greater_equal{}, &RawEntry::tag),
                entries.end());
        }
    }
}

TEST_F(Copy, StripsOutOfOrderOrAWideImageAreMisread) {
    Put("in.tif", Gray({Longs(273, {58, 8}), Longs(278, {5}), Longs(279, {50, 50})}));
    ASSERT_EQ(CopyTo("out.tif", platen::kIntel).outcome, Outcome::Done);
    const Bytes turned = FileContents(Path("out.tif"));
    const Bytes source = FileContents(Path("in.tif"));
    EXPECT_EQ(turned.substr(8, 100), source.substr(58, 50) + source.substr(8, 50));
    // 40,000 pixels of one bit, the width as the short form that has no sign.
    Put("in.tif", Gray({Shorts(256, {40000}), Longs(257, {1}), Shorts(258, {1}), Longs(278, {1}),
                        Longs(279, {5000})}) +
                      Bytes(6000, 'x'));
    ASSERT_EQ(CopyTo("out.tif", platen::kIntel).outcome, Outcome::Done);
    EXPECT_EQ(Find(FileContents(Path("out.tif")), 256), "4, 1: 40 9C 00 00 ");
    // Two texts in one entry, short and long.
    for (const Bytes& texts : {Bytes("a\0b", 4), Bytes("first\0second", 13)}) {
        Entry entry = Text(315, texts);
        Put("in.tif", Gray({entry}));
        ASSERT_EQ(CopyTo("out.tif", platen::kIntel).outcome, Outcome::Done);
        EXPECT_EQ(Find(FileContents(Path("out.tif")), 315),
                  Find(FileContents(Path("in.tif")), 315));
    }
}

TEST_F(Copy, AnEditDoesNotArriveOrAForgottenTagStays) {
    Put("in.tif", Gray({Text(305, "before"), Text(306, "removed"), Bytes8(271, {1}),
                        Bytes8(700, {1, 2, 3}), Bytes8(701, {1})}));
    EXPECT_EQ(CopyTo("out.tif", platen::kMotorola,
                     [](TiffCopy& copy) {
                         SetText(copy, 305, "after");
                         SetText(copy, 306, "");
                         copy.setTAG(306, 0, 0, 0);
                         SetText(copy, 271, "me");
                         SetNumber(copy, 255, 3);
                         copy.ForgetTAG(700, 0);
                         copy.ForgetTAG(701, 1);
                     })
                  .outcome,
              Outcome::Done);
    const Bytes copy = FileContents(Path("out.tif"));
    EXPECT_EQ(Find(copy, 305), "2, 6: " + Shown("after") + "00 ");
    EXPECT_EQ(Find(copy, 306), "absent");
    EXPECT_EQ(Find(copy, 271), "2, 3: 6D 65 00 ");
    EXPECT_EQ(Find(copy, 255), "3, 1: 03 00 ");
    EXPECT_EQ(Find(copy, 254), "absent");
    EXPECT_EQ(Find(copy, 700), "absent");
    EXPECT_EQ(Find(copy, 701), "1, 1: 01 ");
}

struct Refusal {
    const char* name;
    Bytes source;
    Outcome outcome = Outcome::Refused;
};

TEST_F(Copy, ARefusalTouchesTheOutputOrLeavesAFile) {
    const std::vector<Entry> strips = {Longs(273, {8, 58}), Longs(278, {5})};
    const Refusal refusals[] = {
        {"compressed", Gray({Shorts(259, {5})})},
        {"tiled", Gray({Longs(322, {16}), Longs(323, {16})})},
        {"further directories", Gray({Longs(330, {8})})},
        {"further directories by type", Gray({{700, 13, 1, 4, {8}}})},
        {"EXIF", Gray({Longs(34665, {8})})},
        {"a type without a size", Gray({Word(700, 99, 1, 8)})},
        {"YCbCr", Gray({Shorts(262, {6})})},
        {"mixed samples", Gray({Shorts(258, {8, 16, 8}), Shorts(277, {3})})},
        {"samples of 20 bits", Gray({Shorts(258, {20})})},
        {"no samples", Gray({Shorts(258, {0})})},
        {"an unknown arrangement", Gray({Shorts(284, {3})})},
        {"too few strips", Gray({Longs(278, {5})})},
        {"too many strips", Gray({Longs(273, {8, 9, 10}), Longs(278, {5})})},
        {"strips without as many byte counts", Gray(strips)},
        {"a short strip", Gray({Longs(279, {99})})},
        {"a strip beyond the end", Gray({Shorts(258, {4}), Longs(273, {360})})},
        {"offsets as bytes", Gray({Bytes8(273, {8})})},
        {"no width", Gray({Longs(256, {0})})},
        {"2 GiB", Gray({Longs(256, {0x7FFFFFFF}), Longs(257, {0x7FFFFFFF}), Shorts(258, {1})})},
        {"an image beyond the end", Gray({Longs(273, {800})})},
        {"pixels by tags of other types", Gray({Longs(277, {3})})},
        {"bits as a byte", Gray({Bytes8(258, {8})})},
        {"compression as a long", Gray({Longs(259, {32773})})},
        {"a flat page that unpacks to more than the file",
         Gray({Shorts(259, {5}), Longs(256, {30000})})},
        {"no TIFF file", "no TIFF file", Outcome::SourceFailed},
        {"nothing", "", Outcome::SourceFailed}};
    Put("out.tif", "precious");
    for (const Refusal& refusal : refusals) {
        Put("in.tif", refusal.source);
        for (const char* out : {"out.tif", "in.tif", "new.tif"}) {
            const Result result = CopyTo(out, platen::kMotorola);
            EXPECT_EQ(result.outcome, refusal.outcome) << refusal.name << ": " << result.reason;
        }
        EXPECT_EQ(FileContents(Path("out.tif")), "precious") << refusal.name;
        EXPECT_EQ(FileContents(Path("in.tif")), refusal.source) << refusal.name;
        EXPECT_EQ(Files(), 2) << refusal.name;
    }
}

TEST_F(Copy, WhatWasNotReadIsCopied) {
    Put("in.tif", Gray({}));
    const auto outcomeAfter = [this](const auto& edit) {
        return CopyTo("out.tif", platen::kIntel, edit).outcome;
    };
    EXPECT_EQ(outcomeAfter([](TiffCopy& copy) { copy.FreeStdTiff(); }), Outcome::SourceFailed);
    EXPECT_EQ(outcomeAfter([](TiffCopy& copy) { copy.ResetFileVars(); }), Outcome::SourceFailed);
    void* other = FILE_none();
    const auto open = [&](TiffCopy& copy) { other = copy.Open(Path("in.tif").c_str(), 0); };
    EXPECT_EQ(outcomeAfter(open), Outcome::SourceFailed) << "pixels of another file";
    FILE_close(other);
    constexpr short kNoOrder = 0x1234;
    EXPECT_EQ(CopyTo("out.tif", kNoOrder).outcome, Outcome::Refused);
    EXPECT_EQ(Files(), 1);
}

TEST_F(Copy, AFailureOnTheWayTouchesTheOutputOrLeavesAFile) {
    Put("in.tif", Gray({}));
    Put("out.tif", "precious");
    fs::create_directory(Path("folder"));
    for (const char* out : {"folder", "none/out.tif", "in.tif/out.tif"}) {
        EXPECT_EQ(CopyTo(out, platen::kIntel).outcome, Outcome::OutputFailed) << out;
    }
    // The copy is held against what the source was when it was read.
    Put("in.tif", Gray({Longs(257, {0xFFFF}), Longs(278, {0xFFFF}), Longs(279, {655350})}) +
                      Bytes(655350, 'x'));
    const Result shrunk = CopyTo("out.tif", platen::kIntel,
                                 [&](TiffCopy&) { fs::resize_file(Path("in.tif"), 600000); });
    EXPECT_EQ(shrunk.outcome, Outcome::SourceFailed);
    EXPECT_EQ(FileContents(Path("out.tif")), "precious");
    EXPECT_EQ(Files(), 3);
}

TEST_F(Copy, OntoItselfLosesBytes) {
    Put("in.tif", Gray({Text(305, "me")}, Order::Motorola));
    EXPECT_EQ(CopyTo("in.tif", platen::kIntel).outcome, Outcome::Done);
    const Bytes once = FileContents(Path("in.tif"));
    EXPECT_EQ(once.substr(0, 2), "II");
    EXPECT_EQ(Find(once, 305), Find(Gray({Text(305, "me")}), 305));
    EXPECT_EQ(CopyTo("in.tif", platen::kIntel).outcome, Outcome::Done);
    EXPECT_EQ(FileContents(Path("in.tif")), once);
    EXPECT_EQ(Files(), 1);
}

struct Watch {
    int calls = 0;
    int most = 1000;
    std::int64_t done = 0;
    std::int64_t total = 0;
};

TEST_F(Copy, ProgressIsWrongOrAnAbortLeavesAFile) {
    Put("in.tif",
        Gray({Longs(273, {8, 38, 68, 98}), Longs(278, {3}), Longs(279, {30, 30, 30, 10})}));
    Put("out.tif", "precious");
    fs::permissions(Path("out.tif"), fs::perms::owner_read | fs::perms::owner_write);
    const fs::perms permissions = fs::status(Path("out.tif")).permissions();
    const auto progress = [](void* context, std::int64_t done, std::int64_t total) {
        auto& watch = *static_cast<Watch*>(context);
        EXPECT_GE(done, watch.done);
        watch = {watch.calls + 1, watch.most, done, total};
        return watch.calls == watch.most ? 1 : 0;
    };
    for (const int most : {1, 2, 4, 5, 1000}) {  // four strips and the directory
        TiffCopy copy;
        void* handle = FILE_open(Path("in.tif").c_str(), 0, nullptr);
        copy.Read(handle);
        Watch watch = {0, most};
        const Result result =
            copy.CopyTo(Path("out.tif").c_str(), platen::kIntel, progress, &watch);
        FILE_close(handle);
        EXPECT_EQ(result.outcome, most < 1000 ? Outcome::Aborted : Outcome::Done);
        EXPECT_EQ(watch.total, 100);
        EXPECT_EQ(FileContents(Path("out.tif")) == "precious", most < 1000);
        EXPECT_EQ(watch.done, std::min(most * 30, 100));
        EXPECT_EQ(Files(), 2);
    }
    EXPECT_EQ(fs::status(Path("out.tif")).permissions(), permissions);
}

/// Takes what fits.
struct Bag {
    Bytes bytes = {};
    std::size_t room = 0;

    static bool Take(void* context, const void* bytes, std::size_t size) {
        auto& bag = *static_cast<Bag*>(context);
        bag.bytes.append(static_cast<const char*>(bytes), size);
        platen::SetSystemError(77);
        return bag.bytes.size() <= bag.room;
    }
};

TEST_F(Copy, WhatASinkIsGivenDiffersFromTheFile) {
    Put("in.tif", Gray({Longs(273, {8, 38, 68, 98}), Longs(278, {3}), Longs(279, {30, 30, 30, 10}),
                        Longs(34000, {1, 2, 3})}));
    ASSERT_EQ(CopyTo("out.tif", platen::kMotorola).outcome, Outcome::Done);
    const Bytes whole = FileContents(Path("out.tif"));
    TiffCopy copy;
    void* handle = copy.Open(Path("in.tif").c_str(), 0);
    copy.Read(handle);
    for (Bag bag; bag.room <= whole.size(); bag = {{}, bag.room + 1}) {
        const Result result = copy.CopyTo(&Bag::Take, &bag, platen::kMotorola, {});
        const bool fits = bag.room == whole.size();
        EXPECT_EQ(result.outcome, fits ? Outcome::Done : Outcome::OutputFailed) << bag.room;
        EXPECT_EQ(result.systemError, fits ? 0 : 77);
        EXPECT_TRUE(whole.starts_with(bag.bytes) && (!fits || bag.bytes == whole)) << bag.room;
    }
    copy.setTAG(256, 9, 1, 0);
    Bag bag;
    EXPECT_EQ(copy.CopyTo(&Bag::Take, &bag, platen::kIntel, {}).outcome, Outcome::Refused);
    EXPECT_EQ(bag.bytes, "");
    copy.Close(handle);
    EXPECT_EQ(Files(), 2);
}

}  // namespace
