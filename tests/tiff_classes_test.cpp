#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include <platen/tiff/Tiff.h>

#include "tests/support/read_tiff.h"
#include "tests/support/tiff_builder.h"

namespace {

using platen::test::Build;
using platen::test::Directory;
using platen::test::Entry;
using platen::test::Longs;
using platen::test::ReadTiff;
using platen::test::Shorts;
using platen::test::Word;

/// The letters of the classes that a directory belongs to: T a basic image, X the XK flavour, x its
/// old form.
std::string Classes(const Tiff& tiff, short dir = 0) {
    constexpr std::pair<char, short (Tiff::*)(short) const> kTests[] = {
        {'T', &Tiff::IsTIFF},          {'B', &Tiff::IsTIFFClassB}, {'G', &Tiff::IsTIFFClassG},
        {'P', &Tiff::IsTIFFClassP},    {'R', &Tiff::IsTIFFClassR}, {'X', &Tiff::IsTIFFClassXK},
        {'x', &Tiff::IsTIFFClassXKold}};
    std::string letters;
    for (const auto& [letter, test] : kTests) {
        const short answer = (tiff.*test)(dir);
        letters += answer == 1 ? std::string(1, letter) : answer == 0 ? "" : "?";
    }
    return letters;
}

/// Full, reduced, page, transparency, XK, old XK.
std::vector<short> Roles(const Tiff& tiff) {
    return {tiff.GetFullResolutionIFDDir(),
            tiff.GetReducedResolutionIFDDir(),
            tiff.GetSPofMPIFDDir(),
            tiff.GetTransparencyIFDDir(),
            tiff.GetXKIFDDir(),
            tiff.GetXKoldIFDDir()};
}

Entry Bits(std::vector<std::uint32_t> bits) {
    return Shorts(258, std::move(bits));
}

Entry Compression(std::uint32_t code) {
    return Shorts(259, {code});
}

Entry Photometric(std::uint32_t code) {
    return Shorts(262, {code});
}

const Entry kMap = Shorts(320, {1, 2, 3});
const Entry kThree = Shorts(277, {3});
const Entry kPlanar = Shorts(284, {2});

TEST(Classes, ADirectoryIsPutIntoAnotherClass) {
    const struct {
        std::vector<Entry> entries;
        const char* classes;
    } cases[] = {
        {{}, ""},
        {{Bits({1}), Compression(1), Photometric(0)}, "B"},
        {{Bits({1}), Compression(2), Photometric(1)}, "B"},
        {{Bits({1}), Compression(32773), Photometric(1)}, "B"},
        {{Bits({1}), Compression(5), Photometric(1)}, ""},
        {{Bits({1}), Photometric(1)}, ""},
        {{Bits({1}), Compression(1), Photometric(2)}, ""},
        {{Bits({1, 1}), Compression(1), Photometric(1)}, ""},
        {{Bits({1}), Compression(1), Photometric(1), Shorts(277, {2})}, ""},
        {{Bits({4}), Compression(1), Photometric(0)}, "G"},
        {{Bits({8}), Compression(5), Photometric(1)}, "G"},
        {{Bits({8}), Compression(2), Photometric(1)}, ""},
        {{Bits({16}), Compression(1), Photometric(1)}, ""},
        {{Bits({8}), Compression(1), Photometric(3), kMap}, "P"},
        {{Bits({1}), Compression(5), Photometric(3), kMap}, "P"},
        {{Bits({8}), Compression(1), Photometric(3)}, ""},
        {{Bits({0}), Compression(1), Photometric(3), kMap}, ""},
        {{Bits({9}), Compression(1), Photometric(3), kMap}, ""},
        {{Bits({0x8001}), Compression(1), Photometric(3), kMap}, ""},
        {{Bits({8, 8, 8}), Compression(1), Photometric(2), kThree, kPlanar}, "R"},
        {{Bits({8, 8, 8}), Compression(5), Photometric(2), kThree, Shorts(284, {1})}, "R"},
        {{Bits({8, 8, 8}), Compression(1), Photometric(2), kThree}, ""},
        {{Bits({8, 8, 8}), Compression(1), Photometric(2), kThree, Shorts(284, {3})}, ""},
        {{Bits({8, 8, 4}), Compression(1), Photometric(2), kThree, kPlanar}, ""},
        {{Bits({8}), Compression(1), Photometric(2), kThree, kPlanar}, ""},
        {{Bits({8, 8, 8}), Compression(1), Photometric(2), kPlanar}, ""},
        {{Bits({8, 8, 8}), Compression(4), Photometric(2), kThree, kPlanar}, ""},
        {{Longs(33445, {0})}, "Xx"},
        {{Longs(33445, {7}), Longs(254, {0})}, "X"},
        {{Longs(33445, {7}), Shorts(255, {1})}, "X"},
        {{Longs(33445, {0xFFFFFFFF})}, ""},
        {{Bits({8}), Shorts(256, {1}), Shorts(257, {1}), Shorts(273, {8})}, "T"},
        {{Bits({8}), Longs(256, {1}), Longs(257, {1}), Longs(273, {8})}, "T"},
        {{Bits({8}), Shorts(256, {0}), Shorts(257, {1}), Shorts(273, {8})}, ""},
        {{Bits({8}), Shorts(256, {40000}), Shorts(257, {1}), Shorts(273, {8})}, ""},
        {{Bits({8}), Shorts(256, {1}), Shorts(273, {8})}, ""},
        {{Shorts(256, {1}), Shorts(257, {1}), Shorts(273, {8})}, ""},
        {{Bits({8}), Shorts(256, {1}), Shorts(257, {1})}, ""},
        {{Bits({8}), Shorts(256, {1}), Shorts(257, {1}), Word(273, 5, 1, 8)}, ""},
        {{Bits({8}), Shorts(256, {1}), Shorts(257, {1}), Shorts(273, {8}), Word(273, 4, 0, 0)}, ""},
        {{Bits({1}), Compression(1), Photometric(1), Longs(33445, {1})}, "BXx"},
    };
    for (const auto& test : cases) {
        const ReadTiff<> read(Build({.directories = {{test.entries}}}));
        EXPECT_EQ(Classes(read.tiff), test.classes) << "case " << &test - cases;
    }
}

TEST(Classes, AnIndexOutsideTheRecordsReadsMemory) {
    const ReadTiff<> read(Build({.directories = {{{Longs(33445, {1})}}, {{Longs(33445, {1})}}}}));
    for (const short dir : {short{-1}, short{2}, std::numeric_limits<short>::min(),
                            std::numeric_limits<short>::max()}) {
        EXPECT_EQ(Classes(read.tiff, dir), "") << dir;
    }
    EXPECT_EQ(Classes(read.tiff, 1), "Xx");
    Tiff tiff;
    EXPECT_EQ(Roles(tiff), std::vector<short>(6, -1));
    tiff.FreeStdTiff();
    EXPECT_EQ(Classes(tiff, 0), "");
    EXPECT_EQ(Roles(tiff), std::vector<short>(6, -1));
}

TEST(Roles, TheFirstDirectoryOfARoleIsMissed) {
    const Directory none;
    const struct {
        std::vector<Directory> directories;
        std::vector<short> roles;
    } cases[] = {
        {{none}, {-1, -1, -1, -1, -1, -1}},
        {{none, {{Longs(254, {0})}}, {{Longs(254, {0})}}}, {1, -1, -1, -1, -1, -1}},
        {{{{Longs(254, {1}), Shorts(255, {1})}}}, {0, 0, -1, -1, -1, -1}},
        {{{{Longs(254, {3})}}, {{Longs(254, {5})}}}, {-1, -1, -1, -1, -1, -1}},
        {{{{Longs(254, {4})}}, {{Longs(254, {2})}}, {{Longs(254, {2})}}}, {-1, -1, 1, 0, -1, -1}},
        {{{{Shorts(255, {3})}}, {{Shorts(255, {2})}}, {{Shorts(255, {1})}}}, {2, 1, 0, -1, -1, -1}},
        {{{{Shorts(255, {0}), Longs(33445, {9})}}, {{Longs(33445, {0})}}}, {-1, -1, -1, -1, 0, 1}},
    };
    for (const auto& test : cases) {
        const ReadTiff<> read(Build({.directories = test.directories}));
        ASSERT_EQ(read.status, 1);
        EXPECT_EQ(Roles(read.tiff), test.roles) << "case " << &test - cases;
    }
}

}  // namespace
