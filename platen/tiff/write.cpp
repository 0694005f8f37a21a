#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <platen/base/files.h>
#include <platen/base/same_file.h>
#include <platen/tiff/Tiff.h>
#include <platen/tiff/byte_order.h>
#include <platen/tiff/directory_walk.h>
#include <platen/tiff/entry_writer.h>
#include <platen/tiff/file_layout.h>
#include <platen/tiff/image_data.h>
#include <platen/tiff/listing.h>
#include <platen/tiff/write_walk.h>

namespace {

using Record = TiffIFDStdDirStruct;

constexpr LONG kOpenForWriting = 0x8301;
/// A directory holds the entries of at most two records.
constexpr std::size_t kMostEntries = 2 * platen::tiff::kTagCount;

std::uint16_t OrderOf(short format) {
    return static_cast<std::uint16_t>(format);
}

class StandardOutput : public platen::tiff::TextSink {
  public:
    void Take(std::string_view piece) override {
        std::fwrite(piece.data(), 1, piece.size(), stdout);
    }
};

/// A position as a record holds it. One that no offset names becomes the largest, which leads
/// nowhere.
std::uint32_t OffsetOf(std::int64_t position) {
    return static_cast<std::uint32_t>(std::min<std::int64_t>(position, UINT32_MAX));
}

/// Writes directories of placeholders where the file stands.
class BlankDirectories {
  public:
    BlankDirectories(void* file, std::uint16_t order)
        : m_file(file),
          m_blank{0, SwapSHORT(platen::kTypeLong, order), platen::tiff::SwapLONG(1, order), 0} {}

    /// One directory: number 0, `entries` placeholders and no link. False when a write failed.
    bool Add(std::size_t entries) {
        const std::size_t size = platen::tiff::DirectorySize(entries);
        if (size > m_bytes.size() - m_used && !Flush()) {
            return false;
        }
        std::uint8_t* at = m_bytes.data() + m_used;
        std::memset(at, 0, size);
        for (std::size_t i = 0; i < entries; ++i) {
            std::memcpy(at + platen::tiff::kCountSize + i * sizeof(m_blank), &m_blank,
                        sizeof(m_blank));
        }
        m_used += size;
        return true;
    }

    bool Flush() {
        const auto size = static_cast<LONG>(m_used);
        m_used = 0;
        return FILE_write(m_file, m_bytes.data(), size) == size;
    }

  private:
    static_assert(platen::tiff::DirectorySize(kMostEntries) < 16384);

    void* m_file;
    TiffIFDEntryStruct m_blank;
    std::size_t m_used = 0;
    std::array<std::uint8_t, 16384> m_bytes;
};

}  // namespace

/// Whether the whole file would end where file handles still have positions.
bool Tiff::LayoutFits() const {
    std::int64_t end = platen::tiff::kHeaderSize + platen::tiff::kLinkSize;
    ForEachDataArea([&](short dir, std::int64_t /*start*/, std::int64_t size) {
        std::size_t entries = 0;
        WalkDirectory(
            dir, [&](const platen::tiff::TagRow& /*row*/, const platen::tiff::EntryValue& value) {
                ++entries;
                end += platen::tiff::BytesBehind(value);
            });
        end += size + static_cast<std::int64_t>(platen::tiff::DirectorySize(entries));
    });
    return end <= platen::tiff::kLargestFile;
}

long Tiff::RefuseLayout() {
    errno = EFBIG;
    m_Status = 0;
    return -1;
}

/// The steps run whatever the earlier ones reported; the last status is the answer.
template <typename DataWriter>
long Tiff::WriteFile(const char* name, short format, DataWriter writeData) {
    if (!LayoutFits()) {
        return RefuseLayout();
    }
    void* file = FILE_creat(name, 0);
    if (file != FILE_none()) {
        FILE_close(file);
        file = FILE_open(name, kOpenForWriting, nullptr);
    }
    if (file == FILE_none()) {
        m_Status = 0;
        return -1;
    }
    WriteWhole(file, format, writeData);
    FILE_close(file);
    return m_Status;
}

