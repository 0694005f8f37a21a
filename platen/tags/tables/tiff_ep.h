#pragma once

#include <platen/tags/rows.h>

/// TIFF/EP (ISO 12234-2): what cameras say, in the image's own directory. Many of these numbers
/// mean the same in an Exif directory.
namespace platen::tags {

inline constexpr ValueWord kEpResolutionUnits[] = {
    {1, "No absolute unit"}, {2, "Inch"}, {3, "Centimeter"}, {4, "Millimeter"}, {5, "Micrometer"}};
inline constexpr ValueWord kEpSensingMethods[] = {{0, "Undefined"},
                                                  {1, "Monochrome area"},
                                                  {2, "One-chip color area"},
                                                  {3, "Two-chip color area"},
                                                  {4, "Three-chip color area"},
                                                  {5, "Color sequential area"},
                                                  {6, "Monochrome linear"},
                                                  {7, "Trilinear"},
                                                  {8, "Color sequential linear"}};
inline constexpr ValueWord kInterlaces[] = {
    {0, "Not interlaced"}, {1, "Odd field"}, {2, "Even field"}};

inline constexpr Row kTiffEp[] = {
    Short(33421, "CFARepeatPatternDim", "Rows and columns of CFAPattern").Times(2),
    Byte(33422, "CFAPattern", "Colors of the sensor's filters").AnyNumber(),
    Of<FieldType::Rational, FieldType::Ascii>(33423, "BatteryLevel", "Charge of the battery")
        .AnyNumber(),
    Short(34855, "ISOSpeedRatings", "ISO speed").AnyNumber(),
    Short(34857, "Interlace", "Field of an interlaced image").Words(kInterlaces),
    SShort(34858, "TimeZoneOffset", "Hours from UTC when taken and when changed").Times(1, 2),
    Short(34859, "SelfTimerMode", "Seconds that the self-timer waited"),
    SRational(37382, "SubjectDistance", "Distance of the subject, in meters"),
    Rational(37386, "FocalLength", "Focal length, in millimeters").AnyNumber(),
    Rational(37387, "FlashEnergy", "Energy of the flash, in BCPS").AnyNumber(),
    Undefined(37388, "SpatialFrequencyResponse", "Spatial frequency response"),
    Undefined(37389, "Noise", "Noise of the camera"),
    Rational(37390, "FocalPlaneXResolution", "Pixels per unit along a row, on the sensor"),
    Rational(37391, "FocalPlaneYResolution", "Pixels per unit along a column, on the sensor"),
    Short(37392, "FocalPlaneResolutionUnit", "Unit of the resolution on the sensor")
        .Words(kEpResolutionUnits),
    Long(37393, "ImageNumber", "Number that the camera gave the image"),
    Text(37394, "SecurityClassification", "Secrecy of the image"),
    Text(37395, "ImageHistory", "What was done to the image"),
    Short(37396, "SubjectLocation", "Where the subject is, in pixels").Times(2, 4),
    Rational(37397, "ExposureIndex", "Exposure index that was set").AnyNumber(),
    Byte(37398, "TIFFEPStandardID", "Version of TIFF/EP").Times(4),
    Short(37399, "SensingMethod", "Kind of sensor").Words(kEpSensingMethods),
};

}  // namespace platen::tags
