#pragma once

#include <platen/platform/win32/files.h>

/// What POSIX code of the floors above does to the descriptors behind file handles.
namespace platen::win32 {

/// A handle of a descriptor, which becomes the handle's; -1, with errno, for none, and without
/// memory.
HANDLE AdoptDescriptor(int descriptor);

/// The descriptor behind a handle; -1 when it names no open file.
int DescriptorBehind(HANDLE file);

/// Makes an open handle one of the file that `descriptor` is of, at its start. The descriptor stays
/// the caller's. False, and the handle is what it was, when that failed.
bool MoveHandle(HANDLE file, int descriptor);

}  // namespace platen::win32
