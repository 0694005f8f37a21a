#pragma once

#include <platen/tags/rows.h>

/// The directory behind InteroperabilityIFD: Exif 2.32 and DCF.
namespace platen::tags {

inline constexpr ValueWord kInteroperabilityIndexes[] = {Code("R98", "DCF basic file"),
                                                         Code("THM", "DCF thumbnail file"),
                                                         Code("R03", "DCF option file")};

inline constexpr Row kInteroperability[] = {
    Text(1, "InteroperabilityIndex", "Rules that the file keeps to")
        .Words(kInteroperabilityIndexes),
    Undefined(2, "InteroperabilityVersion", "Version of the rules").Times(4).Characters(),
    Text(4096, "RelatedImageFileFormat", "Format of the image file"),
    ShortOrLong(4097, "RelatedImageWidth", "Pixels in a row of the image"),
    ShortOrLong(4098, "RelatedImageLength", "Rows of the image"),
};

}  // namespace platen::tags
