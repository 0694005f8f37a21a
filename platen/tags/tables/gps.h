#pragma once

#include <platen/tags/rows.h>

/// The directory behind GPSIFD: Exif 2.32. Positions are degrees, minutes and seconds.
namespace platen::tags {

inline constexpr ValueWord kLatitudeRefs[] = {Code("N", "North"), Code("S", "South")};
inline constexpr ValueWord kLongitudeRefs[] = {Code("E", "East"), Code("W", "West")};
inline constexpr ValueWord kAltitudeRefs[] = {{0, "Above sea level"}, {1, "Below sea level"}};
inline constexpr ValueWord kGpsStatuses[] = {Code("A", "Measuring"), Code("V", "Interrupted")};
inline constexpr ValueWord kMeasureModes[] = {Code("2", "Two-dimensional"),
                                              Code("3", "Three-dimensional")};
inline constexpr ValueWord kSpeedRefs[] = {Code("K", "Kilometers per hour"),
                                           Code("M", "Miles per hour"), Code("N", "Knots")};
inline constexpr ValueWord kDirectionRefs[] = {Code("T", "True north"),
                                               Code("M", "Magnetic north")};
inline constexpr ValueWord kDistanceRefs[] = {Code("K", "Kilometers"), Code("M", "Miles"),
                                              Code("N", "Nautical miles")};
inline constexpr ValueWord kDifferentials[] = {{0, "Without correction"}, {1, "With correction"}};

inline constexpr Row kGps[] = {
    Byte(0, "GPSVersionID", "Version of this directory").Times(4),
    Text(1, "GPSLatitudeRef", "North or south").Times(2).Words(kLatitudeRefs),
    Rational(2, "GPSLatitude", "Latitude").Times(3),
    Text(3, "GPSLongitudeRef", "East or west").Times(2).Words(kLongitudeRefs),
    Rational(4, "GPSLongitude", "Longitude").Times(3),
    Byte(5, "GPSAltitudeRef", "Above or below the sea").Words(kAltitudeRefs),
    Rational(6, "GPSAltitude", "Altitude, in meters"),
    Rational(7, "GPSTimeStamp", "Hour, minute and second, in UTC").Times(3),
    Text(8, "GPSSatellites", "Satellites that were used"),
    Text(9, "GPSStatus", "State of the receiver").Times(2).Words(kGpsStatuses),
    Text(10, "GPSMeasureMode", "Dimensions that were measured").Times(2).Words(kMeasureModes),
    Rational(11, "GPSDOP", "Dilution of precision"),
    Text(12, "GPSSpeedRef", "Unit of GPSSpeed").Times(2).Words(kSpeedRefs),
    Rational(13, "GPSSpeed", "Speed of the receiver"),
    Text(14, "GPSTrackRef", "North of GPSTrack").Times(2).Words(kDirectionRefs),
    Rational(15, "GPSTrack", "Direction of movement, in degrees"),
    Text(16, "GPSImgDirectionRef", "North of GPSImgDirection").Times(2).Words(kDirectionRefs),
    Rational(17, "GPSImgDirection", "Direction of the camera, in degrees"),
    Text(18, "GPSMapDatum", "Geodetic datum of the positions"),
    Text(19, "GPSDestLatitudeRef", "North or south, of the destination")
        .Times(2)
        .Words(kLatitudeRefs),
    Rational(20, "GPSDestLatitude", "Latitude of the destination").Times(3),
    Text(21, "GPSDestLongitudeRef", "East or west, of the destination")
        .Times(2)
        .Words(kLongitudeRefs),
    Rational(22, "GPSDestLongitude", "Longitude of the destination").Times(3),
    Text(23, "GPSDestBearingRef", "North of GPSDestBearing").Times(2).Words(kDirectionRefs),
    Rational(24, "GPSDestBearing", "Direction of the destination, in degrees"),
    Text(25, "GPSDestDistanceRef", "Unit of GPSDestDistance").Times(2).Words(kDistanceRefs),
    Rational(26, "GPSDestDistance", "Distance of the destination"),
    Undefined(27, "GPSProcessingMethod",
              "How the position was found, behind 8 bytes that name the code"),
    Undefined(28, "GPSAreaInformation", "Name of the area, behind 8 bytes that name its code"),
    Text(29, "GPSDateStamp", "Date in UTC, as YYYY:MM:DD").Times(11),
    Short(30, "GPSDifferential", "Whether differential correction was applied")
        .Words(kDifferentials),
    Rational(31, "GPSHPositioningError", "Error of the position across, in meters"),
};

}  // namespace platen::tags
