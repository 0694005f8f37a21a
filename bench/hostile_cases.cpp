#include <bench/hostile_cases.h>

#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

#include <platen/tiff/Tiff.h>
#include <tests/support/hostile_files.h>

namespace platen::bench {
namespace {

constexpr double kMostMilliseconds = 1000;

std::string NameOf(const test::NamedFile& file) {
    return "hostile/" + file.name;
}

void Read(benchmark::State& state, const std::string& path) {
    for (auto _ : state) {
        Tiff tiff;
        tiff.ReadSetDump(1);
        void* file = tiff.Open(path.c_str(), 0);
        benchmark::DoNotOptimize(tiff.Read(file));
        tiff.Close(file);
    }
}

}  // namespace

void RegisterHostile(const Scratch& scratch) {
    for (const test::NamedFile& file : test::HostileFiles()) {
        const std::string path = scratch.Path(file.name + ".tif");
        if (!std::ofstream(path, std::ios::binary)
                 .write(file.bytes.data(), std::ssize(file.bytes))) {
            throw std::runtime_error(path + " could not be written");
        }
        benchmark::RegisterBenchmark(NameOf(file).c_str(), &Read, path)
            ->Unit(benchmark::kMillisecond);
    }
}

void PrintHostile(const MedianKeeper& medians) {
    std::string dearest;
    double most = 0;
    for (const test::NamedFile& file : test::HostileFiles()) {
        const double milliseconds = medians.Median(NameOf(file));
        if (milliseconds > most) {
            most = milliseconds;
            dearest = file.name;
        }
    }
    if (most > 0) {
        std::printf("the dearest hostile file, %s: %.0f ms; at most %.0f: %s\n", dearest.c_str(),
                    most, kMostMilliseconds, most <= kMostMilliseconds ? "met" : "MISSED");
    }
}

}  // namespace platen::bench
