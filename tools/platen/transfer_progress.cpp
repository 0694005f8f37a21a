#include "transfer_progress.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

#include "messages.h"
#include "progress.h"
#include "system.h"

namespace platen::tool {
namespace {

constexpr std::chrono::seconds kFirstDraw{1};
constexpr double kMegabyte = 1e6;
constexpr std::size_t kUsualColumns = 80;
constexpr std::size_t kLeastBar = 10;
constexpr std::size_t kLargestBar = 20;

/// As in " 45%  483 of 1074 MB  512 MB/s  0:02 left".
std::string Figures(double done, double total, double seconds) {
    const double rate = done / seconds;
    const auto left = static_cast<long>(rate > 0 ? (total - done) / rate + 0.5 : 0);
    std::array<char, 128> text{};
    std::snprintf(text.data(), text.size(), "%3.0f%%  %.0f of %.0f MB  %.0f MB/s  %ld:%02ld left",
                  100 * done / total, done / kMegabyte, total / kMegabyte, rate / kMegabyte,
                  left / 60, left % 60);
    return text.data();
}

/// The bar takes what the figures leave of a line, which must not wrap.
std::string Line(const std::string& figures, double part) {
    const std::size_t known = TerminalColumns();
    const std::size_t columns = (known != 0 ? known : kUsualColumns) - 1;
    const std::size_t others = figures.size() + std::string_view("platen: [] ").size();
    if (columns < others + kLeastBar) {
        return figures.substr(0, columns);
    }
    const std::size_t bar = std::min(columns - others, kLargestBar);
    const auto full = static_cast<std::size_t>(part * static_cast<double>(bar));
    return "platen: [" + std::string(full, '#') + std::string(bar - full, '.') + "] " + figures;
}

}  // namespace

TransferProgress::TransferProgress() : TransferProgress(IsTerminal(stderr), &Clock::now) {}

TransferProgress::TransferProgress(bool wanted, Now now)
    : m_wanted(wanted), m_now(now), m_start(now()), m_nextDraw(m_start + kFirstDraw) {}

TransferProgress::~TransferProgress() {
    if (m_visible) {
        PrintToStandardError(kEraseLine);
    }
}

void TransferProgress::Show(std::int64_t done, std::int64_t total) {
    const Clock::time_point now = m_wanted ? m_now() : m_start;
    if (now < m_nextDraw) {
        return;
    }
    const auto bytes = static_cast<double>(done);
    const auto all = static_cast<double>(total);
    const double seconds = std::chrono::duration<double>(now - m_start).count();
    PrintToStandardError(kEraseLine + Line(Figures(bytes, all, seconds), bytes / all));
    m_visible = true;
    m_nextDraw = now + kRedrawInterval;
}

}  // namespace platen::tool
