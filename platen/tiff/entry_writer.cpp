#include <platen/tiff/entry_writer.h>

#include <algorithm>
#include <cstring>

#include <platen/base/files.h>
#include <platen/tiff/byte_order.h>

namespace platen::tiff {
namespace {

constexpr std::size_t kNumberBytes = 2;

}  // namespace

EntryWriter::EntryWriter(void* file, std::uint16_t order)
    : m_file(file),
      m_order(order),
      m_position(FILE_lseek(file, 0, 1)),
      m_end(FILE_lseek(file, 0, 2)) {}

void EntryWriter::StartDirectory(std::int64_t position, const std::uint32_t* link) {
    const std::size_t linkBytes = link == nullptr ? 0 : sizeof(*link);
    if (link != nullptr) {
        std::memcpy(m_entries, link, linkBytes);
    }
    m_position = position - static_cast<std::int64_t>(linkBytes);
    m_prefix = linkBytes + kNumberBytes;
    m_entryBytes = m_prefix;
}

void EntryWriter::AddEntry(const EntryValue& value) {
    const std::int64_t valuesAt = m_end + static_cast<std::int64_t>(m_valueBytes);
    const EncodedEntry encoded = EncodeEntry(value, static_cast<std::uint32_t>(valuesAt), m_order);
    if (!encoded.written) {
        return;
    }
    if (m_entryBytes + sizeof(encoded.entry) > sizeof(m_entries)) {
        FlushEntries();
    }
    std::memcpy(m_entries + m_entryBytes, &encoded.entry, sizeof(encoded.entry));
    m_entryBytes += sizeof(encoded.entry);
    // An entry written at the end of the file moves that end: its values go behind it.
    const std::int64_t entryEnd = m_position + static_cast<std::int64_t>(m_entryBytes);
    if (entryEnd > valuesAt) {
        FlushValues();
        m_end = entryEnd;
    }
    AddValues(encoded);
}

void EntryWriter::Finish() {
    FlushValues();
    FlushEntries();
    FILE_lseek(m_file, static_cast<LONG>(m_position), 0);
}

void EntryWriter::AddValues(const EncodedEntry& encoded) {
    const auto* source = static_cast<const std::uint8_t*>(encoded.values);
    std::size_t left = source == nullptr ? 0 : encoded.elements;
    while (left > 0) {
        const std::size_t room = (sizeof(m_values) - m_valueBytes) / encoded.elementSize;
        if (room == 0) {
            FlushValues();
            continue;
        }
        const std::size_t count = std::min(left, room);
        ConvertElements(m_values + m_valueBytes, source, count, encoded.elementSize, m_order);
        m_valueBytes += count * encoded.elementSize;
        source += count * encoded.elementSize;
        left -= count;
    }
}

bool EntryWriter::FlushEntries() {
    if (m_prefix > 0) {
        const std::size_t entries = (m_entryBytes - m_prefix) / sizeof(TiffIFDEntryStruct);
        const std::uint16_t number = SwapSHORT(static_cast<std::uint16_t>(entries), m_order);
        std::memcpy(m_entries + m_prefix - kNumberBytes, &number, kNumberBytes);
    }
    const std::int32_t written = WriteAt(m_position, m_entries, m_entryBytes);
    const bool good = m_prefix == 0 || written >= static_cast<std::int32_t>(m_prefix);
    m_position += static_cast<std::int64_t>(m_entryBytes);
    m_prefix = 0;
    m_entryBytes = 0;
    return good;
}

void EntryWriter::FlushValues() {
    WriteAt(m_end, m_values, m_valueBytes);
    m_end += static_cast<std::int64_t>(m_valueBytes);
    m_valueBytes = 0;
}

std::int32_t EntryWriter::WriteAt(std::int64_t position, const void* bytes, std::size_t size) {
    if (size == 0 || position > INT32_MAX ||
        FILE_lseek(m_file, static_cast<LONG>(position), 0) < 0) {
        return 0;
    }
    return FILE_write(m_file, bytes, static_cast<LONG>(size));
}

}  // namespace platen::tiff
