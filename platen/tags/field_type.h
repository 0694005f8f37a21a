#pragma once

#include <cstdint>

#include <platen/platform/api.h>

namespace platen {

/// What the values of a directory entry are made of: TIFF 6.0, section 2, with the types that its
/// supplements and BigTIFF add. A file may hold any other number as well.
enum class FieldType : std::uint16_t {
    Byte = 1,
    Ascii = 2,
    Short = 3,
    Long = 4,
    Rational = 5,
    SByte = 6,
    Undefined = 7,
    SShort = 8,
    SLong = 9,
    SRational = 10,
    Float = 11,
    Double = 12,
    Ifd = 13,
    Long8 = 16,
    SLong8 = 17,
    Ifd8 = 18
};

/// The bytes of one value; 0 for a number that is no type.
PLATEN_API unsigned FieldTypeSize(FieldType type);

/// The type's name in TIFF 6.0, for example "SHORT"; null for a number that is no type. A constant.
PLATEN_API const char* FieldTypeName(FieldType type);

}  // namespace platen
