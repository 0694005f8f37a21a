#include <platen/base/status_bar.h>

namespace {

constinit CStatusBar* g_statusBar = nullptr;

}  // namespace

void platen::RegisterStatusBar(CStatusBar* statusBar) {
    g_statusBar = statusBar;
}

CStatusBar* platen::RegisteredStatusBar() {
    return g_statusBar;
}
