#include <filesystem>
#include <functional>
#include <optional>

#include "tests/tiff_writing.h"

namespace {

namespace fs = std::filesystem;
using namespace platen::test;

TEST(WriteCopy, TheSourceIsTruncatedUnderAnotherName) {
    const Bytes source = SmallFile();
    std::optional<ReadTiff<OpenTiff>> opened(source);
    ReadTiff<OpenTiff>& read = *opened;
    ASSERT_EQ(read.status, 1);
    const fs::path path = read.file.Path();
    const fs::path symbolic = path.string() + ".symbolic";
    const fs::path hard = path.string() + ".hard";
    std::error_code unsupported;  // as by Windows
    fs::create_symlink(path, symbolic, unsupported);
    fs::create_hard_link(path, hard);
    std::vector<fs::path> names = {path, fs::relative(path),
                                   path.parent_path() / "." / path.filename(), hard};
    if (!unsupported) {
        names.push_back(symbolic);
    }
    for (const fs::path& name : names) {
        EXPECT_EQ(read.tiff.WriteCopy(name.string().c_str(), platen::kMotorola), -1) << name;
        EXPECT_EQ(read.tiff.Status(), 0);
        EXPECT_EQ(read.file.Contents(), source) << name;
        EXPECT_EQ(read.Record().WriteIFDOffset, 0U) << "the records are laid out";
    }
    const TemporaryFile twin(source);  // the same bytes, another file
    EXPECT_EQ(read.tiff.WriteCopy(twin.Name(), platen::kIntel), 1);
    EXPECT_EQ(read.file.Contents(), source);
    EXPECT_EQ(twin.Contents().substr(8, 8), "12345678");
    opened.reset();  // Windows does not remove a link to an open file
    fs::remove(symbolic, unsupported);
    fs::remove(hard);
}

struct Step {
    const char* name;
    long answer;
    std::function<long(OpenTiff&, void*)> run;
};

/// What each step answers when no write goes through; those that do not look answer 1.
TEST(WriteSteps, AFailedWriteIsReportedWrongly) {
    const Step steps[] = {
        {"WriteHeader", -3, [](OpenTiff& t, void* f) { return t.WriteHeader(f, platen::kIntel); }},
        {"Write1stOffset", -3,
         [](OpenTiff& t, void* f) { return t.Write1stOffset(f, platen::kIntel); }},
        {"WriteBlankOffset", -3,
         [](OpenTiff& t, void* f) { return t.WriteBlankOffset(f, platen::kIntel); }},
        {"WriteBlankIFD", -3,
         [](OpenTiff& t, void* f) { return t.WriteBlankIFD(f, platen::kIntel); }},
        {"WriteFullIFD", -3,
         [](OpenTiff& t, void* f) { return t.WriteFullIFD(f, platen::kIntel); }},
        {"WriteDATA", 1, [](OpenTiff& t, void* f) { return t.WriteDATA(f, platen::kIntel); }},
        {"WriteDATA of zeros", 1, [](OpenTiff& t, void* f) { return t.WriteDATA(f); }},
        {"WriteIFDEntry", 1,
         [](OpenTiff& t, void* f) {
             return t.WriteIFDEntry(f, 305, 2, 5, AddressOf("text"), platen::kIntel);
         }},
        {"WriteIFDStdDir", 1, [](OpenTiff& t, void* f) {
             EXPECT_EQ(t.WriteIFDStdDir(f, platen::kIntel, 0, 0), 7);
             return t.Status();
         }}};
    const TemporaryFile file("twelve bytes");
    void* readOnly = FILE_open(file.Name(), 0, nullptr);
    for (const Step& step : steps) {
        ReadTiff<OpenTiff> read(SmallFile());
        read.tiff.WriteSetupStructs();
        EXPECT_EQ(step.run(read.tiff, readOnly), step.answer) << step.name;
        EXPECT_EQ(read.tiff.Status(), step.answer) << step.name;
    }
    FILE_close(readOnly);
    EXPECT_EQ(file.Contents(), "twelve bytes");
}

}  // namespace
