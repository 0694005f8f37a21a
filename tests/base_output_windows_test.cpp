#include <platen/base/file_names.h>
#include <platen/platform/win32.h>

#include "tests/output_writing.h"

namespace {

using namespace platen::test;
using platen::OutputFile;
using testing::ElementsAre;

TEST_F(Output, AFileThatIsHeldIsHarmedOrAnAttributeIsLost) {
    Put("a.tif", "old");
    const std::wstring path = platen::PathOf(At("a.tif").c_str()).wstring();
    void* held = FILE_open(At("a.tif").c_str(), OF_READ | OF_SHARE_DENY_WRITE, nullptr);
    ASSERT_NE(held, FILE_none());
    {
        OutputFile output;
        ASSERT_TRUE(output.Create(At("a.tif").c_str()) && output.Write("new", 3));
        EXPECT_FALSE(output.Commit());
        EXPECT_EQ(output.Why().systemError, ERROR_SHARING_VIOLATION);
        EXPECT_FALSE(output.HasName());
    }
    EXPECT_THAT(Names(), ElementsAre("a.tif"));
    EXPECT_EQ(Contents("a.tif"), "old");
    FILE_close(held);

    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Save("a.tif", "new"), "the output is write-protected");
    EXPECT_EQ(Save("a.tif", "new", true), "");
    EXPECT_EQ(GetFileAttributesW(path.c_str()) & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY),
              DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY});
    EXPECT_EQ(Contents("a.tif"), "new");
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

}  // namespace
