#include <cstring>

#include <platen/platform/win32.h>

#include "tests/output_writing.h"

namespace {

namespace fs = std::filesystem;
using namespace platen::test;
using platen::OutputFile;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(Output, ItTakesItsNameHalfWrittenOrStaysBehind) {
    Put("a.tif", "old");
    for (const char* name : {"a.tif", "new.tif"}) {
        const bool isThere = fs::exists(At(name));
        {
            OutputFile output;
            ASSERT_TRUE(output.Create(At(name).c_str())) << output.Why().reason;
            EXPECT_TRUE(output.Write("new", 3));
            EXPECT_EQ(Contents(name), isThere ? "old" : "");
        }
        EXPECT_EQ(fs::exists(At(name)), isThere);
        EXPECT_THAT(Names(), SizeIs(1));
    }
    for (const char* name : {"a.tif", "new.tif"}) {
        EXPECT_EQ(Save(name, "new"), "");
        EXPECT_EQ(Contents(name), "new");
    }
    EXPECT_THAT(Names(), ElementsAre("a.tif", "new.tif"));
}

TEST_F(Output, AFailureIsForgottenByALaterStep) {
    OutputFile nameless;
    EXPECT_FALSE(nameless.Commit());
    const struct {
        std::string name;
        const char* reason;
    } wrong[] = {{"none/a.tif", "the output could not be created"},
                 {"", "the output is a directory"},
                 {"folder", "the output is a directory"}};
    fs::create_directory(At("folder"));
    for (const auto& [name, reason] : wrong) {
        OutputFile output;
        EXPECT_FALSE(output.Create(At(name).c_str()));
        EXPECT_STREQ(output.Why().reason, reason) << name;
        EXPECT_EQ(output.Why().systemError != 0, name == "none/a.tif");
        EXPECT_FALSE(output.Write("a", 1));
        EXPECT_FALSE(output.Commit());
        EXPECT_STREQ(output.Why().reason, reason) << name;
        EXPECT_FALSE(output.HasName());
    }
    EXPECT_THAT(Names(), ElementsAre("folder"));
}

std::string Read(void* file) {
    std::string bytes(16, '\0');
    FILE_lseek(file, 0, 0);
    bytes.resize(static_cast<std::size_t>(FILE_read(file, bytes.data(), 16)));
    return bytes;
}

TEST_F(Output, WhoReadsWhatIsReplacedReadsOnInTheOldFile) {
    Put("a.tif", "old");
    Put("b.tif", "other");
    for (const LONG mode : {OF_READ, OF_READWRITE}) {
        void* reader = FILE_open(At("a.tif").c_str(), mode, nullptr);
        for (const char* bytes : {"new", "newer", "newest"}) {
            OutputFile output;
            ASSERT_TRUE(output.Create(At("a.tif").c_str()) &&
                        output.Write(bytes, std::strlen(bytes)));
            EXPECT_TRUE(output.Replaces(reader));
            EXPECT_TRUE(output.Commit(reader)) << output.Why().reason << output.Why().systemError;
            EXPECT_TRUE(output.IsFollowed());
            EXPECT_EQ(FILE_lseek(reader, 0, 1), 0);
            EXPECT_EQ(Read(reader), bytes);
        }
        EXPECT_EQ(FILE_write(reader, "!", 1), mode == OF_READ ? -1 : 1);
        EXPECT_EQ(Contents("a.tif"), mode == OF_READ ? "newest" : "newest!");
        // Closed by other means, the handle has no say in what gets its value.
        EXPECT_NE(CloseHandle(reader), FALSE);
        void* other = FILE_open(At("b.tif").c_str(), OF_READ, nullptr);
        EXPECT_EQ(Read(other), "other");
        FILE_close(other);
    }
    EXPECT_THAT(Names(), ElementsAre("a.tif", "b.tif"));
}

TEST_F(Output, WhatAKillLeftStaysOrSomethingElseGoes) {
    Put("a.tif", "old");
    Put("b.tif", "old");
    // The names that temporary files have: two of one output, and one of another.
    std::vector<std::string> left;
    {
        OutputFile outputs[3];
        for (OutputFile& output : outputs) {
            const std::vector<std::string> before = Names();
            ASSERT_TRUE(output.Create(At(&output == outputs ? "b.tif" : "a.tif").c_str()));
            const std::vector<std::string> now = Names();
            std::ranges::set_difference(now, before, std::back_inserter(left));
        }
        ASSERT_THAT(left, SizeIs(3));
        // Both outputs of one name go on beside one another.
        EXPECT_TRUE(outputs[1].Write("first", 5) && outputs[2].Write("second", 6));
        EXPECT_TRUE(outputs[1].Commit());
        EXPECT_TRUE(outputs[2].Commit());
        EXPECT_EQ(Contents("a.tif"), "second");
    }
    const std::vector<std::string> others = {left[1] + "x", "a.tif.part", "a.tif.00000000-0.part",
                                             "x" + left[1]};
    std::vector<std::string> all = others;
    all.insert(all.end(), left.begin(), left.end());
    for (const std::string& name : all) {
        Put(name, "half");
    }
    EXPECT_EQ(Save("a.tif", "new"), "");
    std::vector<std::string> kept = others;
    kept.insert(kept.end(), {"a.tif", "b.tif", left[0]});
    EXPECT_THAT(Names(), testing::UnorderedElementsAreArray(kept));
}

}  // namespace
