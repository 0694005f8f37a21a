#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32.h>

/// Memory blocks: movable ones named by a handle, and ones that stay locked, named by their
/// address. Sizes are bytes. Flags go to the platform as they are; GHND is movable and zero-filled,
/// GMEM_MOVEABLE movable. Releasing and unlocking functions answer the 0 or null that stands for no
/// block, for storing back. The caller owns every block. Different blocks may be used by different
/// threads.

extern "C" {
/// A new block, or 0.
PLATEN_API HGLOBAL MEM_NewHandle(DWORD size, DWORD flags);
/// Resizes a block, keeping its contents; the handle may change. 0 for handle 0, and when memory is
/// exhausted, and then the old block stays.
PLATEN_API HGLOBAL MEM_ReNewHandle(HGLOBAL handle, DWORD size, DWORD flags);
/// Releases a block; handle 0 does nothing. Always 0.
PLATEN_API HGLOBAL MEM_FreeHandle(HGLOBAL handle);
/// Locks a block and gives its address; null for handle 0.
PLATEN_API void* MEM_LockHandle(HGLOBAL handle);
/// Unlocks a block; handle 0 does nothing. Always 0.
PLATEN_API HGLOBAL MEM_UnlockHandle(HGLOBAL handle);
/// A block's size, at least the size last asked for; 0 for handle 0.
PLATEN_API DWORD MEM_LogSizeHandle(HGLOBAL handle);

/// A new locked block, or null.
PLATEN_API void* MEM_NewPtr(DWORD size, DWORD flags);
/// Resizes a locked block, keeping its contents, and gives its new address; null when memory is
/// exhausted, and then the old block stays, unlocked, at its address. The pointer must come from
/// MEM_NewPtr or MEM_ReNewPtr; null is not accepted.
PLATEN_API void* MEM_ReNewPtr(void* pointer, DWORD size, DWORD flags);
/// Releases a locked block; null does nothing. Always null.
PLATEN_API void* MEM_FreePtr(void* pointer);
}
