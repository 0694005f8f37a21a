#include <platen/tiff/Tiff.h>

#include <bench/writers.h>

namespace platen::bench {
namespace {

void FillPage(Tiff& tiff, short dir) {
    const auto address = [](const auto& value) { return reinterpret_cast<std::intptr_t>(&value); };
    const std::uint16_t bits = 8;
    const std::uint32_t offset = 8;
    const std::uint32_t bytes = 8;
    const Rational resolution = {72, 1};
    tiff.setTAG(254, 0, 1, dir);
    tiff.setTAG(256, 4, 1, dir);
    tiff.setTAG(257, 2, 1, dir);
    tiff.setTAG(258, address(bits), 1, dir);
    tiff.setTAG(259, 1, 1, dir);
    tiff.setTAG(262, 1, 1, dir);
    tiff.setTAG(273, address(offset), 1, dir);
    tiff.setTAG(277, 1, 1, dir);
    tiff.setTAG(278, 2, 1, dir);
    tiff.setTAG(279, address(bytes), 1, dir);
    tiff.setTAG(282, address(resolution), 1, dir);
    tiff.setTAG(283, address(resolution), 1, dir);
    tiff.setTAG(296, 2, 1, dir);
}

}  // namespace

bool WriteWithPlaten(const char* name, std::uint32_t pages) {
    Tiff tiff;
    FillPage(tiff, 0);
    for (std::uint32_t i = 1; i < pages; ++i) {
        if (tiff.ReAllocStdTiff() != 1) {
            return false;
        }
        FillPage(tiff, static_cast<short>(i));
    }
    return tiff.WriteNew(name, kIntel) == 1;
}

}  // namespace platen::bench
