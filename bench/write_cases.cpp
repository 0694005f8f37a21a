#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include <bench/writers.h>

namespace platen::bench {
namespace {

using Writer = bool (*)(const char*, std::uint32_t);

struct NamedWriter {
    const char* name;
    Writer write;
};

constexpr NamedWriter kWriters[] = {
    {"platen", &WriteWithPlaten}, {"libtiff", &WriteWithLibtiff}, {"floor", &WriteWithFloor}};

constexpr double kTimesLibtiff = 4;

std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void CheckSameBytes(const Scratch& scratch, std::uint32_t pages) {
    const std::string engine = scratch.Path("engine.tif");
    const std::string floor = scratch.Path("floor.tif");
    if (!WriteWithPlaten(engine.c_str(), pages) || !WriteWithFloor(floor.c_str(), pages) ||
        Content(engine) != Content(floor)) {
        throw std::runtime_error("the engine and the floor write different files");
    }
}

void RegisterCase(const std::string& name, const std::string& path, std::uint32_t pages) {
    for (const NamedWriter& writer : kWriters) {
        const auto run = [write = writer.write, path, pages](benchmark::State& state) {
            for (auto _ : state) {
                if (!write(path.c_str(), pages)) {
                    state.SkipWithError("the file could not be written");
                    break;
                }
            }
        };
        benchmark::RegisterBenchmark((name + '/' + writer.name).c_str(), run)
            ->Unit(benchmark::kMicrosecond);
    }
}

}  // namespace

std::vector<Case> RegisterWriters(const Scratch& scratch) {
    CheckSameBytes(scratch, 1000);
    const std::string path = scratch.Path("written.tif");
    RegisterCase("write 1000", path, 1000);
    RegisterCase("write 32000", path, 32000);
    return {{"write 1000", 1000, kTimesLibtiff, 0, ""},
            {"write 32000", 32000, kTimesLibtiff, 0, "write 1000"}};
}

}  // namespace platen::bench
