#include <csignal>
#include <thread>

#include "tests/cli_running.h"
#include "tests/support/held_program.h"
#include "tests/support/paged_file.h"
#include "tools/platen/transfer_progress.h"

namespace {

namespace fs = std::filesystem;
using namespace platen::test;
using testing::HasSubstr;
using testing::StartsWith;
using testing::UnorderedElementsAre;

/// What a shell can do to the program.
class CliShell : public CliWrite {
  protected:
    /// Runs shell commands in the folder; $P is the program.
    [[nodiscard]] Outcome Shell(const std::string& commands, const Streams& streams = {}) const {
        const std::string setUp = "cd '" + Folder() + "'; P='" PLATEN_PROGRAM "'\n";
        return RunProgram("/bin/sh", {"-c", setUp + commands}, streams);
    }
};

/// A gray image of 256 MiB that takes next to no space.
void PutLargeImage(const std::string& path) {
    constexpr std::uint32_t kOffset = 4096;
    std::ofstream(path, std::ios::binary)
        << Build({.directories = {{{Longs(254, {0}), Longs(256, {16384}), Longs(257, {16384}),
                                    Shorts(258, {8}), Longs(273, {kOffset})}}}});
    fs::resize_file(path, kOffset + 16384U * 16384U);
}

TEST(CliErrors, ASystemsReasonIsMissing) {
    EXPECT_EQ(Platen({"info", "/no/such.tif"}).err,
              "platen: /no/such.tif: could not be opened: No such file or directory (status 0)\n");
    EXPECT_EQ(Platen({"dump", "/"}).err,
              "platen: /: could not be opened: Is a directory (status 0)\n");
    const TemporaryFile good(FullAndReduced(Order::Intel));
    EXPECT_THAT(Platen({"blank", good.Path(), "/no/such/out.tif"}).err,
                HasSubstr("could not be created: No such file or directory"));
}

TEST(CliErrors, ADeviceThatIsFullOrAReaderThatIsGoneGoesUnnoticed) {
    const TemporaryFile file;
    ASSERT_TRUE((PagedFile{.pages = 1000}.Write(file.Path())));
    for (const char* command : {"dump", "info"}) {
        for (const char* jobs : {"--jobs=1", "--jobs=4"}) {
            const std::vector<std::string> arguments = {command, jobs, file.Path(), file.Path()};
            const Outcome full = Platen(arguments, {.outPath = "/dev/full"});
            EXPECT_EQ(full.exitStatus, 1);
            EXPECT_EQ(full.err,
                      "platen: standard output: could not be written: No space left on device "
                      "(status -3)\n");
            const Outcome broken = Platen(arguments, {.outIsBroken = true});
            EXPECT_EQ(broken.exitStatus, 1);
            EXPECT_THAT(broken.err, HasSubstr("Broken pipe"));
        }
    }
    EXPECT_EQ(Platen({"--help"}, {.outPath = "/dev/full"}).exitStatus, 1);
}

TEST_F(CliShell, ADiskThatIsFullGoesUnnoticed) {
    PutLargeImage(At("in.tif"));
    for (const std::string command : {"copy", "copy --raw", "blank"}) {
        EXPECT_EQ(Shell("\"$P\" " + command + " in.tif /dev/full").exitStatus, 1) << command;
        const Outcome limited = Shell("ulimit -f 20; \"$P\" " + command + " in.tif out.tif");
        EXPECT_EQ(limited.exitStatus, 1) << command;
        EXPECT_THAT(limited.err, HasSubstr("could not be written: File too large"));
        EXPECT_FALSE(fs::exists(At("out.tif")));
    }
    EXPECT_THAT(Files(), testing::ElementsAre("in.tif"));
}

/// A name or a text that would act on a terminal: it clears the screen, sets a title, and so on.
const std::string kActing =
    "a\x1B[2Jb\x7F"
    "c\x9B"
    "d\xC2\x9B"
    "e\xC3\xA9\n\t\xE2\x82";
const std::string kShown = R"(a\x1B[2Jb\x7Fc\x9Bd\u009Be)"
                           "\xC3\xA9"
                           R"(\n\t\xE2\x82)";

/// Whether a terminal would do something else than show characters and end lines.
bool Acts(const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const bool endsLine = byte == '\n' || (byte == '\r' && text.compare(i, 2, "\r\n") == 0);
        if ((byte < 0x20 && !endsLine) || (byte >= 0x7F && byte < 0xA0)) {
            return true;
        }
    }
    return false;
}

