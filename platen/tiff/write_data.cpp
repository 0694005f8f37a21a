#include <algorithm>
#include <array>

#include <platen/base/files.h>
#include <platen/base/memory.h>
#include <platen/tiff/Tiff.h>
#include <platen/tiff/entry_encoder.h>
#include <platen/tiff/image_data.h>
#include <platen/tiff/write_walk.h>

namespace platen::tiff {
namespace {

constexpr DWORD kBlockFlags = 0x42;
constexpr std::int64_t kLargestChunk = 65535;
constexpr std::int64_t kMostRows = 256;

/// Whole rows of at most 65,535 bytes and 256 rows. A row wider than that is moved in pieces of an
/// even size, so that no 16-bit pixel is cut.
std::int64_t ChunkSize(std::int64_t rowBytes, std::int64_t size) {
    const std::int64_t rows = std::min(kMostRows, kLargestChunk / rowBytes);
    return std::min(size, rows > 0 ? rows * rowBytes : kLargestChunk - 1);
}

/// Without memory for a buffer: zeros keep the area's place.
void ReserveArea(void* file, std::int64_t size) {
    static constexpr std::array<std::uint8_t, 4096> kZeros{};
    constexpr auto kPiece = static_cast<std::int64_t>(kZeros.size());
    for (std::int64_t done = 0; done < size; done += kPiece) {
        FILE_write(file, kZeros.data(), static_cast<LONG>(std::min(kPiece, size - done)));
    }
}

/// Writes an area of `size` bytes through a zero-filled buffer that `fill(buffer, bytes)` may fill
/// before each write. False when there was no memory for the buffer. Failing transfers are not
/// looked at: what the buffer held before is written.
template <typename Fill>
bool WriteArea(void* file, std::int64_t rowBytes, std::int64_t size, Fill fill) {
    if (size == 0) {
        return true;
    }
    const std::int64_t chunk = ChunkSize(rowBytes, size);
    auto* buffer = static_cast<std::uint8_t*>(MEM_NewPtr(static_cast<DWORD>(chunk), kBlockFlags));
    if (buffer == nullptr) {
        ReserveArea(file, size);
        return false;
    }
    for (std::int64_t left = size; left > 0; left -= chunk) {
        const auto bytes = static_cast<LONG>(std::min(chunk, left));
        fill(buffer, bytes);
        FILE_write(file, buffer, bytes);
    }
    MEM_FreePtr(buffer);
    return true;
}

/// Where a directory's image lies in the file that was read; -1 without strip offsets. A directory
/// that the layout did not relocate still holds its own first strip offset.
std::int64_t SourceOf(const TiffIFDStdDirStruct& record) {
    if (IsRelocated(record)) {
        return record.ReadDataOffset;
    }
    if (record.StripOffsetsLong != nullptr) {
        return *record.StripOffsetsLong;
    }
    return record.StripOffsetsShort == nullptr ? -1 : *record.StripOffsetsShort;
}

std::int64_t RowBytes(const TiffIFDStdDirStruct& record) {
    return record.ImageWidth * BytesPerPixel(record);
}

}  // namespace
}  // namespace platen::tiff

using platen::tiff::RowBytes;
using platen::tiff::WriteArea;

long Tiff::WriteDATA(void* file, short format) {
    m_Status = 1;
    FILE_lseek(file, 0, 2);
    ForEachDataArea([&](short dir, std::int64_t size) {
        const TiffIFDStdDirStruct& record = m_StdDir[dir];
        const bool swapped = format == TIFF_MOTOROLA && platen::tiff::BytesPerPixel(record) == 2;
        const std::int64_t source = platen::tiff::SourceOf(record);
        const bool readable = source >= 0 && FILE_lseek(m_hFile, static_cast<LONG>(source), 0) >= 0;
        const bool buffered =
            WriteArea(file, RowBytes(record), size, [&](std::uint8_t* buffer, LONG bytes) {
                if (readable) {
                    FILE_read(m_hFile, buffer, bytes);
                }
                if (swapped) {
                    platen::tiff::ConvertElements(buffer, buffer,
                                                  static_cast<std::size_t>(bytes) / 2, 2,
                                                  static_cast<std::uint16_t>(format));
                }
            });
        if (!buffered) {
            m_Status = -4;
        }
    });
    return m_Status;
}

/// Zeros are alike, so that all areas are written as one.
long Tiff::WriteDATA(void* file) {
    m_Status = 1;
    FILE_lseek(file, 0, 2);
    std::int64_t total = 0;
    ForEachDataArea([&total](short /*dir*/, std::int64_t size) { total += size; });
    if (!WriteArea(file, platen::tiff::kLargestChunk, total, [](std::uint8_t*, LONG) {})) {
        m_Status = -4;
    }
    return m_Status;
}

long Tiff::WriteSeek2Data(void* file, short dir) {
    const TiffIFDStdDirStruct* record = RecordAt(dir);
    if (record == nullptr) {
        return 1;
    }
    FILE_lseek(file, static_cast<LONG>(record->ReadDataOffset), 0);
    return 0;
}
