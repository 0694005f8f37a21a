#include "tests/tiff_copying.h"

namespace {

namespace fs = std::filesystem;
using namespace platen::test;

using Outcome = TiffCopy::Outcome;
using Result = TiffCopy::Result;

/// The pixels of `Gray` as an object sees them: through the handle, where its record says.
Bytes PixelsThrough(const TiffCopy& tiff, void* handle) {
    std::uint32_t offset = 0;
    std::int32_t count = 0;
    tiff.getTAG(273, &offset, count, 0);
    Bytes pixels(100, '\0');
    FILE_lseek(handle, static_cast<LONG>(offset), 0);
    FILE_read(handle, pixels.data(), 100);
    return pixels;
}

TEST_F(Copy, SavedAgainThroughOneObjectItHasOtherPixels) {
    // The strips lie the other way round, so that the second save reads from other places.
    const std::vector<Entry> strips = {Longs(273, {58, 8}), Longs(278, {5}), Longs(279, {50, 50}),
                                       Text(700, "a long value")};
    Put("in.tif", Gray(strips));
    const Bytes source = FileContents(Path("in.tif"));
    const Bytes pixels = source.substr(58, 50) + source.substr(8, 50);
    TiffCopy tiff;
    void* handle = tiff.Open(Path("in.tif").c_str(), 0);
    ASSERT_EQ(tiff.Read(handle), 1);
    for (const short format : {platen::kMotorola, platen::kIntel, platen::kMotorola}) {
        SetText(tiff, 305, "round " + std::to_string(format));
        const Result saved = tiff.CopyTo(Path("in.tif").c_str(), format);
        ASSERT_EQ(saved.outcome, Outcome::Done) << saved.reason << saved.systemError;
        EXPECT_EQ(saved.notes[0], nullptr);
        EXPECT_EQ(tiff.getFormat(), format);
        EXPECT_EQ(PixelsThrough(tiff, handle), pixels);
        const Bytes now = FileContents(Path("in.tif"));
        EXPECT_EQ(now.substr(8, 100), pixels);
        EXPECT_EQ(now.substr(0, 2), format == platen::kIntel ? "II" : "MM");
        EXPECT_EQ(tiff.getFileSize(), static_cast<long>(now.size()));
        for (const auto write : {&Tiff::WriteCopy, &Tiff::WriteNew}) {
            EXPECT_EQ((tiff.*write)(Path("other.tif").c_str(), format), 1);
        }
        // WriteNew has relocated the strips: read anew, as a caller does.
        ASSERT_EQ(tiff.Read(handle), 1);
        EXPECT_EQ(tiff.CopyTo(Path("other.tif").c_str(), format).outcome, Outcome::Done);
        EXPECT_EQ(FileContents(Path("other.tif")), now);
    }
    EXPECT_EQ(FILE_write(handle, "x", 1), -1) << "opened for reading alone";
    tiff.Close(handle);
    EXPECT_EQ(Files(), 2);
}

TEST_F(Copy, AFileThatOthersHaveOpenIsWrittenOver) {
    const Bytes source = Gray({});
    Put("in.tif", source);
    TiffCopy tiff;
    void* handle = tiff.Open(Path("in.tif").c_str(), 0);
    void* another = FILE_open(Path("in.tif").c_str(), 0, nullptr);
    ASSERT_EQ(tiff.Read(handle), 1);
    // One system replaces it, the other one does not; neither touches what is open.
    for (int i = 0; i < 2; ++i) {
        const Result saved = tiff.CopyTo(Path("in.tif").c_str(), platen::kMotorola);
        EXPECT_EQ(saved.outcome == Outcome::Done, FileContents(Path("in.tif")) != source);
        EXPECT_TRUE(saved.outcome == Outcome::Done || saved.systemError != 0);
        EXPECT_EQ(tiff.getFormat(),
                  saved.outcome == Outcome::Done ? platen::kMotorola : platen::kIntel);
        EXPECT_EQ(PixelsThrough(tiff, handle), source.substr(8, 100));
        Bytes old(source.size(), '\0');
        FILE_lseek(another, 0, 0);
        FILE_read(another, old.data(), static_cast<LONG>(old.size()));
        EXPECT_EQ(old, source);
    }
    FILE_close(another);
    EXPECT_EQ(tiff.CopyTo(Path("in.tif").c_str(), platen::kMotorola).outcome, Outcome::Done);
    EXPECT_EQ(PixelsThrough(tiff, handle), source.substr(8, 100));
    tiff.Close(handle);
    EXPECT_EQ(Files(), 1);
}

TEST_F(Copy, AFileThatIsProtectedOrHasOtherNamesIsReplacedUnasked) {
    const Bytes source = Gray({});
    Put("in.tif", source);
    Put("out.tif", "precious");
    TiffCopy tiff;
    void* handle = tiff.Open(Path("in.tif").c_str(), 0);
    ASSERT_EQ(tiff.Read(handle), 1);
    const TiffCopy::Options insisting = {.insists = true};
    const fs::perms reading =
        fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
    fs::permissions(Path("out.tif"), reading);

    const Result guarded = tiff.CopyTo(Path("out.tif").c_str(), platen::kIntel);
    EXPECT_EQ(guarded.outcome, Outcome::Guarded);
    EXPECT_STREQ(guarded.reason, "the output is write-protected");
    EXPECT_EQ(FileContents(Path("out.tif")), "precious");
    const Result insisted = tiff.CopyTo(Path("out.tif").c_str(), platen::kIntel, insisting);
    EXPECT_EQ(insisted.outcome, Outcome::Done) << insisted.reason;
    EXPECT_EQ(insisted.notes[0], nullptr) << "nothing was lost";
    EXPECT_EQ(FileContents(Path("out.tif")).substr(8, 100), source.substr(8, 100));
    EXPECT_EQ(fs::status(Path("out.tif")).permissions(), reading);
    fs::permissions(Path("out.tif"), reading | fs::perms::owner_write);

    Put("first.tif", "precious");
    fs::create_hard_link(Path("first.tif"), Path("second.tif"));
    EXPECT_EQ(tiff.CopyTo(Path("second.tif").c_str(), platen::kIntel).outcome, Outcome::Guarded);
    EXPECT_EQ(FileContents(Path("second.tif")), "precious");
    const Result broken = tiff.CopyTo(Path("second.tif").c_str(), platen::kIntel, insisting);
    EXPECT_EQ(broken.outcome, Outcome::Done) << broken.reason;
    EXPECT_NE(broken.notes[0], nullptr);
    EXPECT_EQ(broken.notes[1], nullptr);
    EXPECT_EQ(FileContents(Path("first.tif")), "precious");
    EXPECT_EQ(FileContents(Path("second.tif")), FileContents(Path("out.tif")));
    tiff.Close(handle);
    EXPECT_EQ(Files(), 4);
}

/// Directories of which each has the file's first bytes as one row of pixels, and more entries.
Bytes OverlappingPages(std::size_t pages, std::uint32_t pixels, const std::vector<Entry>& more) {
    std::vector<Entry> entries = {Longs(254, {0}),  Longs(256, {pixels}), Longs(257, {1}),
                                  Shorts(258, {8}), Longs(273, {8}),      Longs(279, {pixels})};
    entries.insert(entries.end(), more.begin(), more.end());
    return Build({.data = Bytes(30000, 'p'),
                  .directories = std::vector<Directory>(pages, Directory{entries})});
}

TEST_F(Copy, ASmallFileBecomesAHugeOne) {
    const Entry text = Word(305, platen::kTypeAscii, 30000, 8);  // a record holds it
    const Entry bytes = Word(700, platen::kTypeByte, 30000, 8);  // none does
    const std::vector<std::uint32_t> same(1000, 8);
    const std::vector<std::uint32_t> sizes(1000, 20000);
    const Bytes sources[] = {OverlappingPages(40, 30000, {}), OverlappingPages(40, 1, {text}),
                             OverlappingPages(40, 1, {bytes}),
                             Gray({Longs(256, {20000}), Longs(257, {1000}), Longs(278, {1}),
                                   Longs(273, same), Longs(279, sizes)}) +
                                 Bytes(20000, 'x')};
    for (const Bytes& source : sources) {
        Put("in.tif", source);
        const Result result = CopyTo("out.tif", platen::kIntel);
        EXPECT_EQ(result.outcome, Outcome::Refused) << result.reason;
        EXPECT_EQ(Files(), 1);
    }
    // A file that refers to its bytes twice is nobody's fault.
    Put("in.tif", OverlappingPages(1, 30000, {text}));
    EXPECT_EQ(CopyTo("out.tif", platen::kIntel).outcome, Outcome::Done);
}

}  // namespace
