#include <algorithm>
#include <cstddef>

#include "tests/cli_running.h"
#include "tests/support/paged_file.h"

namespace {

using namespace platen::test;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::size_t kFirstDirectory = 8 + 144;
constexpr std::size_t kSecondDirectory = kFirstDirectory + 2 + std::size_t{7} * 12 + 4;
constexpr std::size_t kInSecondDirectory = kSecondDirectory + 2 + std::size_t{3} * 12;
const std::string kNoRoles =
    R"("roles":{"full":-1,"reduced":-1,"page":-1,"transparency":-1,"xk":-1,"xkold":-1}})"
    "\n";

TEST(CliDump, DropsWhatWasGatheredBeforeAFailure) {
    const TemporaryFile file(FullAndReduced(Order::Intel));
    const std::string whole = Platen({"dump", file.Path()}).out;
    file.Resize(kInSecondDirectory);
    const Outcome outcome = Platen({"dump", file.Path()});
    EXPECT_EQ(outcome.exitStatus, 1);
    EXPECT_EQ(outcome.err, ReadingFailed(file));
    EXPECT_THAT(whole, StartsWith(outcome.out));
    EXPECT_THAT(outcome.out, HasSubstr("Directory #2"));
}

/// Alone, a report is written while it grows; beside others, as a whole.
TEST(CliDump, RepeatsOrLosesPiecesOfALongReport) {
    const TemporaryFile file;
    ASSERT_TRUE((PagedFile{.pages = 1000}.Write(file.Path())));
    const std::string alone = Platen({"dump", file.Path()}).out;
    EXPECT_GT(alone.size(), 1000000U);
    EXPECT_THAT(alone, EndsWith("TIFF Class R - RGB Full Color\r\nIFD at offset 0 (0x0)\r\n"));
    EXPECT_TRUE(Platen({"dump", "--jobs=2", file.Path(), file.Path()}).out == alone + alone);
    EXPECT_TRUE(Platen({"dump", "--jobs=1", file.Path(), file.Path()}).out == alone + alone);
}

TEST(CliInfo, TableMissesAFactOrItsColumn) {
    const TemporaryFile file(FullAndReduced(Order::Motorola));
    const Outcome outcome = Platen({"info", file.Path()});
    EXPECT_EQ(outcome.exitStatus, 0);
    EXPECT_EQ(outcome.out,
              file.Path() +
                  ": MOTOROLA byte order, 332 bytes, 2 directories\n"
                  "  dir  entries  size     bits  compression           photometric              "
                  "class    roles\n"
                  "    0        7  12 x 12  8     1 No compression      1 Black is defined as 0  "
                  "G        full\n"
                  "    1        7  3 x 3    8     5 Lempel-Ziv & Welch  9 Invalid                "
                  "unknown  reduced\n");
}

TEST(CliInfo, TableBreaksOnAbsentTagsOrManySamples) {
    const TemporaryFile bare(Build({.directories = {{{Shorts(256, {1})}}}}));
    EXPECT_THAT(Platen({"info", bare.Path()}).out,
                HasSubstr("    0        1  1 x 0  -     -            -            unknown  -\n"));
    const TemporaryFile many(
        Build({.directories = {{{Shorts(258, {8, 8, 8, 8, 8}), Word(33445, 4, 1, 2)}}}}));
    EXPECT_THAT(Platen({"info", many.Path()}).out,
                HasSubstr("  8 8 8 8 ...  -            -            XKold  xk, xkold\n"));
}

TEST(CliInfo, JsonChangesItsKeysOrTheirOrder) {
    const TemporaryFile file(FullAndReduced(Order::Intel));
    EXPECT_EQ(
        Platen({"info", "--json", file.Path()}).out,
        R"({"file":")" + file.Path() +
            R"(","status":1,"format":"INTEL","size":332,"directories":[)"
            R"({"index":0,"entries":7,"class":"G"},{"index":1,"entries":7,"class":"unknown"}])"
            R"(,"roles":{"full":0,"reduced":1,"page":-1,"transparency":-1,"xk":-1,)"
            R"("xkold":-1}})"
            "\n");
}

