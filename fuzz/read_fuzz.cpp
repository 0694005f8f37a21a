#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include <platen/base/files.h>
#include <platen/tiff/Tiff.h>

#include <fuzz/memory_file.h>

/// Arbitrary bytes read as a file, the report switched on, and every question asked afterwards.
namespace {

using platen::fuzz::MemoryFile;
using platen::fuzz::Require;

/// A directory has one class at most; one outside the records has none.
void AskClasses(const Tiff& tiff, short dir, bool inside) {
    const int classes = tiff.IsTIFFClassB(dir) + tiff.IsTIFFClassG(dir) + tiff.IsTIFFClassP(dir) +
                        tiff.IsTIFFClassR(dir);
    Require(classes == 0 || (inside && classes == 1));
    const short basic = tiff.IsTIFF(dir);
    const short instrument = tiff.IsTIFFClassXK(dir);
    const short old = tiff.IsTIFFClassXKold(dir);
    Require(inside || basic + instrument + old == 0);
    Require(old <= instrument && basic <= 1 && instrument <= 1);
}

void AskRoles(const Tiff& tiff) {
    const short count = tiff.getFileNumIFDStdDir();
    const short roles[] = {tiff.GetFullResolutionIFDDir(),
                           tiff.GetReducedResolutionIFDDir(),
                           tiff.GetSPofMPIFDDir(),
                           tiff.GetTransparencyIFDDir(),
                           tiff.GetXKIFDDir(),
                           tiff.GetXKoldIFDDir()};
    for (const short role : roles) {
        Require(role >= -1 && role < count);
    }
}

void CheckReport(const Tiff& tiff) {
    const std::uint32_t size = tiff.DumpGetSize();
    std::vector<char> text(size);
    Require(tiff.DumpGetData(nullptr) == 0);
    Require(tiff.DumpGetData(text.data()) == size);
    Require(size == 0 || std::strlen(text.data()) + 1 == size);
}

void CheckObject(const Tiff& tiff, long status) {
    Require(status == 1 || status == -2 || status == -3 || status == -4);
    const short count = tiff.getFileNumIFDStdDir();
    Require(count >= 1 && tiff.getStdDir() != nullptr);
    for (short dir = 0; dir < count; ++dir) {
        AskClasses(tiff, dir, true);
    }
    for (const int dir : {-1, -32768, static_cast<int>(count), 32767}) {
        AskClasses(tiff, static_cast<short>(dir), dir >= 0 && dir < count);
    }
    AskRoles(tiff);
    CheckReport(tiff);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFile file(data, size);
    Tiff tiff;
    tiff.ReadSetDump(1);
    void* handle = tiff.Open(file.Path().c_str(), 0);
    Require(handle != FILE_none());
    CheckObject(tiff, tiff.Read(handle));
    tiff.Close(handle);
    return 0;
}
