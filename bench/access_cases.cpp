#include <bench/access_cases.h>

#include <cstdio>

#include <platen/tiff/Tiff.h>

namespace platen::bench {
namespace {

constexpr std::uint16_t kImageWidth = 256;
constexpr double kMostNanoseconds = 20;

void Get(benchmark::State& state) {
    const Tiff tiff;
    std::int32_t width = 0;
    std::int32_t count = 0;
    for (auto _ : state) {
        tiff.getTAG(kImageWidth, &width, count, 0);
        benchmark::DoNotOptimize(width);
    }
}

void Set(benchmark::State& state) {
    Tiff tiff;
    std::intptr_t width = 0;
    for (auto _ : state) {
        tiff.setTAG(kImageWidth, ++width, 1, 0);
        benchmark::DoNotOptimize(*tiff.getStdDir());
    }
}

}  // namespace

void RegisterAccess() {
    benchmark::RegisterBenchmark("getTAG", &Get);
    benchmark::RegisterBenchmark("setTAG", &Set);
}

void PrintAccess(const MedianKeeper& medians) {
    for (const char* name : {"getTAG", "setTAG"}) {
        const double nanoseconds = medians.Median(name);
        if (nanoseconds > 0) {
            std::printf("%s of a number: %.1f ns; at most %.0f: %s\n", name, nanoseconds,
                        kMostNanoseconds, nanoseconds <= kMostNanoseconds ? "met" : "MISSED");
        }
    }
}

}  // namespace platen::bench
