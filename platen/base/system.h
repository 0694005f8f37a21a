#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32.h>

/// Figures and texts for an application's displays.

extern "C" {
/// Writes a number with a comma before each three digits, whatever the locale, and answers the
/// buffer. 15 bytes hold every number: a negative one has its sign before the grouped digits.
PLATEN_API char* BigNumToString(LONG value, char* buffer);

/// Bytes of memory, by flags: 1 physical memory; 2 the paging file, whose figure takes the place of
/// the physical one with 1, and has it subtracted without; 4 the total; 8 what is available. So
/// 5 and 9 are total and available physical memory, 7 and 11 those of the paging file. A figure
/// by itself is at most 2^32 - 1; differences and sums wrap modulo 2^32.
PLATEN_API DWORD HowMuchMemory(int flags);

/// 1 when there is a file or folder of that name and it can be reached, else 0.
PLATEN_API int IsFileExist(const char* name);
}

/// Shows total and available memory with the paging file, in KiB, in pane 1 of the registered
/// status bar: 1. Answers 0 and changes nothing when no bar is registered, its window is gone or
/// has no such pane, or the figures are less than a KiB or not one below the other. For the thread
/// of the user interface.
PLATEN_API int DisplayMemoryStatus();
