#pragma once

#include <cstddef>
#include <span>

#include <platen/platform/api.h>
#include <platen/platform/win32/types.h>

/// Resources of the program. A program here carries none in its file, so it registers its dialog
/// templates by name or identifier, and the ordinary calls find them.

inline const LPCSTR RT_DIALOG = MAKEINTRESOURCE(5);

extern "C" {
/// The registered resource of that name and type, or 0. The module is not looked at.
PLATEN_API HRSRC FindResource(HMODULE module, LPCSTR name, LPCSTR type);
PLATEN_API HGLOBAL LoadResource(HMODULE module, HRSRC resource);
/// The resource's bytes, which stay until it is registered anew. Nothing needs to be released.
PLATEN_API LPVOID LockResource(HGLOBAL resource);
PLATEN_API DWORD SizeofResource(HMODULE module, HRSRC resource);
}

namespace platen::win32 {

/// Registers a dialog template, plain or extended, under a name (in any case of letters) or
/// MAKEINTRESOURCE(identifier). The bytes are copied and replace what was registered there before,
/// which must not be in use. False when they are no whole template.
PLATEN_API bool RegisterDialogTemplate(LPCSTR nameOrIdentifier, std::span<const std::byte> bytes);

}  // namespace platen::win32