TEST_F(CliShell, ATextOrNameActsOnTheTerminal) {
    const std::string file = Put(kActing, Build({.directories = {{{Text(305, kActing)}}}}));
    const std::string missing = At("missing" + kActing);
    const struct {
        std::vector<std::string> arguments;
        std::string shown;
    } cases[] = {{{"get", file, "Software"}, kShown + "\n"},
                 {{"info", file}, kShown + ": INTEL"},
                 {{"list", file}, "Software             '" + kShown + "'\r\n"},
                 {{"dump", file}, "Data: '" + kShown + "'\r\n"}};
    for (const auto& show : cases) {
        const Outcome terminal = Platen(show.arguments, {.outIsTerminal = true});
        EXPECT_THAT(terminal.out, HasSubstr(show.shown));
        EXPECT_FALSE(Acts(terminal.out)) << terminal.out;
        EXPECT_THAT(Platen(show.arguments).out, HasSubstr(kActing));
    }
    EXPECT_FALSE(Acts(Platen({"info", "--json", file}, {.outIsTerminal = true}).out));
    const std::vector<std::string> failing[] = {{"info", missing},
                                                {"dump", missing},
                                                {"get", file, "256\x1B"},
                                                {"get", file, "ImageWidth"},
                                                {"list", missing},
                                                {"copy", missing, At("out.tif")},
                                                {"blank", missing, At("x")},
                                                {"copy", file, At("no/" + kActing)},
                                                {"copy", "--raw", file, At("no/" + kActing)}};
    for (const auto& arguments : failing) {
        const Outcome terminal = Platen(arguments, {.errIsTerminal = true});
        EXPECT_NE(terminal.err, "");
        EXPECT_FALSE(Acts(terminal.err)) << terminal.err;
    }
    EXPECT_THAT(Platen({"info", missing}).err, HasSubstr(kActing));
}

TEST_F(CliShell, WithoutThreadsNothingIsWorkedOn) {
    Put("in.tif", FullAndReduced(Order::Intel));
    // Room for the program, but not for a thread's stack.
    const std::string command = "\"$P\" info --jobs=4 in.tif in.tif in.tif in.tif";
    const Outcome alone = Shell("ulimit -s 2000000; ulimit -v 1000000; " + command);
    EXPECT_EQ(alone.exitStatus, 0) << alone.err;
    EXPECT_EQ(alone.out, Shell(command).out);
}

TEST(CliProgress, ShowsOffATerminalOrStaysBehind) {
    const TemporaryFile good(FullAndReduced(Order::Intel));
    const TemporaryFile bad("no image");
    const std::vector<std::string> arguments = {"info", good.Path(), bad.Path(), good.Path()};
    EXPECT_EQ(Platen(arguments).err, ReadingFailed(bad));
    const std::string shown = Platen(arguments, {.errIsTerminal = true}).err;
    EXPECT_THAT(shown, StartsWith("\rplaten: 1 of 3 files\r\033[Kplaten: " + bad.Path() + ": "));
    const std::size_t lastLine = shown.rfind(" files");
    EXPECT_NE(shown.find("\r\033[K", lastLine), std::string::npos);
    EXPECT_EQ(Platen({"info", good.Path()}, {.errIsTerminal = true}).err, "");
}

/// Runs the program, and does something when it is about to write to a file for the nth time. False
/// when it ends before.
bool WasHeld(Outcome& outcome, const std::vector<std::string>& command, int write,
             const std::function<void(pid_t)>& act, const Streams& streams = {}) {
    bool held = false;
    const auto note = [&](pid_t process) {
        held = true;
        act(process);
    };
    outcome = RunHeld(command.front(), {command.begin() + 1, command.end()}, write, note, streams);
    return held;
}

/// A gray image in two strips.
Bytes TwoStrips() {
    return Build(
        {.data = Bytes(32, 'p'),
         .directories = {{{Longs(254, {0}), Shorts(256, {4}), Shorts(257, {8}), Shorts(258, {8}),
                           Longs(273, {8, 24}), Longs(278, {4}), Longs(279, {16, 16})}}}});
}

