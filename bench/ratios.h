#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace platen::bench {

/// What is read by all three readers, and compared.
struct Case {
    std::string name;
    std::uint32_t directories;  ///< in all files together
    double timesLibtiff;        ///< the engine is to be at least this many times as fast
    double timesFloor;          ///< and at most this many times as slow; 0: not judged
    std::string shorterCase;    ///< cost per directory is compared with that case's, unless empty
};

/// Prints as the console reporter does and keeps every benchmark's median, by its name.
class MedianKeeper : public benchmark::ConsoleReporter {
  public:
    MedianKeeper();
    void ReportRuns(const std::vector<Run>& runs) override;

    /// Microseconds of processor time; 0 for a name that did not run.
    [[nodiscard]] double Median(const std::string& name) const;

  private:
    std::map<std::string, double> m_medians;
};

/// Prints the table of ratios of the cases that ran. False when one misses its target.
bool PrintRatios(const std::vector<Case>& cases, const MedianKeeper& medians);

}  // namespace platen::bench
