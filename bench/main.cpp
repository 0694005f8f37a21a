#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iterator>
#include <string>
#include <vector>

#include <bench/access_cases.h>
#include <bench/hostile_cases.h>
#include <bench/processes.h>
#include <bench/ratios.h>
#include <bench/readers.h>
#include <bench/scratch.h>
#include <bench/writers.h>

namespace platen::bench {
namespace {

using Reader = std::uint64_t (*)(const char*);

struct NamedReader {
    const char* name;
    Reader read;
};

constexpr NamedReader kReaders[] = {
    {"platen", &ReadWithPlaten}, {"libtiff", &ReadWithLibtiff}, {"floor", &ReadWithFloor}};

struct NamedLayout {
    const char* name;
    test::PageLayout layout;
};

constexpr NamedLayout kLayouts[] = {{"behind", test::PageLayout::ValuesBehind},
                                    {"last", test::PageLayout::ValuesLast},
                                    {"reversed", test::PageLayout::Reversed}};

constexpr std::uint32_t kFewPages = 1000;
constexpr std::uint32_t kManyPages = 32000;
constexpr std::uint32_t kSmallFiles = 2000;

std::uint64_t SumOfAll(Reader read, const std::vector<std::string>& files) {
    std::uint64_t sum = 0;
    for (const std::string& file : files) {
        sum += read(file.c_str());
    }
    return sum;
}

/// The three readers on the same files; each must find what the floor finds, each time.
void Register(const Case& item, const std::vector<std::string>& files) {
    const std::uint64_t expected = SumOfAll(&ReadWithFloor, files);
    for (const NamedReader& reader : kReaders) {
        const auto run = [read = reader.read, files, expected](benchmark::State& state) {
            for (auto _ : state) {
                if (SumOfAll(read, files) != expected || expected == 0) {
                    state.SkipWithError("the values differ");
                    break;
                }
            }
        };
        benchmark::RegisterBenchmark((item.name + '/' + reader.name).c_str(), run)
            ->Unit(benchmark::kMicrosecond);
    }
}

std::vector<Case> RegisterAll(const Scratch& scratch) {
    std::vector<Case> cases;
    const auto add = [&](const Case& item, const std::vector<std::string>& files) {
        Register(item, files);
        cases.push_back(item);
    };
    for (const bool bigEndian : {false, true}) {
        const std::string order = bigEndian ? "/MM" : "/II";
        const test::PagedFile onePage{1, test::PageLayout::ValuesBehind, bigEndian};
        const std::string suffix = bigEndian ? "MM.tif" : "II.tif";
        add({"1" + order, 1, 3, 0, ""}, {scratch.Write("1" + suffix, onePage)});
        for (const auto& [name, layout] : kLayouts) {
            const std::string shorter = "1000/" + std::string(name) + order;
            add({shorter, kFewPages, 10, 8, ""},
                {scratch.Write(name + ("1000" + suffix), {kFewPages, layout, bigEndian})});
            add({"32000/" + std::string(name) + order, kManyPages, 10, 8, shorter},
                {scratch.Write(name + ("32000" + suffix), {kManyPages, layout, bigEndian})});
        }
        std::vector<std::string> small;
        for (std::uint32_t i = 0; i < kSmallFiles; ++i) {
            small.push_back(scratch.Write("small" + std::to_string(i) + suffix, onePage));
        }
        add({"2000 files" + order, kSmallFiles, 3, 0, ""}, small);
    }
    return cases;
}

int RunCases(std::vector<char*> arguments) {
    // Repetitions in random order: a moment's load on the machine falls on all readers alike.
    char defaults[][48] = {"--benchmark_repetitions=5", "--benchmark_min_time=0.05",
                           "--benchmark_enable_random_interleaving",
                           "--benchmark_report_aggregates_only"};
    for (char(&flag)[48] : defaults) {
        arguments.insert(arguments.begin() + 1, flag);
    }
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 2;
    }
    const Scratch scratch;
    std::vector<Case> cases = RegisterAll(scratch);
    std::ranges::copy(RegisterWriters(scratch), std::back_inserter(cases));
    RegisterAccess();
    RegisterHostile(scratch);
    MedianKeeper medians;
    benchmark::RunSpecifiedBenchmarks(&medians);
    PrintRatios(cases, medians);
    PrintAccess(medians);
    PrintHostile(medians);
    return 0;
}

int Run(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--processes") == 0) {
        return CompareProcesses(argv[2]);
    }
    return RunCases({argv, argv + argc});
}

}  // namespace
}  // namespace platen::bench

/// `platen_bench [GOOGLE BENCHMARK'S FLAGS]` compares readers and writers, `platen_bench
/// --processes PROGRAM` whole processes of the command line program.
int main(int argc, char** argv) {
    try {
        return platen::bench::Run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "platen_bench: %s\n", error.what());
        return 1;
    }
}
