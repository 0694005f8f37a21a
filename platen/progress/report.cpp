#include <platen/base/status_bar.h>
#include <platen/progress/report.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constinit int g_enabled = 0;
constinit CORE_ReportCallBack g_begin = nullptr;
constinit CORE_ReportCallBack g_in = nullptr;
constinit CORE_ReportCallBack g_end = nullptr;
/// The last byte is never written, so that the text always ends.
constinit std::array<char, 256> g_message = {};

CORE_ReportCallBack IfEnabled(CORE_ReportCallBack callback) {
    return g_enabled != 0 ? callback : nullptr;
}

}  // namespace

int CORE_EnableReportCallBack(int enable) {
    const int before = g_enabled;
    g_enabled = enable;
    return before;
}

void CORE_SetReportMessage(const char* text) {
    // The text may be the one that is stored, or a part of it.
    const char* from = text == nullptr ? "" : text;
    const std::size_t length = ::strnlen(from, g_message.size() - 1);
    std::memmove(g_message.data(), from, length);
    std::fill(g_message.begin() + static_cast<std::ptrdiff_t>(length), g_message.end(), '\0');
}

const char* CORE_GetReportMessage() {
    return g_message.data();
}

void CORE_SetBeginReportCallBack(CORE_ReportCallBack callback) {
    g_begin = callback;
}

CORE_ReportCallBack CORE_GetBeginReportCallBack() {
    return IfEnabled(g_begin);
}

void CORE_SetInReportCallBack(CORE_ReportCallBack callback) {
    g_in = callback;
}

CORE_ReportCallBack CORE_GetInReportCallBack() {
    return IfEnabled(g_in);
}

void CORE_SetEndReportCallBack(CORE_ReportCallBack callback) {
    g_end = callback;
}

CORE_ReportCallBack CORE_GetEndReportCallBack() {
    return IfEnabled(g_end);
}

void CORE_SetStatusBar(CStatusBar* statusBar) {
    platen::RegisterStatusBar(statusBar);
}
