#pragma once

#include <platen/tags/rows.h>
#include <platen/tags/tables/camera.h>

/// DNG 1.7: raw images of cameras.
namespace platen::tags {

inline constexpr ValueWord kCfaLayouts[] = {{1, "Rectangular"},
                                            {2, "Even columns down by half a row"},
                                            {3, "Even columns up by half a row"},
                                            {4, "Even rows right by half a column"},
                                            {5, "Even rows left by half a column"},
                                            {6, "Even rows up and even columns left by half"},
                                            {7, "Even rows up and even columns right by half"},
                                            {8, "Even rows down and even columns left by half"},
                                            {9, "Even rows down and even columns right by half"}};
inline constexpr ValueWord kMakerNoteSafeties[] = {{0, "May not be kept"}, {1, "May be kept"}};
inline constexpr ValueWord kColorimetricReferences[] = {{0, "Scene-referred"},
                                                        {1, "Output-referred"}};
inline constexpr ValueWord kProfileEmbedPolicies[] = {
    {0, "Allow copying"}, {1, "Embed if used"}, {2, "Embed never"}, {3, "No restrictions"}};
inline constexpr ValueWord kPreviewColorSpaces[] = {
    {0, "Unknown"}, {1, "Gray gamma 2.2"}, {2, "sRGB"}, {3, "Adobe RGB"}, {4, "ProPhoto RGB"}};
inline constexpr ValueWord kMapEncodings[] = {{0, "Linear"}, {1, "sRGB"}};
inline constexpr ValueWord kBlackRenders[] = {{0, "Auto"}, {1, "None"}};
inline constexpr ValueWord kDepthFormats[] = {{0, "Unknown"}, {1, "Linear"}, {2, "Inverse"}};
inline constexpr ValueWord kDepthUnits[] = {{0, "Unknown"}, {1, "Meters"}};
inline constexpr ValueWord kDepthMeasureTypes[] = {
    {0, "Unknown"}, {1, "Optical axis"}, {2, "Optical ray"}};

inline constexpr Row kDng[] = {
    Byte(50706, "DNGVersion", "Version of DNG").Times(4),
    Byte(50707, "DNGBackwardVersion", "Oldest version that a reader must know").Times(4),
    Text(50708, "UniqueCameraModel", "Model of the camera, the same everywhere"),
    TextOrByte(50709, "LocalizedCameraModel", "Model of the camera, as it is sold").Characters(),
    Byte(50710, "CFAPlaneColor", "Color of each plane of the filters").AnyNumber(),
    Short(50711, "CFALayout", "How the filters lie").Words(kCfaLayouts),
    Short(50712, "LinearizationTable", "Linear value of each stored one").AnyNumber(),
    Short(50713, "BlackLevelRepeatDim", "Rows and columns of BlackLevel").Times(2),
    ShortLongOrRational(50714, "BlackLevel", "Samples for black").AnyNumber(),
    SRational(50715, "BlackLevelDeltaH", "Change of black from column to column").AnyNumber(),
    SRational(50716, "BlackLevelDeltaV", "Change of black from row to row").AnyNumber(),
    ShortOrLong(50717, "WhiteLevel", "Samples for white").AnyNumber(),
    Rational(50718, "DefaultScale", "Scale of columns and rows for square pixels").Times(2),
    ShortLongOrRational(50719, "DefaultCropOrigin", "Column and row where the final image starts")
        .Times(2),
    ShortLongOrRational(50720, "DefaultCropSize", "Columns and rows of the final image").Times(2),
    SRational(50721, "ColorMatrix1", "From XYZ to the camera's colors, illuminant 1").AnyNumber(),
    SRational(50722, "ColorMatrix2", "From XYZ to the camera's colors, illuminant 2").AnyNumber(),
    SRational(50723, "CameraCalibration1", "From the model's to this camera's colors, illuminant 1")
        .AnyNumber(),
    SRational(50724, "CameraCalibration2", "From the model's to this camera's colors, illuminant 2")
        .AnyNumber(),
    SRational(50725, "ReductionMatrix1", "From more than three colors to three, illuminant 1")
        .AnyNumber(),
    SRational(50726, "ReductionMatrix2", "From more than three colors to three, illuminant 2")
        .AnyNumber(),
    Rational(50727, "AnalogBalance", "Gain of each color before digitizing").AnyNumber(),
    ShortOrRational(50728, "AsShotNeutral", "White balance, as the camera's colors of gray")
        .AnyNumber(),
    Rational(50729, "AsShotWhiteXY", "White balance, as a chromaticity").Times(2),
    SRational(50730, "BaselineExposure", "Exposure to start from, in stops"),
    Rational(50731, "BaselineNoise", "Noise at ISO 100, beside a reference"),
    Rational(50732, "BaselineSharpness", "Sharpening that is needed, beside a reference"),
    Long(50733, "BayerGreenSplit", "How far the two greens part"),
    Rational(50734, "LinearResponseLimit", "Share of the range that is linear"),
    Text(50735, "CameraSerialNumber", "Serial number of the camera"),
    Rational(50736, "LensInfo", "Focal lengths and F numbers of the lens").Times(4),
    Rational(50737, "ChromaBlurRadius", "Radius to blur chroma with, in pixels"),
    Rational(50738, "AntiAliasStrength", "Strength of the anti-alias filter"),
    Rational(50739, "ShadowScale", "Strength of the slider for shadows"),
    Byte(50740, "DNGPrivateData", "The maker's own data").AnyNumber(),
    Short(50741, "MakerNoteSafety", "Whether MakerNote may be kept when the file changes")
        .Words(kMakerNoteSafeties),
    Short(50778, "CalibrationIlluminant1", "Light of the first calibration").Words(kLightSources),
    Short(50779, "CalibrationIlluminant2", "Light of the second calibration").Words(kLightSources),
    Rational(50780, "BestQualityScale", "Scale of the best final size"),
    Byte(50781, "RawDataUniqueID", "Identifier of the raw data").Times(16),
    TextOrByte(50827, "OriginalRawFileName", "Name of the raw file that was converted")
        .Characters(),
    Undefined(50828, "OriginalRawFileData", "The raw file that was converted"),
    ShortOrLong(50829, "ActiveArea", "Part that sees light: top, left, bottom, right").Times(4),
    ShortOrLong(50830, "MaskedAreas", "Parts that see none, each as ActiveArea")
        .Times(4, kAnyCount),
    Undefined(50831, "AsShotICCProfile", "ICC profile of the picture as taken"),
    SRational(50832, "AsShotPreProfileMatrix", "Matrix before AsShotICCProfile").AnyNumber(),
    Undefined(50833, "CurrentICCProfile", "ICC profile of the picture now"),
    SRational(50834, "CurrentPreProfileMatrix", "Matrix before CurrentICCProfile").AnyNumber(),
    Short(50879, "ColorimetricReference", "What the colors refer to")
        .Words(kColorimetricReferences),
    TextOrByte(50931, "CameraCalibrationSignature", "Which profiles CameraCalibration goes with")
        .Characters(),
    TextOrByte(50932, "ProfileCalibrationSignature",
               "Which cameras' calibration goes with the profile")
        .Characters(),
    Offset(50933, "ExtraCameraProfiles", "Where further profiles lie").AnyNumber(),
    TextOrByte(50934, "AsShotProfileName", "Profile of the picture as taken").Characters(),
    Rational(50935, "NoiseReductionApplied", "Noise reduction that was done, 0 to 1"),
    TextOrByte(50936, "ProfileName", "Name of the profile").Characters(),
    Long(50937, "ProfileHueSatMapDims", "Hues, saturations and values of the map").Times(3),
    Float(50938, "ProfileHueSatMapData1", "Map of hue and saturation, illuminant 1").AnyNumber(),
    Float(50939, "ProfileHueSatMapData2", "Map of hue and saturation, illuminant 2").AnyNumber(),
    Float(50940, "ProfileToneCurve", "Tone curve, as points").Times(4, kAnyCount),
    Long(50941, "ProfileEmbedPolicy", "What may be done with the profile")
        .Words(kProfileEmbedPolicies),
    TextOrByte(50942, "ProfileCopyright", "Who holds the rights in the profile").Characters(),
    SRational(50964, "ForwardMatrix1", "From balanced colors to XYZ, illuminant 1").AnyNumber(),
    SRational(50965, "ForwardMatrix2", "From balanced colors to XYZ, illuminant 2").AnyNumber(),
    TextOrByte(50966, "PreviewApplicationName", "Program that made the preview").Characters(),
    TextOrByte(50967, "PreviewApplicationVersion", "Version of that program").Characters(),
    TextOrByte(50968, "PreviewSettingsName", "Settings that made the preview").Characters(),
    Byte(50969, "PreviewSettingsDigest", "Identifier of those settings").Times(16),
    Long(50970, "PreviewColorSpace", "Color space of the preview").Words(kPreviewColorSpaces),
    Text(50971, "PreviewDateTime", "When the preview was made, by ISO 8601"),
    Byte(50972, "RawImageDigest", "MD5 of the raw image").Times(16),
    Byte(50973, "OriginalRawFileDigest", "MD5 of OriginalRawFileData").Times(16),
    ShortOrLong(50974, "SubTileBlockSize", "Rows and columns of blocks in a tile").Times(2),
    ShortOrLong(50975, "RowInterleaveFactor", "Fields that the rows are parted into"),
    Long(50981, "ProfileLookTableDims", "Hues, saturations and values of the look table").Times(3),
    Float(50982, "ProfileLookTableData", "Look table of the profile").AnyNumber(),
    Undefined(51008, "OpcodeList1", "What to do with the raw image as stored"),
    Undefined(51009, "OpcodeList2", "What to do after linearization"),
    Undefined(51022, "OpcodeList3", "What to do after demosaicing"),
    Double(51041, "NoiseProfile", "Noise of each plane, as two numbers").Times(2, kAnyCount),
    Byte(51043, "TimeCodes", "SMPTE time codes, 8 bytes each").Times(8, kAnyCount),
    SRational(51044, "FrameRate", "Frames per second"),
    Rational(51058, "TStop", "T-stop of the lens").Times(1, 2),
    TextOrByte(51081, "ReelName", "Name of the reel").Characters(),
    ShortOrLong(51089, "OriginalDefaultFinalSize", "Final size of the original").Times(2),
    ShortOrLong(51090, "OriginalBestQualityFinalSize", "Best final size of the original").Times(2),
    ShortLongOrRational(51091, "OriginalDefaultCropSize", "DefaultCropSize of the original")
        .Times(2),
    TextOrByte(51105, "CameraLabel", "Name of the camera in the production").Characters(),
    Long(51107, "ProfileHueSatMapEncoding", "Encoding of the map's values").Words(kMapEncodings),
    Long(51108, "ProfileLookTableEncoding", "Encoding of the look table's values")
        .Words(kMapEncodings),
    SRational(51109, "BaselineExposureOffset", "Stops that the profile adds to BaselineExposure"),
    Long(51110, "DefaultBlackRender", "How black is rendered at first").Words(kBlackRenders),
    Byte(51111, "NewRawImageDigest", "MD5 of the raw image, quicker to find").Times(16),
    Double(51112, "RawToPreviewGain", "Gain from the raw image to the preview"),
    Rational(51125, "DefaultUserCrop", "Part shown at first: top, left, bottom, right").Times(4),
    Short(51177, "DepthFormat", "How depth is encoded").Words(kDepthFormats),
    Rational(51178, "DepthNear", "Distance of the smallest depth"),
    Rational(51179, "DepthFar", "Distance of the largest depth"),
    Short(51180, "DepthUnits", "Unit of these distances").Words(kDepthUnits),
    Short(51181, "DepthMeasureType", "Along what depth is measured").Words(kDepthMeasureTypes),
    TextOrByte(51182, "EnhanceParams", "How the image was enhanced").Characters(),
    Undefined(52525, "ProfileGainTableMap", "Gains across the image"),
    Text(52526, "SemanticName", "What the mask shows"),
    Text(52528, "SemanticInstanceID", "Which of several such the mask shows"),
    Short(52529, "CalibrationIlluminant3", "Light of the third calibration").Words(kLightSources),
    SRational(52530, "CameraCalibration3", "From the model's to this camera's colors, illuminant 3")
        .AnyNumber(),
    SRational(52531, "ColorMatrix3", "From XYZ to the camera's colors, illuminant 3").AnyNumber(),
    SRational(52532, "ForwardMatrix3", "From balanced colors to XYZ, illuminant 3").AnyNumber(),
    Undefined(52533, "IlluminantData1", "Spectrum of the first light"),
    Undefined(52534, "IlluminantData2", "Spectrum of the second light"),
    Undefined(52535, "IlluminantData3", "Spectrum of the third light"),
    Long(52536, "MaskSubArea", "Place of the mask, and size of the whole").Times(4),
    Float(52537, "ProfileHueSatMapData3", "Map of hue and saturation, illuminant 3").AnyNumber(),
    SRational(52538, "ReductionMatrix3", "From more than three colors to three, illuminant 3")
        .AnyNumber(),
    Undefined(52543, "RGBTables", "Color tables for masked parts"),
    Undefined(52544, "ProfileGainTableMap2", "Gains across the image, in its second form"),
    ShortOrLong(52547, "ColumnInterleaveFactor", "Fields that the columns are parted into"),
    Undefined(52548, "ImageSequenceInfo", "Place of the image in a sequence"),
    Undefined(52550, "ImageStats", "Statistics of the image"),
    Undefined(52551, "ProfileDynamicRange", "Dynamic range that the profile is for"),
    TextOrByte(52552, "ProfileGroupName", "Name of the profile's group").Characters(),
    Float(52553, "JXLDistance", "Distance that JPEG XL was given"),
    Long(52554, "JXLEffort", "Effort that JPEG XL was given"),
    Long(52555, "JXLDecodeSpeed", "Speed of decoding that JPEG XL was given"),
};

}  // namespace platen::tags
