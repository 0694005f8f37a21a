#pragma once

#include <platen/tags/rows.h>

/// Exif 2.32: the directory behind ExifIFD, beside the tags in camera.h.
namespace platen::tags {

inline constexpr ValueWord kSensitivityTypes[] = {{0, "Unknown"},
                                                  {1, "SOS"},
                                                  {2, "REI"},
                                                  {3, "ISO speed"},
                                                  {4, "SOS and REI"},
                                                  {5, "SOS and ISO speed"},
                                                  {6, "REI and ISO speed"},
                                                  {7, "SOS and REI and ISO speed"}};
inline constexpr ValueWord kColorSpaces[] = {{1, "sRGB"}, {65535, "Uncalibrated"}};
inline constexpr ValueWord kFocalPlaneResolutionUnits[] = {{2, "Inch"}, {3, "Centimeter"}};
inline constexpr ValueWord kSensingMethods[] = {{1, "Not defined"},
                                                {2, "One-chip color area"},
                                                {3, "Two-chip color area"},
                                                {4, "Three-chip color area"},
                                                {5, "Color sequential area"},
                                                {7, "Trilinear"},
                                                {8, "Color sequential linear"}};
inline constexpr ValueWord kFileSources[] = {
    {0, "Other"}, {1, "Transparent scanner"}, {2, "Reflection scanner"}, {3, "Digital camera"}};
inline constexpr ValueWord kSceneTypes[] = {{1, "Directly photographed"}};
inline constexpr ValueWord kCustomRendered[] = {{0, "Normal process"}, {1, "Custom process"}};
inline constexpr ValueWord kExposureModes[] = {
    {0, "Auto exposure"}, {1, "Manual exposure"}, {2, "Auto bracket"}};
inline constexpr ValueWord kWhiteBalances[] = {{0, "Auto white balance"},
                                               {1, "Manual white balance"}};
inline constexpr ValueWord kSceneCaptureTypes[] = {
    {0, "Standard"}, {1, "Landscape"}, {2, "Portrait"}, {3, "Night scene"}};
inline constexpr ValueWord kGainControls[] = {{0, "None"},
                                              {1, "Low gain up"},
                                              {2, "High gain up"},
                                              {3, "Low gain down"},
                                              {4, "High gain down"}};
inline constexpr ValueWord kContrasts[] = {{0, "Normal"}, {1, "Soft"}, {2, "Hard"}};
inline constexpr ValueWord kSaturations[] = {
    {0, "Normal"}, {1, "Low saturation"}, {2, "High saturation"}};
inline constexpr ValueWord kSubjectDistanceRanges[] = {
    {0, "Unknown"}, {1, "Macro"}, {2, "Close view"}, {3, "Distant view"}};
inline constexpr ValueWord kCompositeImages[] = {{0, "Unknown"},
                                                 {1, "Not a composite image"},
                                                 {2, "Composite image"},
                                                 {3, "Composite image captured when shooting"}};

inline constexpr Row kExif[] = {
    Short(34855, "PhotographicSensitivity", "Sensitivity, as SensitivityType says")
        .AnyNumber()
        .Also("ISOSpeedRatings"),
    Short(34864, "SensitivityType", "What PhotographicSensitivity is").Words(kSensitivityTypes),
    Long(34865, "StandardOutputSensitivity", "Standard output sensitivity (SOS)"),
    Long(34866, "RecommendedExposureIndex", "Recommended exposure index (REI)"),
    Long(34867, "ISOSpeed", "ISO speed"),
    Long(34868, "ISOSpeedLatitudeyyy", "ISO speed latitude yyy"),
    Long(34869, "ISOSpeedLatitudezzz", "ISO speed latitude zzz"),
    Undefined(36864, "ExifVersion", "Version of Exif, such as 0232").Times(4).Characters(),
    Text(36868, "DateTimeDigitized", "When the picture was digitized").Times(20),
    Text(36880, "OffsetTime", "DateTime's distance from UTC, such as +01:00").Times(7),
    Text(36881, "OffsetTimeOriginal", "DateTimeOriginal's distance from UTC").Times(7),
    Text(36882, "OffsetTimeDigitized", "DateTimeDigitized's distance from UTC").Times(7),
    Undefined(37121, "ComponentsConfiguration", "What each component is").Times(4),
    Rational(37382, "SubjectDistance", "Distance of the subject, in meters"),
    Rational(37386, "FocalLength", "Focal length, in millimeters"),
    Short(37396, "SubjectArea", "Where the subject is, in pixels").Times(2, 4),
    Undefined(37500, "MakerNote", "What the maker noted, in a form of its own"),
    Undefined(37510, "UserComment", "The user's words, behind 8 bytes that name their code")
        .Times(8, kAnyCount),
    Text(37520, "SubSecTime", "Fractions of a second of DateTime"),
    Text(37521, "SubSecTimeOriginal", "Fractions of a second of DateTimeOriginal"),
    Text(37522, "SubSecTimeDigitized", "Fractions of a second of DateTimeDigitized"),
    SRational(37888, "Temperature", "Temperature around, in degrees Celsius"),
    Rational(37889, "Humidity", "Humidity around, in percent"),
    Rational(37890, "Pressure", "Pressure around, in hPa"),
    SRational(37891, "WaterDepth", "Depth below water, in meters"),
    Rational(37892, "Acceleration", "Acceleration of the camera, in mGal"),
    SRational(37893, "CameraElevationAngle",
              "Angle of the optical axis to the horizon, in degrees"),
    Undefined(40960, "FlashpixVersion", "Version of Flashpix").Times(4).Characters(),
    Short(40961, "ColorSpace", "Color space of the image").Words(kColorSpaces),
    ShortOrLong(40962, "PixelXDimension", "Pixels in a row that mean something"),
    ShortOrLong(40963, "PixelYDimension", "Rows that mean something"),
    Text(40964, "RelatedSoundFile", "Name of the sound file to the picture").Times(13),
    Directory(40965, "InteroperabilityIFD", "Where the interoperability directory lies",
              TagDirectory::Interoperability)
        .Also("InteroperabilityTag"),
    Rational(41483, "FlashEnergy", "Energy of the flash, in BCPS"),
    Undefined(41484, "SpatialFrequencyResponse", "Spatial frequency response"),
    Rational(41486, "FocalPlaneXResolution", "Pixels per unit along a row, on the sensor"),
    Rational(41487, "FocalPlaneYResolution", "Pixels per unit along a column, on the sensor"),
    Short(41488, "FocalPlaneResolutionUnit", "Unit of the resolution on the sensor")
        .Words(kFocalPlaneResolutionUnits),
    Short(41492, "SubjectLocation", "Where the subject is, in pixels").Times(2),
    Rational(41493, "ExposureIndex", "Exposure index that was set"),
    Short(41495, "SensingMethod", "Kind of sensor").Words(kSensingMethods),
    Undefined(41728, "FileSource", "What took the picture").Times(1).Words(kFileSources),
    Undefined(41729, "SceneType", "How the picture came about").Times(1).Words(kSceneTypes),
    Undefined(41730, "CFAPattern", "Colors of the sensor's filters"),
    Short(41985, "CustomRendered", "Whether the picture was treated specially")
        .Words(kCustomRendered),
    Short(41986, "ExposureMode", "How the exposure was set").Words(kExposureModes),
    Short(41987, "WhiteBalance", "How the white balance was set").Words(kWhiteBalances),
    Rational(41988, "DigitalZoomRatio", "Digital zoom, 0 for none"),
    Short(41989, "FocalLengthIn35mmFilm", "Focal length for 35 mm film, in millimeters"),
    Short(41990, "SceneCaptureType", "Kind of scene").Words(kSceneCaptureTypes),
    ShortOrRational(41991, "GainControl", "How brightness was raised or lowered")
        .Words(kGainControls),
    Short(41992, "Contrast", "Contrast that was set").Words(kContrasts),
    Short(41993, "Saturation", "Saturation that was set").Words(kSaturations),
    Short(41994, "Sharpness", "Sharpness that was set").Words(kContrasts),
    Undefined(41995, "DeviceSettingDescription", "Settings of the camera"),
    Short(41996, "SubjectDistanceRange", "How far the subject was").Words(kSubjectDistanceRanges),
    Text(42016, "ImageUniqueID", "Identifier of the image, 32 hexadecimal digits").Times(33),
    Text(42032, "CameraOwnerName", "Owner of the camera"),
    Text(42033, "BodySerialNumber", "Serial number of the camera"),
    Rational(42034, "LensSpecification", "Focal lengths and F numbers of the lens").Times(4),
    Text(42035, "LensMake", "Maker of the lens"),
    Text(42036, "LensModel", "Model of the lens"),
    Text(42037, "LensSerialNumber", "Serial number of the lens"),
    Short(42080, "CompositeImage", "Whether several images were put together")
        .Words(kCompositeImages),
    Short(42081, "SourceImageNumberOfCompositeImage", "Images taken and used for a composite")
        .Times(2),
    Undefined(42082, "SourceExposureTimesOfCompositeImage",
              "Exposure times of a composite's images"),
    Rational(42240, "Gamma", "Gamma of the image"),
};

}  // namespace platen::tags
