#include <platen/tiff/tag_table.h>

#include <algorithm>
#include <utility>

#include <platen/tiff/blocks.h>

namespace platen::tiff {
namespace {

using R = Record;

constexpr std::uint16_t S = 1U << kTypeShort;
constexpr std::uint16_t L = 1U << kTypeLong;
constexpr std::uint16_t A = 1U << kTypeAscii;
constexpr std::uint16_t Q = 1U << kTypeRational;
constexpr std::uint16_t SL = S | L;

constexpr Word kNewSubfileTypes[] = {{0, "Full resolution image"},
                                     {1, "Reduced resolution image"},
                                     {2, "Single page of a multi-page image"},
                                     {4, "Tranparency mask"}};
constexpr Word kSubfileTypes[] = {{1, "Full resolution image"},
                                  {2, "Reduced resolution image"},
                                  {3, "Single page of a multi-page image"}};
constexpr Word kCompressions[] = {{1, "No compression"},
                                  {2, "Modified Huffman"},
                                  {3, "Modified Read, CITT Group3"},
                                  {4, "Modified Modified Read, CITT Group4"},
                                  {5, "Lempel-Ziv & Welch"},
                                  {32773, "PackBits"}};
constexpr Word kPhotometrics[] = {{0, "White is defined as 0"},
                                  {1, "Black is defined as 0"},
                                  {2, "RGB"},
                                  {3, "Palette color"},
                                  {4, "Transparency mask"}};
constexpr Word kThresholds[] = {{1, "Bilevel line art"}, {2, "Dithered"}, {3, "Error difused"}};
constexpr Word kFillOrders[] = {{1, "Most significant bits are filled first"},
                                {2, "Least significant bits are filled first"}};
constexpr Word kOrientations[] = {
    {1, "Row=0, Col=0 ---> Top, Left"},     {2, "Row=0, Col=0 ---> Top, Right"},
    {3, "Row=0, Col=0 ---> Bottom, Right"}, {4, "Row=0, Col=0 ---> Bottom, Left"},
    {5, "Row=0, Col=0 ---> Left, Top"},     {6, "Row=0, Col=0 ---> Right, Top"},
    {7, "Row=0, Col=0 ---> Right, Bottom"}, {8, "Row=0, Col=0 ---> Left, Bottom"}};
constexpr Word kPlanarConfigurations[] = {{1, "Sample values are stored contigously"},
                                          {2, "Sample values are stored in separate planes"}};
constexpr Word kResponseUnits[] = {{1, "In tenths of a unit"},
                                   {2, "In hundredths of a unit"},
                                   {3, "In thousandths of a unit"},
                                   {4, "In ten-thousandths of a unit"},
                                   {5, "In hundred-thousandths of a unit"}};
constexpr Word kGroup3Options[] = {{0, "One dimensional coding"},
                                   {1, "Two dimensional coding"},
                                   {2, "Uncompressed mode"},
                                   {4, "Fill bits added before EOL"}};
constexpr Word kGroup4Options[] = {{0, "Unused"}, {2, "Uncompressed mode"}};
constexpr Word kResolutionUnits[] = {{1, "No absolute unit"}, {2, "Inch"}, {3, "Centimeter"}};
constexpr Word kPredictors[] = {{1, "No prediction scheme used"},
                                {5, "Compression is LZW (Lempel-Ziv & Welch)"}};
constexpr Word kFileTags[] = {{0, "Glowscan Log"},
                              {1, "Glowscan Linear"},
                              {2, "Glowscan Square Root"},
                              {128, "Densitometer"}};

}  // namespace

// clang-format off
constexpr std::array<TagRow, kTagCount> kTags = {{
    {254, L, kTypeLong, Style::Coded, "NewSubfileType", "NewSubFileType", "NewSubfileType", LongField{&R::NewSubfileType, kNone32}, kNewSubfileTypes},
    {255, S, kTypeShort, Style::Coded, "SubfileType", "SubFileType", "SubfileType", WordField{&R::SubfileType, kNone16}, kSubfileTypes},
    {256, SL, kTypeLong, Style::ByKind, "ImageWidth", "ImageWidth*", "ImageWidth*", SizeField{&R::ImageWidth, false}, {}},
    {257, SL, kTypeLong, Style::ByKind, "ImageLength", "ImageLength*", "ImageLenght*", SizeField{&R::ImageLength, false}, {}},
    {258, S, kTypeShort, Style::Bits, "BitsPerSample", "BitsPerSample*", "BitsPerSample*", WordArrayField{&R::BitsPerSample, &R::BitsPerSampleCount}, {}},
    {259, S, kTypeShort, Style::CodedUnsigned, "Compression", "Compression", "Compression*", WordField{&R::Compression, kNone16}, kCompressions},
    {262, S, kTypeShort, Style::Coded, "PhotometricInterpretation", "PhotoInterpretation", "PhotoInterpretation", WordField{&R::PhotometricInterpretation, kNone16}, kPhotometrics},
    {263, S, kTypeShort, Style::Coded, "Threshholding", "Thresholding", "Thresholding", WordField{&R::Threshholding, kNone16}, kThresholds},
    {264, S, kTypeShort, Style::Plain, "CellWidth", "CellWidth", "CellWidth", WordField{&R::CellWidth, 0}, {}},
    {265, S, kTypeShort, Style::Plain, "CellLength", "CellLength", "CellLength", WordField{&R::CellLength, 0}, {}},
    {266, S, kTypeShort, Style::Coded, "FillOrder", "FillOrder", "FillOrder", WordField{&R::FillOrder, kNone16}, kFillOrders},
    {269, A, kTypeAscii, Style::ByKind, "DocumentName", "DocumentName", "DocumentName", TextField{&R::DocumentName}, {}},
    {270, A, kTypeAscii, Style::Padded, "ImageDescription", "ImageDescription", "ImageDescription", TextField{&R::ImageDescription}, {}},
    {271, A, kTypeAscii, Style::ByKind, "Make", "Make", "Make", TextField{&R::Make}, {}},
    {272, A, kTypeAscii, Style::ByKind, "Model", "Model", "Model", TextField{&R::Model}, {}},
    {273, SL, kTypeLong, Style::ByKind, "StripOffsets", "StripOffsets*", "StripOffsets*", OffsetArrayField{&R::StripOffsetsShort, &R::StripOffsetsLong, &R::StripOffsetsCount}, {}},
    {274, S, kTypeShort, Style::Coded, "Orientation", "Orientation", "Orientation", WordField{&R::Orientation, kNone16}, kOrientations},
    {277, S, kTypeShort, Style::Wide, "SamplesPerPixel", "SamplesPerPixel", "SamplesPerPixel", WordField{&R::SamplesPerPixel, 1, 0}, {}},
    {278, L, kTypeLong, Style::Wide, "RowsPerStrip", "RowsPerStrip*", "RowsPerStrip", LongField{&R::RowsPerStrip, 0}, {}},
    {279, SL, kTypeLong, Style::ByKind, "StripByteCounts", "StripByteCounts*", "StripByteCounts*", OffsetArrayField{&R::StripByteCountsShort, &R::StripByteCountsLong, &R::StripByteCountsCount}, {}},
    {280, S, kTypeShort, Style::PlainUnsigned, "MinSampleValue", "MinSampleValue", "MinSampleValue", WordField{&R::MinSampleValue, kNone16}, {}},
    {281, S, kTypeShort, Style::PlainUnsigned, "MaxSampleValue", "MaxSampleValue", "MaxSampleValue", WordField{&R::MaxSampleValue, 0}, {}},
    {282, Q, kTypeRational, Style::ByKind, "XResolution", "XResolution*", "XResolution", RationalField{&R::XResolution}, {}},
    {283, Q, kTypeRational, Style::ByKind, "YResolution", "YResolution*", "YResolution", RationalField{&R::YResolution}, {}},
    {284, S, kTypeShort, Style::Coded, "PlanarConfiguration", "PlanarConfiguration", "PlanarConfiguration", WordField{&R::PlanarConfiguration, kNone16}, kPlanarConfigurations},
    {285, A, kTypeAscii, Style::ByKind, "PageName", "PageName", "PageName", TextField{&R::PageName}, {}},
    {286, Q, kTypeRational, Style::ByKind, "XPosition", "XPosition", "XPosition", RationalField{&R::XPosition}, {}},
    {287, Q, kTypeRational, Style::ByKind, "YPosition", "YPosition", "YPosition", RationalField{&R::YPosition}, {}},
    {288, 0, 0, Style::ByKind, "FreeOffsets", nullptr, nullptr, BlockSlot{&R::FreeOffsets}, {}},
    {289, 0, 0, Style::ByKind, "FreeByteCounts", nullptr, nullptr, BlockSlot{&R::FreeByteCounts}, {}},
    {290, S, kTypeShort, Style::Coded, "GrayResponseUnit", "GrayResposeUnit", "GrayResponseUnit", WordField{&R::GrayResponseUnit, kNone16}, kResponseUnits},
    {291, S, kTypeShort, Style::Count, "GrayResponseCurve", "GrayResponseCurve", "GrayResponseCurve", WordArrayField{&R::GrayResponseCurve, &R::GrayResponseCurveCount}, {}},
    {292, L, kTypeLong, Style::Coded, "T4Options", "Group3Options", "Group3Options", LongField{&R::Group3Options, kNone32}, kGroup3Options},
    {293, L, kTypeLong, Style::Coded, "T6Options", "Group4Options", "Group4Options", LongField{&R::Group4Options, kNone32}, kGroup4Options},
    {296, S, kTypeShort, Style::Coded, "ResolutionUnit", "ResolutionUnit*", "ResolutionUnit", WordField{&R::ResolutionUnit, kNone16}, kResolutionUnits},
    {297, S, kTypeShort, Style::ByKind, "PageNumber", "PageNumber", "PageNumber", WordPairField{&R::PageNumber}, {}},
    {300, S, kTypeShort, Style::Coded, "ColorResponseUnit", "ColorResposeUnit", "ColorResponseUnit", WordField{&R::ColorResponseUnit, kNone16}, kResponseUnits},
    {301, S, kTypeShort, Style::Count, "TransferFunction", "ColorResponseCurve", "ColorResponseCurve", WordArrayField{&R::ColorResponseCurve, &R::ColorResponseCurveCount}, {}},
    {305, A, kTypeAscii, Style::ByKind, "Software", "Software", "Software", TextField{&R::Software}, {}},
    {306, A, kTypeAscii, Style::ByKind, "DateTime", "DateTime", "DateTime", TextField{&R::DateTime}, {}},
    {315, A, kTypeAscii, Style::ByKind, "Artist", "Artist", "Artist", TextField{&R::Artist}, {}},
    {316, A, kTypeAscii, Style::ByKind, "HostComputer", "HostComputer", "HostComputer", TextField{&R::HostComputer}, {}},
    {317, S, kTypeShort, Style::Coded, "Predictor", "Predictor", "Predictor", WordField{&R::Predictor, kNone16}, kPredictors},
    {318, Q, kTypeRational, Style::ByKind, "WhitePoint", "WhitePoint", "WhitePoint", RationalGroupField<2>{&R::WhitePoint}, {}},
    {319, Q, kTypeRational, Style::ByKind, "PrimaryChromaticities", "PrimChromaticities", "PrimChromaticities", RationalGroupField<6>{&R::PrimaryChromaticities}, {}},
    {320, S, kTypeShort, Style::Count, "ColorMap", "ColorMap", "ColorMap", WordArrayField{&R::ColorMap, &R::ColorMapCount}, {}},
    {322, SL, 0, Style::ByKind, "TileWidth", "TileWidth", nullptr, SizeField{&R::TileWidth, true}, {}},
    {323, SL, 0, Style::ByKind, "TileLength", "TileLength", nullptr, SizeField{&R::TileLength, true}, {}},
    {324, SL, 0, Style::ByKind, "TileOffsets", "TileOffsets", nullptr, OffsetArrayField{&R::TileOffsetsShort, &R::TileOffsetsLong, &R::TileOffsetsCount}, {}},
    {325, SL, 0, Style::ByKind, "TileByteCounts", "TileByteCounts", nullptr, OffsetArrayField{&R::TileByteCountsShort, &R::TileByteCountsLong, &R::TileByteCountsCount}, {}},
    {330, 0, 0, Style::ByKind, "SubIFDs", nullptr, nullptr, LongSlot{&R::SubIFDs}, {}},
    {33445, L, kTypeLong, Style::CodedTight, "FileTag", "FileTag", "FileTag", LongField{&R::FileTag, kNone32}, kFileTags},
    {33446, Q, kTypeRational, Style::ByKind, "ScalePixel", "ScalePixel", "ScalePixel", RationalField{&R::ScalePixel}, {}},
    {33447, S, kTypeShort, Style::ByKind, "ColorTable", "ColorTable", "ColorTable", ColorTableField{&R::ColorTable, &R::ColorTableOffset, &R::ColorTableCount}, {}},
    {33448, A, kTypeAscii, Style::ByKind, "LabName", "LabName", "LabName", TextField{&R::LabName}, {}},
    {33449, A, kTypeAscii, Style::ByKind, "SampleInfo", "SampleInfo", "SampleInfo", TextField{&R::SampleInfo}, {}},
    {33450, A, kTypeAscii, Style::ByKind, "PrepDate", "PrepDate", "PrepDate", TextField{&R::PrepDate}, {}},
    {33451, A, kTypeAscii, Style::ByKind, "PrepTime", "PrepTime", "PrepTime", TextField{&R::PrepTime}, {}},
    {33452, A, kTypeAscii, Style::ByKind, "FileUnits", "FileUnits", "FileUnits", TextField{&R::FileUnits}, {}},
}};
// clang-format on

namespace {

constexpr bool TagsAscend() {
    return std::ranges::adjacent_find(kTags, std::ranges::greater_equal{}, &TagRow::tag) ==
           kTags.end();
}

constexpr bool WrittenTypesAreAccepted() {
    return std::ranges::all_of(
        kTags, [](const TagRow& row) { return row.written == 0 || row.Accepts(row.written); });
}

static_assert(TagsAscend());
static_assert(WrittenTypesAreAccepted());

template <std::size_t N>
constexpr std::array<const TagRow*, N> IndexFrom(std::uint16_t first) {
    std::array<const TagRow*, N> index{};
    for (const TagRow& row : kTags) {
        if (row.tag >= first && row.tag - first < static_cast<int>(N)) {
            index[row.tag - first] = &row;
        }
    }
    return index;
}

/// Stores a kind's default in a record whose bytes are zero.
struct DefaultSetter {
    Record& record;

