#pragma once

#include <platen/platform/win32/types.h>

namespace platen::win32 {

/// The next item that Tab stops at, or the one before; from the first one when `item` is null.
HWND NextTabItem(HWND dialog, HWND item, bool previous);
/// The next item of the item's group, which WS_GROUP starts, or the one before.
HWND NextGroupItem(HWND item, bool previous);
/// Gives an item the focus; the text of a field is selected.
void FocusItem(HWND item);
/// Whether a window is a button that does something at once, and which one.
bool IsPushButton(HWND item);

}  // namespace platen::win32
