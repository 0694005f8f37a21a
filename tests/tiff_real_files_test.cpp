#include <filesystem>

#include "tests/support/read_tiff.h"

/// Files written by other software. What they hold was reported by other software too.
namespace {

using namespace platen::test;

/// The reports beside the files were once found equal to what libtiff's tiffdump shows of them.
TEST(RealFiles, TheReportDiffersFromWhatOthersRead) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(PLATEN_TEST_DATA)) {
        if (entry.path().extension() == ".tif") {
            const std::string expected = FileContents(entry.path().string() + ".report");
            EXPECT_EQ(ReadTiff<>(FileContents(entry.path().string())).Report(), expected)
                << entry.path();
            ++files;
        }
    }
    EXPECT_GE(files, 8);
}

}  // namespace
