#include "examples/inspector/picture.h"

#include <gmock/gmock.h>

#include <platen/tiff/TiffCopy.h>

#include "examples/inspector/tag_values.h"
#include "tests/support/read_tiff.h"

namespace {

using inspector::Picture;
using inspector::Rendering;
using platen::test::Build;
using platen::test::Bytes;
using platen::test::Entry;
using platen::test::kOrders;
using platen::test::Longs;
using platen::test::Order;
using platen::test::ReadTiff;
using platen::test::Shorts;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::uint32_t kBlack = 0xFF000000;
constexpr std::uint32_t kWhite = 0xFFFFFFFF;
constexpr std::uint32_t kRed = 0xFFFF0000;
constexpr std::uint32_t kBlue = 0xFF0000FF;

constexpr std::uint32_t Gray(std::uint32_t level) {
    return 0xFF000000 | level * 0x10101;
}

/// A directory whose entries can be replaced and added to.
std::vector<Entry> Image(std::uint32_t width, std::uint32_t length, std::uint32_t bits,
                         std::uint32_t photometric, const std::vector<Entry>& others = {}) {
    std::vector<Entry> entries = {Longs(256, {width}),        Longs(257, {length}),
                                  Shorts(258, {bits}),        Shorts(259, {1}),
                                  Shorts(262, {photometric}), Longs(273, {8})};
    for (const Entry& other : others) {
        std::erase_if(entries, [&](const Entry& entry) { return entry.tag == other.tag; });
        entries.push_back(other);
    }
    return entries;
}

Picture Show(const Bytes& data, const std::vector<Entry>& entries, Order order = Order::Intel,
             Rendering rendering = {}, std::int64_t mostPixels = inspector::kMostPixels) {
    const ReadTiff<TiffCopy> read(
        Build({.order = order, .data = data, .directories = {{entries}}}));
    return inspector::ShowPicture(read.tiff, read.handle, 0, rendering, mostPixels);
}

TEST(InspectorPicture, ShowsGrayOfEveryDepthAndPolarity) {
    EXPECT_THAT(Show("\xA0", Image(4, 1, 1, 0)).pixels,
                ElementsAre(kBlack, kWhite, kBlack, kWhite));
    EXPECT_THAT(Show("\x05", Image(4, 1, 1, 1, {Shorts(266, {2})})).pixels,
                ElementsAre(kWhite, kBlack, kWhite, kBlack));
    EXPECT_THAT(Show("\x1B", Image(4, 1, 2, 1)).pixels,
                ElementsAre(kBlack, Gray(85), Gray(170), kWhite));
    EXPECT_THAT(Show("\x0F\x30\x80", Image(3, 1, 4, 1)).pixels,
                ElementsAre(kBlack, kWhite, Gray(51)));
    EXPECT_THAT(Show("\x01\xFE", Image(2, 1, 8, 0)).pixels, ElementsAre(Gray(254), Gray(1)));
    EXPECT_THAT(Show(Bytes("\x80\x00\xFF\xFF", 4), Image(2, 1, 16, 1), Order::Motorola).pixels,
                ElementsAre(Gray(127), kWhite));
    EXPECT_THAT(Show(Bytes("\x00\x80\xFF\xFF", 4), Image(2, 1, 16, 1), Order::Intel).pixels,
                ElementsAre(Gray(127), kWhite));
}

TEST(InspectorPicture, ShowsColorsInChunksPlanesAndPalettes) {
    const Bytes chunks("\xFF\x00\x00\x00\x00\xFF", 6);
    const Bytes planes("\xFF\x00\x00\x00\x00\xFF", 6);
    const Entry bits = Shorts(258, {8, 8, 8});
    const Entry samples = Shorts(277, {3});
    EXPECT_THAT(Show(chunks, Image(2, 1, 8, 2, {bits, samples})).pixels, ElementsAre(kRed, kBlue));
    EXPECT_THAT(Show(planes, Image(2, 1, 8, 2,
                                   {bits, samples, Longs(273, {8, 10, 12}), Longs(278, {1}),
                                    Shorts(284, {2})}))
                    .pixels,
                ElementsAre(kRed, kBlue));
    // The colour map holds all reds, then all greens, then all blues.
    for (const std::uint32_t brightest : {0xFFFFU, 0xFFU}) {
        const Entry map = Shorts(320, {0, brightest, 0, 0, brightest, 0});
        EXPECT_THAT(Show("\x80", Image(2, 1, 1, 3, {map})).pixels, ElementsAre(kRed, kBlue));
    }
    EXPECT_THAT(Show("\x80", Image(2, 1, 1, 3)).problem, HasSubstr("colour map"));
}

TEST(InspectorPicture, FindsRowsInStripsWhateverTheirOrder) {
    const std::vector<Entry> strips = {Longs(273, {10, 8}), Longs(278, {1}), Longs(279, {2, 2})};
    EXPECT_THAT(Show("\x03\x04\x01\x02", Image(2, 2, 8, 1, strips)).pixels,
                ElementsAre(Gray(1), Gray(2), Gray(3), Gray(4)));
    // RowsPerStrip as a SHORT is not read by the engine.
    const std::vector<Entry> counted = {Longs(273, {10, 8}), Shorts(278, {1}), Longs(279, {2, 2})};
    EXPECT_THAT(Show("\x03\x04\x01\x02", Image(2, 2, 8, 1, counted)).pixels,
                ElementsAre(Gray(1), Gray(2), Gray(3), Gray(4)));
}

TEST(InspectorPicture, StandsUprightForEveryOrientation) {
    // 1 2 3 in the first row, 4 5 6 in the second.
    const char* expected[] = {"123456", "321654", "654321", "456123",
                              "142536", "415263", "635241", "362514"};
    for (std::uint32_t orientation = 1; orientation <= 8; ++orientation) {
        const Picture picture =
            Show("\1\2\3\4\5\6", Image(3, 2, 8, 1, {Shorts(274, {orientation})}));
        EXPECT_EQ(picture.width, orientation <= 4 ? 3 : 2);
        std::string shown;
        for (const std::uint32_t pixel : picture.pixels) {
            shown += static_cast<char>('0' + (pixel & 0xFF));
        }
        EXPECT_EQ(shown, expected[orientation - 1]) << orientation;
    }
}

TEST(InspectorPicture, RendersGrayStretchedOrInStepsOfTheColorTable) {
    const Bytes samples("\x14\x19\x1E", 3);
    EXPECT_THAT(Show(samples, Image(3, 1, 8, 1), Order::Intel, {.stretch = true}).pixels,
                ElementsAre(kBlack, Gray(127), kWhite));
    std::vector<std::uint32_t> bounds(17);
    for (std::uint32_t i = 0; i < bounds.size(); ++i) {
        bounds[i] = 21 + i / 4;
    }
    const Picture steps =
        Show(samples, Image(3, 1, 8, 1, {Longs(33445, {0}), Shorts(33447, bounds)}), Order::Intel,
             {.colorTable = true});
    EXPECT_EQ(steps.pixels.front(), kBlack);
    EXPECT_EQ(steps.pixels.back(), kWhite);
    EXPECT_NE(steps.pixels[1] & 0xFFFFFF, (steps.pixels[1] & 0xFF) * 0x10101);
}

TEST(InspectorPicture, ShowsFewerPixelsOfALargeImage) {
    const Picture picture = Show("\1\2\3\4\5\6\7\x8\x9", Image(3, 3, 8, 1), Order::Intel, {}, 4);
    EXPECT_EQ(picture.step, 2);
    EXPECT_THAT(picture.pixels, ElementsAre(Gray(1), Gray(3), Gray(7), Gray(9)));
}

TEST(InspectorPicture, SaysWhyThereIsNothingToSee) {
    const std::pair<Entry, const char*> cases[] = {
        {Shorts(259, {5}), "compressed (Lempel-Ziv & Welch)"},
        {Shorts(259, {8}), "compressed (code 8)"},
        {Longs(322, {16}), "tiles"},
        {Shorts(262, {5}), "colours"},
        {Shorts(258, {12}), "Samples of this size"},
        {Shorts(262, {2}), "three samples"},
        {Longs(257, {0}), "how large"},
        {Longs(256, {0x7FFFFFFF}), "larger than the whole file"},
        {Longs(273, {0xFFFFFFFF}), "within the file"},
    };
    for (const Order order : kOrders) {
        for (const auto& [entry, reason] : cases) {
            const Picture picture = Show("\1\2", Image(2, 1, 8, 1, {entry}), order);
            EXPECT_THAT(picture.problem, HasSubstr(reason));
            EXPECT_THAT(picture.pixels, IsEmpty());
        }
    }
}

TEST(InspectorPicture, HostileFilesCostBoundedMemoryAndTime) {
    // Rows that no file can hold, a size in rejected types, and arrays without their block.
    const Picture tall = Show("\1\2", Image(1, 0x7FFFFFFF, 8, 1, {Longs(278, {0x7FFFFFFF})}));
    EXPECT_LE(static_cast<std::int64_t>(tall.pixels.size()), inspector::kMostPixels);
    EXPECT_THAT(tall.problem, HasSubstr("beyond the end of the file"));
    const Entry rejected = platen::test::Word(273, 5, 0x7FFFFFFF, 8);
    EXPECT_THAT(Show("\1\2", Image(2, 1, 8, 1, {rejected})).pixels, IsEmpty());
    const Entry map = platen::test::Word(320, 3, 0x7FFFFFFF, 8);
    EXPECT_THAT(Show("\1\2", Image(2, 1, 8, 3, {map})).pixels, IsEmpty());
    const Picture zeroRows = Show("\1\2", Image(2, 1, 8, 1, {Longs(278, {0})}));
    EXPECT_THAT(zeroRows.pixels, ElementsAre(Gray(1), Gray(2)));
}

TEST(InspectorTags, TakeWhatIsShownAndRefuseWhatCannotBeWritten) {
    const char* texts[][2] = {{"274", "8"},
                              {"282", "300/1"},
                              {"306", "one\u21B5two"},
                              {"297", "2 5"},
                              {"291", "0 1 65535"},
                              {"254", "4294967294"},
                              {"319", "1/1 2/1 3/1 4/1 5/1 6/1"}};
    for (const auto& [number, text] : texts) {
        const auto tag = static_cast<std::uint16_t>(std::stoi(number));
        const auto parsed = inspector::ParseTag(tag, text);
        ASSERT_TRUE(std::holds_alternative<inspector::TagChange>(parsed)) << tag;
        Tiff tiff;
        tiff.setFileSize(100);
        std::get<inspector::TagChange>(parsed).ApplyTo(tiff, 0);
        EXPECT_EQ(inspector::TagText(tiff, tag, 0, 100), text);
    }
    const std::pair<std::uint16_t, const char*> refused[] = {
        {274, "65535"}, {274, "65536"}, {274, "-1"}, {274, "1 2"}, {282, "1/x"},
        {282, ""},      {297, "1"},     {256, "5"},  {273, "8"},   {999, "1"}};
    for (const auto& [tag, text] : refused) {
        EXPECT_TRUE(std::holds_alternative<std::string>(inspector::ParseTag(tag, text)))
            << tag << " " << text;
    }
}

}  // namespace
