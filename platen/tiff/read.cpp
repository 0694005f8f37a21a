#include <algorithm>
#include <cstring>
#include <limits>

#include <platen/base/files.h>
#include <platen/tiff/Tiff.h>
#include <platen/tiff/byte_order.h>
#include <platen/tiff/visited_offsets.h>

using platen::tiff::VisitedOffsets;

namespace {

constexpr std::uint16_t kVersion = 42;
constexpr std::uint16_t kOtherVersion = 50;
constexpr std::uint64_t kEntrySize = 12;
constexpr std::uint64_t kEntriesPerEntrySize = 8;
constexpr std::uint64_t kFreeEntries = 65536;
constexpr std::uint64_t kBytesPerByte = 32;
constexpr std::uint64_t kSmallFile = 1U << 20U;

static_assert(sizeof(TiffIFDEntryStruct) == kEntrySize);

/// TIFF 6.0, section 2: the value stands left-justified in the last four bytes of the entry.
std::uint32_t NormalisedValue(const TiffIFDEntryStruct& entry, std::uint16_t order) {
    switch (entry.Type) {
        case TIFF_ASCII:
            return entry.Count > 4 ? platen::tiff::SwapLONG(entry.ValueOffset, order)
                                   : entry.ValueOffset;
        case TIFF_SHORT:
            return entry.Count == 1 ? platen::tiff::SwapSHORT(
                                          static_cast<std::uint16_t>(entry.ValueOffset), order)
                                    : platen::tiff::SwapLONG(entry.ValueOffset, order);
        case TIFF_LONG:
        case TIFF_RATIONAL:
            return platen::tiff::SwapLONG(entry.ValueOffset, order);
        default:
            return entry.ValueOffset;
    }
}

}  // namespace

std::uint16_t SwapSHORT(std::uint16_t value, std::uint16_t order) {
    return platen::tiff::SwapSHORT(value, order);
}

void* Tiff::Open(const char* name, long mode) {
    LONG attribute = -1;
    void* file = FILE_none();
    if (SetFileName(name) == 1) {
        file = FILE_open(name, static_cast<LONG>(mode), &attribute);
    }
    if (file == FILE_none()) {
        m_Status = 0;
        return file;
    }
    m_hFile = file;
    m_FileAttributes = attribute;
    m_Status = 1;
    return file;
}

void* Tiff::Close(void* file) {
    return FILE_close(file);
}

long Tiff::Read(void* file) {
    ResetFileVars();
    m_hFile = file;
    ReadSize(file);
    const auto size = static_cast<std::uint64_t>(m_FileSize);
    m_Allowance.entries = kEntriesPerEntrySize * size / kEntrySize + kFreeEntries;
    m_Allowance.bytes = kBytesPerByte * std::max(size, kSmallFile);
    if (ReadHeader(file) == 1 && ReadChain(file)) {
        CheckImageFits();
    }
    m_Allowance = {};
    return m_Status;
}

long Tiff::ReadSize(void* file) {
    const LONG end = FILE_lseek(file, 0, 2);
    const bool usable = FILE_lseek(file, 0, 0) == 0;
    const LONG beyondPositions = usable ? std::numeric_limits<LONG>::max() : 0;
    m_FileSize = end >= 0 ? end : beyondPositions;
    return 1;
}

long Tiff::ReadHeader(void* file) {
    FILE_lseek(file, 0, 0);
    std::uint16_t words[2] = {0, 0};
    if (FILE_read(file, words, sizeof(words)) <= 0) {
        return Fail(-3);
    }
    const std::uint16_t order = words[0];
    if (order != TIFF_MOTOROLA && order != TIFF_INTEL) {
        return Fail(-3);
    }
    m_Format = static_cast<std::int16_t>(order);
    const std::uint16_t version = SwapSHORT(words[1], order);
    if (version != kVersion && version != kOtherVersion) {
        return Fail(-2);
    }
    m_Version = static_cast<std::int16_t>(version);
    DumpAppendHeader();
    return 1;
}

