#pragma once

#include <cstddef>

#include <platen/platform/api.h>
#include <platen/platform/win32.h>

/// Describes a memory buffer that is either the caller's or owned as a movable block.
///
/// Copies and assignments describe the same memory. An owned block belongs to all of them together
/// and is released with the last: the block carries the number of its owners behind its `m_Size`
/// bytes, so an owned handle is not to be resized. Objects are automatic, static or members; none
/// can be built with `new`.
class PLATEN_API CBuffer {
  public:
    /// Describes `size` bytes at `data` that stay the caller's.
    CBuffer(DWORD size, void* data);
    /// Owns a new movable block of `size` bytes, not zero-filled; `m_hMem` is 0 when memory is
    /// exhausted. All other fields are 0.
    explicit CBuffer(DWORD size);
    CBuffer(const CBuffer& other);
    CBuffer& operator=(const CBuffer& other);
    ~CBuffer();

    [[nodiscard]] DWORD GetSize() const { return m_Size; }

    /// Refuses every request: the result is null and no object is built.
    static void* operator new(std::size_t size) noexcept;
    static void operator delete(void* pointer) noexcept;

    WORD m_bWrapped = 0;       ///< 1: the memory is the caller's
    HGLOBAL m_hMem = nullptr;  ///< the owned block, or 0
    DWORD m_Reserved = 0;
    DWORD m_Size = 0;         ///< bytes
    void* m_pData = nullptr;  ///< the caller's memory

  private:
    void Share() const;
    void Release();
};
