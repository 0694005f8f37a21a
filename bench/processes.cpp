#include <bench/processes.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>

#include <unistd.h>

#include <platen/tiff/Tiff.h>

#include <bench/run_command.h>
#include <bench/scratch.h>

namespace platen::bench {
namespace {

constexpr double kMebibyte = 1 << 20;

double SizeOf(const std::string& path) {
    return static_cast<double>(std::filesystem::file_size(path)) / kMebibyte;
}

const char* Verdict(bool met) {
    return met ? "met" : "MISSED";
}

void PrintTimes(const char* what, const Usage& usage) {
    std::printf("%-28s %9.3f ms of processor time, %9.3f ms elapsed\n", what, usage.processor,
                usage.elapsed);
}

void CompareDumps(const std::string& program, const Scratch& scratch) {
    const std::string file =
        scratch.Write("many.tif", {32000, test::PageLayout::ValuesBehind, false});
    const Command dump{{program, "dump", file}, scratch.Path("dump.txt")};
    const Command tiffdump{{"tiffdump", file}, scratch.Path("tiffdump.txt")};
    const auto [platen, libtiff] = RunInTurn(dump, tiffdump, 7);
    const double ratio = libtiff.processor / platen.processor;
    PrintTimes("platen dump, 32,000 pages", platen);
    PrintTimes("tiffdump, the same file", libtiff);
    std::printf("%-28s %.2f times (elapsed %.2f); at least 5: %s\n", "", ratio,
                libtiff.elapsed / platen.elapsed, Verdict(ratio >= 5));
    const double fileSize = SizeOf(file);
    const double reportSize = SizeOf(dump.output);
    const double allowed = 3 * fileSize + reportSize + 30;
    std::printf("%-28s %.2f MiB; at most %.2f (file %.2f, report %.2f): %s\n",
                "memory of platen dump", platen.mebibytes, allowed, fileSize, reportSize,
                Verdict(platen.mebibytes <= allowed));
}

void CompareStarts(const std::string& program, const Scratch& scratch) {
    const std::string file = scratch.Write("small.tif", {});
    const Command info{{program, "info", file}, kNowhere};
    const Command nothing{{PLATEN_BENCH_NOTHING}, kNowhere};
    const auto [platen, least] = RunInTurn(info, nothing, 301);
    const double ratio = platen.elapsed / least.elapsed;
    PrintTimes("platen info, one page", platen);
    PrintTimes("a program that does nothing", least);
    std::printf("%-28s %.2f times elapsed; at most 1.5: %s\n", "", ratio, Verdict(ratio <= 1.5));
}

/// 1 GiB of 16-bit pixels, which no heap should have to hold.
std::string WriteLargePage(const Scratch& scratch) {
    constexpr int kWidth = 32768;
    constexpr int kLength = 16384;
    const auto address = [](const auto& value) { return reinterpret_cast<std::intptr_t>(&value); };
    const std::uint16_t bits = 16;
    const std::uint32_t bytes = 2U * kWidth * kLength;
    Tiff tiff;
    tiff.setTAG(254, 0, 1, 0);
    tiff.setTAG(256, kWidth, 1, 0);
    tiff.setTAG(257, kLength, 1, 0);
    tiff.setTAG(258, address(bits), 1, 0);
    tiff.setTAG(259, 1, 1, 0);
    tiff.setTAG(262, 1, 1, 0);
    tiff.setTAG(273, address(bytes), 1, 0);
    tiff.setTAG(278, kLength, 1, 0);
    tiff.setTAG(279, address(bytes), 1, 0);
    std::string path = scratch.Path("large.tif");
    if (tiff.WriteNew(path.c_str(), kIntel) != 1) {
        throw std::runtime_error("the large file could not be written");
    }
    sync();  // its way to the disk is not to slow down the first copy
    return path;
}

void CompareCopies(const std::string& program, const Scratch& scratch) {
    const std::string file = WriteLargePage(scratch);
    const std::string copied = scratch.Path("copied.tif");
    const std::string other = scratch.Path("other.tif");
    const Command rivals[] = {
        {{"dd", "bs=64k", "status=none", "if=" + file, "of=" + other}, kNowhere, other},
        {{"cp", file, other}, kNowhere, other},
        {{"tiffcp", file, other}, kNowhere, other}};
    for (const char* order : {"--intel", "--motorola"}) {
        const Command copy{{program, "copy", "--raw", order, file, copied}, kNowhere, copied};
        for (const Command& rival : rivals) {
            const auto [platen, theirs] = RunInTurn(copy, rival, 5);
            const std::string& name = rival.words[0];
            const double ratio = platen.elapsed / theirs.elapsed;
            PrintTimes(("platen copy --raw " + std::string(order)).c_str(), platen);
            PrintTimes((name + ", 1 GiB of 16-bit pixels").c_str(), theirs);
            std::printf(
                "%-28s %.2f times elapsed%s; memory %.2f and %.2f MiB%s\n", "", ratio,
                name == "dd" ? (ratio <= 1.1 ? ", at most 1.1: met" : ", at most 1.1: MISSED") : "",
                platen.mebibytes, theirs.mebibytes,
                platen.mebibytes <= 8 ? ", at most 8: met" : ", at most 8: MISSED");
        }
    }
}

}  // namespace

int CompareProcesses(const char* program) {
    const Scratch scratch;
    CompareDumps(program, scratch);
    CompareStarts(program, scratch);
    CompareCopies(program, scratch);
    std::printf("Medians of times; memory is the most that was resident.\n");
    return 0;
}

}  // namespace platen::bench