TEST_F(CliShell, ASignalLeavesAHalfFileOrShowsAsSuccess) {
    const std::string in = Put("in.tif", TwoStrips());
    const std::vector<std::string> commands[] = {{"copy", "-f", in, At("out.tif")},
                                                 {"copy", "--raw", in, At("new.tif")},
                                                 {"blank", in, At("new.tif")}};
    for (std::vector<std::string> command : commands) {
        SCOPED_TRACE(testing::PrintToString(command));
        const bool replaces = command.back() == At("out.tif");
        command.insert(command.begin(), PLATEN_PROGRAM);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
            const auto send = [signal](pid_t process) { kill(process, signal); };
            Put("out.tif", "old");
            Outcome outcome;
            int write = 1;
            for (; WasHeld(outcome, command, write, send); ++write) {
                EXPECT_EQ(outcome.signal, signal) << write;
                const std::string out = FileContents(At("out.tif"));
                EXPECT_TRUE(out == "old" || (replaces && out.size() > in.size())) << write;
                EXPECT_THAT(Files(), UnorderedElementsAre("in.tif", "out.tif")) << write;
                Put("out.tif", "old");
            }
            EXPECT_GT(write, 3) << "held too seldom";
            EXPECT_EQ(outcome.exitStatus, 0);
            fs::remove(At("new.tif"));
        }
    }
    // Who started the program may want it to go on.
    Outcome outcome;
    const std::string ignoring =
        "trap '' HUP; exec '" PLATEN_PROGRAM "' copy -f '" + in + "' '" + At("out.tif") + "'";
    EXPECT_TRUE(WasHeld(outcome, {"/bin/sh", "-c", ignoring}, 1,
                        [](pid_t process) { kill(process, SIGHUP); }));
    EXPECT_EQ(outcome.exitStatus, 0);
}

TEST_F(CliShell, ALongCopyShowsNoProgressOrLeavesItBehind) {
    const std::string in = Put("in.tif", TwoStrips());
    const std::vector<std::string> command = {PLATEN_PROGRAM, "copy", "-f", in, At("out.tif")};
    const auto untilItIsLong = [](pid_t) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1001));
    };
    Outcome outcome;
    ASSERT_TRUE(WasHeld(outcome, command, 1, untilItIsLong, {.errIsTerminal = true}));
    EXPECT_EQ(outcome.exitStatus, 0);
    EXPECT_THAT(outcome.err, StartsWith("\r\033[Kplaten: ["));
    EXPECT_THAT(outcome.err, testing::EndsWith(" left\r\033[K"));
    ASSERT_TRUE(WasHeld(outcome, command, 1, untilItIsLong));
    EXPECT_EQ(outcome.exitStatus, 0);
    EXPECT_EQ(outcome.err, "");
}

platen::tool::TransferProgress::Clock::time_point g_now;

/// What is written to standard error as 100 to 150 of 200 MB are done, and afterwards.
std::string ShownOfATransfer(bool wanted) {
    constexpr std::int64_t kMegabyte = 1'000'000;
    testing::internal::CaptureStderr();
    {
        platen::tool::TransferProgress progress(wanted, [] { return g_now; });
        for (const auto& [milliseconds, done] :
             {std::pair(999, 99), {1, 100}, {99, 110}, {1, 110}, {500, 150}}) {
            g_now += std::chrono::milliseconds(milliseconds);
            progress.Show(done * kMegabyte, 200 * kMegabyte);
        }
    }
    return testing::internal::GetCapturedStderr();
}

TEST(CliProgress, ShowsTooEarlyTooOftenOrOtherFigures) {
    EXPECT_EQ(ShownOfATransfer(true),
              "\r\033[Kplaten: [##########..........]  50%  100 of 200 MB  100 MB/s  0:01 left"
              "\r\033[Kplaten: [###########.........]  55%  110 of 200 MB  100 MB/s  0:01 left"
              "\r\033[Kplaten: [###############.....]  75%  150 of 200 MB  94 MB/s  0:01 left"
              "\r\033[K");
    EXPECT_EQ(ShownOfATransfer(false), "");
}

}  // namespace
