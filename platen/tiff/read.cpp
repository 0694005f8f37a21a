#include <algorithm>
#include <cstring>
#include <limits>
#include <typeinfo>

#include <platen/base/file_watch.h>
#include <platen/base/files.h>
#include <platen/tiff/Tiff.h>
#include <platen/tiff/byte_order.h>
#include <platen/tiff/file_layout.h>
#include <platen/tiff/peek.h>
#include <platen/tiff/visited_offsets.h>

using platen::tiff::kEntrySize;
using platen::tiff::SwapLONG;
using platen::tiff::VisitedOffsets;

namespace {

constexpr std::uint16_t kOtherVersion = 50;
constexpr std::uint64_t kEntriesPerEntrySize = 8;
constexpr std::uint64_t kFreeEntries = 65536;
constexpr std::uint64_t kBytesPerByte = 32;
constexpr std::uint64_t kSmallFile = 1U << 20U;

static_assert(sizeof(TiffIFDEntryStruct) == kEntrySize);

/// A directory's entries as they stand in the file, read ahead some at a time. What was read ahead
/// and not taken is given back with the object: the position is then behind the last entry taken.
class RawEntries {
  public:
    RawEntries(void* file, std::size_t count) : m_file(file), m_left(count) {}
    ~RawEntries() {
        if (m_next != m_end) {
            FILE_lseek(m_file, static_cast<LONG>(m_next - m_end) * kEntrySize, 1);
        }
    }
    RawEntries(const RawEntries&) = delete;
    RawEntries& operator=(const RawEntries&) = delete;

    /// False, and the position is at the entry, when it has to be read by itself: the file ends
    /// soon or cannot be read.
    bool Take(TiffIFDEntryStruct& entry) {
        if (m_next == m_end && (m_left == 0 || !ReadAhead())) {
            return false;
        }
        entry = *m_next++;
        return true;
    }

  private:
    bool ReadAhead() {
        const std::size_t count = std::min(m_left, std::size(m_entries));
        const LONG size = static_cast<LONG>(count) * kEntrySize;
        const LONG got = FILE_read(m_file, m_entries, size);
        if (got != size) {
            FILE_lseek(m_file, -std::max<LONG>(got, 0), 1);
            --m_left;
            return false;
        }
        m_next = m_entries;
        m_end = m_entries + count;
        m_left -= count;
        return true;
    }

    void* m_file;
    std::size_t m_left;
    const TiffIFDEntryStruct* m_next = nullptr;
    const TiffIFDEntryStruct* m_end = nullptr;
    TiffIFDEntryStruct m_entries[32];
};

/// An entry as it stands in the file becomes one in machine byte order. A value that stands in the
/// entry is left-justified there (TIFF 6.0, section 2).
void Normalise(TiffIFDEntryStruct& entry, std::uint16_t order) {
    if (order == platen::kIntel) {
        if (entry.Type == platen::kTypeShort && entry.Count == 1) {
            entry.ValueOffset = static_cast<std::uint16_t>(entry.ValueOffset);
        }
        return;
    }
    // Tag, type and count lie side by side: reversed together, they come out in the other order.
    std::uint64_t head = 0;
    std::memcpy(&head, &entry, sizeof(head));
    head = __builtin_bswap64(head);
    entry.Tag = static_cast<std::uint16_t>(head >> 48U);
    entry.Type = static_cast<std::uint16_t>(head >> 32U);
    entry.Count = static_cast<std::uint32_t>(head);
    const std::uint32_t value = SwapLONG(entry.ValueOffset, order);
    if (entry.Type == platen::kTypeShort && entry.Count == 1) {
        entry.ValueOffset = value >> 16U;
    } else if ((entry.Type >= platen::kTypeShort && entry.Type <= platen::kTypeRational) ||
               (entry.Type == platen::kTypeAscii && entry.Count > platen::tiff::kTextInEntry)) {
        entry.ValueOffset = value;
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
        // The argument may have been the name stored before, which is gone.
        file = FILE_open(m_FileName, static_cast<LONG>(mode), &attribute);
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
    return ReadAll(file, typeid(*this) != typeid(Tiff));
}

long Tiff::ReadAll(void* file, bool hooked) {
    ResetFileVars();
    m_hFile = file;
    ReadSize(file);
    m_Allowance.fileSize = m_FileSize;
    const auto size = static_cast<std::uint64_t>(m_FileSize);
    m_Allowance.entries = kEntriesPerEntrySize * size / kEntrySize + kFreeEntries;
    m_Allowance.bytes = kBytesPerByte * std::max(size, kSmallFile);
    const platen::FileWatch watch;
    const bool walked = ReadHeader(file) == 1 && ReadChain(file, hooked);
    m_ReadWhole = walked && m_Status == 1 && !watch.Of(platen::FileWatch::Step::Read);
    if (walked) {
        CheckImageFits();
    }
    m_Allowance = {};
    return m_Status;
}

long Tiff::ReadSize(void* file) {
    m_FileSize = platen::tiff::Measure(file);
    FILE_lseek(file, 0, 0);
    return 1;
}

long Tiff::ReadHeader(void* file) {
    FILE_lseek(file, 0, 0);
    std::uint16_t words[2] = {0, 0};
    if (FILE_read(file, words, sizeof(words)) <= 0) {
        return Fail(-3);
    }
    const std::uint16_t order = words[0];
    if (order != platen::kMotorola && order != platen::kIntel) {
        return Fail(-3);
    }
    m_Format = static_cast<std::int16_t>(order);
    const std::uint16_t version = SwapSHORT(words[1], order);
    if (version != platen::tiff::kVersion && version != kOtherVersion) {
        return Fail(-2);
    }
    m_Version = static_cast<std::int16_t>(version);
    DumpAppendHeader();
    return 1;
}

/// Walks the chain; false when the walk stopped before its end. The first offset is noted before
/// its directory is read, so that a directory which links to itself is read once.
bool Tiff::ReadChain(void* file, bool hooked) {
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
        if (!ReadDirectory(file, offset, entry, hooked)) {
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
/// A hook sees the file where the entry ends, and what it writes there is read: entries are read
/// one by one for it.
bool Tiff::ReadDirectory(void* file, TiffIFDOffsetStruct& offset, TiffIFDEntryStruct& entry,
                         bool hooked) {
    TiffIFDNumStruct count = {0};
    if (ReadIFDNum(file, offset, count) != 1) {
        return false;
    }
    ++m_DirectoriesMet;
    const short dir = LastDir();
    const auto allowed =
        static_cast<std::uint16_t>(std::min<std::uint64_t>(count.Num, m_Allowance.entries));
    m_Allowance.entries -= allowed;
    RawEntries ahead(file, hooked ? 0 : allowed);
    for (std::uint16_t i = 0; i < allowed; ++i) {
        if (ahead.Take(entry)) {
            Normalise(entry, Order());
        } else if (ReadIFDEntry(file, entry) != 1) {
            return false;
        }
        if (ParseIFDStdDir(file, entry, dir) != 1) {
            return false;
        }
    }
    if (allowed < count.Num) {
        m_Status = -3;
        return false;
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
    offset.Offset = SwapLONG(offset.Offset, Order());
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
    Normalise(entry, Order());
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
