#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include <platen/platform/api.h>
#include <platen/tags/field_type.h>

/// The catalogue of tags: what the numbers in TIFF directories are called, what their values are
/// made of and what coded values mean, by TIFF 6.0 with its supplements, TIFF/EP, TIFF/IT, Exif
/// 2.32, DNG 1.7, GeoTIFF and the better known private tags. Everything points to constants; any
/// thread may ask.
namespace platen {

/// The kinds of directory that a number can stand in. It means something else in each.
enum class TagDirectory : std::uint8_t {
    Image,             ///< a directory of the file's chain, or behind SubIFDs
    Exif,              ///< behind ExifIFD
    Gps,               ///< behind GPSIFD
    Interoperability,  ///< behind InteroperabilityIFD, in an Exif directory
    GeoKeys            ///< the keys of GeoKeyDirectoryTag, which lie in that tag's value
};

/// The word for a coded value. For texts of at most four letters that are codes, such as "N" for
/// north, the value is that of the letters, the first in the low byte.
struct ValueWord {
    std::uint32_t value;
    const char* text;
};

/// The count of a tag that may have any number of values.
inline constexpr std::uint32_t kAnyCount = 0xFFFFFFFF;

/// What is known of a tag.
struct TagInfo {
    std::uint16_t number = 0;
    TagDirectory directory = TagDirectory::Image;
    const char* name = nullptr;                  ///< as its standard names it
    std::array<const char*, 2> otherNames = {};  ///< null where there are fewer
    const char* meaning = nullptr;               ///< what the value says, in a few words
    std::span<const FieldType> types;            ///< those that it may have, the plainest first
    std::uint32_t least = 1;                     ///< fewest values; a text's closing NUL counts
    std::uint32_t most = 1;                      ///< most values, or kAnyCount
    std::span<const ValueWord> words;            ///< of coded values
    bool flags = false;       ///< the words are those of bits, of which a value can have several
    bool characters = false;  ///< bytes (BYTE, UNDEFINED) of the value are characters
    std::optional<TagDirectory> opens;  ///< the values are offsets of directories of this kind
};

/// The tag of that number in a directory of that kind; null for one that is not in the catalogue.
PLATEN_API const TagInfo* FindTag(std::uint16_t number,
                                  TagDirectory directory = TagDirectory::Image);

/// The tag of that name in a directory of that kind, upper and lower case alike; other names count
/// too. Null when there is none.
PLATEN_API const TagInfo* FindTag(std::string_view name,
                                  TagDirectory directory = TagDirectory::Image);

/// All tags of a kind of directory, in ascending order.
PLATEN_API std::span<const TagInfo> TagsIn(TagDirectory directory);

/// The word for a coded value, for example "RGB" for 2 of PhotometricInterpretation; null for a
/// value without a word of its own, as several flags together are.
PLATEN_API const char* FindWord(const TagInfo& tag, std::uint64_t value);

}  // namespace platen
