#pragma once

#include <cstddef>
#include <cstdint>

#include <platen/tiff/entry_encoder.h>

namespace platen::tiff {

/// Writes directories' entries where they belong and their long values behind the end of the file.
/// Both are gathered: a directory's entries go out in one write, and long values as they fill a
/// buffer.
class EntryWriter {
  public:
    /// Entries go where the file stands.
    EntryWriter(void* file, std::uint16_t order);
    EntryWriter(const EntryWriter&) = delete;
    EntryWriter& operator=(const EntryWriter&) = delete;

    /// Starts a directory whose number of entries stands at `position`; `link`, unless null, is put
    /// right before it. The number is that of the entries added until `FlushEntries`.
    void StartDirectory(std::int64_t position, const std::uint32_t* link);
    void AddEntry(const EntryValue& value);
    /// Writes the entries gathered. False when not even link and number went through.
    bool FlushEntries();
    /// Writes what is left, and leaves the file behind the last entry.
    void Finish();

  private:
    void AddValues(const EncodedEntry& encoded);
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
    std::size_t m_prefix = 0;  ///< bytes of link and number, 0 without a directory
    std::uint8_t m_entries[2048];
    std::uint8_t m_values[8192];
};

}  // namespace platen::tiff
