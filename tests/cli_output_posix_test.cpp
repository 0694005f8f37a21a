#include "tests/cli_running.h"
#include "tests/support/held_program.h"

namespace {

namespace fs = std::filesystem;
using namespace platen::test;
using testing::AllOf;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

/// What a shell can do to the program's output.
class CliOutput : public CliWrite {
  protected:
    CliOutput() {
        Put("in.tif", Build({.data = Bytes(16, 'p'),
                             .directories = {{{Longs(254, {0}), Shorts(256, {4}), Shorts(257, {4}),
                                               Shorts(258, {8}), Shorts(259, {1}), Longs(273, {8}),
                                               Longs(279, {16}), Shorts(301, Curve())}}}}));
    }
    /// 8,000 bytes of values.
    static std::vector<std::uint32_t> Curve() { return std::vector<std::uint32_t>(4000, 0x4142); }

    /// Runs shell commands in the folder; $P is the program.
    [[nodiscard]] Outcome Shell(const std::string& commands) const {
        const std::string setUp = "cd '" + Folder() + "'; P='" PLATEN_PROGRAM "'\n";
        return RunProgram("/bin/sh", {"-c", setUp + commands});
    }
};

TEST_F(CliOutput, APipeOrDeviceIsMissedOrGetsAnotherCopy) {
    ASSERT_EQ(Shell("\"$P\" copy --motorola in.tif copy.tif").exitStatus, 0);
    const Bytes copy = FileContents(At("copy.tif"));
    const char* const ways[] = {
        R"("$P" copy --motorola in.tif /dev/stdout | cat >out.tif)",
        R"("$P" copy --motorola in.tif /dev/stdout >out.tif)",
        R"("$P" copy --motorola in.tif /dev/fd/7 7>out.tif)",
        R"("$P" copy --motorola in.tif /proc/self/fd/1 >out.tif)",
        R"("$P" set --motorola in.tif /dev/stdout Compression=1 | cat >out.tif)",
        R"(ln -s /dev/stdout link; "$P" copy --motorola in.tif link | cat >out.tif; rm link)",
        R"(mkfifo pipe; cat pipe >out.tif & "$P" copy --motorola in.tif pipe && wait; rm pipe)"};
    for (const char* way : ways) {
        EXPECT_EQ(Shell(way).err, "") << way;
        EXPECT_TRUE(FileContents(At("out.tif")) == copy) << way;
        fs::remove(At("out.tif"));
    }
    // What is there already stays.
    EXPECT_EQ(Shell(R"(echo 1 >out.tif; "$P" copy --motorola in.tif /dev/stdout >>out.tif)").err,
              "");
    EXPECT_TRUE(FileContents(At("out.tif")) == "1\n" + copy);
    fs::remove(At("out.tif"));
    EXPECT_THAT(Shell(R"("$P" copy in.tif /dev/stdout >>in.tif)").err,
                HasSubstr("/dev/stdout: is the file being read\n"));
    EXPECT_THAT(Files(), UnorderedElementsAre("in.tif", "copy.tif"));
}

TEST_F(CliOutput, AStreamThatTakesNotAllGoesUnnoticed) {
    const struct {
        const char* command;
        const char* said;
    } cases[] = {
        {R"("$P" copy in.tif /dev/full)", "/dev/full: the output could not be written: No space"},
        {R"("$P" copy in.tif /dev/stdout >/dev/full)", "/dev/stdout: the output could not be w"},
        // Not /dev/stdout, which leads to nothing then: a program gone wrong could take its place.
        {R"("$P" copy in.tif /dev/fd/1 >&-)", "/dev/fd/1: the output could not be written: Bad"},
        {R"("$P" copy in.tif /dev/fd/1 <&- >&-)", "Bad file descriptor"},
        {R"("$P" info in.tif >&-)", "standard output: could not be written: Bad file"},
        {R"("$P" copy --raw in.tif /dev/stdout | cat; "$P" blank in.tif /dev/full)",
         "/dev/full: is no regular file"},
        {R"("$P" copy in.tif .)", ".: the output is a directory"}};
    for (const auto& failing : cases) {
        const Outcome outcome = Shell(failing.command);
        EXPECT_EQ(outcome.exitStatus, 1) << failing.command;
        EXPECT_THAT(outcome.err, HasSubstr(failing.said)) << failing.command;
    }
    const Outcome broken = Platen({"copy", At("in.tif"), "/dev/stdout"}, {.outIsBroken = true});
    EXPECT_EQ(broken.exitStatus, 1);
    EXPECT_THAT(broken.err, HasSubstr("/dev/stdout: the output could not be written: Broken pipe"));
    EXPECT_EQ(Shell(R"("$P" copy nix.tif out.tif 2>&-)").exitStatus, 1);
    EXPECT_EQ(Shell(R"("$P" copy in.tif out.tif 2>&-)").exitStatus, 0);
    fs::remove(At("out.tif"));
    EXPECT_THAT(Files(), UnorderedElementsAre("in.tif"));
}

/// The limit falls into every part of what is written in turn, a block of the shell's each time.
TEST_F(CliOutput, AWriteThatFailsBehindOthersGoesUnnoticed) {
    for (const std::string command : {"copy", "copy --raw", "blank"}) {
        int limit = 0;
        Outcome outcome;
        do {
            outcome = Shell("ulimit -f " + std::to_string(++limit) + "; \"$P\" " + command +
                            " in.tif out.tif");
            const bool failed = outcome.exitStatus != 0;
            EXPECT_EQ(outcome.exitStatus, failed ? 1 : 0) << command << limit;
            EXPECT_THAT(outcome.err, HasSubstr(failed ? "out.tif: the output could not be written: "
                                                        "File too large"
                                                      : ""));
            EXPECT_EQ(fs::exists(At("out.tif")), !failed) << command << limit;
        } while (outcome.exitStatus != 0 && limit < 100);
        EXPECT_GE(limit, 8) << command;
        EXPECT_GT(fs::file_size(At("out.tif")), 8000U) << command;
        fs::remove(At("out.tif"));
        EXPECT_THAT(Files(), UnorderedElementsAre("in.tif")) << command;
    }
}

TEST_F(CliOutput, ASourceThatShrinksIsCopiedAsZeros) {
    constexpr std::uint32_t kSide = 1024;
    const Bytes whole = Build(
        {.data = Bytes(kSide * kSide, 'p'),
         .directories = {{{Longs(254, {0}), Longs(256, {kSide}), Longs(257, {kSide}),
                           Shorts(258, {8}), Longs(273, {8}), Longs(279, {kSide * kSide})}}}});
    const std::string in = At("in.tif");
    for (const char* raw : {"--raw", "--intel"}) {
        Put("in.tif", whole);
        const auto shrink = [&in](pid_t /*process*/) { fs::resize_file(in, 1000); };
        const Outcome outcome =
            RunHeld(PLATEN_PROGRAM, {"copy", raw, in, At("out.tif")}, 1, shrink);
        EXPECT_EQ(outcome.exitStatus, 1) << raw;
        EXPECT_THAT(outcome.err, HasSubstr("in.tif: ")) << raw;
        EXPECT_THAT(Files(), UnorderedElementsAre("in.tif")) << raw;
    }
}

/// Names that lead nowhere fail as those do that may not be followed, whoever runs the test.
TEST_F(CliOutput, ASystemsReasonIsToldAsAnotherOne) {
    fs::create_symlink("loop", At("loop"));
    const struct {
        const char* command;
        const char* said;
    } cases[] = {
        {"info loop", "platen: loop: could not be opened: Too many levels of symbolic links (st"},
        {"dump in.tif/x", "platen: in.tif/x: could not be opened: Not a directory (status 0)\n"},
        {"get nix 256", "platen: nix: could not be opened: No such file or directory (status 0)\n"},
        {"list .", "platen: .: could not be opened: Is a directory (status 0)\n"},
        {"copy in.tif loop", "loop: the output could not be looked at: Too many levels of symbo"},
        {"blank -f in.tif loop", "loop: the output could not be looked at: Too many levels of sy"},
        {"copy in.tif in.tif/x", "in.tif/x: the output could not be created: Not a directory\n"},
        {"copy --raw in.tif no/x", "no/x: the output could not be created: No such file or dir"}};
    for (const auto& failing : cases) {
        const Outcome outcome = Shell(std::string("\"$P\" ") + failing.command);
        EXPECT_EQ(outcome.exitStatus, 1) << failing.command;
        EXPECT_THAT(outcome.err, HasSubstr(failing.said)) << failing.command;
    }
    EXPECT_THAT(Files(), UnorderedElementsAre("in.tif", "loop"));
}

}  // namespace
