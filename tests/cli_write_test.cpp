#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/run_program.h"
#include "tests/support/temporary_file.h"
#include "tests/support/tiff_builder.h"

namespace {

namespace fs = std::filesystem;
using namespace platen::test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using testing::UnorderedElementsAre;

Outcome Platen(const std::vector<std::string>& arguments, const Streams& streams = {}) {
    return RunProgram(PLATEN_PROGRAM, arguments, streams);
}

/// A folder of its own, so that a test sees every file that is left in it.
class CliWrite : public testing::Test {
  protected:
    CliWrite() {
        std::string name = (fs::temp_directory_path() / "platen_cli_XXXXXX").string();
        m_folder = mkdtemp(name.data());
    }
    ~CliWrite() override { fs::remove_all(m_folder); }

    [[nodiscard]] std::string At(const std::string& name) const { return m_folder / name; }
    std::string Put(const std::string& name, const std::string& bytes) const {
        std::ofstream(At(name), std::ios::binary) << bytes;
        return At(name);
    }
    /// Runs shell commands in the folder; $P is the program.
    [[nodiscard]] Outcome Shell(const std::string& commands, const Streams& streams = {}) const {
        const std::string setUp = "cd '" + m_folder.string() + "'; P='" PLATEN_PROGRAM "'\n";
        return RunProgram("/bin/sh", {"-c", setUp + commands}, streams);
    }
    [[nodiscard]] std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(m_folder)) {
            names.push_back(entry.path().filename());
        }
        return names;
    }
    [[nodiscard]] std::string Get(const std::string& file, const std::string& tag,
                                  const std::string& dir = "0") const {
        const Outcome outcome = Platen({"get", At(file), tag, "--dir", dir});
        EXPECT_EQ(outcome.exitStatus, outcome.out.empty() ? 1 : 0) << tag;
        return outcome.out;
    }

  private:
    fs::path m_folder;
};

/// Two gray images of 4 by 4 pixels; the first has tags of every kind, and others.
Bytes TwoImages(Order order, const std::vector<Entry>& others = {}) {
    const auto image = [](std::uint32_t offset) {
        return std::vector<Entry>{Longs(254, {2}),      Shorts(256, {4}), Shorts(257, {4}),
                                  Shorts(258, {8}),     Shorts(259, {1}), Shorts(262, {1}),
                                  Longs(273, {offset}), Longs(279, {16})};
    };
    std::vector<Entry> first = image(8);
    first.insert(first.end(),
                 {Shorts(280, {40000}), Rationals(282, {{3000000000, 7}}), Text(285, ""),
                  Text(305, "a\nb "), Rationals(318, {{1, 2}, {3, 4}}), Shorts(320, {0, 65535, 9}),
                  Longs(33445, {4294967294}), Shorts(33447, std::vector<std::uint32_t>(17, 5))});
    first.insert(first.end(), others.begin(), others.end());
    return Build({.order = order,
                  .data = "0123456789ABCDEFfedcba9876543210",
                  .directories = {{first}, {image(24)}}});
}

/// A gray image of 256 MiB that takes next to no space.
void PutLargeImage(const std::string& path) {
    constexpr std::uint32_t kOffset = 4096;
    std::ofstream(path, std::ios::binary)
        << Build({.directories = {{{Longs(254, {0}), Longs(256, {16384}), Longs(257, {16384}),
                                    Shorts(258, {8}), Longs(273, {kOffset})}}}});
    fs::resize_file(path, kOffset + 16384U * 16384U);
}

TEST_F(CliWrite, ListMissesADirectoryOrReadsPastTheLast) {
    const std::string file = Put("in.tif", TwoImages(Order::Motorola));
    const std::string first = Platen({"list", file, "--dir", "0"}).out;
    const std::string second = Platen({"list", file, "--dir", "1"}).out;
    EXPECT_THAT(first, HasSubstr("Software             'a\nb '\r\n"));
    EXPECT_THAT(second, HasSubstr("StripOffsets*        24       \r\n"));
    EXPECT_EQ(Platen({"list", file}).out, first + second);
    for (const char* dir : {"2", "-1", "99999"}) {
        const Outcome outcome = Platen({"list", file, "--dir", dir});
        EXPECT_EQ(outcome.exitStatus, 1);
        EXPECT_EQ(outcome.err,
                  "platen: " + file + ": directory " + dir + ": not in the file, which has 2\n");
    }
    EXPECT_EQ(Platen({"list", file}, {.outPath = "/dev/full"}).exitStatus, 1);
    fs::resize_file(file, fs::file_size(file) - 5);
    const Outcome cut = Platen({"list", file});
    EXPECT_EQ(cut.exitStatus, 1);
    EXPECT_EQ(cut.out.size(), first.size());
    EXPECT_THAT(cut.err, HasSubstr("(status -3)"));
}