template <typename DataWriter>
long Tiff::WriteWhole(void* file, short format, DataWriter writeData) {
    WriteSetupStructs();
    WriteHeader(file, format);
    Write1stOffset(file, format);
    writeData(file);
    WriteBlank(file, format, [this](short dir) { return m_StdDir[dir].WriteNumEntries; });
    WriteFullIFD(file, format);
    return m_Status;
}

long Tiff::WriteNew(const char* name, short format) {
    return WriteFile(name, format, [this](void* file) { WriteDATA(file); });
}

long Tiff::WriteNewInto(void* file, short format) {
    return LayoutFits() ? WriteWhole(file, format, [this](void* to) { WriteDATA(to); })
                        : RefuseLayout();
}

long Tiff::WriteCopyInto(void* file, short format) {
    return LayoutFits()
               ? WriteWhole(file, format, [this, format](void* to) { WriteDATA(to, format); })
               : RefuseLayout();
}

long Tiff::WriteCopy(const char* name, short format) {
    // Creating the output would truncate the image data before it is copied.
    if (IsSameFile(m_hFile, name)) {
        m_Status = 0;
        return -1;
    }
    return WriteFile(name, format, [this, format](void* file) { WriteDATA(file, format); });
}

void Tiff::WriteSetupStructs() {
    std::int64_t position = platen::tiff::kHeaderSize;
    ForEachDataArea([&](short dir, std::int64_t start, std::int64_t size) {
        Record& record = m_StdDir[dir];
        if (platen::tiff::IsRelocated(record)) {
            record.ReadDataOffset = *record.StripOffsetsLong;
            *record.StripOffsetsLong = OffsetOf(start);
        }
        position = start + size;
    });
    std::int64_t link = 4;
    ForEachWritten([&](short dir) {
        Record& record = m_StdDir[dir];
        record.WriteNumEntries = static_cast<std::uint16_t>(WriteGetIFDNum(dir));
        record.WriteLinkOffset = OffsetOf(link);
        record.WriteIFDOffset = OffsetOf(position);
        position += static_cast<std::int64_t>(platen::tiff::DirectorySize(record.WriteNumEntries));
        link = position - platen::tiff::kLinkSize;
        return true;
    });
}

/// Writes bytes whose outcome is looked at: 1, or -3 when nothing went through.
long Tiff::WriteWord(void* file, const void* bytes, std::int32_t size) {
    m_Status = FILE_write(file, bytes, size) > 0 ? 1 : -3;
    return m_Status;
}

long Tiff::WriteHeader(void* file, short format) {
    const std::uint16_t header[2] = {OrderOf(format),
                                     SwapSHORT(platen::tiff::kVersion, OrderOf(format))};
    return WriteWord(file, header, sizeof(header));
}

long Tiff::Write1stOffset(void* file, short format) {
    const std::uint32_t first = m_StdDir == nullptr ? 0 : m_StdDir->WriteIFDOffset;
    const std::uint32_t offset = platen::tiff::SwapLONG(first, OrderOf(format));
    return WriteWord(file, &offset, sizeof(offset));
}

long Tiff::WriteBlankOffset(void* file, short /*format*/) {
    constexpr std::uint32_t kNoOffset = 0;
    return WriteWord(file, &kNoOffset, sizeof(kNoOffset));
}

long Tiff::WriteFullOffset(void* /*file*/, short /*format*/) {
    return 1;
}

long Tiff::WriteUserData(short /*dir*/, void* /*data*/) {
    return 1;
}

/// The placeholders of several directories, which lie back to back, go out in one write, and its
/// outcome decides: a failed write leaves the bytes that single ones would have left.
template <typename EntriesOf>
long Tiff::WriteBlank(void* file, short format, EntriesOf entriesOf) {
    FILE_lseek(file, 0, 2);
    BlankDirectories blank(file, OrderOf(format));
    bool good = true;
    ForEachWritten([&](short dir) {
        good = blank.Add(static_cast<std::size_t>(entriesOf(dir)));
        return good;
    });
    return good && blank.Flush() ? WriteBlankOffset(file, format) : Fail(-3);
}

