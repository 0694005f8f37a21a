#include <gtest/gtest.h>

#include <cstddef>

#include <platen/tiff/records.h>

/// Records as compiled applications rely on them.
namespace {

using R = TiffIFDStdDirStruct;

/// Expects fields one behind the other, with no more between them than their alignment asks for.
class FieldOrder {
  public:
    template <typename T>
    void Next(T R::*field) {
        ++m_number;
        const std::size_t expected = (m_end + alignof(T) - 1) / alignof(T) * alignof(T);
        const auto* at = reinterpret_cast<const std::byte*>(&(m_record.*field));
        EXPECT_EQ(at - reinterpret_cast<const std::byte*>(&m_record),
                  static_cast<std::ptrdiff_t>(expected))
            << "field " << m_number;
        m_end = expected + sizeof(T);
    }
    void End() const { EXPECT_LT(sizeof(R) - m_end, alignof(R)) << "there are more fields"; }

  private:
    R m_record{};
    std::size_t m_end = 0;
    int m_number = 0;
};

template <typename... T>
void ExpectOrder(T R::*... fields) {
    FieldOrder order;
    (order.Next(fields), ...);
    order.End();
}

TEST(Layout, AFieldOfTheRecordStandsElsewhere) {
    ExpectOrder(
        &R::NumEntries, &R::NewSubfileType, &R::SubfileType, &R::ImageWidth, &R::ImageLength,
        &R::BitsPerSampleCount, &R::BitsPerSample, &R::Compression, &R::PhotometricInterpretation,
        &R::Threshholding, &R::CellWidth, &R::CellLength, &R::FillOrder, &R::DocumentName,
        &R::ImageDescription, &R::Model, &R::Make, &R::StripOffsetsCount, &R::StripOffsetsShort,
        &R::StripOffsetsLong, &R::Orientation, &R::SamplesPerPixel, &R::RowsPerStrip,
        &R::StripByteCountsCount, &R::StripByteCountsShort, &R::StripByteCountsLong,
        &R::MinSampleValue, &R::MaxSampleValue, &R::XResolution, &R::YResolution,
        &R::PlanarConfiguration, &R::PageName, &R::XPosition, &R::YPosition, &R::FreeOffsets,
        &R::FreeByteCounts, &R::GrayResponseUnit, &R::GrayResponseCurveCount, &R::GrayResponseCurve,
        &R::Group3Options, &R::Group4Options, &R::ResolutionUnit, &R::PageNumber,
        &R::ColorResponseUnit, &R::ColorResponseCurveCount, &R::ColorResponseCurve, &R::Software,
        &R::DateTime, &R::Artist, &R::HostComputer, &R::Predictor, &R::WhitePoint,
        &R::PrimaryChromaticities, &R::ColorMapCount, &R::ColorMap, &R::TileWidth, &R::TileLength,
        &R::TileOffsetsCount, &R::TileOffsetsShort, &R::TileOffsetsLong, &R::TileByteCountsCount,
        &R::TileByteCountsShort, &R::TileByteCountsLong, &R::SubIFDs, &R::FileTag, &R::ScalePixel,
        &R::ColorTable, &R::ColorTableOffset, &R::ColorTableCount, &R::LabName, &R::SampleInfo,
        &R::PrepDate, &R::PrepTime, &R::FileUnits, &R::WriteNumEntries, &R::WriteIFDOffset,
        &R::WriteLinkOffset, &R::ReadDataOffset);
    EXPECT_EQ(sizeof(R::ColorTable), 36U);
    EXPECT_EQ(sizeof(TiffIFDEntryStruct), 12U);
}

}  // namespace
