#pragma once

/// Marks what the shared library shows to its callers. Everything without the mark stays inside.
/// On Windows the build defines PLATEN_BUILDING for the library's own files, and PLATEN_SHARED for
/// those of its callers; the static core defines neither.
#ifndef _WIN32
#define PLATEN_API __attribute__((visibility("default")))
#elif defined(PLATEN_BUILDING)
#define PLATEN_API __declspec(dllexport)
#elif defined(PLATEN_SHARED)
#define PLATEN_API __declspec(dllimport)
#else
#define PLATEN_API
#endif