long Tiff::WriteBlankIFD(void* file, short format) {
    return WriteBlank(file, format, [this](short dir) { return WriteGetIFDNum(dir); });
}

long Tiff::WriteFullIFD(void* file, short format) {
    platen::tiff::EntryWriter writer(file, OrderOf(format));
    ForEachWritten([&](short dir) {
        m_Status = WriteChained(file, writer, OrderOf(format), dir);
        return m_Status == 1 && m_StdDir[dir].WriteIFDOffset != 0;
    });
    writer.Finish();
    return m_Status;
}

/// Writes a directory and the link that leads to it: 1, or -3 when link or number of entries
/// failed. All of it goes out together where it lies together, which is in every directory but the
/// first.
std::int32_t Tiff::WriteChained(void* file, platen::tiff::EntryWriter& writer, std::uint16_t order,
                                short dir) {
    const Record& record = m_StdDir[dir];
    const std::uint32_t link = platen::tiff::SwapLONG(record.WriteIFDOffset, order);
    const bool together = record.WriteLinkOffset + platen::tiff::kLinkSize == record.WriteIFDOffset;
    if (!together) {
        if (FILE_lseek(file, static_cast<LONG>(record.WriteLinkOffset), 0) < 0) {
            return -3;
        }
        if (WriteWord(file, &link, platen::tiff::kLinkSize) != 1 || record.WriteIFDOffset == 0) {
            return m_Status;
        }
    }
    writer.StartDirectory(record.WriteIFDOffset, together ? &link : nullptr);
    WalkDirectory(
        dir, [&writer](const platen::tiff::TagRow& /*row*/, const platen::tiff::EntryValue& value) {
            writer.AddEntry(value);
        });
    return writer.FlushEntries() ? 1 : -3;
}

/// Visits the entries that stand in a directory: a record's own, and those of an old-form one.
template <typename Visit>
void Tiff::WalkDirectory(short dir, Visit visit) const {
    platen::tiff::WalkEntries(m_StdDir[dir], visit);
    const short old = OldFormBehind(dir);
    if (old >= 0) {
        platen::tiff::WalkEntries(m_StdDir[old], visit);
    }
}

/// The old-form XK directory whose entries stand in directory 0 behind its own, or -1.
short Tiff::OldFormBehind(short dir) const {
    return dir == 0 ? GetXKoldIFDDir() : static_cast<short>(-1);
}

long Tiff::WriteGetIFDNum(short dir) {
    short count = WriteIFDStdDir(FILE_none(), 0, dir, 0);
    const short old = OldFormBehind(dir);
    if (old >= 0) {
        count = static_cast<short>(count + WriteIFDStdDir(FILE_none(), 0, old, 0));
    }
    return count;
}

short Tiff::WriteIFDStdDir(void* file, short format, short dir, int print) {
    const Record* record = RecordAt(dir);
    if (record == nullptr) {
        return 0;
    }
    const bool counting = file == FILE_none();
    std::optional<platen::tiff::EntryWriter> writer;
    if (!counting) {
        writer.emplace(file, OrderOf(format));
    }
    StandardOutput listing;
    if (print != 0) {
        platen::tiff::ListHeader(listing, m_FileName, m_FileSize, m_Format);
    }
    const std::int16_t count = platen::tiff::WalkEntries(
        *record, [&](const platen::tiff::TagRow& row, const platen::tiff::EntryValue& value) {
            if (writer) {
                writer->AddEntry(value);
            }
            if (print != 0) {
                platen::tiff::ListEntry(listing, row, *record);
            }
        });
    if (writer) {
        writer->Finish();
    }
    if (count > 0) {
        m_Status = counting ? -6 : 1;
    }
    return count;
}

long Tiff::WriteIFDEntry(void* file, short tag, short type, std::int32_t count, std::intptr_t value,
                         short format) {
    if (file == FILE_none()) {
        return Fail(-6);
    }
    platen::tiff::EntryWriter writer(file, OrderOf(format));
    writer.AddEntry(
        {static_cast<std::uint16_t>(tag), static_cast<std::uint16_t>(type), count, value});
    writer.Finish();
    m_Status = 1;
    return m_Status;
}