TEST_F(CliWrite, GetPrintsAnotherValueOrAnAbsentOne) {
    for (const Order order : kOrders) {
        // A type that is not accepted leaves its count without values.
        const std::string file = Put("in.tif", TwoImages(order, {Word(325, 1, 0x7FFFFFFF, 8)}));
        const struct {
            const char* tag;
            const char* value;
            // clang-format off
        } cases[] = {
            {"256", "4\n"}, {"imagelength", "4\n"}, {"MinSampleValue", "40000\n"},
            {"XResolution", "3000000000/7\n"}, {"Software", "a\nb \n"}, {"PageName", "\n"},
            {"WhitePoint", "1/2 3/4\n"}, {"ColorMap", "0 65535 9\n"}, {"StripOffsets", "8\n"},
            {"33445", "4294967294\n"}, {"ColorTable", "5 5 5 5 5 5 5 5 5 5 5 5 5 5 5 5 5\n"},
            {"TileByteCounts", ""}, {"YResolution", ""}, {"PageNumber", ""}, {"SubIFDs", ""}};
        // clang-format on
        for (const auto& wanted : cases) {
            EXPECT_EQ(Get("in.tif", wanted.tag), wanted.value) << wanted.tag;
        }
        EXPECT_EQ(Get("in.tif", "273", "1"), "24\n");
        EXPECT_EQ(Get("in.tif", "305", "1"), "");
        EXPECT_EQ(Get("in.tif", "256", "2"), "");
        for (const char* unknown : {"ImageWidths", "ImageWidth*", "", "700", "65537", "-1"}) {
            EXPECT_EQ(Platen({"get", file, unknown}).exitStatus, 2) << unknown;
        }
    }
}

TEST_F(CliWrite, SetStoresAnotherValueOrChangesOthers) {
    // clang-format off
    const std::vector<std::string> edits = {
        "254=1", "Orientation=8", "MaxSampleValue=65535", "T4Options=4294967294",
        "YPosition=0/4294967294", "PrimaryChromaticities=1/1 2/1 3/1 4/1 5/1 6/1", "Artist=a=b 'c'",
        "ColorMap=7", "PageNumber=0 32767", "ColorTable=0 9", "GrayResponseCurve=1 2 3 4 5"};
    // clang-format on
    for (const Order order : kOrders) {
        const std::string in = Put("in.tif", TwoImages(order));
        for (const char* format : {"--intel", "--motorola"}) {
            std::vector<std::string> arguments = {"set", in, At("out.tif"), format};
            arguments.insert(arguments.end(), edits.begin(), edits.end());
            ASSERT_EQ(Platen(arguments).exitStatus, 0);
            for (const std::string& edit : edits) {
                const std::size_t equals = edit.find('=');
                EXPECT_EQ(Get("out.tif", edit.substr(0, equals)), edit.substr(equals + 1) + "\n");
            }
            for (const char* tag : {"256", "258", "280", "282", "285", "305", "318", "33445"}) {
                EXPECT_EQ(Get("out.tif", tag), Get("in.tif", tag)) << tag;
            }
            EXPECT_EQ(Get("out.tif", "254", "1"), "2\n");
            EXPECT_THAT(FileContents(At("out.tif")), HasSubstr("0123456789ABCDEFfedcba9876543210"));
        }
        // Removes what was set, and what was there; the output is the input.
        std::vector<std::string> removal = {"set",       At("out.tif"),  At("out.tif"), "33445=",
                                            "Software=", "XResolution=", "PageName="};
        for (const std::string& edit : edits) {
            removal.push_back(edit.substr(0, edit.find('=') + 1));
        }
        ASSERT_EQ(Platen(removal).exitStatus, 0);
        for (std::size_t i = 3; i < removal.size(); ++i) {
            const std::string tag = removal[i].substr(0, removal[i].size() - 1);
            EXPECT_EQ(Get("out.tif", tag), tag == "254" ? "0\n" : "") << tag;
        }
        EXPECT_THAT(Files(), UnorderedElementsAre("in.tif", "out.tif"));
    }
}

