#pragma once

#include <QKeyEvent>

#include <platen/platform/win32/types.h>

namespace platen::win32 {

/// The Win32 key of Qt's, or 0.
int VirtualKeyOf(int qtKey);

/// What GetKeyState tells. A real release counts 30 ms later, unless a press comes first.
void NotePress(int virtualKey);
void NoteRelease(int virtualKey, bool atOnce);
/// All keys are up.
void ReleaseAllKeys();
/// A key event that comes from the desktop.
void NoteKeyEvent(const QKeyEvent& event);

/// Hands the keys that the program itself presses to the widget with the focus. Whether there was
/// one.
bool DeliverPressedKeys();

}  // namespace platen::win32
