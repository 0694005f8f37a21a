#include <platen/tiff/entry_writer.h>

#include <algorithm>
#include <cstring>

#include <platen/base/files.h>

namespace platen::tiff {

EntryWriter::EntryWriter(void* file, std::uint16_t order)
    : m_file(file),
      m_order(order),
      m_position(FILE_lseek(file, 0, 1)),
      m_end(FILE_lseek(file, 0, 2)) {}

void EntryWriter::AddPrefix(const void* bytes, std::size_t size) {
    std::memcpy(m_entries + m_entryBytes, bytes, size);
    m_entryBytes += size;
    m_prefix = m_entryBytes;
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
    AddValues(encoded);
}

bool EntryWriter::Finish() {
    FlushEntries();
    FlushValues();
    FILE_lseek(m_file, static_cast<LONG>(m_position), 0);
    return m_prefixWritten;
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

void EntryWriter::FlushEntries() {
    const std::int32_t written = WriteAt(m_position, m_entries, m_entryBytes);
    if (m_prefix > 0) {
        m_prefixWritten = written >= static_cast<std::int32_t>(m_prefix);
        m_prefix = 0;
    }
    m_position += static_cast<std::int64_t>(m_entryBytes);
    m_entryBytes = 0;
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
