#pragma once

#include <cstddef>
#include <cstdint>

#include <platen/tiff/records.h>

namespace platen::tiff {

/// An entry to be written. `value` is the number itself for one SHORT or LONG, otherwise the
/// address of the values: a zero-terminated text, numbers or fractions in machine byte order.
struct EntryValue {
    std::uint16_t tag;
    std::uint16_t type;
    std::int32_t count;  ///< of a text, with its terminating zero
    std::intptr_t value;
};

/// An entry in file byte order, and the values that do not fit into it.
struct EncodedEntry {
    bool written = false;  ///< false: the type, or a RATIONAL without values, gives no entry
    TiffIFDEntryStruct entry = {};
    const void* values = nullptr;  ///< in machine byte order, to be placed behind; null: none
    std::size_t elements = 0;
    std::size_t elementSize = 1;  ///< what is reversed for the file: 1, 2 or 4 bytes

    [[nodiscard]] std::size_t Bytes() const { return elements * elementSize; }
};

/// The bytes that an entry's values take behind it, 0 when they stand in it.
std::int64_t BytesBehind(const EntryValue& value);

/// Encodes an entry whose values, if they do not fit, will stand at `offset`. The bytes of the
/// entry that its values leave free are zero.
EncodedEntry EncodeEntry(const EntryValue& value, std::uint32_t offset, std::uint16_t order);

/// Copies `count` elements between machine and file byte order; in place, target and source agree.
void ConvertElements(void* target, const void* source, std::size_t count, std::size_t elementSize,
                     std::uint16_t order);

}  // namespace platen::tiff
