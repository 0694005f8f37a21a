#pragma once

#include <cstdint>
#include <string_view>

#include <platen/platform/api.h>

/// What the tags that the engine knows are called, and what their coded values mean. Everything
/// points to constants; any thread may ask.
namespace platen {

/// A tag's name in TIFF 6.0, for example "ImageWidth"; null for a tag that the engine does not
/// know.
PLATEN_API const char* TagName(std::uint16_t tag);

/// The tag of that name, upper and lower case alike; 0 when there is none. The names that records
/// give to tags 292, 293 and 301 (Group3Options, Group4Options, ColorResponseCurve) count too, and
/// so does ColorResponseCurves, as 301 was called before TIFF 6.0.
PLATEN_API std::uint16_t TagNumber(std::string_view name);

/// The word for a coded value, for example "PackBits" for 32773 of Compression (259); a value
/// without a word of its own is "Invalid", or "Unknown" for FileTag (33445), of whose value the low
/// 16 bits count. Null for a tag whose values have no words.
PLATEN_API const char* TagWord(std::uint16_t tag, std::uint32_t value);

}  // namespace platen
