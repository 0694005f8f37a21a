#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <platen/base/files.h>
#include <platen/tiff/Tiff.h>
#include <platen/tiff/TiffCopy.h>

#include <fuzz/memory_file.h>

/// Arbitrary bytes read as a file, edited, listed, and written in both orders and as a copy. What
/// was written reads back as the same records, and a copy of a copy is the same file.
namespace {

using platen::fuzz::MemoryFile;
using platen::fuzz::Require;

constexpr std::uint64_t kLargestImage = 1U << 20U;
constexpr std::size_t kLargestElement = 8;

/// Every tag of a directory, as `getTAG` gives it.
using Values = std::vector<std::vector<std::uint8_t>>;

template <typename Visit>
void ForEachTag(Visit visit) {
    for (std::uint16_t tag = 250; tag < 335; ++tag) {
        visit(tag);
    }
    for (std::uint16_t tag = 33440; tag < 33460; ++tag) {
        visit(tag);
    }
}

/// Empty for a count that no block of these files backs: `getTAG` gives it all the same.
std::vector<std::uint8_t> ValueOf(const Tiff& tiff, std::uint16_t tag, short dir) {
    constexpr std::int32_t kMostElements = 1 << 20;
    std::int32_t count = 0;
    tiff.getTAG(tag, nullptr, count, dir);
    if (count <= 0 || count > kMostElements) {
        return {};
    }
    std::vector<std::uint8_t> value(static_cast<std::size_t>(count) * kLargestElement);
    tiff.getTAG(tag, value.data(), count, dir);
    return value;
}

Values ValuesOf(const Tiff& tiff) {
    Values values;
    for (short dir = 0; dir < tiff.getFileNumIFDStdDir(); ++dir) {
        ForEachTag([&](std::uint16_t tag) { values.push_back(ValueOf(tiff, tag, dir)); });
    }
    return values;
}

/// Gives every directory a subfile type, so that it is written, and one edited text.
void Edit(Tiff& tiff) {
    for (short dir = 0; dir < tiff.getFileNumIFDStdDir(); ++dir) {
        const char text[] = "edited";
        tiff.setTAG(254, 2, 1, dir);
        tiff.setTAG(305, reinterpret_cast<std::intptr_t>(text), sizeof(text), dir);
        const std::vector<std::uint8_t> offsets = ValueOf(tiff, 273, dir);
        tiff.setTAG(273, reinterpret_cast<std::intptr_t>(offsets.data()),
                    static_cast<std::int32_t>(offsets.size() / kLargestElement), dir);
    }
}

bool IsSmall(const Tiff& tiff) {
    std::uint64_t size = 0;
    for (short dir = 0; dir < tiff.getFileNumIFDStdDir(); ++dir) {
        const TiffIFDStdDirStruct& record = tiff.getStdDir()[dir];
        const auto width = static_cast<std::uint64_t>(std::max(record.ImageWidth, 0));
        const auto length = static_cast<std::uint64_t>(std::max(record.ImageLength, 0));
        const std::uint64_t bits = record.BitsPerSample == nullptr ? 0 : *record.BitsPerSample;
        const std::uint64_t pixel = std::max<std::uint64_t>(record.SamplesPerPixel, 1) * bits / 8;
        if (width * length > kLargestImage) {
            return false;
        }
        size += width * length * pixel;
    }
    return size < kLargestImage;
}

Values ReadBack(const std::string& path, bool copyAgain, short format) {
    Tiff tiff;
    void* handle = tiff.Open(path.c_str(), 0);
    Require(handle != FILE_none());
    tiff.Read(handle);
    Values values = ValuesOf(tiff);
    if (copyAgain) {
        const MemoryFile again;
        Require(tiff.WriteCopy(again.Path().c_str(), format) == 1);
        Require(ReadBack(again.Path(), false, format) == values);
    }
    tiff.Close(handle);
    return values;
}

/// What is written in either order holds the same values, and goes on doing so.
void WriteBothWays(Tiff& tiff) {
    const MemoryFile intel;
    const MemoryFile motorola;
    Require(tiff.WriteNew(intel.Path().c_str(), platen::kIntel) == 1);
    Require(tiff.WriteNew(motorola.Path().c_str(), platen::kMotorola) == 1);
    Require(ReadBack(intel.Path(), true, platen::kMotorola) ==
            ReadBack(motorola.Path(), true, platen::kIntel));
}

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Copies to a file in memory as far as the system has one.
std::filesystem::path ScratchFile(const char* name) {
    const std::filesystem::path memory = "/dev/shm";
    const std::filesystem::path folder =
        std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
    return folder / ("platen-fuzz-" + std::to_string(getpid()) + name);
}

bool Copy(const std::string& from, const std::filesystem::path& to, short format) {
    TiffCopy copy;
    void* handle = copy.Open(from.c_str(), 0);
    Require(handle != FILE_none());
    copy.Read(handle);
    const TiffCopy::Result result = copy.CopyTo(to.c_str(), format);
    copy.Close(handle);
    const bool done = result.outcome == TiffCopy::Outcome::Done;
    Require(std::filesystem::exists(to) == done);
    return done;
}

void CopyTwice(const std::string& path) {
    const std::filesystem::path first = ScratchFile("-1");
    const std::filesystem::path second = ScratchFile("-2");
    if (Copy(path, first, platen::kMotorola)) {
        Require(Copy(first.string(), second, platen::kMotorola));
        Require(BytesOf(first) == BytesOf(second));
        std::filesystem::remove(second);
    }
    std::filesystem::remove(first);
}

/// The listing goes to standard output, which is of no use here.
void SilenceStandardOutput() {
    static const bool silent = [] {
        const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
        return dup2(nowhere, STDOUT_FILENO) == STDOUT_FILENO;
    }();
    Require(silent);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    SilenceStandardOutput();
    const MemoryFile file(data, size);
    const std::string path = file.Path();
    Tiff tiff;
    void* handle = tiff.Open(path.c_str(), 0);
    Require(handle != FILE_none());
    tiff.Read(handle);
    for (short dir = 0; dir < tiff.getFileNumIFDStdDir(); ++dir) {
        Require(tiff.WriteIFDStdDir(FILE_none(), 0, dir, 1) >= 0);
    }
    ValuesOf(tiff);
    Edit(tiff);
    if (IsSmall(tiff) && tiff.getFileNumIFDStdDir() < 64) {
        WriteBothWays(tiff);
        CopyTwice(path);
    }
    tiff.Close(handle);
    return 0;
}