/// Walks the chain; false when the walk stopped before its end. The first offset is noted before
/// its directory is read, so that a directory which links to itself is read once.
bool Tiff::ReadChain(void* file) {
    TiffIFDOffsetStruct offset = {0};
    if (ReadIFDOffset(file, offset) != 1) {
        return false;
    }
    VisitedOffsets visited;
    TiffIFDEntryStruct entry = {};
    while (offset.Offset != 0) {
        if (!visited.Add(offset.Offset)) {
            m_Status = -4;
            return false;
        }
        if (!ReadDirectory(file, offset, entry)) {
            return false;
        }
        if (offset.Offset == 0) {
            break;
        }
        // A chain that comes back, or that needs more records than an index can name, ends here.
        if (visited.Contains(offset.Offset) ||
            m_NumIFDStdDir == std::numeric_limits<std::int16_t>::max()) {
            m_Status = -3;
            return false;
        }
        if (ReAllocStdTiff() != 1) {
            return false;
        }
    }
    return true;
}

/// Reads the directory at `offset` into the last record and stores the next directory's offset.
bool Tiff::ReadDirectory(void* file, TiffIFDOffsetStruct& offset, TiffIFDEntryStruct& entry) {
    TiffIFDNumStruct count = {0};
    if (ReadIFDNum(file, offset, count) != 1) {
        return false;
    }
    const short dir = LastDir();
    for (int i = 0; i < count.Num; ++i) {
        if (m_Allowance.entries-- == 0) {
            m_Allowance.entries = 0;
            m_Status = -3;
            return false;
        }
        if (ReadIFDEntry(file, entry) != 1 || ParseIFDStdDir(file, entry, dir) != 1) {
            return false;
        }
    }
    DumpAppendTIFFClass(dir);
    if (ReadIFDOffset(file, offset) != 1) {
        return false;
    }
    if (static_cast<std::uint32_t>(m_FileSize) <= offset.Offset) {
        offset.Offset = 0;
    }
    if (TiffIFDStdDirStruct* record = RecordAt(dir)) {
        record->NumEntries = count.Num;
    }
    return true;
}

long Tiff::ReadIFDOffset(void* file, TiffIFDOffsetStruct& offset) {
    if (FILE_read(file, &offset.Offset, sizeof(offset.Offset)) <= 0) {
        offset.Offset = 0;
        return Fail(-3);
    }
    offset.Offset = platen::tiff::SwapLONG(offset.Offset, Order());
    DumpAppendIFDOffset(offset.Offset);
    return 1;
}

long Tiff::ReadIFDNum(void* file, TiffIFDOffsetStruct& offset, TiffIFDNumStruct& count) {
    if (FILE_lseek(file, static_cast<LONG>(offset.Offset), 0) < 0 ||
        FILE_read(file, &count.Num, sizeof(count.Num)) <= 0) {
        return Fail(-3);
    }
    count.Num = SwapSHORT(count.Num, Order());
    m_TotalEntries = static_cast<std::uint16_t>(m_TotalEntries + count.Num);
    DumpAppendIFDCount(count.Num);
    return 1;
}

long Tiff::ReadIFDEntry(void* file, TiffIFDEntryStruct& entry) {
    if (FILE_read(file, &entry, sizeof(entry)) <= 0) {
        return Fail(-3);
    }
    entry.Tag = SwapSHORT(entry.Tag, Order());
    entry.Type = SwapSHORT(entry.Type, Order());
    entry.Count = platen::tiff::SwapLONG(entry.Count, Order());
    entry.ValueOffset = NormalisedValue(entry, Order());
    return 1;
}

/// The first directory's image must end within the file. In 32-bit arithmetic that wraps; without
/// BitsPerSample there is nothing to test.
void Tiff::CheckImageFits() {
    const TiffIFDStdDirStruct* record = RecordAt(0);
    if (record == nullptr || record->BitsPerSample == nullptr) {
        return;
    }
    std::uint32_t first = 0;
    if (record->StripOffsetsShort != nullptr) {
        first += static_cast<std::uint32_t>(static_cast<std::int16_t>(*record->StripOffsetsShort));
    }
    if (record->StripOffsetsLong != nullptr) {
        first += *record->StripOffsetsLong;
    }
    const auto bytesPerSample =
        static_cast<std::uint32_t>(static_cast<std::int16_t>(*record->BitsPerSample) / 8);
    const std::uint32_t end = bytesPerSample * static_cast<std::uint32_t>(record->ImageWidth) *
                                  static_cast<std::uint32_t>(record->ImageLength) +
                              first;
    if (static_cast<std::int32_t>(end) > m_FileSize) {
        m_Status = -3;
    }
}

/// False, and nothing is spent, when the read in progress may not spend that much any more.
bool Tiff::SpendBytes(std::uint64_t count) {
    if (count > m_Allowance.bytes) {
        return false;
    }
    m_Allowance.bytes -= count;
    return true;
}
