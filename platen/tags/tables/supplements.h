#pragma once

#include <platen/tags/rows.h>

/// What supplements and technical notes to TIFF 6.0 add: sub-directories, clipping paths, JPEG
/// tables, images placed by OPI, fax (TIFF-F and TIFF-FX), and the blocks of other standards that
/// stand in a TIFF file: XMP, IPTC, ICC profiles, Photoshop's resources.
namespace platen::tags {

inline constexpr ValueWord kCleanFaxData[] = {{0, "Clean"}, {1, "Regenerated"}, {2, "Unclean"}};
inline constexpr ValueWord kIndexed[] = {{0, "Not indexed"}, {1, "Indexed"}};
inline constexpr ValueWord kOpiProxies[] = {{0, "No better image"}, {1, "Proxy of a better image"}};
inline constexpr ValueWord kProfileTypes[] = {{0, "Unspecified"}, {1, "Group 3 fax"}};
inline constexpr ValueWord kFaxProfiles[] = {
    {0, "None"},      {1, "Profile S"}, {2, "Profile F"},
    {3, "Profile J"}, {4, "Profile C"}, {5, "Profile L"},
    {6, "Profile M"}, {7, "Profile T"}, {255, "Several profiles"}};
inline constexpr ValueWord kCodingMethods[] = {{1, "Unspecified"},   {2, "Modified Huffman"},
                                               {4, "Modified Read"}, {8, "Modified Modified Read"},
                                               {16, "JBIG"},         {32, "Baseline JPEG"},
                                               {64, "JBIG color"}};

inline constexpr Row kSupplements[] = {
    ShortOrLong(326, "BadFaxLines", "Damaged lines in the fax"),
    Short(327, "CleanFaxData", "What became of damaged lines").Words(kCleanFaxData),
    ShortOrLong(328, "ConsecutiveBadFaxLines", "Longest run of damaged lines"),
    Directory(330, "SubIFDs", "Where directories beneath this one lie", TagDirectory::Image)
        .AnyNumber()
        .Also("SubIFD"),
    Byte(343, "ClipPath", "Path that the image is clipped to").AnyNumber(),
    Long(344, "XClipPathUnits", "Units of ClipPath across the image"),
    Long(345, "YClipPathUnits", "Units of ClipPath down the image"),
    Short(346, "Indexed", "Whether pixels are places in a color table").Words(kIndexed),
    Undefined(347, "JPEGTables", "JPEG tables that all strips or tiles share"),
    Short(351, "OPIProxy", "Whether a better image is to be placed").Words(kOpiProxies),
    Directory(400, "GlobalParametersIFD", "Where the fax parameters of the file lie",
              TagDirectory::Image),
    Long(401, "ProfileType", "Kind of the file's profile").Words(kProfileTypes),
    Byte(402, "FaxProfile", "Fax profile of the file").Words(kFaxProfiles),
    Long(403, "CodingMethods", "Codings that the file uses").Flags(kCodingMethods),
    Byte(404, "VersionYear", "Year of the profile's standard, in digits").Times(4),
    Byte(405, "ModeNumber", "Mode of the profile's standard"),
    SRational(433, "Decode", "Range of each sample, as in PostScript").AnyNumber(),
    Short(434, "DefaultImageColor", "Color where there is no image")
        .AnyNumber()
        .Also("ImageBaseColor"),
    Long(435, "T82Options", "How JBIG was used"),
    Long(559, "StripRowCounts", "Rows of each strip").AnyNumber(),
    ByteOrUndefined(700, "XMP", "XMP packet").AnyNumber().Characters().Also("XMLPacket"),
    Text(32781, "ImageID", "Name of the image that is to be placed"),
    UndefinedByteOrLong(33723, "IPTC", "IPTC records").Also("RichTIFFIPTC").Also("IPTCNAA"),
    ByteOrUndefined(34377, "Photoshop", "Photoshop image resources")
        .AnyNumber()
        .Also("ImageResources"),
    Directory(34665, "ExifIFD", "Where the Exif directory lies", TagDirectory::Exif)
        .Also("ExifTag"),
    Undefined(34675, "ICCProfile", "ICC color profile").Also("InterColorProfile"),
    ShortOrLong(34732, "ImageLayer", "Kind of layer, and its place among them").Times(2),
    Directory(34853, "GPSIFD", "Where the GPS directory lies", TagDirectory::Gps)
        .Also("GPSInfo")
        .Also("GPSTag"),
    Long(34908, "FaxRecvParams", "Parameters of the fax session"),
    Text(34909, "FaxSubAddress", "Subaddress of the fax"),
    Long(34910, "FaxRecvTime", "Seconds that receiving took"),
    Text(34911, "FaxDCS", "Digital command signal of the fax"),
    Undefined(37724, "ImageSourceData", "Photoshop layers and masks"),
};

}  // namespace platen::tags
