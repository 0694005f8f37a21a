#pragma once

#include <platen/tags/rows.h>

/// TIFF 6.0, with ColorResponseUnit of TIFF 5.0.
namespace platen::tags {

inline constexpr ValueWord kSubfileFlags[] = {{0, "Full resolution image"},
                                              {1, "Reduced resolution image"},
                                              {2, "Single page of a multi-page image"},
                                              {4, "Transparency mask"},
                                              {8, "Depth map"},
                                              {16, "Enhanced image data"},
                                              {65536, "Alternate image"}};
inline constexpr ValueWord kSubfileTypes[] = {{1, "Full resolution image"},
                                              {2, "Reduced resolution image"},
                                              {3, "Single page of a multi-page image"}};
inline constexpr ValueWord kCompressions[] = {{1, "Uncompressed"},
                                              {2, "CCITT modified Huffman"},
                                              {3, "CCITT Group 3"},
                                              {4, "CCITT Group 4"},
                                              {5, "LZW"},
                                              {6, "Old-style JPEG"},
                                              {7, "JPEG"},
                                              {8, "Deflate"},
                                              {9, "JBIG black and white"},
                                              {10, "JBIG color"},
                                              {32766, "NeXT RLE"},
                                              {32771, "CCITT RLE in words"},
                                              {32773, "PackBits"},
                                              {32809, "ThunderScan"},
                                              {32895, "IT8 CT"},
                                              {32896, "IT8 LW"},
                                              {32897, "IT8 MP"},
                                              {32898, "IT8 BL"},
                                              {32908, "Pixar film"},
                                              {32909, "Pixar log"},
                                              {32946, "Old-style Deflate"},
                                              {32947, "Kodak DCS"},
                                              {33003, "JPEG 2000 YCbCr"},
                                              {33005, "JPEG 2000 RGB"},
                                              {34661, "JBIG"},
                                              {34676, "SGI LogL or LogLuv"},
                                              {34677, "SGI 24-bit LogLuv"},
                                              {34712, "JPEG 2000"},
                                              {34713, "Nikon NEF"},
                                              {34715, "JBIG2"},
                                              {34887, "LERC"},
                                              {34892, "Lossy JPEG"},
                                              {34925, "LZMA"},
                                              {50000, "Zstandard"},
                                              {50001, "WebP"},
                                              {50002, "JPEG XL (50002)"},
                                              {52546, "JPEG XL"}};
inline constexpr ValueWord kPhotometrics[] = {{0, "White is zero"},
                                              {1, "Black is zero"},
                                              {2, "RGB"},
                                              {3, "Palette color"},
                                              {4, "Transparency mask"},
                                              {5, "Separated"},
                                              {6, "YCbCr"},
                                              {8, "CIE L*a*b*"},
                                              {9, "ICC L*a*b*"},
                                              {10, "ITU L*a*b*"},
                                              {32803, "Color filter array"},
                                              {32844, "CIE LogL"},
                                              {32845, "CIE LogLuv"},
                                              {34892, "Linear raw"},
                                              {51177, "Depth map"},
                                              {52527, "Semantic mask"}};
inline constexpr ValueWord kThreshholdings[] = {
    {1, "None"}, {2, "Ordered dither"}, {3, "Randomized dither"}};
inline constexpr ValueWord kFillOrders[] = {{1, "Most significant bit first"},
                                            {2, "Least significant bit first"}};
inline constexpr ValueWord kOrientations[] = {
    {1, "Top left"}, {2, "Top right"}, {3, "Bottom right"}, {4, "Bottom left"},
    {5, "Left top"}, {6, "Right top"}, {7, "Right bottom"}, {8, "Left bottom"}};
inline constexpr ValueWord kPlanarConfigurations[] = {{1, "Chunky"}, {2, "Planar"}};
inline constexpr ValueWord kResponseUnits[] = {{1, "Tenths"},
                                               {2, "Hundredths"},
                                               {3, "Thousandths"},
                                               {4, "Ten-thousandths"},
                                               {5, "Hundred-thousandths"}};
inline constexpr ValueWord kT4Flags[] = {{0, "One-dimensional coding"},
                                         {1, "Two-dimensional coding"},
                                         {2, "Uncompressed mode"},
                                         {4, "Fill bits before EOL"}};
inline constexpr ValueWord kT6Flags[] = {{2, "Uncompressed mode"}};
inline constexpr ValueWord kResolutionUnits[] = {
    {1, "No absolute unit"}, {2, "Inch"}, {3, "Centimeter"}};
inline constexpr ValueWord kPredictors[] = {{1, "None"},
                                            {2, "Horizontal differencing"},
                                            {3, "Floating point"},
                                            {34892, "Horizontal differencing X2"},
                                            {34893, "Horizontal differencing X4"},
                                            {34894, "Floating point X2"},
                                            {34895, "Floating point X4"}};
inline constexpr ValueWord kInkSets[] = {{1, "CMYK"}, {2, "Other inks"}};
inline constexpr ValueWord kExtraSamples[] = {
    {0, "Unspecified"}, {1, "Associated alpha"}, {2, "Unassociated alpha"}};
inline constexpr ValueWord kSampleFormats[] = {
    {1, "Unsigned integer"}, {2, "Signed integer"},  {3, "Floating point"},
    {4, "Undefined"},        {5, "Complex integer"}, {6, "Complex floating point"}};
inline constexpr ValueWord kJpegProcesses[] = {{1, "Baseline sequential"},
                                               {14, "Lossless with Huffman coding"}};
inline constexpr ValueWord kYCbCrPositionings[] = {{1, "Centered"}, {2, "Cosited"}};

inline constexpr Row kTiff6[] = {
    Long(254, "NewSubfileType", "What this image is to the others").Flags(kSubfileFlags),
    Short(255, "SubfileType", "What this image is to the others").Words(kSubfileTypes),
    ShortOrLong(256, "ImageWidth", "Pixels in a row"),
    ShortOrLong(257, "ImageLength", "Rows of the image"),
    Short(258, "BitsPerSample", "Bits of each sample of a pixel").AnyNumber(),
    Short(259, "Compression", "How the image data is compressed").Words(kCompressions),
    Short(262, "PhotometricInterpretation", "What color samples stand for").Words(kPhotometrics),
    Short(263, "Threshholding", "How gray became black and white")
        .Words(kThreshholdings)
        .Also("Thresholding"),
    Short(264, "CellWidth", "Width of the dither matrix"),
    Short(265, "CellLength", "Height of the dither matrix"),
    Short(266, "FillOrder", "Which bit of a byte is the first pixel").Words(kFillOrders),
    Text(269, "DocumentName", "Document that the image was scanned from"),
    Text(270, "ImageDescription", "What the image shows"),
    Text(271, "Make", "Maker of the scanner or camera"),
    Text(272, "Model", "Model of the scanner or camera"),
    Size(273, "StripOffsets", "Where each strip lies in the file").AnyNumber(),
    Short(274, "Orientation", "Where the first row and column are seen").Words(kOrientations),
    Short(277, "SamplesPerPixel", "Samples of a pixel"),
    ShortOrLong(278, "RowsPerStrip", "Rows of each strip but the last"),
    Size(279, "StripByteCounts", "Bytes of each strip, as stored").AnyNumber(),
    Short(280, "MinSampleValue", "Smallest sample in use").AnyNumber(),
    Short(281, "MaxSampleValue", "Largest sample in use").AnyNumber(),
    Rational(282, "XResolution", "Pixels per unit along a row"),
    Rational(283, "YResolution", "Pixels per unit along a column"),
    Short(284, "PlanarConfiguration", "How the samples of a pixel lie")
        .Words(kPlanarConfigurations),
    Text(285, "PageName", "Page that the image was scanned from"),
    Rational(286, "XPosition", "Distance from the left edge of the page, in units"),
    Rational(287, "YPosition", "Distance from the top edge of the page, in units"),
    Offset(288, "FreeOffsets", "Where unused bytes of the file start").AnyNumber(),
    Offset(289, "FreeByteCounts", "How many unused bytes there are").AnyNumber(),
    Short(290, "GrayResponseUnit", "Unit of GrayResponseCurve").Words(kResponseUnits),
    Short(291, "GrayResponseCurve", "Optical density of each gray value").AnyNumber(),
    Long(292, "T4Options", "How CCITT Group 3 was used").Flags(kT4Flags).Also("Group3Options"),
    Long(293, "T6Options", "How CCITT Group 4 was used").Flags(kT6Flags).Also("Group4Options"),
    Short(296, "ResolutionUnit", "Unit of resolutions and positions").Words(kResolutionUnits),
    Short(297, "PageNumber", "Page, counted from 0, and pages in all").Times(2),
    Short(300, "ColorResponseUnit", "Unit of color response curves").Words(kResponseUnits),
    Short(301, "TransferFunction", "Response curve of each sample")
        .AnyNumber()
        .Also("ColorResponseCurve")
        .Also("ColorResponseCurves"),
    Text(305, "Software", "Program that made the file"),
    Text(306, "DateTime", "When the image was made, as YYYY:MM:DD HH:MM:SS").Times(20),
    Text(315, "Artist", "Who made the image"),
    Text(316, "HostComputer", "Computer on which the image was made"),
    Short(317, "Predictor", "What was done before compressing").Words(kPredictors),
    Rational(318, "WhitePoint", "Chromaticity of white").Times(2),
    Rational(319, "PrimaryChromaticities", "Chromaticities of red, green and blue").Times(6),
    Short(320, "ColorMap", "Red, green and blue of each palette entry").AnyNumber(),
    Short(321, "HalftoneHints", "Lightest and darkest gray that keep detail").Times(2),
    ShortOrLong(322, "TileWidth", "Pixels in a row of a tile"),
    ShortOrLong(323, "TileLength", "Rows of a tile"),
    Offset(324, "TileOffsets", "Where each tile lies in the file").AnyNumber(),
    Size(325, "TileByteCounts", "Bytes of each tile, as stored").AnyNumber(),
    Short(332, "InkSet", "Inks of a separated image").Words(kInkSets),
    Text(333, "InkNames", "Names of the inks, each closed by a NUL"),
    Short(334, "NumberOfInks", "Inks of a separated image"),
    ByteOrShort(336, "DotRange", "Samples for a 0% and a 100% dot").Times(2, kAnyCount),
    Text(337, "TargetPrinter", "Press that the separation is meant for"),
    Short(338, "ExtraSamples", "What samples beyond the color are")
        .AnyNumber()
        .Words(kExtraSamples),
    Short(339, "SampleFormat", "How samples are to be read").AnyNumber().Words(kSampleFormats),
    AnyNumeric(340, "SMinSampleValue", "Smallest sample, in its own type").AnyNumber(),
    AnyNumeric(341, "SMaxSampleValue", "Largest sample, in its own type").AnyNumber(),
    Short(342, "TransferRange", "Range of TransferFunction").Times(6),
    Short(512, "JPEGProc", "Process of old-style JPEG").Words(kJpegProcesses),
    Offset(513, "JPEGInterchangeFormat", "Where a whole JPEG stream starts"),
    Offset(514, "JPEGInterchangeFormatLength", "Bytes of that JPEG stream"),
    Short(515, "JPEGRestartInterval", "Restart interval of old-style JPEG"),
    Short(517, "JPEGLosslessPredictors", "Predictor of each component").AnyNumber(),
    Short(518, "JPEGPointTransforms", "Point transform of each component").AnyNumber(),
    Offset(519, "JPEGQTables", "Where quantization tables lie").AnyNumber(),
    Offset(520, "JPEGDCTables", "Where DC Huffman tables lie").AnyNumber(),
    Offset(521, "JPEGACTables", "Where AC Huffman tables lie").AnyNumber(),
    Rational(529, "YCbCrCoefficients", "Shares of red, green and blue in luminance").Times(3),
    Short(530, "YCbCrSubSampling", "Chroma subsampling across and down").Times(2),
    Short(531, "YCbCrPositioning", "Where chroma samples lie").Words(kYCbCrPositionings),
    Rational(532, "ReferenceBlackWhite", "Codes of black and white, by component").Times(6),
    Text(33432, "Copyright", "Who holds the rights in the image"),
};

}  // namespace platen::tags
