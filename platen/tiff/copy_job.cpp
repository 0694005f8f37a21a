#include <platen/tiff/copy_job.h>

#include <algorithm>
#include <cstring>
#include <iterator>

#include <platen/base/files.h>
#include <platen/base/memory.h>
#include <platen/base/system_error.h>
#include <platen/tiff/blocks.h>
#include <platen/tiff/byte_order.h>
#include <platen/tiff/directory_walk.h>
#include <platen/tiff/file_layout.h>

namespace platen::tiff {
namespace {

using Outcome = TiffCopy::Outcome;
using Result = TiffCopy::Result;

constexpr std::uint16_t kNewSubfileType = 254;
constexpr std::uint16_t kSubfileType = 255;
constexpr std::uint16_t kStripOffsets = 273;
constexpr std::uint16_t kRowsPerStrip = 278;
constexpr std::uint16_t kStripByteCounts = 279;
constexpr std::uint16_t kPointerType = 13;
constexpr std::size_t kChunk = std::size_t{240} * 1024;  ///< whole samples of every size
/// What a file's parts may take in a copy, by the file's own size: more than any without parts that
/// overlap, which TIFF 6.0 rules out (section 7, "No Duplicate Pointers").
constexpr std::int64_t kMostPerByte = 4;
constexpr std::int64_t kMostOfAny = 4096;

/// Tags whose values are places in the file: what stands there would be lost.
constexpr std::uint16_t kPointers[] = {330, 513, 34665, 34853, 40965};

/// Tags without which the image cannot be understood: no record holding them, no copy.
constexpr std::uint16_t kPixelTags[] = {
    256, 257, 258, 259, 262, kStripOffsets, 277, kStripByteCounts, 284, 322, 323, 324, 325};

constexpr bool IsOwn(std::uint16_t tag) {
    return tag == kStripOffsets || tag == kRowsPerStrip || tag == kStripByteCounts;
}

/// The entry's last four bytes as they stood in the file.
std::uint32_t RawField(const TiffIFDEntryStruct& entry, std::uint16_t order) {
    const bool oneShort = entry.Type == kTypeShort && entry.Count == 1;
    const bool asItStands = entry.Type < kTypeAscii || entry.Type > kTypeRational ||
                            (entry.Type == kTypeAscii && entry.Count <= 4);
    if (oneShort) {
        return SwapSHORT(static_cast<std::uint16_t>(entry.ValueOffset), order);
    }
    return asItStands ? entry.ValueOffset : SwapLONG(entry.ValueOffset, order);
}

/// Releases its block with the object.
class ChunkBuffer {
  public:
    ChunkBuffer() : m_bytes(static_cast<std::uint8_t*>(MEM_NewPtr(kChunk, GHND))) {}
    ~ChunkBuffer() { MEM_FreePtr(m_bytes); }
    ChunkBuffer(const ChunkBuffer&) = delete;
    ChunkBuffer& operator=(const ChunkBuffer&) = delete;
    [[nodiscard]] std::uint8_t* Bytes() const { return m_bytes; }

