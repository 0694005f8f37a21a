#include <platen/tiff/TiffCopy.h>

#include <algorithm>
#include <filesystem>
#include <new>

#include <platen/base/files.h>
#include <platen/tiff/blocks.h>
#include <platen/tiff/copy_job.h>
#include <platen/tiff/directory_walk.h>
#include <platen/tiff/file_layout.h>
#include <platen/tiff/tag_table.h>

namespace {

/// Counts that a kind's field holds whole.
struct HoldsCount {
    std::uint32_t count;

    bool operator()(const platen::tiff::WordPairField& /*field*/) const { return count == 2; }
    template <std::size_t N>
    bool operator()(const platen::tiff::RationalGroupField<N>& /*field*/) const {
        return count == N;
    }
    bool operator()(const platen::tiff::ColorTableField& /*field*/) const {
        return count <= platen::tiff::kColorTableTaken;
    }
    bool operator()(const platen::tiff::TextField& /*field*/) const { return true; }
    bool operator()(const platen::tiff::WordArrayField& /*field*/) const { return true; }
    bool operator()(const platen::tiff::OffsetArrayField& /*field*/) const { return true; }
    template <typename SingleField>
    bool operator()(const SingleField& /*field*/) const {
        return count == 1;
    }
};

/// Whether an entry's characters go on behind the first zero byte: several texts in one entry.
bool HasMoreText(const char* characters, std::uint32_t count) {
    const char* end = characters + count;
    const char* rest = std::find(characters, end, '\0');
    return std::any_of(rest, end, [](char letter) { return letter != '\0'; });
}

/// Of a value that was stored: what a copy must not take from the record.
struct Mender {
    const TiffIFDEntryStruct& entry;
    platen::tiff::Record& record;

    /// A text that is cut at its first zero byte goes; the entry is kept instead.
    void operator()(const platen::tiff::TextField& field) const {
        char*& text = record.*field.text;
        const bool inEntry = entry.Count <= platen::tiff::kTextInEntry;
        const char* characters = inEntry ? reinterpret_cast<const char*>(&entry.ValueOffset) : text;
        if (text != nullptr && HasMoreText(characters, entry.Count)) {
            platen::tiff::ReleaseBlock(text);
        }
    }
    /// The record takes a SHORT for signed; no image has a negative size.
    void operator()(const platen::tiff::SizeField& field) const {
        if (entry.Type == TIFF_SHORT) {
            record.*field.value = static_cast<std::uint16_t>(entry.ValueOffset);
        }
    }
    template <typename OtherField>
    void operator()(const OtherField& /*field*/) const {}
};

}  // namespace

TiffCopy::TiffCopy() = default;

TiffCopy::~TiffCopy() = default;

long TiffCopy::Read(void* file) {
    m_Kept.clear();
    if (Tiff::Read(file) == -3 && m_ReadWhole) {
        m_Status = 1;
    }
    try {
        m_PixelBytes.resize(static_cast<std::size_t>(m_NumIFDStdDir));
        std::transform(m_StdDir, m_StdDir + m_NumIFDStdDir, m_PixelBytes.begin(),
                       platen::tiff::PixelBytes);
    } catch (const std::bad_alloc&) {
        m_Status = -4;
        m_ReadWhole = false;
    }
    return m_Status;
}

void TiffCopy::ForgetTAG(std::uint16_t tag, short dir) {
    std::erase_if(m_Kept,
                  [&](const KeptEntry& kept) { return kept.dir == dir && kept.entry.Tag == tag; });
}

long TiffCopy::Keep(const TiffIFDEntryStruct& entry, short dir) {
    try {
        m_Kept.push_back({dir, entry});
    } catch (const std::bad_alloc&) {
        m_Status = -4;
        return -4;
    }
    return 1;
}

/// What the record cannot hold whole, or would not be written from it, is kept as it is.
long TiffCopy::ParseIFDStdDir(void* file, TiffIFDEntryStruct& entry, short dir) {
    const platen::tiff::TagRow* row = platen::tiff::FindTag(entry.Tag);
    if (row == nullptr) {
        return Tiff::ParseIFDStdDir(file, entry, dir);
    }
    if (std::holds_alternative<platen::tiff::BlockSlot>(row->field)) {
        return 1;  // free space of this file, which a copy does not have
    }
    if (!row->Accepts(entry.Type) || !std::visit(HoldsCount{entry.Count}, row->field)) {
        return Keep(entry, dir);
    }
    const TiffIFDEntryStruct asRead = entry;
    const long answer = Tiff::ParseIFDStdDir(file, entry, dir);
    if (answer != 1) {
        return answer;
    }
    std::visit(Mender{asRead, m_StdDir[dir]}, row->field);
    const bool given = row->written == 0 || platen::tiff::ValueToWrite(*row, m_StdDir[dir]);
    return given ? 1 : Keep(asRead, dir);
}

long TiffCopy::ParseIFDCustomDir(void* file, TiffIFDEntryStruct& entry, short dir) {
    Keep(entry, dir);
    return Tiff::ParseIFDCustomDir(file, entry, dir);
}

TiffCopy::Result TiffCopy::CopyTo(const char* name, short format, Progress progress,
                                  void* context) {
    if (!m_ReadWhole) {
        return {Outcome::SourceFailed, -1, "the file was not read whole"};
    }
    try {
        const platen::tiff::CopySource source = {
            m_Kept,  m_PixelBytes, {m_StdDir, static_cast<std::size_t>(m_NumIFDStdDir)},
            m_hFile, m_FileSize,   static_cast<std::uint16_t>(m_Format)};
        platen::tiff::CopyJob job(*this, source, static_cast<std::uint16_t>(format));
        const Result planned = job.Plan();
        return planned.outcome == Outcome::Done ? job.Run(name, progress, context) : planned;
    } catch (const std::bad_alloc&) {
        return {Outcome::NoMemory, -1, "memory is exhausted"};
    } catch (const std::filesystem::filesystem_error&) {
        return {Outcome::OutputFailed, -1, "the output's name cannot be used"};
    }
}
