#pragma once

#include <chrono>
#include <cstddef>

namespace platen::tool {

/// A line that shows progress is not drawn more often.
inline constexpr std::chrono::milliseconds kRedrawInterval{100};

/// A line on standard error that says how many files are done, when there are several and standard
/// error is a terminal. It vanishes with the object.
class Progress {
  public:
    explicit Progress(std::size_t files);
    ~Progress() { Clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Redraws the line, unless it was drawn a moment ago.
    void Show(std::size_t done);
    /// Makes room for other output on the terminal.
    void Clear();

  private:
    using Clock = std::chrono::steady_clock;

    std::size_t m_files;
    bool m_wanted;
    bool m_visible = false;
    Clock::time_point m_nextDraw;  ///< the clock's start, so the first call draws
};

}  // namespace platen::tool
