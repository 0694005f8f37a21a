#include "tests/cli_running.h"

namespace {

namespace fs = std::filesystem;
using namespace platen::test;
using testing::HasSubstr;

/// Directories of a gray image; its compression, 1 for none, decides on whether it is sound.
Bytes GrayPages(std::uint32_t side, std::uint32_t compression, std::size_t pages) {
    const Directory page = {{Longs(254, {2}), Shorts(256, {side}), Shorts(257, {side}),
                             Shorts(258, {8}), Shorts(259, {compression}), Longs(273, {8}),
                             Text(305, "software")}};
    return Build({.data = Bytes(16, 'p'), .directories = std::vector<Directory>(pages, page)});
}

TEST(CliReading, AnImageThatIsCompressedIsTakenForACutOne) {
    const TemporaryFile file(GrayPages(1000, 5, 2));
    const std::string note = "platen: " + file.Path() +
                             ": note: the first image ends beyond the file's end, unless it is "
                             "compressed (status -3)\n";
    const struct {
        std::vector<std::string> arguments;
        const char* shown;
    } cases[] = {{{"info", file.Path()}, "1000 x 1000"},
                 {{"info", "--json", file.Path()}, R"("status":-3,"format":"INTEL")"},
                 {{"list", file.Path()}, "1000 Pixels"},
                 {{"list", "--dir", "1", file.Path()}, "1000 Pixels"},
                 {{"get", file.Path(), "Software"}, "software\n"}};
    for (const auto& shown : cases) {
        const Outcome outcome = Platen(shown.arguments);
        EXPECT_EQ(outcome.exitStatus, 0) << testing::PrintToString(shown.arguments);
        EXPECT_EQ(outcome.err, note);
        EXPECT_THAT(outcome.out, HasSubstr(shown.shown));
    }
    const Outcome dump = Platen({"dump", file.Path()});
    EXPECT_EQ(dump.exitStatus, 1);
    EXPECT_EQ(dump.err, ReadingFailed(file));
    // A file that is cut as well is no sound one.
    file.Resize(GrayPages(1000, 5, 2).size() - 20);
    EXPECT_EQ(Platen({"info", file.Path()}).err, ReadingFailed(file));
}

TEST(CliReading, ADirectoryThatIsEmptyOrCutShortIsLeftOut) {
    const Bytes whole = GrayPages(4, 1, 2);
    // Software and the link; NewSubfileType, ImageWidth and a half; the number of entries.
    const std::size_t kCut[] = {9 + 4 + 12, 9 + 4 + 5 * 12 + 6, 9 + 4 + 7 * 12 + 1};
    const TemporaryFile file(whole);
    for (const std::size_t cut : kCut) {
        file.Resize(whole.size() - cut);
        const std::string entries = cut == kCut[2] ? "\"entries\":7" : R"({"index":1,"entries":7,)";
        EXPECT_THAT(Platen({"info", "--json", file.Path()}).out, HasSubstr(entries)) << cut;
        EXPECT_THAT(Platen({"dump", file.Path()}).out, HasSubstr("Directory #2")) << cut;
        const Outcome list = Platen({"list", file.Path(), "--dir", "1"});
        EXPECT_EQ(list.exitStatus, 1);
        EXPECT_THAT(list.out, HasSubstr(">Standard TIFF\r\n")) << cut;
        EXPECT_EQ(list.out.find("NewSubfileType") != std::string::npos, cut != kCut[2]) << cut;
    }
    const TemporaryFile empty(Build({.directories = {{{Shorts(256, {1})}}, {}}}));
    EXPECT_THAT(Platen({"info", empty.Path()}).out, HasSubstr("2 directories\n"));
    EXPECT_THAT(Platen({"info", empty.Path()}).out, HasSubstr("    1        0  0 x 0"));
    EXPECT_EQ(Platen({"list", empty.Path(), "--dir", "1"}).exitStatus, 0);
    EXPECT_THAT(Platen({"get", empty.Path(), "256", "--dir", "1"}).err,
                HasSubstr("directory 1: no ImageWidth"));
    for (const Bytes& none : {Build({.first = 0}), Build({.first = 8})}) {
        const TemporaryFile header(none);
        EXPECT_THAT(Platen({"info", header.Path()}).out, HasSubstr("0 directories\n"));
        EXPECT_EQ(Platen({"list", header.Path()}).out, "");
    }
}

TEST(CliReading, GetTakesAStoredValueForAnAbsentOneOrTheOtherWayRound) {
    for (const Order order : kOrders) {
        const TemporaryFile file(
            Build({.order = order,
                   .directories = {
                       {{Longs(254, {4294967295}), Shorts(256, {40000}), Shorts(259, {65535}),
                         Shorts(277, {0}), Rationals(282, {{4294967295, 1}}),
                         Rationals(283, {{4294967295, 4294967295}}), Shorts(297, {65535, 65535}),
                         Rationals(318, {{1, 2}}), Shorts(322, {0}), Shorts(33447, {0, 0})}},
                       {{Shorts(256, {1})}}}}));
        const struct {
            const char* tag;
            const char* value;
            // clang-format off
        } cases[] = {
            {"254", "4294967295\n"}, {"256", "40000\n"}, {"259", "65535\n"}, {"277", "0\n"},
            {"282", "4294967295/1\n"}, {"283", "4294967295/4294967295\n"}, {"297", "65535 65535\n"},
            {"318", "1/2\n"}, {"322", "0\n"}, {"33447", "0 0\n"}};
        // clang-format on
        for (const auto& stored : cases) {
            EXPECT_EQ(Platen({"get", file.Path(), stored.tag}).out, stored.value) << stored.tag;
            const Outcome absent = Platen({"get", file.Path(), stored.tag, "--dir", "1"});
            EXPECT_EQ(absent.out, std::string(stored.tag) == "256" ? "1\n" : "") << stored.tag;
        }
        EXPECT_THAT(Platen({"get", file.Path(), "277", "--dir", "1"}).err,
                    testing::EndsWith(": directory 1: no SamplesPerPixel\n"));
    }
}

}  // namespace