  private:
    std::uint8_t* m_bytes;
};

constexpr Result kAborted = {Outcome::Aborted, -1, "aborted"};

Result NotWritten() {
    return {Outcome::OutputFailed, -1, "the output could not be written", SystemError()};
}

/// Reads all of it. The system's last error is 0 when the file just ended.
bool ReadAt(void* file, std::int64_t offset, void* buffer, std::size_t size) {
    const auto count = static_cast<LONG>(size);
    ClearSystemError();
    return FILE_lseek(file, static_cast<LONG>(offset), 0) >= 0 &&
           FILE_read(file, buffer, count) == count;
}

/// Moves a run through the buffer. `goOn(bytes)` is told of each piece and answers whether to.
template <typename GoOn>
Result CopyRun(void* file, const CopyOutput& output, StripRun run, std::uint32_t swapBytes,
               std::uint8_t* buffer, GoOn goOn) {
    while (run.bytes > 0) {
        const auto size = std::min<std::int64_t>(run.bytes, kChunk);
        const auto bytes = static_cast<std::size_t>(size);
        if (!ReadAt(file, run.offset, buffer, bytes)) {
            return {Outcome::SourceFailed, -1, "the image data could not be read", SystemError()};
        }
        ConvertElements(buffer, buffer, bytes / swapBytes, swapBytes, kMotorola);
        if (!output.Write(buffer, bytes)) {
            return NotWritten();
        }
        run.offset += size;
        run.bytes -= size;
        if (!goOn(size)) {
            return kAborted;
        }
    }
    return {};
}

}  // namespace

std::span<const TiffCopy::KeptEntry> CopyJob::KeptOf(short dir) const {
    const auto first = std::ranges::lower_bound(m_source.kept, dir, {}, &TiffCopy::KeptEntry::dir);
    const auto end = std::ranges::upper_bound(m_source.kept, dir, {}, &TiffCopy::KeptEntry::dir);
    return {first, end};
}

const char* CopyJob::RefusedTag(short dir) const {
    for (const TiffCopy::KeptEntry& kept : KeptOf(dir)) {
        if (std::ranges::find(kPointers, kept.entry.Tag) != std::end(kPointers) ||
            kept.entry.Type == kPointerType) {
            return "a tag leads to further directories or data, which are not copied";
        }
        if (SizeOfType(kept.entry.Type).value == 0) {
            return "a tag has a field type that is not known";
        }
        if (std::ranges::find(kPixelTags, kept.entry.Tag) != std::end(kPixelTags)) {
            return "a tag that decides on the pixels has a type or count that is not known";
        }
    }
    return nullptr;
}

/// Writers may give RowsPerStrip as SHORT, which no record takes.
std::uint32_t CopyJob::RowsPerStrip(short dir) const {
    for (const TiffCopy::KeptEntry& kept : KeptOf(dir)) {
        if (kept.entry.Tag == kRowsPerStrip && kept.entry.Type == kTypeShort) {
            return kept.entry.ValueOffset;
        }
    }
    return m_source.records[static_cast<std::size_t>(dir)].RowsPerStrip;
}

/// Tags can have been edited since; the pixels were not.
bool CopyJob::IsAsRead(std::size_t dir) const {
    const StripPlan& plan = m_images[dir].plan;
    return plan.strips.empty() || dir >= m_source.pixelBytes.size() ||
           plan.Bytes() == m_source.pixelBytes[dir];
}

Result CopyJob::Plan() {
    if (m_order != kIntel && m_order != kMotorola) {
        return {Outcome::Refused, -1, "the byte order is not known"};
    }
    if (!m_source.isWhole) {
        return {Outcome::SourceFailed, -1, "the file was not read whole"};
    }
    std::int64_t position = kHeaderSize;
    m_images.resize(m_source.records.size());
    for (std::size_t i = 0; i < m_images.size(); ++i) {
        const auto dir = static_cast<short>(i);
        const char* reason = RefusedTag(dir);
        if (reason == nullptr) {
            reason = PlanStrips(m_source.records[i], RowsPerStrip(dir), m_source.fileSize,
                                m_images[i].plan);
        }
        m_images[i].offset = position;
        m_total += m_images[i].plan.Bytes();
        position += Even(m_images[i].plan.Bytes());
        if (reason == nullptr && !IsAsRead(i)) {
            reason = "the image's tags do not match its pixels";
        }
        if (reason == nullptr && position > kLargestFile) {
            reason = "the copy would be larger than 2 GiB";
        }
        if (reason != nullptr) {
            return {Outcome::Refused, dir, reason};
        }
    }
    m_imagesEnd = position;
    if (m_total + m_source.tagBytes > kMostPerByte * m_source.fileSize + kMostOfAny) {
        return {Outcome::Refused, -1,
                "its parts overlap so much that the copy would be many times larger"};
    }
    return {};
}

Result CopyJob::Write(const CopyOutput& output, const TiffCopy::Options& options) {
    FILE_lseek(m_source.file, 0, 2);  // what others wrote is seen from here on
    const std::uint16_t words[2] = {m_order, SwapSHORT(kVersion, m_order)};
    const std::uint32_t first = SwapLONG(static_cast<std::uint32_t>(m_imagesEnd), m_order);
    if (!output.Write(words, sizeof(words)) || !output.Write(&first, sizeof(first))) {
        return NotWritten();
    }
    const Result result = CopyImages(output, options);
    return result.outcome == Outcome::Done ? WriteDirectories(output, options) : result;
}

Result CopyJob::CopyImages(const CopyOutput& output, const TiffCopy::Options& options) {
    const ChunkBuffer buffer;
    if (buffer.Bytes() == nullptr) {
        return {Outcome::NoMemory, -1, "memory is exhausted"};
    }
    std::int64_t done = 0;
    const auto goOn = [&](std::int64_t bytes) {
        done += bytes;
        return options.progress == nullptr || options.progress(options.context, done, m_total) == 0;
    };
    for (const Image& image : m_images) {
        const std::uint32_t swapBytes = NeedsSwap() ? image.plan.swapBytes : 1;
        for (const StripRun& run : image.plan.strips) {
            Result result = CopyRun(m_source.file, output, run, swapBytes, buffer.Bytes(), goOn);
            if (result.outcome != Outcome::Done) {
                result.dir = static_cast<short>(&image - m_images.data());
                return result;
            }
        }
        constexpr char kPadding = 0;
        if (image.plan.Bytes() % 2 != 0 && !output.Write(&kPadding, 1)) {
            return NotWritten();
        }
    }
    return {};
}

Result CopyJob::WriteDirectories(const CopyOutput& output, const TiffCopy::Options& options) {
    std::int64_t position = m_imagesEnd;
    for (std::size_t i = 0; i < m_images.size(); ++i) {
        const auto dir = static_cast<short>(i);
        DirectoryBytes directory(m_order);
        if (Result result = CollectEntries(dir, directory); result.outcome != Outcome::Done) {
            result.dir = dir;
            return result;
        }
        const std::vector<std::uint8_t> bytes =
            directory.At(static_cast<std::uint32_t>(position), i + 1 < m_images.size());
        position += static_cast<std::int64_t>(bytes.size());
        if (position > kLargestFile) {
            return {Outcome::Refused, dir, "the copy would be larger than 2 GiB"};
        }
        if (!output.Write(bytes.data(), bytes.size())) {
            return NotWritten();
        }
        if (options.progress != nullptr &&
            options.progress(options.context, m_total, m_total) != 0) {
            return kAborted;
        }
    }
    return {};
}

Result CopyJob::CollectEntries(short dir, DirectoryBytes& directory) {
    const auto index = static_cast<std::size_t>(dir);
    WalkEntries(m_source.records[index], [&](const TagRow& row, const EntryValue& value) {
        if (!IsOwn(row.tag)) {
            directory.Add(value);
        }
    });
    AddStrips(m_images[index], directory);
    for (const TiffCopy::KeptEntry& kept : KeptOf(dir)) {
        if (!IsOwn(kept.entry.Tag) && !directory.Has(kept.entry.Tag)) {
            if (const Result result = AddKept(kept.entry, directory);
                result.outcome != Outcome::Done) {
                return result;
            }
        }
    }
    if (!directory.Has(kNewSubfileType) && !directory.Has(kSubfileType)) {
        directory.Add({kNewSubfileType, kTypeLong, 1, 0});
    }
    return {};
}

/// One strip a plane, back to back.
void CopyJob::AddStrips(const Image& image, DirectoryBytes& directory) {
    if (image.plan.strips.empty()) {
        return;
    }
    const auto planes = static_cast<std::size_t>(image.plan.planes);
    const auto add = [&](std::uint16_t tag) {
        const bool single = m_numbers.size() == 1;
        directory.Add({tag, kTypeLong, static_cast<std::int32_t>(m_numbers.size()),
                       single ? static_cast<std::intptr_t>(m_numbers[0])
                              : reinterpret_cast<std::intptr_t>(m_numbers.data())});
    };
    m_numbers.clear();
    for (std::size_t i = 0; i < planes; ++i) {
        m_numbers.push_back(static_cast<std::uint32_t>(image.offset + static_cast<std::int64_t>(i) *
                                                                          image.plan.planeBytes));
    }
    add(kStripOffsets);
    m_numbers.assign(planes, static_cast<std::uint32_t>(image.plan.planeBytes));
    add(kStripByteCounts);
    m_numbers.assign(1, static_cast<std::uint32_t>(image.plan.rows));
    add(kRowsPerStrip);
}

Result CopyJob::AddKept(const TiffIFDEntryStruct& entry, DirectoryBytes& directory) const {
    const TypeSize type = SizeOfType(entry.Type);
    const std::int64_t size = std::int64_t{entry.Count} * type.value;
    const std::uint32_t field = RawField(entry, m_source.order);
    RawValue value = {entry.Tag, entry.Type, entry.Count, {}};
    if (size <= 4) {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(&field);
        value.bytes.assign(bytes, bytes + size);
    } else {
        const std::int64_t offset = SwapLONG(field, m_source.order);
        if (offset + size > m_source.fileSize) {
            return {Outcome::SourceFailed, -1, "a tag's values lie beyond the end of the file"};
        }
        value.bytes.resize(static_cast<std::size_t>(size));
        if (!ReadAt(m_source.file, offset, value.bytes.data(), value.bytes.size())) {
            return {Outcome::SourceFailed, -1, "a tag's values could not be read", SystemError()};
        }
    }
    ConvertElements(value.bytes.data(), value.bytes.data(), value.bytes.size() / type.element,
                    type.element, m_source.order);
    directory.Add(std::move(value));
    return {};
}

}  // namespace platen::tiff
