#include "tests/cli_running.h"

namespace {

namespace fs = std::filesystem;
using namespace platen::test;
using testing::EndsWith;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

TEST_F(CliWrite, AnotherFileIsReplacedUnasked) {
    const std::string a = Put("a.tif", GrayImage("first"));
    const std::string b = Put("b.tif", GrayImage("second"));
    const std::vector<std::string> commands[] = {
        {"set", a, b, "Artist=x"}, {"copy", a, b}, {"copy", "--raw", a, b}, {"blank", a, b}};
    for (std::vector<std::string> command : commands) {
        const Outcome refused = Platen(command);
        EXPECT_EQ(refused.exitStatus, 1);
        EXPECT_EQ(refused.err, "platen: " + b + ": exists already; --force replaces it\n");
        EXPECT_EQ(FileContents(b), GrayImage("second"));
        command.emplace_back("--force");
        EXPECT_EQ(Platen(command).exitStatus, 0) << command[0];
        EXPECT_THAT(FileContents(b), HasSubstr("first"));
        Put("b.tif", GrayImage("second"));
    }
    // The input itself may be the output, whatever name it is given by.
    const std::string self = At("./a.tif");
    EXPECT_EQ(Platen({"set", a, self, "Artist=x"}).exitStatus, 0);
    EXPECT_EQ(Get("a.tif", "Artist"), "x\n");
    fs::create_hard_link(a, At("other.tif"));
    EXPECT_THAT(Platen({"set", a, At("other.tif"), "Artist=y"}).err,
                AllOf(HasSubstr("hard links"), EndsWith("; --force replaces it all the same\n")));
    const Outcome forced = Platen({"set", "-f", a, At("other.tif"), "Artist=y"});
    EXPECT_EQ(forced.exitStatus, 0);
    EXPECT_THAT(forced.err, HasSubstr("other.tif: note: the output had other names"));
    EXPECT_EQ(Get("a.tif", "Artist"), "x\n");
    EXPECT_EQ(Get("other.tif", "Artist"), "y\n");
    fs::permissions(a, fs::perms::owner_read);
    EXPECT_THAT(Platen({"set", a, a, "Artist=z"}).err, HasSubstr("write-protected; --force"));
    EXPECT_EQ(Platen({"set", "-f", a, a, "Artist=z"}).exitStatus, 0);
    EXPECT_EQ(Get("a.tif", "Artist"), "z\n");
    fs::permissions(a, fs::perms::owner_all);
    EXPECT_THAT(Files(), UnorderedElementsAre("a.tif", "b.tif", "other.tif"));
}

/// The engine's statuses know nothing of these.
TEST_F(CliWrite, AnImageThatEndsWithItsFileIsCopiedAsZeros) {
    const auto page = [](std::uint32_t side) {
        return Directory{{Longs(254, {2}), Shorts(256, {side}), Shorts(257, {side}),
                          Shorts(258, {8}), Longs(273, {8})}};
    };
    const std::string in =
        Put("in.tif", Build({.data = Bytes(16, 'p'), .directories = {page(4), page(40)}}));
    const Outcome outcome = Platen({"copy", "--raw", in, At("out.tif")});
    EXPECT_EQ(outcome.exitStatus, 1);
    EXPECT_EQ(outcome.err, "platen: " + in + ": the file ends before its image data does\n");
    EXPECT_THAT(Files(), UnorderedElementsAre("in.tif"));
}

}  // namespace
