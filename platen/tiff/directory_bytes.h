#pragma once

#include <cstdint>
#include <vector>

#include <platen/tiff/entry_encoder.h>

namespace platen::tiff {

/// A value as it stands in a file, of any field type.
struct RawValue {
    std::uint16_t tag;
    std::uint16_t type;
    std::uint32_t count;
    std::vector<std::uint8_t> bytes;  ///< in machine byte order
};

/// Bytes of one value of a field type (TIFF 6.0, section 2), and of what turns with the byte order.
struct TypeSize {
    std::uint32_t value;  ///< 0 for a type without a known size
    std::uint32_t element;
};
TypeSize SizeOfType(std::uint16_t type);

/// Collects a directory's entries in any order and gives its bytes: ascending entries, the link,
/// then the long values, each at an even offset.
class DirectoryBytes {
  public:
    explicit DirectoryBytes(std::uint16_t order) : m_order(order) {}

    void Add(const EntryValue& value);
    void Add(RawValue value);
    [[nodiscard]] bool Has(std::uint16_t tag) const;

    /// The directory for an even offset, of an even size. Its link leads to the byte behind it, or
    /// nowhere.
    [[nodiscard]] std::vector<std::uint8_t> At(std::uint32_t offset, bool hasNext);

  private:
    struct Item {
        std::uint16_t tag;
        EncodedEntry encoded;             ///< without the place of its long values
        std::vector<std::uint8_t> bytes;  ///< long values in file byte order
    };

    std::uint16_t m_order;
    std::vector<Item> m_items;
};

}  // namespace platen::tiff
