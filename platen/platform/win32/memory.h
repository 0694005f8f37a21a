#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32/types.h>

/// Global memory blocks.
///
/// Contract: a block never moves while its size stays, so its handle is its address, and locking
/// only looks the address up. Blocks are aligned for any type. A block that grows step by step is
/// reserved geometrically, so that N steps cost O(N); `GlobalSize` answers the size asked for, not
/// the reserve. Handles are trusted; 0 is accepted and does nothing.
/// Known gaps: no lock counts, no discardable or shared memory; other flags are ignored.
/// Threads: different blocks may be used by different threads.

inline constexpr UINT GMEM_MOVEABLE = 0x02;
inline constexpr UINT GMEM_ZEROINIT = 0x40;
inline constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;

extern "C" {
/// A new block of `size` bytes, zero-filled with GMEM_ZEROINIT; 0 when memory is exhausted.
PLATEN_API HGLOBAL GlobalAlloc(UINT flags, SIZE_T size);
/// Resizes a block, keeping its contents; with GMEM_ZEROINIT the added bytes are zero. Answers the
/// new handle, or 0, and then the old block stays as it was.
PLATEN_API HGLOBAL GlobalReAlloc(HGLOBAL block, SIZE_T size, UINT flags);
/// The block's address.
PLATEN_API LPVOID GlobalLock(HGLOBAL block);
/// Always answers FALSE: nothing is counted.
PLATEN_API BOOL GlobalUnlock(HGLOBAL block);
/// Releases a block; answers 0.
PLATEN_API HGLOBAL GlobalFree(HGLOBAL block);
/// The block's size in bytes.
PLATEN_API SIZE_T GlobalSize(HGLOBAL block);
/// The block at an address that `GlobalLock` gave.
PLATEN_API HGLOBAL GlobalHandle(LPCVOID address);
}
