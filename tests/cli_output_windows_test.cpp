#include "tests/cli_running.h"

namespace {

using namespace platen::test;
using testing::HasSubstr;

TEST_F(CliWrite, ADeviceOrPipeIsTakenForAFile) {
    const std::string in = Put("in.tif", GrayImage("software"));
    for (const char* device : {"NUL", "nul", "\\\\.\\NUL"}) {
        const Outcome copied = Platen({"copy", in, device});
        EXPECT_EQ(copied.exitStatus, 0) << device << copied.err;
        EXPECT_THAT(Platen({"blank", in, device}).err, HasSubstr(": is no regular file"));
    }
    EXPECT_THAT(Platen({"copy", in, "\\\\.\\pipe\\no-such"}).err,
                HasSubstr(": the output could not be written: File not found"));
    EXPECT_THAT(Files(), testing::ElementsAre("in.tif"));
}

}  // namespace