    constexpr void operator()(const WordField& field) const { record.*field.value = field.initial; }
    constexpr void operator()(const LongField& field) const { record.*field.value = field.absent; }
    constexpr void operator()(const RationalField& field) const {
        record.*field.value = kNoRational;
    }
    constexpr void operator()(const WordPairField& field) const {
        std::ranges::fill(record.*field.values, kNone16);
    }
    template <std::size_t N>
    constexpr void operator()(const RationalGroupField<N>& field) const {
        std::ranges::fill(record.*field.values, kNoRational);
    }
    template <typename ZeroField>
    constexpr void operator()(const ZeroField& /*field*/) const {}
};

constexpr Record MakeFreshRecord() {
    Record record{};
    for (const TagRow& row : kTags) {
        std::visit(DefaultSetter{record}, row.field);
    }
    return record;
}

/// Releases what a kind owns and zeroes what counts it.
struct Releaser {
    Record& record;

    void operator()(const SizeField& field) const {
        if (field.zeroedOnRelease) {
            record.*field.value = 0;
        }
    }
    void operator()(const TextField& field) const { ReleaseBlock(record.*field.text); }
    void operator()(const WordArrayField& field) const {
        ReleaseBlock(record.*field.values);
        record.*field.count = 0;
    }
    void operator()(const OffsetArrayField& field) const {
        ReleaseBlock(record.*field.shorts);
        ReleaseBlock(record.*field.longs);
        record.*field.count = 0;
    }
    void operator()(const ColorTableField& field) const { record.*field.count = 0; }
    void operator()(const BlockSlot& field) const { ReleaseBlock(record.*field.block); }
    void operator()(const LongSlot& field) const { record.*field.value = 0; }
    template <typename PlainField>
    void operator()(const PlainField& /*field*/) const {}
};

/// The walk over the rows, laid out when it is compiled: most rows release nothing.
template <std::size_t... Row>
void ReleaseRows(Record& record, std::index_sequence<Row...> /*rows*/) {
    (Releaser{record}(std::get<kTags[Row].field.index()>(kTags[Row].field)), ...);
}

}  // namespace

constexpr TagIndex kTagIndex = {IndexFrom<77>(TagIndex::kFirstStandard),
                                IndexFrom<8>(TagIndex::kFirstPrivate)};
static_assert(std::ranges::count(kTagIndex.standard, nullptr) +
                  std::ranges::count(kTagIndex.privates, nullptr) +
                  static_cast<std::ptrdiff_t>(kTagCount) ==
              static_cast<std::ptrdiff_t>(kTagIndex.standard.size() + kTagIndex.privates.size()));

constexpr Record kFreshRecord = MakeFreshRecord();

void ReleaseRecord(Record& record) {
    ReleaseRows(record, std::make_index_sequence<kTagCount>{});
    record.NumEntries = 0;
    record.WriteNumEntries = 0;
    record.WriteIFDOffset = 0;
    record.WriteLinkOffset = 0;
}

}  // namespace platen::tiff
