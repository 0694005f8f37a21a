#pragma once

class QEvent;
class QObject;

namespace platen::win32 {

/// Whether a look for messages has Qt work right now, so that nobody else need dispatch them. False
/// inside of a loop that a host's handler has started meanwhile.
bool IsPumping();

/// Keeps an event of the user for later when the running look for messages is for another window.
bool HoldInput(QObject* target, QEvent& event);

/// Lets Qt work without letting the user in, until `isDone` or for a second.
void WaitUntil(bool (*isDone)(const void* argument), const void* argument);

}  // namespace platen::win32
