#include <platen/platform/afx/file_status.h>

BOOL CFile::GetStatus(LPCSTR name, CFileStatus& status) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (name == nullptr || ::GetFileAttributesEx(name, GetFileExInfoStandard, &data) == FALSE) {
        return FALSE;
    }
    status.m_size = (std::uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow;
    status.m_attribute = data.dwFileAttributes;
    return TRUE;
}
