#pragma once

class CStatusBar;

/// The application's status bar, which receives the library's texts. The library reads it anew each
/// time, so that a bar set or taken back meanwhile counts at once.
namespace platen {

void RegisterStatusBar(CStatusBar* statusBar);
/// Null when there is none.
CStatusBar* RegisteredStatusBar();

}  // namespace platen
