#pragma once

#include <platen/tags/rows.h>

/// GeoTIFF 1.1: its tags, those that go with them, and the keys in GeoKeyDirectoryTag. A key's
/// value is a SHORT in the directory itself, or lies in GeoDoubleParamsTag or GeoAsciiParamsTag.
namespace platen::tags {

inline constexpr Row kGeoTiff[] = {
    Double(33550, "ModelPixelScaleTag", "Size of a pixel on the map")
        .Times(3)
        .Also("ModelPixelScale"),
    Double(33920, "IntergraphMatrixTag", "From pixels to the map, older form").Times(16, 17),
    Double(33922, "ModelTiepointTag", "Points of the image and of the map")
        .Times(6, kAnyCount)
        .Also("ModelTiepoint"),
    Double(34264, "ModelTransformationTag", "From pixels to the map, as a matrix")
        .Times(16)
        .Also("ModelTransformation"),
    Short(34735, "GeoKeyDirectoryTag", "The map's keys, four numbers each")
        .Times(4, kAnyCount)
        .Also("GeoKeyDirectory"),
    Double(34736, "GeoDoubleParamsTag", "Numbers that the keys name")
        .AnyNumber()
        .Also("GeoDoubleParams"),
    Text(34737, "GeoAsciiParamsTag", "Texts that the keys name").Also("GeoAsciiParams"),
    Text(42112, "GDAL_METADATA", "Metadata of GDAL, as XML").Also("GDALMetadata"),
    Text(42113, "GDAL_NODATA", "Value of pixels that hold nothing").Also("GDALNoData"),
    Double(50844, "RPCCoefficientTag", "Rational polynomial from the map to pixels")
        .Times(92)
        .Also("RPCCoefficient"),
};

inline constexpr ValueWord kModelTypes[] = {{0, "Undefined"},
                                            {1, "Projected"},
                                            {2, "Geographic"},
                                            {3, "Geocentric"},
                                            {32767, "User-defined"}};
inline constexpr ValueWord kRasterTypes[] = {
    {0, "Undefined"}, {1, "Pixel is area"}, {2, "Pixel is point"}, {32767, "User-defined"}};
inline constexpr ValueWord kGeographicTypes[] = {{0, "Undefined"}, {4258, "ETRS89"},
                                                 {4267, "NAD27"},  {4269, "NAD83"},
                                                 {4326, "WGS 84"}, {32767, "User-defined"}};
inline constexpr ValueWord kLinearUnits[] = {{0, "Undefined"},
                                             {9001, "Meter"},
                                             {9002, "Foot"},
                                             {9003, "US survey foot"},
                                             {9004, "Modified American foot"},
                                             {9005, "Clarke's foot"},
                                             {9006, "Indian foot"},
                                             {9007, "Link"},
                                             {9008, "Benoit's link"},
                                             {9009, "Sears' link"},
                                             {9010, "Benoit's chain"},
                                             {9011, "Sears' chain"},
                                             {9012, "Sears' yard"},
                                             {9013, "Indian yard"},
                                             {9014, "Fathom"},
                                             {9015, "Nautical mile"},
                                             {32767, "User-defined"}};
inline constexpr ValueWord kAngularUnits[] = {
    {0, "Undefined"},       {9101, "Radian"},     {9102, "Degree"},
    {9103, "Arc minute"},   {9104, "Arc second"}, {9105, "Grad"},
    {9106, "Gon"},          {9107, "DMS"},        {9108, "DMS with hemisphere"},
    {32767, "User-defined"}};
inline constexpr ValueWord kCoordinateTransformations[] = {
    {0, "Undefined"},
    {1, "Transverse Mercator"},
    {2, "Transverse Mercator modified for Alaska"},
    {3, "Oblique Mercator"},
    {4, "Oblique Mercator by Laborde"},
    {5, "Oblique Mercator by Rosenmund"},
    {6, "Oblique Mercator on a sphere"},
    {7, "Mercator"},
    {8, "Lambert conformal conic with two parallels"},
    {9, "Lambert conformal conic with one parallel"},
    {10, "Lambert azimuthal equal area"},
    {11, "Albers equal area"},
    {12, "Azimuthal equidistant"},
    {13, "Equidistant conic"},
    {14, "Stereographic"},
    {15, "Polar stereographic"},
    {16, "Oblique stereographic"},
    {17, "Equirectangular"},
    {18, "Cassini-Soldner"},
    {19, "Gnomonic"},
    {20, "Miller cylindrical"},
    {21, "Orthographic"},
    {22, "Polyconic"},
    {23, "Robinson"},
    {24, "Sinusoidal"},
    {25, "Van der Grinten"},
    {26, "New Zealand map grid"},
    {27, "Transverse Mercator oriented south"},
    {32767, "User-defined"}};

inline constexpr Row kGeoKeys[] = {
    Short(1024, "GTModelTypeGeoKey", "Kind of coordinates").Words(kModelTypes),
    Short(1025, "GTRasterTypeGeoKey", "Whether pixels are areas or points").Words(kRasterTypes),
    Text(1026, "GTCitationGeoKey", "Where the coordinates come from"),
    Short(2048, "GeographicTypeGeoKey", "Geographic coordinate system, by EPSG")
        .Words(kGeographicTypes)
        .Also("GeodeticCRSGeoKey"),
    Text(2049, "GeogCitationGeoKey", "Description of the geographic system")
        .Also("GeodeticCitationGeoKey"),
    Short(2050, "GeogGeodeticDatumGeoKey", "Geodetic datum, by EPSG").Also("GeodeticDatumGeoKey"),
    Short(2051, "GeogPrimeMeridianGeoKey", "Prime meridian, by EPSG").Also("PrimeMeridianGeoKey"),
    Short(2052, "GeogLinearUnitsGeoKey", "Unit of lengths").Words(kLinearUnits),
    Double(2053, "GeogLinearUnitSizeGeoKey", "Unit of lengths, in meters"),
    Short(2054, "GeogAngularUnitsGeoKey", "Unit of angles").Words(kAngularUnits),
    Double(2055, "GeogAngularUnitSizeGeoKey", "Unit of angles, in radians"),
    Short(2056, "GeogEllipsoidGeoKey", "Ellipsoid, by EPSG").Also("EllipsoidGeoKey"),
    Double(2057, "GeogSemiMajorAxisGeoKey", "Semi-major axis of the ellipsoid")
        .Also("EllipsoidSemiMajorAxisGeoKey"),
    Double(2058, "GeogSemiMinorAxisGeoKey", "Semi-minor axis of the ellipsoid")
        .Also("EllipsoidSemiMinorAxisGeoKey"),
    Double(2059, "GeogInvFlatteningGeoKey", "Inverse flattening of the ellipsoid")
        .Also("EllipsoidInvFlatteningGeoKey"),
    Short(2060, "GeogAzimuthUnitsGeoKey", "Unit of azimuths").Words(kAngularUnits),
    Double(2061, "GeogPrimeMeridianLongGeoKey", "Longitude of the prime meridian")
        .Also("PrimeMeridianLongitudeGeoKey"),
    Double(2062, "GeogTOWGS84GeoKey", "Parameters of the change to WGS 84").Times(3, 7),
    Short(3072, "ProjectedCSTypeGeoKey", "Projected coordinate system, by EPSG")
        .Also("ProjectedCRSGeoKey"),
    Text(3073, "PCSCitationGeoKey", "Description of the projected system")
        .Also("ProjectedCitationGeoKey"),
    Short(3074, "ProjectionGeoKey", "Projection, by EPSG"),
    Short(3075, "ProjCoordTransGeoKey", "Method of the projection")
        .Words(kCoordinateTransformations)
        .Also("ProjMethodGeoKey"),
    Short(3076, "ProjLinearUnitsGeoKey", "Unit of the projection").Words(kLinearUnits),
    Double(3077, "ProjLinearUnitSizeGeoKey", "Unit of the projection, in meters"),
    Double(3078, "ProjStdParallel1GeoKey", "First standard parallel").Also("ProjStdParallelGeoKey"),
    Double(3079, "ProjStdParallel2GeoKey", "Second standard parallel"),
    Double(3080, "ProjNatOriginLongGeoKey", "Longitude of the natural origin")
        .Also("ProjOriginLongGeoKey"),
    Double(3081, "ProjNatOriginLatGeoKey", "Latitude of the natural origin")
        .Also("ProjOriginLatGeoKey"),
    Double(3082, "ProjFalseEastingGeoKey", "Easting of the natural origin"),
    Double(3083, "ProjFalseNorthingGeoKey", "Northing of the natural origin"),
    Double(3084, "ProjFalseOriginLongGeoKey", "Longitude of the false origin"),
    Double(3085, "ProjFalseOriginLatGeoKey", "Latitude of the false origin"),
    Double(3086, "ProjFalseOriginEastingGeoKey", "Easting of the false origin"),
    Double(3087, "ProjFalseOriginNorthingGeoKey", "Northing of the false origin"),
    Double(3088, "ProjCenterLongGeoKey", "Longitude of the center"),
    Double(3089, "ProjCenterLatGeoKey", "Latitude of the center"),
    Double(3090, "ProjCenterEastingGeoKey", "Easting of the center"),
    Double(3091, "ProjCenterNorthingGeoKey", "Northing of the center"),
    Double(3092, "ProjScaleAtNatOriginGeoKey", "Scale at the natural origin")
        .Also("ProjScaleAtOriginGeoKey"),
    Double(3093, "ProjScaleAtCenterGeoKey", "Scale at the center"),
    Double(3094, "ProjAzimuthAngleGeoKey", "Azimuth of the central line"),
    Double(3095, "ProjStraightVertPoleLongGeoKey", "Longitude that runs straight up"),
    Double(3096, "ProjRectifiedGridAngleGeoKey", "Angle of the rectified grid"),
    Short(4096, "VerticalCSTypeGeoKey", "Vertical coordinate system, by EPSG")
        .Also("VerticalGeoKey"),
    Text(4097, "VerticalCitationGeoKey", "Description of the vertical system"),
    Short(4098, "VerticalDatumGeoKey", "Vertical datum, by EPSG"),
    Short(4099, "VerticalUnitsGeoKey", "Unit of heights").Words(kLinearUnits),
};

}  // namespace platen::tags
