#pragma once

#include <platen/tags/rows.h>

/// TIFF/IT (ISO 12639), for prepress. Its ColorTable (34022) goes by another name here, because
/// 33447 has that name among the same tags.
namespace platen::tags {

inline constexpr ValueWord kRasterPaddings[] = {
    {0, "Byte"}, {1, "Word"}, {2, "Long word"}, {9, "Sector"}, {10, "Long sector"}};
inline constexpr ValueWord kImageColorIndicators[] = {{0, "No image color"},
                                                      {1, "Image color given"}};
inline constexpr ValueWord kBackgroundColorIndicators[] = {{0, "No background color"},
                                                           {1, "Background color given"}};
inline constexpr ValueWord kTransparencyIndicators[] = {{0, "Opaque"}, {1, "Partly transparent"}};
inline constexpr ValueWord kHcUsages[] = {
    {0, "Contone over line art"}, {1, "Line art over contone"}, {2, "Traps"}};
inline constexpr ValueWord kTrapIndicators[] = {{0, "Trapped"}, {1, "Not trapped"}};

inline constexpr Row kTiffIt[] = {
    Text(34016, "Site", "Where the file was made"),
    Text(34017, "ColorSequence", "Order of the colors, such as CMYK"),
    Text(34018, "IT8Header", "Headers that other formats need"),
    Short(34019, "RasterPadding", "What rows are padded to").Words(kRasterPaddings),
    Short(34020, "BitsPerRunLength", "Bits of a short run length"),
    Short(34021, "BitsPerExtendedRunLength", "Bits of a long run length"),
    Byte(34022, "IT8ColorTable", "Colors of line art").AnyNumber(),
    Byte(34023, "ImageColorIndicator", "Whether ImageColorValue counts")
        .Words(kImageColorIndicators),
    Byte(34024, "BackgroundColorIndicator", "Whether BackgroundColorValue counts")
        .Words(kBackgroundColorIndicators),
    Byte(34025, "ImageColorValue", "Color of image pixels").AnyNumber(),
    Byte(34026, "BackgroundColorValue", "Color of background pixels").AnyNumber(),
    Byte(34027, "PixelIntensityRange", "Samples for 0% and 100%").Times(2),
    Byte(34028, "TransparencyIndicator", "Whether pixels can be transparent")
        .Words(kTransparencyIndicators),
    Text(34029, "ColorCharacterization", "Reference to a description of the colors"),
    Long(34030, "HCUsage", "What high resolution contone is for").Words(kHcUsages),
    Byte(34031, "TrapIndicator", "Whether traps were made").Words(kTrapIndicators),
    Short(34032, "CMYKEquivalent", "CMYK of special inks").AnyNumber(),
};

}  // namespace platen::tags