TEST(CliInfo, JsonFailsOnANameThatIsNotUtf8) {
    const Outcome outcome = Platen({"info", "--json", "/no/\"such\" \xE9\n"});
    EXPECT_EQ(outcome.exitStatus, 1);
    EXPECT_EQ(outcome.out, R"({"file":"/no/\"such\" )"
                           "\xEF\xBF\xBD"
                           R"(\n","status":0,"format":null,"size":0,"directories":[],)" +
                               kNoRoles);
}

TEST(CliErrors, LineDoesNotSayWhatHappened) {
    const TemporaryFile version(Build({.version = 43}));
    const TemporaryFile text("hello\n");
    const TemporaryFile hungry(
        Build({.directories = {{{Word(258, platen::kTypeShort, 0x7FFFFFFF, 8)}}}}));
    const struct {
        std::string file;
        std::string what;
    } cases[] = {
        {version.Path(), "unsupported version (status -2)"},
        {text.Path(), "read failure or inconsistent file (status -3)"},
        {hungry.Path(), "memory exhausted, or a value that cannot be fetched (status -4)"},
    };
    for (const auto& wrong : cases) {
        for (const char* command : {"dump", "info"}) {
            const Outcome outcome = Platen({command, wrong.file});
            EXPECT_EQ(outcome.exitStatus, 1) << wrong.file;
            EXPECT_EQ(outcome.err, "platen: " + wrong.file + ": " + wrong.what + "\n");
        }
    }
}

TEST(CliManyFiles, ChangeTheirOrderOrStopAtABadOne) {
    const TemporaryFile good(FullAndReduced(Order::Intel));
    const TemporaryFile bad("no image");
    const TemporaryFile slow;
    ASSERT_TRUE((PagedFile{.pages = 300}.Write(slow.Path())));
    std::vector<std::string> arguments = {"info", "--json"};
    for (int i = 0; i < 50; ++i) {
        arguments.insert(arguments.end(), {slow.Path(), good.Path(), bad.Path(), good.Path()});
    }
    arguments.insert(arguments.begin() + 1, "--jobs=1");
    const Outcome alone = Platen(arguments);
    EXPECT_EQ(alone.exitStatus, 1);
    EXPECT_EQ(std::count(alone.out.begin(), alone.out.end(), '\n'), 200);
    EXPECT_EQ(std::count(alone.err.begin(), alone.err.end(), '\n'), 50);
    for (const char* jobs : {"--jobs=2", "--jobs=9", "--jobs=1024"}) {
        arguments[1] = jobs;
        const Outcome together = Platen(arguments);
        EXPECT_EQ(together.exitStatus, 1);
        EXPECT_TRUE(together.out == alone.out);
        EXPECT_EQ(together.err, alone.err);
    }
}

TEST(CliUsage, WrongUseLooksLikeAFailedFileOrHelpLikeWrongUse) {
    // clang-format off
    const std::vector<std::string> wrong[] = {{}, {"info"}, {"no-such"}, {"dump", "--no-such", "x"},
        {"info", "--jobs=0", "x"}, {"dump", "--jobs=many", "x"}, {"dump", "--json", "x"}};
    // clang-format on
    for (const auto& arguments : wrong) {
        const Outcome outcome = Platen(arguments);
        EXPECT_EQ(outcome.exitStatus, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err, StartsWith("platen"));
    }
    EXPECT_THAT(Platen({"no-such"}).err, HasSubstr("no-such"));
    for (const char* command : {"dump", "info"}) {
        EXPECT_THAT(Platen({command, "--help"}).out,
                    HasSubstr(std::string("Example:\n  platen ") + command));
    }
    EXPECT_THAT(Platen({"--version"}).out, testing::AllOf(StartsWith("platen "), EndsWith("\n")));
}

}  // namespace
