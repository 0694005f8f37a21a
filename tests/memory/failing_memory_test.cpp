#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <platen/base/buffer.h>
#include <platen/base/files.h>
#include <platen/base/memory.h>
#include <platen/tags/values.h>
#include <platen/tiff/TiffCopy.h>

#include "tests/memory/failing_allocator.h"
#include "tests/support/temporary_file.h"
#include "tests/support/tiff_builder.h"

/// Memory that runs out at every allocation in turn. Leaks and bad accesses show under the address
/// sanitizer.
namespace {

using namespace platen::test;

/// Runs `pass` with allocation 1, 2, 3... failing, alone and with all after it, until it needs no
/// more of them. Answers how many failures there were.
template <typename Pass>
int FailInTurn(Pass pass) {
    int failures = 0;
    for (const bool lasting : {false, true}) {
        for (int i = 1;; ++i) {
            platen::test::g_failure = {.countdown = i, .lasting = lasting};
            pass();
            const bool happened = platen::test::g_failure.happened;
            platen::test::g_failure = {};
            if (!happened) {
                break;
            }
            ++failures;
        }
    }
    return failures;
}

/// What a pass saw, without an allocation of its own.
struct Outcome {
    bool opened = false;
    long status = 0;
    short count = 0;
    bool hasRecords = false;
    std::uint32_t reportSize = 0;
    std::uint32_t reportLength = 0;
    std::int32_t lastWidth = 0;
};

Outcome ReadOnce(const char* name, std::vector<char>& report) {
    Outcome outcome;
    Tiff tiff;
    tiff.ReadSetDump(1);
    void* file = tiff.Open(name, 0);
    outcome.opened = file != FILE_none();
    outcome.status = tiff.Read(file);
    outcome.count = tiff.getFileNumIFDStdDir();
    outcome.hasRecords = tiff.getStdDir() != nullptr;
    for (short dir = 0; dir < outcome.count; ++dir) {
        static_cast<void>(tiff.IsTIFF(dir));
        static_cast<void>(tiff.IsTIFFClassP(dir));
        outcome.lastWidth = tiff.getStdDir()[dir].ImageWidth;
    }
    static_cast<void>(tiff.GetXKoldIFDDir());
    outcome.reportSize = tiff.DumpGetSize();
    if (outcome.reportSize != 0 && outcome.reportSize <= report.size()) {
        tiff.DumpGetData(report.data());
        outcome.reportLength = static_cast<std::uint32_t>(std::string_view(report.data()).size());
    }
    tiff.Close(file);
    return outcome;
}

TEST(FailingMemory, AReadLeaksOrDisagreesWithItself) {
    std::vector<Directory> directories(
        40, {{Shorts(258, {8, 8, 8}), Longs(256, {7}), Text(305, "a text"), Text(271, "ab"),
              Rationals(282, {{1, 2}}), Longs(273, {1}), Shorts(33447, {1, 2, 3}),
              Rationals(318, {{1, 2}, {3, 4}}), Longs(34000, {1})}});
    const TemporaryFile file(Build({.directories = directories}));
    std::vector<char> report(200000);
    const Outcome whole = ReadOnce(file.Name(), report);
    ASSERT_EQ(whole.status, 1);
    ASSERT_EQ(whole.count, 40);
    ASSERT_EQ(whole.reportSize, whole.reportLength + 1);
    bool passed = false;
    const int failures = FailInTurn([&] {
        const Outcome outcome = ReadOnce(file.Name(), report);
        passed = !platen::test::g_failure.happened;
        const long known[] = {1, -3, -4};
        EXPECT_NE(std::ranges::find(known, outcome.status), std::end(known)) << outcome.status;
        EXPECT_TRUE(outcome.opened || outcome.status == -3 || outcome.status == -4);
        EXPECT_EQ(outcome.count > 0, outcome.hasRecords);
        EXPECT_LE(outcome.count, 40);
        EXPECT_TRUE(outcome.count == 0 || outcome.lastWidth == 7 || outcome.status != 1);
        EXPECT_TRUE(outcome.reportSize == 0 || outcome.reportSize == outcome.reportLength + 1);
        EXPECT_TRUE(platen::test::g_failure.happened ||
                    (outcome.status == 1 && outcome.count == 40));
    });
    EXPECT_TRUE(passed);
    EXPECT_GT(failures, 500) << "too few allocations were made to fail";
}

/// How many names in a file's folder begin with its own.
std::ptrdiff_t NamesBeside(const std::filesystem::path& path) {
    const std::string start = path.filename().string();
    return std::ranges::count_if(std::filesystem::directory_iterator(path.parent_path()),
                                 [&start](const auto& entry) {
                                     return entry.path().filename().string().starts_with(start);
                                 });
}

constexpr std::uint32_t kSide = 100;

/// The pixels of a gray image that differ from their neighbours.
Bytes Pixels() {
    Bytes pixels(kSide * kSide, '\0');
    std::ranges::generate(pixels,
                          [value = 0]() mutable { return static_cast<char>(value++ % 251); });
    return pixels;
}

/// A gray image, a text far from the directory, and a tag that no record holds.
Bytes GrayImage() {
    return Build({.data = Pixels(),
                  .directories = {
                      {{Longs(254, {0}), Longs(256, {kSide}), Longs(257, {kSide}), Shorts(258, {8}),
                        Longs(273, {8}), Word(305, platen::kTypeAscii, 20, 5000),
                        Longs(279, {kSide * kSide}), Longs(34000, {1, 2})}}}});
}

TEST(FailingMemory, AWrittenFileIsTakenForWhole) {
    const TemporaryFile file(GrayImage());
    const TemporaryFile written("");
    Tiff tiff;
    void* source = tiff.Open(file.Name(), 0);
    ASSERT_EQ(tiff.Read(source), 1);
    const Bytes pixels = Pixels();
    const int failures = FailInTurn([&] {
        const long status = tiff.WriteCopy(written.Name(), platen::kIntel);
        const bool happened = platen::test::g_failure.happened;
        const Failure armed = std::exchange(platen::test::g_failure, {});
        EXPECT_TRUE(status == 1 || happened) << status;
        EXPECT_TRUE(status != 1 || written.Contents().compare(8, pixels.size(), pixels) == 0);
        platen::test::g_failure.happened = armed.happened;
    });
    EXPECT_GT(failures, 2) << "too few allocations were made to fail";
    tiff.Close(source);
}

TEST(FailingMemory, ACopyIsLeftHalfDone) {
    const TemporaryFile file(GrayImage());
    const std::string copy = std::string(file.Name()) + ".copy";
    Bytes whole;  // that of the first run in which nothing fails
    std::vector<Bytes> copies;
    int refused = 0;
    FailInTurn([&] {
        Failure armed = std::exchange(platen::test::g_failure, {});
        armed.throwing = true;
        TiffCopy tiff;
        void* source = tiff.Open(file.Name(), 0);
        platen::test::g_failure = armed;
        tiff.Read(source);
        const TiffCopy::Result result = tiff.CopyTo(copy.c_str(), platen::kIntel);
        armed = std::exchange(platen::test::g_failure, {});
        const bool done = result.outcome == TiffCopy::Outcome::Done;
        refused += result.outcome == TiffCopy::Outcome::NoMemory ? 1 : 0;
        EXPECT_TRUE(done || armed.happened) << result.reason;
        EXPECT_EQ(NamesBeside(file.Name()), done ? 2 : 1) << result.reason;
        if (done) {
            (armed.happened ? copies.emplace_back() : whole) = FileContents(copy);
        }
        std::filesystem::remove(copy);
        tiff.Close(source);
        platen::test::g_failure.happened = armed.happened;
    });
    EXPECT_GT(refused, 5) << "too few allocations were made to fail";
    EXPECT_EQ(std::ranges::count(copies, whole), std::ssize(copies)) << "a value got lost";
}

TEST(FailingMemory, ATagsValueIsCutShort) {
    const platen::TagInfo& tag = *platen::FindTag("SampleFormat");
    const std::string text = "Unsigned integer, Complex floating point, Signed integer, 9";
    int failures = 0;
    FailInTurn([&] {
        platen::test::g_failure.throwing = true;
        const platen::ParsedValue parsed = platen::ParseValue(tag, text);
        const std::string formatted =
            platen::FormatValue(parsed.value.View(), &tag, {.words = true});
        const Failure armed = std::exchange(platen::test::g_failure, {});
        const bool isParsed = parsed.problem.empty();
        EXPECT_TRUE(isParsed || (armed.happened && parsed.problem == "out of memory"));
        EXPECT_EQ(parsed.value.bytes.size(), isParsed ? 8U : 0U);
        EXPECT_TRUE(formatted == text || (armed.happened && formatted.empty())) << formatted;
        platen::test::g_failure.happened = armed.happened;
        failures += armed.happened ? 1 : 0;
    });
    EXPECT_GT(failures, 20) << "too few allocations were made to fail";
}

TEST(FailingMemory, AnObjectIsHalfBuilt) {
    FailInTurn([] {
        const std::unique_ptr<CObject> object(Tiff::CreateObject());
        if (auto* tiff = static_cast<Tiff*>(object.get())) {
            EXPECT_EQ(tiff->getFileNumIFDStdDir() > 0, tiff->getStdDir() != nullptr);
            EXPECT_LE(tiff->DumpGetSize(), 1U);
            const bool grown = tiff->ReAllocStdTiff() == 1;
            EXPECT_EQ(tiff->getFileNumIFDStdDir() == 2, grown);
            const bool named = tiff->SetFileName("name") == 1;
            EXPECT_EQ(tiff->GetFileName() != nullptr, named);
        }
    });
}

TEST(FailingMemory, AFailedResizeLosesTheOldBlock) {
    FailInTurn([] {
        HGLOBAL handle = MEM_NewHandle(4, 0x42);
        auto* pointer = static_cast<char*>(MEM_NewPtr(4, 0x42));
        if (handle != nullptr) {
            static_cast<char*>(MEM_LockHandle(handle))[3] = 'h';
            HGLOBAL grown = MEM_ReNewHandle(handle, 100000, 0x42);
            EXPECT_EQ(MEM_LogSizeHandle(grown == nullptr ? handle : grown),
                      grown == nullptr ? 4U : 100000U);
            handle = grown == nullptr ? handle : grown;
            EXPECT_EQ(static_cast<char*>(MEM_LockHandle(handle))[3], 'h');
        }
        if (pointer != nullptr) {
            pointer[3] = 'p';
            auto* grown = static_cast<char*>(MEM_ReNewPtr(pointer, 100000, 0x42));
            pointer = grown == nullptr ? pointer : grown;
            EXPECT_EQ(pointer[3], 'p');
        }
        MEM_FreeHandle(handle);
        MEM_FreePtr(pointer);
    });
}

TEST(FailingMemory, ABufferOrAFileIsTakenForOne) {
    const TemporaryFile file("abc");
    FailInTurn([&file] {
        const CBuffer buffer(100);
        CBuffer copy = buffer;
        copy = CBuffer(50);
        EXPECT_EQ(copy.GetSize(), 50U);
        LONG attribute = 0;
        void* handle = FILE_open(file.Name(), 0, &attribute);
        EXPECT_EQ(attribute, handle == FILE_none() ? -1 : 0);
        char bytes[3] = {};
        const LONG got = FILE_read(handle, bytes, 3);
        EXPECT_TRUE(got == 3 || got == -1) << got;
        FILE_close(handle);
    });
}

}  // namespace
