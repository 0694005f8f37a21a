#pragma once

#include <platen/tags/rows.h>

/// Private tags that files of the field carry: the XK flavour (33445 to 33452), and those of other
/// programs and instruments.
namespace platen::tags {

inline constexpr ValueWord kFileTags[] = {{0, "Glowscan Log"},
                                          {1, "Glowscan Linear"},
                                          {2, "Glowscan Square Root"},
                                          {128, "Densitometer"}};
inline constexpr ValueWord kMattings[] = {{0, "No alpha"}, {1, "Last sample is alpha"}};
inline constexpr ValueWord kDataTypes[] = {
    {0, "Untyped"}, {1, "Signed integer"}, {2, "Unsigned integer"}, {3, "Floating point"}};

inline constexpr Row kPrivateTags[] = {
    Text(11, "ProcessingSoftware", "Program that changed the file"),
    Short(18246, "Rating", "Stars that the picture was given"),
    Short(18249, "RatingPercent", "Stars that the picture was given, in percent"),
    Byte(32932, "WangAnnotation", "Annotations by Wang's imaging software").AnyNumber(),
    Short(32995, "Matteing", "Whether there is an alpha sample, before ExtraSamples")
        .Words(kMattings),
    Short(32996, "DataType", "How samples are to be read, before SampleFormat")
        .AnyNumber()
        .Words(kDataTypes),
    ShortOrLong(32997, "ImageDepth", "Slices of a volume"),
    ShortOrLong(32998, "TileDepth", "Slices of a tile"),
    ShortOrLong(33300, "ImageFullWidth", "Pixels in a row of the whole that this was cropped from"),
    ShortOrLong(33301, "ImageFullLength", "Rows of the whole that this was cropped from"),
    Text(33302, "TextureFormat", "Kind of texture"),
    Text(33303, "TextureWrapModes", "How the texture goes on past its edges"),
    Float(33304, "FieldOfViewCotangent", "Cotangent of the field of view"),
    Float(33305, "MatrixWorldToScreen", "From the scene to the screen").Times(16),
    Float(33306, "MatrixWorldToCamera", "From the scene to the camera").Times(16),
    Text(33405, "WriterSerialNumber", "Serial number of the writing device"),
    Long(33445, "FileTag", "Kind of the XK file").Words(kFileTags),
    Rational(33446, "ScalePixel", "Scale of the pixel values"),
    Short(33447, "ColorTable", "Colors for the pixel values").AnyNumber(),
    Text(33448, "LabName", "Laboratory"),
    Text(33449, "SampleInfo", "What the sample is"),
    Text(33450, "PrepDate", "Date of the preparation"),
    Text(33451, "PrepTime", "Time of the preparation"),
    Text(33452, "FileUnits", "Unit of the pixel values"),
    LongOrRational(33628, "UIC1Tag", "Settings of each plane of a stack").AnyNumber(),
    Rational(33629, "UIC2Tag", "Position and times of each plane of a stack").AnyNumber(),
    Rational(33630, "UIC3Tag", "Wavelength of each plane of a stack").AnyNumber(),
    Long(33631, "UIC4Tag", "Further settings of a stack").AnyNumber(),
    Text(34118, "CZ_SEM", "Settings of an electron microscope"),
    Byte(34412, "CZ_LSMINFO", "Settings of a laser scanning microscope").AnyNumber(),
    Text(34680, "FEI_SFEG", "Settings of an electron microscope"),
    Text(34682, "FEI_HELIOS", "Settings of an electron microscope"),
    Long(34750, "JBIGOptions", "How JBIG was used"),
    Double(37439, "StoNits", "Candelas per square meter for a sample of 1"),
    Byte(40091, "XPTitle", "Title, as UTF-16").AnyNumber(),
    Byte(40092, "XPComment", "Comment, as UTF-16").AnyNumber(),
    Byte(40093, "XPAuthor", "Author, as UTF-16").AnyNumber(),
    Byte(40094, "XPKeywords", "Keywords, as UTF-16").AnyNumber(),
    Byte(40095, "XPSubject", "Subject, as UTF-16").AnyNumber(),
    Text(50215, "OceScanjobDescription", "What was scanned"),
    Text(50216, "OceApplicationSelector", "Program that scanned"),
    Text(50217, "OceIdentificationNumber", "Number of the scan job"),
    Text(50218, "OceImageLogicCharacteristics", "How the scan was treated"),
    Undefined(50341, "PrintImageMatching", "Hints for printing"),
    Long(50674, "LercParameters", "Version and further compression of LERC").AnyNumber(),
    Text(50784, "AliasLayerMetadata", "Layers of a sketch"),
    Long(50838, "IJMetadataByteCounts", "Bytes of each part of IJMetadata").AnyNumber(),
    Byte(50839, "IJMetadata", "Labels, overlays and more of an ImageJ stack").AnyNumber(),
    Text(51023, "FibicsXML", "Settings of an electron microscope, as XML"),
    Text(51123, "MicroManagerMetadata", "Settings of a microscope, as JSON"),
    Undefined(59932, "Padding", "Room to grow into"),
    SLong(59933, "OffsetSchema", "How far MakerNote was moved"),
    Long(65420, "NDPIFormatFlag", "Whether this is an NDPI slide"),
    Float(65421, "NDPISourceLens", "Magnification of the lens, -1 for a macro image, -2 for a map"),
    SLong(65422, "NDPIXOffset", "Offset from the slide's center across, in nm"),
    SLong(65423, "NDPIYOffset", "Offset from the slide's center down, in nm"),
    SLong(65424, "NDPIFocalPlane", "Offset of the focal plane, in nm"),
    Offset(65426, "NDPIMcuStarts", "Where restart intervals of the JPEG stream start").AnyNumber(),
    Text(65427, "NDPIReference", "Reference of the slide"),
    Text(65449, "NDPIPropertyMap", "Properties of the scan, a line each"),
};

}  // namespace platen::tags
