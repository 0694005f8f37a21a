#include <platen/tiff/TiffCopy.h>

#include <algorithm>
#include <new>
#include <optional>
#include <typeinfo>
#include <utility>

#include <platen/base/file_watch.h>
#include <platen/base/files.h>
#include <platen/base/output_file.h>
#include <platen/base/system_error.h>
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
        if (entry.Type == platen::kTypeShort) {
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
    m_TagBytes = 0;
    m_FileRead = file;
    if (ReadAll(file, typeid(*this) != typeid(TiffCopy)) == -3 && m_ReadWhole) {
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

void TiffCopy::Count(const TiffIFDEntryStruct& entry) {
    constexpr std::int64_t kMoreThanAnyFile = std::int64_t{1} << 40U;
    const std::int64_t size =
        std::int64_t{entry.Count} * platen::tiff::SizeOfType(entry.Type).value;
    m_TagBytes =
        std::min(m_TagBytes + platen::tiff::kEntrySize + (size > 4 ? size : 0), kMoreThanAnyFile);
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
    Count(entry);
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
    Count(entry);
    Keep(entry, dir);
    return Tiff::ParseIFDCustomDir(file, entry, dir);
}

TiffCopy::Result TiffCopy::CopyTo(const char* name, short format, Progress progress,
                                  void* context) {
    return CopyTo(name, format, Options{.progress = progress, .context = context});
}

namespace {

constexpr TiffCopy::Result kNoMemory = {TiffCopy::Outcome::NoMemory, -1, "memory is exhausted"};

/// Runs what may run out of memory.
template <typename Copy>
TiffCopy::Result Caught(Copy copy) {
    TiffCopy::Result result;
    try {
        result = copy();
    } catch (const std::bad_alloc&) {
        result = kNoMemory;
    }
    if (result.outcome != TiffCopy::Outcome::Done) {
        platen::SetSystemError(result.systemError);  // what cleaned up may have changed it
    }
    return result;
}

TiffCopy::Result FailureOf(const platen::OutputFile& output) {
    const platen::OutputFailure& why = output.Why();
    return {why.isGuard ? TiffCopy::Outcome::Guarded : TiffCopy::Outcome::OutputFailed, -1,
            why.reason, why.systemError};
}

bool WriteToFile(void* output, const void* bytes, std::size_t size) {
    return static_cast<platen::OutputFile*>(output)->Write(bytes, size);
}

}  // namespace

TiffCopy::Result TiffCopy::CopyTo(const char* name, short format, const Options& options) {
    return Caught([&] { return Save(name, format, options); });
}

TiffCopy::Result TiffCopy::CopyTo(Sink sink, void* sinkContext, short format,
                                  const Options& options) {
    return Caught([&] {
        platen::tiff::CopyJob job = JobFor(format);
        const Result planned = job.Plan();
        return planned.outcome == Outcome::Done ? job.Write({sink, sinkContext}, options) : planned;
    });
}

/// The records may have been released since the read, or another file opened.
platen::tiff::CopyJob TiffCopy::JobFor(short format) const {
    return {{m_Kept,
             m_PixelBytes,
             {m_StdDir, static_cast<std::size_t>(m_NumIFDStdDir)},
             m_hFile,
             m_FileSize,
             m_TagBytes,
             static_cast<std::uint16_t>(m_Format),
             m_ReadWhole && m_NumIFDStdDir != 0 && m_hFile == m_FileRead},
            static_cast<std::uint16_t>(format)};
}

TiffCopy::Result TiffCopy::Save(const char* name, short format, const Options& options) {
    platen::tiff::CopyJob job = JobFor(format);
    Result result = job.Plan();
    if (result.outcome != Outcome::Done) {
        return result;
    }
    platen::OutputFile output;
    if (!output.Create(name, options.insists)) {
        return FailureOf(output);
    }
    result = job.Write({&WriteToFile, &output}, options);
    if (result.outcome != Outcome::Done) {
        return result.outcome == Outcome::OutputFailed ? FailureOf(output) : result;
    }
    // What the object becomes is read before the old file goes: then nothing can fail any more.
    std::optional<TiffCopy> written;
    const platen::FileWatch watch;
    if (output.Replaces(m_hFile) &&
        (written.emplace().Read(output.Handle()) != 1 || !written->IsReadWhole())) {
        return written->m_Status == -4
                   ? kNoMemory
                   : Result{Outcome::OutputFailed, -1, "the output could not be read",
                            watch.Of(platen::FileWatch::Step::Read).value_or(0)};
    }
    const bool saved = output.Commit(written ? m_hFile : FILE_none());
    if (output.IsFollowed()) {
        Become(*written);
    }
    result = saved ? Result{} : FailureOf(output);
    result.notes = output.Notes();
    return result;
}

/// Takes over what another object has read, but for its handle and report.
void TiffCopy::Become(TiffCopy& other) {
    std::swap(m_Kept, other.m_Kept);
    std::swap(m_PixelBytes, other.m_PixelBytes);
    std::swap(m_TagBytes, other.m_TagBytes);
    std::swap(m_StdDir, other.m_StdDir);
    std::swap(m_NumIFDStdDir, other.m_NumIFDStdDir);
    std::swap(m_FileSize, other.m_FileSize);
    std::swap(m_Format, other.m_Format);
    std::swap(m_Version, other.m_Version);
    std::swap(m_TotalEntries, other.m_TotalEntries);
    std::swap(m_DirectoriesMet, other.m_DirectoriesMet);
}
