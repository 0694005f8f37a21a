#include "tests/support/run_program.h"
#include "tests/tiff_copying.h"

namespace {

namespace fs = std::filesystem;
using namespace platen::test;

using Ran = platen::test::Outcome;
using Outcome = TiffCopy::Outcome;
using Result = TiffCopy::Result;

/// With libtiff's tools and ImageMagick, which write sources and read copies.
class CopyBesideOthers : public Copy {
  protected:
    [[nodiscard]] Ran Shell(const std::string& command) const {
        const std::string inside = "cd '" + Folder() + "' && " + command;
        return RunProgram("/bin/sh", {"-c", inside});
    }

    /// False skips a test that lacks its tools.
    [[nodiscard]] bool HasTools() const {
        return Shell(
                   "for tool in convert raw2tiff tiffcp tiffcmp tiffinfo tiffdump tiffset; do "
                   "command -v $tool || exit 1; done")
                   .exitStatus == 0;
    }

    void ExpectSamePicture(const std::string& compare) const;
};

/// libtiff sees the same pixels and tags in in.tif and out.tif, but for where and how they lie.
void CopyBesideOthers::ExpectSamePicture(const std::string& compare) const {
    const Ran compared = Shell(compare);
    EXPECT_EQ(compared.out, "");
    EXPECT_EQ(compared.err.find("not supported"), std::string::npos) << "is not compared at all";
    const std::string places =
        " | grep -v -e 'Directory at offset' -e Rows/Strip -e 'Subfile Type'";
    const Ran in = Shell("tiffinfo in.tif" + places);
    const Ran out = Shell("tiffinfo out.tif" + places);
    EXPECT_EQ(out.out, in.out);
    EXPECT_EQ(out.err, in.err);
    const Ran dump = Shell("tiffdump out.tif");
    EXPECT_EQ(dump.exitStatus, 0);
    EXPECT_EQ(dump.err, "");
}

/// Pixels, and those tags that are not the copy's own.
constexpr const char* kComparePixels =
    "tiffcmp -t in.tif out.tif | grep -v -e ^RowsPerStrip: -e ^SubFileType -e ^Directory";
/// What tiffcmp does not read: the strips, after libtiff has joined and turned them.
constexpr const char* kCompareStrips =
    "tiffcp -L -r 47 in.tif a.tif && tiffcp -L -r 47 out.tif b.tif && cmp -n 4324 a.tif b.tif || "
    "echo differ";

struct Source {
    const char* name;
    const char* command;  ///< makes in.tif, of 61 times 47 pixels, out of raw
    const char* compare = kComparePixels;
};

// clang-format off
constexpr Source kSources[] = {
    {"gray", "raw2tiff -w 61 -l 47 -b 1 -d byte -c none raw in.tif"},
    {"RGB in one strip", "raw2tiff -w 61 -l 47 -b 3 -p rgb -d byte -c none raw t.tif && tiffcp -r 47 t.tif in.tif"},
    {"RGB in strips", "raw2tiff -w 61 -l 47 -b 3 -p rgb -d byte -c none raw t.tif && tiffcp -B -r 5 t.tif in.tif"},
    {"planes", "raw2tiff -w 61 -l 47 -b 3 -p rgb -d byte -c none raw t.tif && tiffcp -p separate -r 7 t.tif in.tif"},
    {"planes of 16 bits", "convert -size 61x47 gradient:red-blue -depth 16 -interlace plane -compress none t.tif && tiffcp -B -r 9 t.tif in.tif"},
    {"16 bits", "raw2tiff -w 61 -l 47 -b 1 -d short -c none raw in.tif"},
    {"16 bits, big-endian", "raw2tiff -w 61 -l 47 -b 4 -d short -c none raw t.tif && tiffcp -B -r 3 t.tif in.tif"},
    {"32 bits", "raw2tiff -w 61 -l 47 -b 1 -d long -c none raw in.tif"},
    {"float", "raw2tiff -w 61 -l 47 -b 1 -d float -c none raw t.tif && tiffcp -B t.tif in.tif"},
    {"double", "raw2tiff -w 61 -l 47 -b 1 -d double -c none raw in.tif", kCompareStrips},
    {"RGB with alpha", "convert -size 61x47 gradient:'rgba(255,0,0,1)-rgba(0,0,255,0.3)' -alpha set -depth 8 -compress none in.tif"},
    {"palette", "convert -size 61x47 gradient:red-blue -colors 16 -type palette -compress none in.tif"},
    {"bilevel", "convert -size 61x47 gradient: -monochrome -compress group4 t.tif && tiffcp -c none -r 5 t.tif in.tif"},
    {"4 bits", "convert -size 61x47 gradient: -depth 4 -compress none t.tif && tiffcp -B -r 6 t.tif in.tif"},
    {"12 bits", "convert -size 61x47 gradient: -depth 12 -compress none t.tif && tiffcp -B -r 6 t.tif in.tif", kCompareStrips},
    {"other tags", "convert -size 61x47 gradient: -depth 8 -compress none in.tif && "
                   "tiffset -s 33432 'all rights' in.tif && tiffset -s 305 me in.tif && tiffset -s 282 300.5 in.tif"},
    {"pages", "raw2tiff -w 61 -l 47 -b 1 -d short -c none raw a.tif && raw2tiff -w 61 -l 40 -b 3 -p rgb -d byte -c none raw b.tif && "
              "tiffcp -B -r 4 a.tif b.tif a.tif b.tif in.tif"}};
// clang-format on

TEST_F(CopyBesideOthers, APictureOfOtherSoftwareChanges) {
    if (!HasTools()) {
        GTEST_SKIP() << "libtiff's tools or ImageMagick are missing";
    }
    Bytes raw(65536, '\0');
    for (std::uint32_t i = 0, random = 1; i < raw.size(); ++i) {
        random = random * 1103515245 + 12345;
        raw[i] = static_cast<char>(random >> 16U);
    }
    Put("raw", raw);
    for (const Source& source : kSources) {
        const Ran made = Shell(source.command);
        ASSERT_EQ(made.exitStatus, 0) << source.name << made.err;
        for (const short format : kFormats) {
            SCOPED_TRACE(std::string(source.name) + (format == platen::kIntel ? " II" : " MM"));
            const Bytes before = FileContents(Path("in.tif"));
            const Result result = CopyTo("out.tif", format);
            EXPECT_EQ(result.outcome, Outcome::Done) << result.reason;
            EXPECT_EQ(FileContents(Path("out.tif")).substr(0, 2),
                      format == platen::kIntel ? "II" : "MM");
            ExpectSamePicture(source.compare);
            EXPECT_EQ(FileContents(Path("in.tif")), before);
        }
    }
    // Onto itself, and through a link, which stays one.
    fs::rename(Path("in.tif"), Path("original.tif"));
    fs::copy(Path("original.tif"), Path("in.tif"));
    fs::create_symlink("in.tif", Path("link.tif"));
    EXPECT_EQ(CopyTo("in.tif", platen::kIntel).outcome, Outcome::Done);
    EXPECT_EQ(CopyTo("link.tif", platen::kMotorola).outcome, Outcome::Done);
    EXPECT_TRUE(fs::is_symlink(Path("link.tif")));
    EXPECT_EQ(FileContents(Path("in.tif")).substr(0, 2), "MM");
    fs::copy(Path("in.tif"), Path("out.tif"), fs::copy_options::overwrite_existing);
    fs::rename(Path("original.tif"), Path("in.tif"));
    ExpectSamePicture(kComparePixels);
}

TEST_F(CopyBesideOthers, FilesOfTheWriterAreNotReadByOtherSoftware) {
    if (!HasTools()) {
        GTEST_SKIP() << "libtiff's tools are missing";
    }
    Put("in.tif", Gray({Shorts(258, {16}), Longs(256, {5}), Shorts(277, {1}), Text(305, "me")}));
    for (const short format : kFormats) {
        Tiff tiff;
        void* handle = FILE_open(Path("in.tif").c_str(), 0, nullptr);
        ASSERT_EQ(tiff.Read(handle), 1);
        SetNumber(tiff, 254, 0);
        SetNumber(tiff, 259, 1);
        EXPECT_EQ(tiff.WriteCopy(Path("out.tif").c_str(), format), 1);
        ExpectSamePicture(kComparePixels);
        EXPECT_EQ(tiff.WriteNew(Path("new.tif").c_str(), format), 1);
        FILE_close(handle);
        const Ran info = Shell("tiffinfo -d new.tif && tiffdump new.tif");
        EXPECT_EQ(info.exitStatus, 0);
        EXPECT_EQ(info.err, "");
    }
}

}  // namespace
