#include <algorithm>
#include <initializer_list>

#include <platen/tiff/Tiff.h>

/// Classes after TIFF 6.0, sections 3 to 6, with the codes of TIFF 5.0.
namespace {

using Record = TiffIFDStdDirStruct;

constexpr std::uint32_t kNoFileTag = 0xFFFFFFFF;
constexpr std::uint32_t kNoNewSubfileType = 0xFFFFFFFF;
constexpr std::uint16_t kNoSubfileType = 0xFFFF;

bool IsOneOf(std::uint16_t value, std::initializer_list<std::uint16_t> values) {
    return std::ranges::find(values, value) != values.end();
}

bool IsPositive(std::uint32_t count) {
    return static_cast<std::int32_t>(count) > 0;
}

bool IsBasicImage(const Record& record) {
    return record.BitsPerSample != nullptr && IsPositive(record.BitsPerSampleCount) &&
           record.ImageWidth > 0 && record.ImageLength > 0 &&
           IsPositive(record.StripOffsetsCount) &&
           (record.StripOffsetsShort != nullptr || record.StripOffsetsLong != nullptr);
}

bool HasSamples(const Record& record, std::uint16_t samples) {
    return record.SamplesPerPixel == samples && record.BitsPerSample != nullptr &&
           record.BitsPerSampleCount == samples;
}

bool IsBilevel(const Record& record) {
    return HasSamples(record, 1) && record.BitsPerSample[0] == 1 &&
           IsOneOf(record.Compression, {1, 2, 32773}) &&
           IsOneOf(record.PhotometricInterpretation, {0, 1});
}

bool IsGrayscale(const Record& record) {
    return HasSamples(record, 1) && IsOneOf(record.BitsPerSample[0], {4, 8}) &&
           IsOneOf(record.Compression, {1, 5}) && IsOneOf(record.PhotometricInterpretation, {0, 1});
}

bool IsPalette(const Record& record) {
    return HasSamples(record, 1) && record.BitsPerSample[0] >= 1 && record.BitsPerSample[0] <= 8 &&
           IsOneOf(record.Compression, {1, 5}) && record.PhotometricInterpretation == 3 &&
           record.ColorMap != nullptr && IsPositive(record.ColorMapCount);
}

bool IsFullColor(const Record& record) {
    return HasSamples(record, 3) &&
           std::all_of(record.BitsPerSample, record.BitsPerSample + 3,
                       [](std::uint16_t bits) { return bits == 8; }) &&
           IsOneOf(record.Compression, {1, 5}) && record.PhotometricInterpretation == 2 &&
           IsOneOf(record.PlanarConfiguration, {1, 2});
}

bool IsXK(const Record& record) {
    return record.FileTag != kNoFileTag;
}

bool IsXKold(const Record& record) {
    return IsXK(record) && record.NewSubfileType == kNoNewSubfileType &&
           record.SubfileType == kNoSubfileType;
}

/// Roles are compared whole, not as the bits of TIFF 6.0, section 8.
bool HasRole(const Record& record, std::uint32_t newSubfileType, std::uint16_t subfileType) {
    return record.NewSubfileType == newSubfileType || record.SubfileType == subfileType;
}

bool IsFullResolution(const Record& record) {
    return HasRole(record, 0, 1);
}

bool IsReducedResolution(const Record& record) {
    return HasRole(record, 1, 2);
}

bool IsSinglePage(const Record& record) {
    return HasRole(record, 2, 3);
}

bool IsTransparency(const Record& record) {
    return record.NewSubfileType == 4;
}

using Test = bool (*)(const Record&);

/// An index outside the records passes no test.
short Answer(const Record* record, Test test) {
    return record != nullptr && test(*record) ? 1 : 0;
}

short FirstOf(const Record* records, short count, Test test) {
    for (short dir = 0; records != nullptr && dir < count; ++dir) {
        if (test(records[dir])) {
            return dir;
        }
    }
    return -1;
}

}  // namespace

short Tiff::IsTIFF(short dir) const {
    return Answer(RecordAt(dir), IsBasicImage);
}

short Tiff::IsTIFFClassB(short dir) const {
    return Answer(RecordAt(dir), IsBilevel);
}

short Tiff::IsTIFFClassG(short dir) const {
    return Answer(RecordAt(dir), IsGrayscale);
}

short Tiff::IsTIFFClassP(short dir) const {
    return Answer(RecordAt(dir), IsPalette);
}

short Tiff::IsTIFFClassR(short dir) const {
    return Answer(RecordAt(dir), IsFullColor);
}

short Tiff::IsTIFFClassXK(short dir) const {
    return Answer(RecordAt(dir), IsXK);
}

short Tiff::IsTIFFClassXKold(short dir) const {
    return Answer(RecordAt(dir), IsXKold);
}

short Tiff::GetFullResolutionIFDDir() const {
    return FirstOf(m_StdDir, m_NumIFDStdDir, IsFullResolution);
}

short Tiff::GetReducedResolutionIFDDir() const {
    return FirstOf(m_StdDir, m_NumIFDStdDir, IsReducedResolution);
}

short Tiff::GetSPofMPIFDDir() const {
    return FirstOf(m_StdDir, m_NumIFDStdDir, IsSinglePage);
}

short Tiff::GetTransparencyIFDDir() const {
    return FirstOf(m_StdDir, m_NumIFDStdDir, IsTransparency);
}

short Tiff::GetXKIFDDir() const {
    return FirstOf(m_StdDir, m_NumIFDStdDir, IsXK);
}

short Tiff::GetXKoldIFDDir() const {
    return FirstOf(m_StdDir, m_NumIFDStdDir, IsXKold);
}
