#pragma once

#include <cstddef>
#include <cstdint>

#include <platen/tiff/entry_encoder.h>

namespace platen::tiff {

/// Writes a directory's entries where the file stands and their long values behind the end of the
/// file. Both are gathered, so that a directory costs two writes: `Finish` writes what is left and
/// leaves the file behind the last entry.
class EntryWriter {
  public:
    EntryWriter(void* file, std::uint16_t order);
    EntryWriter(const EntryWriter&) = delete;
    EntryWriter& operator=(const EntryWriter&) = delete;

    /// Puts bytes that are to stand before the entries: at most 8, before the first entry.
    void AddPrefix(const void* bytes, std::size_t size);
    void AddEntry(const EntryValue& value);
    /// False when not even the prefix was written.
    bool Finish();

  private:
    void AddValues(const EncodedEntry& encoded);
    void FlushEntries();
    void FlushValues();
    /// What was written of `size` bytes at `position`; nothing beyond the positions that a file
    /// handle has.
    std::int32_t WriteAt(std::int64_t position, const void* bytes, std::size_t size);

    void* m_file;
    std::uint16_t m_order;
    std::int64_t m_position;  ///< where the gathered entry bytes go
    std::int64_t m_end;       ///< where the gathered values go
    std::size_t m_entryBytes = 0;
    std::size_t m_valueBytes = 0;
    std::size_t m_prefix = 0;
    bool m_prefixWritten = true;
    std::uint8_t m_entries[2048];
    std::uint8_t m_values[8192];
};

}  // namespace platen::tiff
