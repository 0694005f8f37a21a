#include <filesystem>
#include <functional>

#include "tests/tiff_writing.h"

namespace {

namespace fs = std::filesystem;
using namespace platen::test;

/// An image of eight bytes: its data at 8, its directory of six entries and 78 bytes at 16.
Bytes SmallFile() {
    return Build({.data = "12345678",
                  .directories = {{{Longs(254, {0}), Longs(256, {4}), Longs(257, {2}),
                                    Shorts(258, {8}), Longs(273, {8}), Text(305, "a text")}}}});
}

TEST(WriteCopy, TheSourceIsTruncatedUnderAnotherName) {
    const Bytes source = SmallFile();
    ReadTiff<OpenTiff> read(source);
    ASSERT_EQ(read.status, 1);
    const fs::path path = read.file.Path();
    const fs::path symbolic = path.string() + ".symbolic";
    const fs::path hard = path.string() + ".hard";
    fs::create_symlink(path, symbolic);
    fs::create_hard_link(path, hard);
    const std::string names[] = {path, fs::relative(path),
                                 path.parent_path() / "." / path.filename(), symbolic, hard};
    for (const std::string& name : names) {
        EXPECT_EQ(read.tiff.WriteCopy(name.c_str(), TIFF_MOTOROLA), -1) << name;
        EXPECT_EQ(read.tiff.Status(), 0);
        EXPECT_EQ(read.file.Contents(), source) << name;
        EXPECT_EQ(read.Record().WriteIFDOffset, 0U) << "the records are laid out";
    }
    fs::remove(symbolic);
    fs::remove(hard);
    const TemporaryFile twin(source);  // the same bytes, another file
    EXPECT_EQ(read.tiff.WriteCopy(twin.Name(), TIFF_INTEL), 1);
    EXPECT_EQ(read.file.Contents(), source);
    EXPECT_EQ(twin.Contents().substr(8, 8), "12345678");
}

struct Step {
    const char* name;
    long answer;
    std::function<long(OpenTiff&, void*)> run;
};

/// What each step answers when no write goes through; those that do not look answer 1.
TEST(WriteSteps, AFailedWriteIsReportedWrongly) {
    const Step steps[] = {
        {"WriteHeader", -3, [](OpenTiff& t, void* f) { return t.WriteHeader(f, TIFF_INTEL); }},
        {"Write1stOffset", -3,
         [](OpenTiff& t, void* f) { return t.Write1stOffset(f, TIFF_INTEL); }},
        {"WriteBlankOffset", -3,
         [](OpenTiff& t, void* f) { return t.WriteBlankOffset(f, TIFF_INTEL); }},
        {"WriteBlankIFD", -3, [](OpenTiff& t, void* f) { return t.WriteBlankIFD(f, TIFF_INTEL); }},
        {"WriteFullIFD", -3, [](OpenTiff& t, void* f) { return t.WriteFullIFD(f, TIFF_INTEL); }},
        {"WriteDATA", 1, [](OpenTiff& t, void* f) { return t.WriteDATA(f, TIFF_INTEL); }},
        {"WriteDATA of zeros", 1, [](OpenTiff& t, void* f) { return t.WriteDATA(f); }},
        {"WriteIFDEntry", 1,
         [](OpenTiff& t, void* f) {
             return t.WriteIFDEntry(f, 305, 2, 5, AddressOf("text"), TIFF_INTEL);
         }},
        {"WriteIFDStdDir", 1, [](OpenTiff& t, void* f) {
             EXPECT_EQ(t.WriteIFDStdDir(f, TIFF_INTEL, 0, 0), 7);
             return t.Status();
         }}};
    for (const std::string device : {"/dev/full", "a file opened for reading"}) {
        const TemporaryFile file("twelve bytes");
        const bool full = device == "/dev/full";
        void* handle = FILE_open(full ? device.c_str() : file.Name(), full ? 1 : 0, nullptr);
        for (const Step& step : steps) {
            ReadTiff<OpenTiff> read(SmallFile());
            read.tiff.WriteSetupStructs();
            EXPECT_EQ(step.run(read.tiff, handle), step.answer) << step.name << " on " << device;
            EXPECT_EQ(read.tiff.Status(), step.answer) << step.name << " on " << device;
        }
        FILE_close(handle);
        EXPECT_EQ(file.Contents(), "twelve bytes");
    }
    ReadTiff<> read(SmallFile());
    EXPECT_EQ(read.tiff.WriteNew("/dev/full", TIFF_INTEL), -3);
    EXPECT_EQ(read.tiff.WriteCopy("/dev/full", TIFF_INTEL), -3);
    EXPECT_EQ(read.file.Contents(), SmallFile());
}

/// Links and counts are looked at, entries and long values are not.
TEST(WriteNew, AFullDiskIsReportedAtTheWrongPlace) {
    struct Case {
        rlim_t limit;
        int status;
    };
    // Header 0, link 4, data 8, count 16, entries 18, next link 102, four zeros 106, text 110.
    const Case cases[] = {{0, -3}, {4, -3},  {8, -3},  {12, -3}, {16, -3}, {18, 1},
                          {50, 1}, {102, 1}, {106, 1}, {110, 1}, {113, 1}, {117, 1}};
    const Bytes source = SmallFile();
    ReadTiff<> read(source);
    const TemporaryFile whole;
    ASSERT_EQ(ReadTiff<>(source).tiff.WriteNew(whole.Name(), TIFF_INTEL), 1);
    ASSERT_EQ(whole.Contents().size(), 117U);
    for (const Case& c : cases) {
        const TemporaryFile file;
        const auto copy = [&] { return read.tiff.WriteCopy(file.Name(), TIFF_INTEL); };
        EXPECT_EQ(WithFileLimit(c.limit, copy), c.status) << c.limit;
        EXPECT_EQ(file.Contents().size(), c.limit);
        EXPECT_EQ(read.file.Contents(), source);
    }
}

}  // namespace