TEST_F(CliWrite, SetTakesAWrongValueOrTouchesTheOutput) {
    const std::string in = Put("in.tif", TwoImages(Order::Intel));
    const std::string out = Put("out.tif", "old");
    const struct {
        const char* edit;
        int exitStatus;
        const char* said;
        // clang-format off
    } cases[] = {
        {"Artist", 2, "TAG=VALUE"}, {"700=1", 2, "700"}, {"278=1", 2, "RowsPerStrip"},
        {"Orientation=up", 2, "not a number from 0 to 65535: up"},
        {"Orientation=65536", 2, "65536"}, {"Orientation=-1", 2, "-1"},
        {"Orientation= ", 2, "not 0"}, {"Orientation=65535", 2, "absent"},
        {"SamplesPerPixel=0", 2, "absent"}, {"ImageWidth=2147483648", 2, "2147483648"},
        {"T6Options=4294967296", 2, "4294967296"}, {"XResolution=72", 2, "fraction"},
        {"XResolution=1/2/3", 2, "not a number"}, {"WhitePoint=1/2", 2, "takes 2 values, not 1"},
        {"PageNumber=40000 1", 2, "absent"},
        {"ColorTable=1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18", 2, "1 to 17"},
        {"ImageWidth=2", 1, "directory 0: the image's tags do not match its pixels"},
        {"ImageLength=5", 1, "directory 0: "}, {"Compression=5", 1, "compressed"},
        {"ImageWidth=", 1, "no size"}, {"FileTag=", 1, "ColorTable needs FileTag"}};
    // clang-format on
    for (const auto& wrong : cases) {
        const Outcome outcome = Platen({"set", in, out, wrong.edit});
        EXPECT_EQ(outcome.exitStatus, wrong.exitStatus) << wrong.edit;
        EXPECT_THAT(outcome.err,
                    StartsWith(wrong.exitStatus == 2 ? "platen set: " : "platen: " + in));
        EXPECT_THAT(outcome.err, HasSubstr(wrong.said)) << wrong.edit;
    }
    EXPECT_EQ(Platen({"set", in, out, "Artist=a", "315=b"}).exitStatus, 2);
    EXPECT_EQ(Platen({"set", in, out}).exitStatus, 2);
    EXPECT_EQ(Platen({"set", in, out, "Artist=a", "--dir", "2"}).exitStatus, 1);
    EXPECT_EQ(Platen({"set", in, out, "LabName=x", "--dir", "1"}).exitStatus, 1);
    EXPECT_EQ(Platen({"set", At("no.tif"), out, "Artist=a"}).exitStatus, 1);
    EXPECT_EQ(FileContents(out), "old");
    EXPECT_THAT(Files(), UnorderedElementsAre("in.tif", "out.tif"));
}

TEST_F(CliWrite, OutputThatCannotBeWrittenGoesUnnoticed) {
    const std::string in = Put("in.tif", TwoImages(Order::Intel));
    const struct {
        std::string out;
        const char* said;
    } cases[] = {{"/no/such/out.tif", "could not be created: No such file or directory"},
                 {"/", "irectory"},
                 {"", "could not be created: No such file or directory"},
                 {"/dev/full", ""}};
    for (const auto& wrong : cases) {
        for (const std::vector<std::string>& command :
             {std::vector<std::string>{"copy"}, {"copy", "--raw"}, {"blank"}}) {
            std::vector<std::string> arguments = command;
            arguments.insert(arguments.end(), {in, wrong.out});
            const Outcome outcome = Platen(arguments);
            EXPECT_EQ(outcome.exitStatus, 1) << wrong.out;
            EXPECT_THAT(outcome.err, StartsWith("platen: " + wrong.out + ": "));
            EXPECT_THAT(outcome.err, HasSubstr(wrong.said));
        }
    }
    const Bytes pixels = "0123456789ABCDEFfedcba9876543210";
    for (const std::string command : {"copy", "copy --raw", "blank"}) {
        EXPECT_EQ(Shell("\"$P\" " + command + " in.tif made.tif").exitStatus, 0);
        EXPECT_EQ(FileContents(At("made.tif")).find(pixels) != Bytes::npos, command != "blank");
        EXPECT_TRUE(fs::remove(At("made.tif")));
    }
    for (const std::string command : {"copy --raw", "blank"}) {
        const Outcome onto = Shell("\"$P\" " + command + " in.tif in.tif");
        EXPECT_THAT(onto.err, testing::EndsWith(": is the file being read\n"));
    }
    EXPECT_EQ(FileContents(in), TwoImages(Order::Intel));
    PutLargeImage(At("large.tif"));
    for (const char* command : {"copy", "copy --raw", "blank"}) {
        const Outcome limited =
            Shell("ulimit -f 20; \"$P\" " + std::string(command) + " large.tif out.tif");
        EXPECT_EQ(limited.exitStatus, 1) << command;
        EXPECT_THAT(limited.err, HasSubstr("could not be written: File too large"));
        EXPECT_EQ(fs::remove(At("out.tif")), command != std::string("copy"));
    }
    EXPECT_THAT(Files(), UnorderedElementsAre("in.tif", "large.tif"));
}

