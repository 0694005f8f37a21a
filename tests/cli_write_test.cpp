#include "tests/cli_running.h"

namespace {

namespace fs = std::filesystem;
using namespace platen::test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using testing::UnorderedElementsAre;

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
    fs::resize_file(file, fs::file_size(file) - 5);
    const Outcome cut = Platen({"list", file});
    EXPECT_EQ(cut.exitStatus, 1);
    EXPECT_EQ(cut.out.size(), (first + second).size());
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
            std::vector<std::string> arguments = {"set", in, At("out.tif"), format, "--force"};
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
        const Outcome outcome = Platen({"set", "-f", in, out, wrong.edit});
        EXPECT_EQ(outcome.exitStatus, wrong.exitStatus) << wrong.edit;
        EXPECT_THAT(outcome.err,
                    StartsWith(wrong.exitStatus == 2 ? "platen set: " : "platen: " + in));
        EXPECT_THAT(outcome.err, HasSubstr(wrong.said)) << wrong.edit;
    }
    EXPECT_EQ(Platen({"set", "-f", in, out, "Artist=a", "315=b"}).exitStatus, 2);
    EXPECT_EQ(Platen({"set", "-f", in, out}).exitStatus, 2);
    EXPECT_EQ(Platen({"set", "-f", in, out, "Artist=a", "--dir", "2"}).exitStatus, 1);
    EXPECT_EQ(Platen({"set", "-f", in, out, "LabName=x", "--dir", "1"}).exitStatus, 1);
    EXPECT_EQ(Platen({"set", "-f", At("no.tif"), out, "Artist=a"}).exitStatus, 1);
    EXPECT_EQ(FileContents(out), "old");
    EXPECT_THAT(Files(), UnorderedElementsAre("in.tif", "out.tif"));
}

TEST_F(CliWrite, OutputThatCannotBeWrittenGoesUnnoticed) {
    const std::string in = Put("in.tif", TwoImages(Order::Intel));
    const std::vector<std::string> commands[] = {{"copy"}, {"copy", "--raw"}, {"blank"}};
    const Bytes pixels = "0123456789ABCDEFfedcba9876543210";
    for (std::vector<std::string> command : commands) {
        const bool blank = command.front() == "blank";
        const bool faithful = command.back() == "copy";
        command.insert(command.end(), {in, ""});
        for (const std::string& out : {std::string("/no/such/out.tif"), At("."), std::string()}) {
            command.back() = out;
            const Outcome outcome = Platen(command);
            EXPECT_EQ(outcome.exitStatus, 1) << out;
            EXPECT_THAT(outcome.err, StartsWith("platen: " + out + ": "));
        }
        command.back() = At("made.tif");
        EXPECT_EQ(Platen(command).exitStatus, 0);
        EXPECT_EQ(FileContents(At("made.tif")).find(pixels) == Bytes::npos, blank);
        EXPECT_TRUE(fs::remove(At("made.tif")));
        command.back() = At("./in.tif");
        if (!faithful) {
            EXPECT_THAT(Platen(command).err, testing::EndsWith(": is the file being read\n"));
        }
    }
    EXPECT_EQ(FileContents(in), TwoImages(Order::Intel));
    EXPECT_THAT(Files(), ElementsAre("in.tif"));
}

TEST_F(CliWrite, HelpOrWrongUseOfTheOthersIsMissing) {
    for (const char* command : {"list", "get", "set", "copy", "blank"}) {
        EXPECT_THAT(Platen({command, "--help"}).out, HasSubstr("Example:\n  platen "));
        EXPECT_EQ(Platen({command}).exitStatus, 2);
    }
    EXPECT_EQ(Platen({"copy", "--intel", "--motorola", "a", At("b")}).exitStatus, 2);
    EXPECT_EQ(Platen({"get", "a", "256", "--dir", "x"}).exitStatus, 2);
    EXPECT_THAT(Platen({"copy", "/no/such.tif", At("out.tif")}).err,
                StartsWith("platen: /no/such.tif: could not be opened: "));
    EXPECT_THAT(Files(), ElementsAre());
}

}  // namespace
