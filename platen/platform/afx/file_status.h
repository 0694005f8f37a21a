#pragma once

#include <cstdint>

#include <platen/platform/api.h>
#include <platen/platform/win32.h>

struct CFileStatus {
    std::uint64_t m_size;  ///< bytes
    DWORD m_attribute;     ///< FILE_ATTRIBUTE_ bits
};

/// Questions about files by name.
class PLATEN_API CFile {
  public:
    /// Fills the record of a file or folder; FALSE when there is no entry of that name, or it
    /// cannot be reached.
    static BOOL GetStatus(LPCSTR name, CFileStatus& status);
};