/// The program is held still once its output is there, so that the copy lasts as long as is wanted.
constexpr const char* kStopInTheMiddle =
    "\"$P\" copy in.tif out.tif & p=$!\n"
    "until ls out.tif.*.part || ! kill -0 $p; do :; done >ls 2>&1; rm ls; kill -STOP $p\n";

TEST_F(CliWrite, ASignalLeavesAHalfFileOrShowsAsSuccess) {
    PutLargeImage(At("in.tif"));
    Put("out.tif", "old");
    const std::string stop = kStopInTheMiddle;
    EXPECT_EQ(Shell(stop + "kill -TERM $p; kill -CONT $p; wait $p").exitStatus, 128 + 15);
    EXPECT_EQ(Shell(stop + "kill -HUP $p; kill -CONT $p; wait $p").exitStatus, 128 + 1);
    const std::string interrupted = "timeout --preserve-status -s INT 0.02 \"$P\" ";
    EXPECT_EQ(Shell(interrupted + "copy in.tif out.tif").exitStatus, 128 + 2);
    EXPECT_EQ(FileContents(At("out.tif")), "old");
    EXPECT_EQ(Shell(interrupted + "copy --raw in.tif raw.tif").exitStatus, 128 + 2);
    EXPECT_EQ(Shell(interrupted + "blank in.tif raw.tif").exitStatus, 128 + 2);
    EXPECT_THAT(Files(), UnorderedElementsAre("in.tif", "out.tif"));
}

TEST_F(CliWrite, ProgressShowsTooEarlyOrStays) {
    PutLargeImage(At("in.tif"));
    const std::string slow = std::string(kStopInTheMiddle) + "sleep 1.1; kill -CONT $p; wait $p";
    EXPECT_EQ(Shell(slow).err, "");
    const Outcome shown = Shell(slow, {.errIsTerminal = true});
    EXPECT_EQ(shown.exitStatus, 0);
    EXPECT_THAT(shown.err, StartsWith("\r\033[Kplaten: ["));
    EXPECT_THAT(shown.err,
                testing::ContainsRegex("%  [0-9]+ of 268 MB  [0-9]+ MB/s  0:[0-9]+ left"));
    EXPECT_THAT(shown.err, testing::EndsWith(" left\r\033[K"));
    Put("in.tif", TwoImages(Order::Intel));
    EXPECT_EQ(Platen({"copy", At("in.tif"), At("out.tif")}, {.errIsTerminal = true}).err, "");
}

TEST_F(CliWrite, HelpOrWrongUseOfTheOthersIsMissing) {
    for (const char* command : {"list", "get", "set", "copy", "blank"}) {
        EXPECT_THAT(Platen({command, "--help"}).out, HasSubstr("Example:\n  platen "));
        EXPECT_EQ(Platen({command}).exitStatus, 2);
    }
    EXPECT_EQ(Platen({"copy", "--intel", "--motorola", "a", At("b")}).exitStatus, 2);
    EXPECT_EQ(Platen({"get", "a", "256", "--dir", "x"}).exitStatus, 2);
    EXPECT_EQ(Platen({"copy", "/no/such.tif", At("out.tif")}).err,
              "platen: /no/such.tif: could not be opened: No such file or directory (status 0)\n");
    EXPECT_THAT(Files(), ElementsAre());
}

}  // namespace
