#include <algorithm>
#include <array>
#include <cstring>

#include <platen/base/files.h>
#include <platen/base/memory.h>
#include <platen/tiff/Tiff.h>
#include <platen/tiff/entry_encoder.h>
#include <platen/tiff/file_layout.h>
#include <platen/tiff/image_data.h>
#include <platen/tiff/write_walk.h>

namespace platen::tiff {
namespace {

constexpr std::int64_t kLargestChunk = 65535;
constexpr std::int64_t kMostRows = 256;
constexpr std::int64_t kWrite = 524288;

/// Whole rows of at most 65,535 bytes and 256 rows. A row wider than that is moved in pieces of an
/// even size, so that no 16-bit pixel is cut.
std::int64_t ChunkSize(std::int64_t rowBytes, std::int64_t size) {
    const std::int64_t rows = std::min(kMostRows, kLargestChunk / rowBytes);
    return std::min(size, rows > 0 ? rows * rowBytes : kLargestChunk - 1);
}

/// Zeroed room for whole writes and the chunk that goes beyond one. When memory is exhausted it is
/// a small one of the object's own, so that an image is copied all the same.
class AreaBuffer {
  public:
    explicit AreaBuffer(std::int64_t size)
        : m_block(static_cast<std::uint8_t*>(
              MEM_NewPtr(static_cast<DWORD>(std::min(size, kWrite + kLargestChunk)), GHND))) {
        if (m_block == nullptr) {
            m_small.fill(0);
        }
    }
    ~AreaBuffer() { MEM_FreePtr(m_block); }
    AreaBuffer(const AreaBuffer&) = delete;
    AreaBuffer& operator=(const AreaBuffer&) = delete;

    std::uint8_t* Bytes() { return m_block != nullptr ? m_block : m_small.data(); }
    /// What is written at once; a chunk is no larger.
    [[nodiscard]] std::int64_t Write() const { return m_block != nullptr ? kWrite : kSmallWrite; }

  private:
    static constexpr std::int64_t kSmallWrite = 4096;

    std::uint8_t* m_block;
    std::array<std::uint8_t, 2 * kSmallWrite> m_small;
};

/// Writes an area of `size` bytes, which `fill(buffer, bytes)` fills chunk by chunk, or leaves zero
/// throughout. Chunks are gathered into writes that end at multiples of 512 KiB in the file: the
/// system keeps such a file in large pages, which saves a good part of the cost. Failing transfers
/// are not looked at.
template <typename Fill>
void WriteArea(void* file, std::int64_t rowBytes, std::int64_t size, Fill fill) {
    if (size == 0) {
        return;
    }
    AreaBuffer area(size);
    std::uint8_t* const buffer = area.Bytes();
    const std::int64_t chunk = std::min(ChunkSize(rowBytes, size), area.Write());
    std::int64_t held = 0;
    std::int64_t position = FILE_lseek(file, 0, 1);
    for (std::int64_t left = size; left > 0;) {
        const std::int64_t bytes = std::min(chunk, left);
        fill(buffer + held, static_cast<LONG>(bytes));
        held += bytes;
        left -= bytes;
        const std::int64_t due = left == 0 ? held : area.Write() - position % area.Write();
        if (held >= due) {
            FILE_write(file, buffer, static_cast<LONG>(due));
            position += due;
            held -= due;
            std::memmove(buffer, buffer + due, static_cast<std::size_t>(held));
        }
    }
}

/// Whether a file has room for a data area; one that does not fit is left out.
bool HasRoom(std::int64_t start, std::int64_t size) {
    return start + size <= kLargestFile;
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

using platen::tiff::HasRoom;
using platen::tiff::RowBytes;
using platen::tiff::WriteArea;

long Tiff::WriteDATA(void* file, short format) {
    m_Status = 1;
    FILE_lseek(file, 0, 2);
    FILE_lseek(m_hFile, 0, 2);  // what others wrote is seen from here on
    ForEachDataArea([&](short dir, std::int64_t start, std::int64_t size) {
        if (!HasRoom(start, size)) {
            return;
        }
        const TiffIFDStdDirStruct& record = m_StdDir[dir];
        const bool swapped =
            format == platen::kMotorola && platen::tiff::BytesPerPixel(record) == 2;
        const std::int64_t source = platen::tiff::SourceOf(record);
        const bool readable = source >= 0 && FILE_lseek(m_hFile, static_cast<LONG>(source), 0) >= 0;
        WriteArea(file, RowBytes(record), size, [&](std::uint8_t* buffer, LONG bytes) {
            const LONG got = readable ? FILE_read(m_hFile, buffer, bytes) : 0;
            // What the source does not have is zero.
            std::fill(buffer + std::max<LONG>(got, 0), buffer + bytes, std::uint8_t{0});
            if (swapped) {
                platen::tiff::ConvertElements(buffer, buffer, static_cast<std::size_t>(bytes) / 2,
                                              2, static_cast<std::uint16_t>(format));
            }
        });
    });
    return m_Status;
}

/// Zeros are alike, so that all areas are written as one.
long Tiff::WriteDATA(void* file) {
    m_Status = 1;
    FILE_lseek(file, 0, 2);
    std::int64_t total = 0;
    ForEachDataArea([&total](short /*dir*/, std::int64_t start, std::int64_t size) {
        total += HasRoom(start, size) ? size : 0;
    });
    WriteArea(file, platen::tiff::kLargestChunk, total, [](std::uint8_t*, LONG) {});
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
