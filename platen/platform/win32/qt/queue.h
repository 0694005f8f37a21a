#pragma once

#include <QPoint>
#include <optional>
#include <string>

#include <platen/platform/win32/message.h>

namespace platen::win32 {

/// Which messages a caller takes.
struct MessageFilter {
    HWND window = nullptr;  ///< with its children; null: all
    UINT first = 0;
    UINT last = 0;  ///< both 0: all

    [[nodiscard]] bool Fits(HWND target, UINT message) const;
};

/// A message from the user; `text` is what the key stands for.
void PostInput(HWND window, UINT message, WPARAM wParam, LPARAM lParam, std::string text = {});
/// Where on the screen the mouse is, for the messages to come.
void NoteMouse(QPoint place);
/// The next waiting message in Win32's order.
std::optional<MSG> TakeMessage(const MessageFilter& filter, bool remove);
bool HasMessages();
/// Drops what waits for a window that is gone.
void DropMessages(HWND window);
/// Asked when a WM_QUIT is met outside of a message loop.
std::optional<int> TakeQuit();

/// The first timer that is due, or nothing.
std::optional<MSG> TakeTimer(const MessageFilter& filter, bool remove);
bool HasDueTimer();
void KillTimers(HWND window);

/// The outermost invalid window that the filter lets through.
HWND NextToPaint(const MessageFilter& filter);
void DropInvalid(HWND window);

/// Dispatches what waits, for a program whose own Qt loop runs.
void DispatchWaiting();

}  // namespace platen::win32
