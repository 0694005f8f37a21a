#include <platen/base/same_file.h>

#include <platen/base/file_handles.h>
#include <platen/base/files.h>

namespace {

constexpr LONG kRead = 0;
constexpr LONG kWrite = 1;

bool Describe(void* file, BY_HANDLE_FILE_INFORMATION& information) {
    return file != FILE_none() &&
           GetFileInformationByHandle(platen::PlatformHandle(file), &information) != FALSE;
}

}  // namespace

bool IsSameFile(void* file, const char* name) {
    BY_HANDLE_FILE_INFORMATION open = {};
    if (!Describe(file, open)) {
        return false;
    }
    // A file that may be written but not read is the same danger.
    void* other = FILE_open(name, kRead, nullptr);
    if (other == FILE_none()) {
        other = FILE_open(name, kWrite, nullptr);
    }
    BY_HANDLE_FILE_INFORMATION named = {};
    const bool described = Describe(other, named);
    FILE_close(other);
    return described && open.dwVolumeSerialNumber == named.dwVolumeSerialNumber &&
           open.nFileIndexHigh == named.nFileIndexHigh && open.nFileIndexLow == named.nFileIndexLow;
}
