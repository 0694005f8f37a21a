#pragma once

#include <cstdint>
#include <vector>

#include <bench/ratios.h>
#include <bench/scratch.h>

/// The three writers that are compared. Each writes a file of tiny pages (4 x 2 gray pixels, 13
/// tags, two of them fractions) and answers whether it could. The engine and the floor write the
/// same bytes; libtiff the same tags.
namespace platen::bench {

/// This engine: construct, `setTAG` of every tag, `WriteNew`, destroy.
bool WriteWithPlaten(const char* name, std::uint32_t pages);

/// libtiff: `TIFFOpen`, `TIFFSetField` of every tag, `TIFFWriteRawStrip`, `TIFFWriteDirectory`.
bool WriteWithLibtiff(const char* name, std::uint32_t pages);

/// The least that the job can cost: the same bytes, serialised through a buffer of 64 KiB.
bool WriteWithFloor(const char* name, std::uint32_t pages);

/// Registers the writers on 1,000 and 32,000 pages. Throws when the engine and the floor do not
/// write the same file.
std::vector<Case> RegisterWriters(const Scratch& scratch);

}  // namespace platen::bench
