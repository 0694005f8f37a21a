#include <limits>

#include "tests/support/read_tiff.h"

namespace {

using namespace platen::test;

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

/// BitsPerSample, Compression and PhotometricInterpretation, and others.
std::vector<Entry> Image(std::vector<std::uint32_t> bits, std::uint32_t compression,
                         std::uint32_t photometric, const std::vector<Entry>& more = {}) {
    std::vector<Entry> entries = {Shorts(258, std::move(bits)), Shorts(259, {compression}),
                                  Shorts(262, {photometric})};
    entries.insert(entries.end(), more.begin(), more.end());
    return entries;
}

const Entry kMap = Shorts(320, {1, 2, 3});
const Entry kThree = Shorts(277, {3});
const Entry kPlanar = Shorts(284, {2});
const Entry kBits = Shorts(258, {8});
const Entry kLength = Shorts(257, {1});
const Entry kStrip = Shorts(273, {8});

TEST(Classes, ADirectoryIsPutIntoAnotherClass) {
    const struct {
        std::vector<Entry> entries;
        const char* classes;
        // clang-format off
    } cases[] = {
        {{}, ""}, {Image({1}, 1, 0), "B"}, {Image({1}, 32773, 1), "B"}, {Image({1}, 5, 1), ""},
        {{Shorts(258, {1}), Shorts(262, {1})}, ""}, {Image({1}, 1, 2), ""},
        {Image({1, 1}, 1, 1), ""}, {Image({1}, 1, 1, {Shorts(277, {2})}), ""},
        {Image({4}, 1, 0), "G"}, {Image({8}, 5, 1), "G"}, {Image({8}, 2, 1), ""},
        {Image({16}, 1, 1), ""}, {Image({1}, 5, 3, {kMap}), "P"}, {Image({8}, 1, 3), ""},
        {Image({0}, 1, 3, {kMap}), ""}, {Image({9}, 1, 3, {kMap}), ""},
        {Image({8, 8, 8}, 1, 2, {kThree, kPlanar}), "R"},
        {Image({8, 8, 8}, 5, 2, {kThree, Shorts(284, {1})}), "R"},
        {Image({8, 8, 8}, 1, 2, {kThree}), ""}, {Image({8, 8, 4}, 1, 2, {kThree, kPlanar}), ""},
        {Image({8}, 1, 2, {kThree, kPlanar}), ""}, {Image({8, 8, 8}, 1, 2, {kPlanar}), ""},
        {Image({8, 8, 8}, 4, 2, {kThree, kPlanar}), ""}, {{Longs(33445, {0})}, "Xx"},
        {{Longs(33445, {7}), Longs(254, {0})}, "X"}, {{Longs(33445, {7}), Shorts(255, {1})}, "X"},
        {{Longs(33445, {0xFFFFFFFF})}, ""},
        {{kBits, Shorts(256, {1}), kLength, Longs(273, {8})}, "T"},
        {{kBits, Shorts(256, {0}), kLength, kStrip}, ""},
        {{kBits, Shorts(256, {40000}), kLength, kStrip}, ""},
        {{kBits, Shorts(256, {1}), kStrip}, ""}, {{Shorts(256, {1}), kLength, kStrip}, ""},
        {{kBits, Shorts(256, {1}), kLength}, ""},
        {{kBits, Shorts(256, {1}), kLength, kStrip, Word(273, 4, 0, 0)}, ""},
        {Image({1}, 1, 1, {Longs(33445, {1})}), "BXx"}};
    // clang-format on
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
