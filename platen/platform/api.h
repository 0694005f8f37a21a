#pragma once

/// Marks what the shared library shows to its callers. Everything without the mark stays inside.
#if defined(__GNUC__) && !defined(_WIN32)
#define PLATEN_API __attribute__((visibility("default")))
#else
#define PLATEN_API
#endif
