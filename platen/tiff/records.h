#pragma once

#include <cstdint>

#include <platen/tags/field_type.h>

namespace platen {

/// The field types that the engine reads and writes, as the numbers that entries hold.
inline constexpr auto kTypeByte = static_cast<std::uint16_t>(FieldType::Byte);
inline constexpr auto kTypeAscii = static_cast<std::uint16_t>(FieldType::Ascii);
inline constexpr auto kTypeShort = static_cast<std::uint16_t>(FieldType::Short);
inline constexpr auto kTypeLong = static_cast<std::uint16_t>(FieldType::Long);
inline constexpr auto kTypeRational = static_cast<std::uint16_t>(FieldType::Rational);

/// The byte-order words, which are the first two bytes of a file.
inline constexpr std::int16_t kIntel = 0x4949;     ///< "II", little-endian
inline constexpr std::int16_t kMotorola = 0x4D4D;  ///< "MM", big-endian

}  // namespace platen

/// A TIFF RATIONAL: a fraction of two unsigned numbers.
struct Rational {
    std::uint32_t Numerator;
    std::uint32_t Denominator;

    friend bool operator==(const Rational&, const Rational&) = default;
};

/// One 12-byte directory entry (TIFF 6.0, section 2), in machine byte order once it is read.
struct TiffIFDEntryStruct {
    std::uint16_t Tag;
    std::uint16_t Type;
    std::uint32_t Count;
    std::uint32_t ValueOffset;  ///< the values when they fit, else the file offset of the values
};

/// A file offset as it stands in the header and at the end of a directory.
struct TiffIFDOffsetStruct {
    std::uint32_t Offset;
};

/// A directory's number of entries.
struct TiffIFDNumStruct {
    std::uint16_t Num;
};

/// The decoded standard directory of one image file directory. A field named after a tag holds that
/// tag's value. A pointer is a block that the record owns, null when the tag is absent; the count
/// before it is the number of its elements. A number that is absent holds 0xFFFF, 0xFFFFFFFF or 0,
/// a fraction 0xFFFFFFFF twice; SamplesPerPixel is 1 until it is set.
struct TiffIFDStdDirStruct {
    std::uint16_t NumEntries;  ///< entries of this directory in the file
    std::uint32_t NewSubfileType;
    std::uint16_t SubfileType;
    std::int32_t ImageWidth;   ///< pixels
    std::int32_t ImageLength;  ///< pixels
    std::uint32_t BitsPerSampleCount;
    std::uint16_t* BitsPerSample;
    std::uint16_t Compression;
    std::uint16_t PhotometricInterpretation;
    std::uint16_t Threshholding;
    std::uint16_t CellWidth;
    std::uint16_t CellLength;
    std::uint16_t FillOrder;
    char* DocumentName;
    char* ImageDescription;
    char* Model;
    char* Make;
    std::uint32_t StripOffsetsCount;
    std::uint16_t* StripOffsetsShort;  ///< when the file's type was SHORT
    std::uint32_t* StripOffsetsLong;   ///< when the file's type was LONG
    std::uint16_t Orientation;
    std::uint16_t SamplesPerPixel;
    std::uint32_t RowsPerStrip;
    std::uint32_t StripByteCountsCount;
    std::uint16_t* StripByteCountsShort;
    std::uint32_t* StripByteCountsLong;
    std::uint16_t MinSampleValue;
    std::uint16_t MaxSampleValue;
    Rational XResolution;
    Rational YResolution;
    std::uint16_t PlanarConfiguration;
    char* PageName;
    Rational XPosition;
    Rational YPosition;
    std::uint32_t* FreeOffsets;     ///< a slot that nothing fills
    std::uint32_t* FreeByteCounts;  ///< a slot that nothing fills
    std::uint16_t GrayResponseUnit;
    std::uint32_t GrayResponseCurveCount;
    std::uint16_t* GrayResponseCurve;
    std::uint32_t Group3Options;
    std::uint32_t Group4Options;
    std::uint16_t ResolutionUnit;
    std::uint16_t PageNumber[2];
    std::uint16_t ColorResponseUnit;
    std::uint32_t ColorResponseCurveCount;
    std::uint16_t* ColorResponseCurve;
    char* Software;
    char* DateTime;
    char* Artist;
    char* HostComputer;
    std::uint16_t Predictor;
    Rational WhitePoint[2];
    Rational PrimaryChromaticities[6];
    std::uint32_t ColorMapCount;
    std::uint16_t* ColorMap;
    std::int32_t TileWidth;   ///< pixels
    std::int32_t TileLength;  ///< pixels
    std::uint32_t TileOffsetsCount;
    std::uint16_t* TileOffsetsShort;
    std::uint32_t* TileOffsetsLong;
    std::uint32_t TileByteCountsCount;
    std::uint16_t* TileByteCountsShort;
    std::uint32_t* TileByteCountsLong;
    std::uint32_t SubIFDs;  ///< a slot that nothing fills
    std::uint32_t FileTag;  ///< private XK tags from here
    Rational ScalePixel;
    std::uint16_t ColorTable[18];
    std::uint32_t ColorTableOffset;  ///< the entry's value word as read
    std::uint32_t ColorTableCount;   ///< the entry's count
    char* LabName;
    char* SampleInfo;
    char* PrepDate;
    char* PrepTime;
    char* FileUnits;
    std::uint16_t WriteNumEntries;  ///< writer: entries it will write
    std::uint32_t WriteIFDOffset;   ///< writer: where this directory is placed
    std::uint32_t WriteLinkOffset;  ///< writer: where the link to this directory stands
    std::uint32_t ReadDataOffset;   ///< writer: first strip offset as it was read
};
