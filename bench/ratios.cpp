#include <bench/ratios.h>

#include <cstdio>

namespace platen::bench {
namespace {

constexpr double kLongerToShorter = 1.5;

/// A ratio, and a mark when it misses its target.
std::string Judged(double ratio, bool met) {
    char text[32];
    std::snprintf(text, sizeof(text), "%.2f%s", ratio, met ? " " : "!");
    return text;
}

}  // namespace

MedianKeeper::MedianKeeper() : ConsoleReporter(OO_Tabular) {}

void MedianKeeper::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median") {
            m_medians[run.run_name.function_name] = run.GetAdjustedCPUTime();
        }
    }
}

double MedianKeeper::Median(const std::string& name) const {
    const auto found = m_medians.find(name);
    return found == m_medians.end() ? 0 : found->second;
}

bool PrintRatios(const std::vector<Case>& cases, const MedianKeeper& medians) {
    std::printf("\n%-24s %10s %10s %10s %12s %12s %12s\n", "us per directory", "platen", "libtiff",
                "floor", "libtiff/", "platen/", "against");
    std::printf("%-24s %10s %10s %10s %12s %12s %12s\n", "", "", "", "", "platen", "floor",
                "1,000 pages");
    bool allMet = true;
    for (const Case& item : cases) {
        const double platen = medians.Median(item.name + "/platen") / item.directories;
        const double libtiff = medians.Median(item.name + "/libtiff") / item.directories;
        const double floor = medians.Median(item.name + "/floor") / item.directories;
        if (platen <= 0 || libtiff <= 0 || floor <= 0) {
            continue;
        }
        const bool fast = libtiff / platen >= item.timesLibtiff;
        const bool near = item.timesFloor == 0 || platen / floor <= item.timesFloor;
        std::printf("%-24s %10.3f %10.3f %10.3f %12s %12s", item.name.c_str(), platen, libtiff,
                    floor, Judged(libtiff / platen, fast).c_str(),
                    Judged(platen / floor, near).c_str());
        allMet = allMet && fast && near;
        const double shorter = medians.Median(item.shorterCase + "/platen") / 1000;
        if (shorter > 0) {
            const bool level = platen / shorter <= kLongerToShorter;
            std::printf(" %12s", Judged(platen / shorter, level).c_str());
            allMet = allMet && level;
        }
        std::printf("\n");
    }
    std::printf("Medians of processor time, user and system. %s\n",
                allMet ? "Every target is met." : "A ratio with ! misses its target.");
    return allMet;
}

}  // namespace platen::bench
