#pragma once

#include <functional>

#include <platen/platform/win32/types.h>

namespace platen::win32 {

/// Shows a dialog that `make` makes for its owner, and dispatches messages until EndDialog; the
/// owner is disabled meanwhile. The dialog's result, or -1 when none was made.
INT_PTR RunModal(HWND parent, const std::function<HWND(HWND owner)>& make);

}  // namespace platen::win32
