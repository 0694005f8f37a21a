#include <platen/platform/win32/memory_figures.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <optional>
#include <string_view>

namespace platen::win32 {
namespace {

using Amount = std::optional<std::uint64_t>;

std::string TextOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The number at the start of a text; none for "max".
Amount NumberIn(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} ? Amount(number) : std::nullopt;
}

/// The number behind `key` at the start of a line.
Amount NumberBehind(std::string_view text, std::string_view key) {
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        if (line.starts_with(key)) {
            return NumberIn(line.substr(key.size()));
        }
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return std::nullopt;
}

MemoryFigures MachineFigures(std::string_view text) {
    constexpr std::uint64_t kKibibyte = 1024;
    const auto bytes = [text](std::string_view key) {
        return NumberBehind(text, key).value_or(0) * kKibibyte;
    };
    return {bytes("MemTotal:"), bytes("MemAvailable:"), bytes("SwapTotal:"), bytes("SwapFree:")};
}

/// How the files of one control group are called. Version 1 counts memory and swap together.
struct GroupFiles {
    const char* memoryLimit;
    const char* memoryUsed;
    const char* swapLimit;
    const char* swapUsed;
    const char* reclaimable;
    bool swapCountsMemory;
};
constexpr GroupFiles kVersion2 = {"memory.max",          "memory.current", "memory.swap.max",
                                  "memory.swap.current", "inactive_file ", false};
constexpr GroupFiles kVersion1 = {"memory.limit_in_bytes",       "memory.usage_in_bytes",
                                  "memory.memsw.limit_in_bytes", "memory.memsw.usage_in_bytes",
                                  "total_inactive_file ",        true};

std::uint64_t Difference(std::uint64_t left, std::uint64_t right) {
    return left - std::min(left, right);
}

void LimitBy(const std::string& folder, const GroupFiles& files, MemoryFigures& figures) {
    const auto read = [&folder](const char* name) { return NumberIn(TextOf(folder + "/" + name)); };
    const Amount limit = read(files.memoryLimit);
    const std::uint64_t used = read(files.memoryUsed).value_or(0);
    const Amount swapLimit = read(files.swapLimit);
    const std::uint64_t swapUsed = read(files.swapUsed).value_or(0);
    if (swapLimit) {
        const std::uint64_t counted = files.swapCountsMemory ? limit.value_or(0) : 0;
        const std::uint64_t countedUsed = files.swapCountsMemory ? used : 0;
        const std::uint64_t total = Difference(*swapLimit, counted);
        figures.totalSwap = std::min(figures.totalSwap, total);
        figures.availableSwap =
            std::min(figures.availableSwap, Difference(total, Difference(swapUsed, countedUsed)));
    }
    if (limit) {
        // What was read from files and not used lately is given up before a limit hurts.
        const std::uint64_t kept = Difference(
            used, NumberBehind(TextOf(folder + "/memory.stat"), files.reclaimable).value_or(0));
        figures.totalPhysical = std::min(figures.totalPhysical, *limit);
        figures.availablePhysical = std::min(figures.availablePhysical, Difference(*limit, kept));
    }
}

/// The group's path in a line "number:controllers:path" of the process's list.
std::optional<std::string> GroupPath(std::string_view list, std::string_view controllers) {
    std::string mark = ":";
    mark.append(controllers).append(":");
    while (!list.empty()) {
        const std::string_view line = list.substr(0, list.find('\n'));
        if (const std::size_t at = line.find(mark); at != std::string_view::npos) {
            return std::string(line.substr(at + mark.size()));
        }
        list.remove_prefix(std::min(line.size() + 1, list.size()));
    }
    return std::nullopt;
}

/// A limit of any group above holds too.
void LimitByGroups(const std::string& root, std::string path, const GroupFiles& files,
                   MemoryFigures& figures) {
    while (true) {
        LimitBy(root + path, files, figures);
        const std::size_t slash = path.rfind('/');
        if (slash == std::string::npos) {
            return;
        }
        path.resize(slash);
    }
}

}  // namespace

MemoryFigures ReadMemoryFigures(const std::string& processFolder, const std::string& groupFolder) {
    MemoryFigures figures = MachineFigures(TextOf(processFolder + "/meminfo"));
    const std::string groups = TextOf(processFolder + "/self/cgroup");
    if (const auto path = GroupPath(groups, "")) {
        LimitByGroups(groupFolder, *path, kVersion2, figures);
    }
    if (const auto path = GroupPath(groups, "memory")) {
        LimitByGroups(groupFolder + "/memory", *path, kVersion1, figures);
    }
    return figures;
}

}  // namespace platen::win32
