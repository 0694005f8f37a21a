#include <platen/tiff/directory_bytes.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include <platen/tiff/byte_order.h>
#include <platen/tiff/file_layout.h>

namespace platen::tiff {
namespace {

void Store(std::vector<std::uint8_t>& bytes, std::size_t at, const void* source, std::size_t size) {
    std::memcpy(bytes.data() + at, source, size);
}

}  // namespace

TypeSize SizeOfType(std::uint16_t type) {
    static constexpr std::array<TypeSize, 13> kSizes = {{{0, 1},
                                                         {1, 1},    // BYTE
                                                         {1, 1},    // ASCII
                                                         {2, 2},    // SHORT
                                                         {4, 4},    // LONG
                                                         {8, 4},    // RATIONAL
                                                         {1, 1},    // SBYTE
                                                         {1, 1},    // UNDEFINED
                                                         {2, 2},    // SSHORT
                                                         {4, 4},    // SLONG
                                                         {8, 4},    // SRATIONAL
                                                         {4, 4},    // FLOAT
                                                         {8, 8}}};  // DOUBLE
    return type < kSizes.size() ? kSizes[type] : kSizes[0];
}

void DirectoryBytes::Add(const EntryValue& value) {
    Item item = {value.tag, EncodeEntry(value, 0, m_order), {}};
    if (item.encoded.values != nullptr) {
        item.bytes.resize(item.encoded.Bytes());
        ConvertElements(item.bytes.data(), item.encoded.values, item.encoded.elements,
                        item.encoded.elementSize, m_order);
    }
    if (item.encoded.written) {
        m_items.push_back(std::move(item));
    }
}

void DirectoryBytes::Add(RawValue value) {
    const std::size_t element = SizeOfType(value.type).element;
    ConvertElements(value.bytes.data(), value.bytes.data(), value.bytes.size() / element, element,
                    m_order);
    Item item = {value.tag, {}, {}};
    item.encoded.entry = {SwapSHORT(value.tag, m_order), SwapSHORT(value.type, m_order),
                          SwapLONG(value.count, m_order), 0};
    if (value.bytes.size() <= sizeof(item.encoded.entry.ValueOffset)) {
        std::copy(value.bytes.begin(), value.bytes.end(),
                  reinterpret_cast<std::uint8_t*>(&item.encoded.entry.ValueOffset));
    } else {
        item.bytes = std::move(value.bytes);
    }
    m_items.push_back(std::move(item));
}

bool DirectoryBytes::Has(std::uint16_t tag) const {
    return std::ranges::find(m_items, tag, &Item::tag) != m_items.end();
}

std::vector<std::uint8_t> DirectoryBytes::At(std::uint32_t offset, bool hasNext) {
    std::ranges::stable_sort(m_items, {}, &Item::tag);
    const std::size_t size = DirectorySize(m_items.size());
    std::size_t end = size;
    for (const Item& item : m_items) {
        end += Even(item.bytes.size());
    }
    std::vector<std::uint8_t> bytes(end);
    const std::uint16_t count = SwapSHORT(static_cast<std::uint16_t>(m_items.size()), m_order);
    Store(bytes, 0, &count, sizeof(count));
    std::size_t entryAt = kCountSize;
    std::size_t valuesAt = size;
    for (const Item& item : m_items) {
        TiffIFDEntryStruct entry = item.encoded.entry;
        if (!item.bytes.empty()) {
            entry.ValueOffset = SwapLONG(static_cast<std::uint32_t>(offset + valuesAt), m_order);
            Store(bytes, valuesAt, item.bytes.data(), item.bytes.size());
            valuesAt += Even(item.bytes.size());
        }
        Store(bytes, entryAt, &entry, sizeof(entry));
        entryAt += sizeof(entry);
    }
    const std::uint32_t next =
        hasNext ? SwapLONG(static_cast<std::uint32_t>(offset + end), m_order) : 0;
    Store(bytes, size - kLinkSize, &next, sizeof(next));
    return bytes;
}

}  // namespace platen::tiff
