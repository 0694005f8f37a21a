#include <platen/tiff/entry_encoder.h>

#include <algorithm>
#include <cstring>

#include <platen/tiff/byte_order.h>
#include <platen/tiff/file_layout.h>

namespace platen::tiff {
namespace {

/// In place and with a conversion known when this is compiled, so that it runs on many elements at
/// once.
template <typename T, T (*Swap)(T, std::uint16_t)>
void SwapAll(std::uint8_t* bytes, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        T element;
        std::memcpy(&element, bytes + i * sizeof(T), sizeof(T));
        element = Swap(element, kMotorola);
        std::memcpy(bytes + i * sizeof(T), &element, sizeof(T));
    }
}

/// Reverses elements of any size.
void ReverseAll(std::uint8_t* bytes, std::size_t count, std::size_t elementSize) {
    for (std::size_t i = 0; i < count; ++i, bytes += elementSize) {
        std::reverse(bytes, bytes + elementSize);
    }
}

/// Where the values of a type and count stand.
enum class Place : std::uint8_t { Nowhere, Number, InEntry, Behind };

struct Placement {
    Place place = Place::Nowhere;
    std::size_t elementSize = 1;
    std::size_t elementsEach = 1;  ///< elements a value is made of
};

Placement PlacementOf(const EntryValue& value) {
    switch (value.type) {
        case kTypeAscii:
            return {value.count > kTextInEntry ? Place::Behind : Place::InEntry, 1};
        case kTypeShort:
            return {value.count <= 1   ? Place::Number
                    : value.count == 2 ? Place::InEntry
                                       : Place::Behind,
                    2};
        case kTypeLong:
            return {value.count <= 1 ? Place::Number : Place::Behind, 4};
        case kTypeRational:
            return {value.count > 0 ? Place::Behind : Place::Nowhere, 4, 2};
        default:
            return {};
    }
}

/// One number at the start of the value field, in either byte order.
std::uint32_t NumberField(std::intptr_t value, std::size_t elementSize, std::uint16_t order) {
    return elementSize == 2 ? SwapSHORT(static_cast<std::uint16_t>(value), order)
                            : SwapLONG(static_cast<std::uint32_t>(value), order);
}

}  // namespace

std::int64_t BytesBehind(const EntryValue& value) {
    const Placement placement = PlacementOf(value);
    const auto each = static_cast<std::int64_t>(placement.elementsEach * placement.elementSize);
    return placement.place == Place::Behind ? value.count * each : 0;
}

EncodedEntry EncodeEntry(const EntryValue& value, std::uint32_t offset, std::uint16_t order) {
    const Placement placement = PlacementOf(value);
    EncodedEntry encoded;
    encoded.written = placement.place != Place::Nowhere;
    encoded.entry.Tag = SwapSHORT(value.tag, order);
    encoded.entry.Type = SwapSHORT(value.type, order);
    encoded.entry.Count = SwapLONG(static_cast<std::uint32_t>(value.count), order);
    const void* values = reinterpret_cast<const void*>(value.value);
    const std::size_t count = value.count > 0 ? static_cast<std::size_t>(value.count) : 0;
    switch (placement.place) {
        case Place::Number:
            // Count 0 comes with the address of an array that holds nothing; that is no number.
            encoded.entry.ValueOffset =
                value.count != 0 ? NumberField(value.value, placement.elementSize, order) : 0;
            break;
        case Place::InEntry:
            if (count > 0) {
                ConvertElements(&encoded.entry.ValueOffset, values, count, placement.elementSize,
                                order);
            }
            break;
        case Place::Behind:
            encoded.entry.ValueOffset = SwapLONG(offset, order);
            encoded.values = values;
            encoded.elements = count * placement.elementsEach;
            encoded.elementSize = placement.elementSize;
            break;
        case Place::Nowhere:
            break;
    }
    return encoded;
}

void ConvertElements(void* target, const void* source, std::size_t count, std::size_t elementSize,
                     std::uint16_t order) {
    if (count == 0) {
        return;  // an entry without values may come without an address too
    }
    if (target != source) {
        std::memcpy(target, source, count * elementSize);
    }
    if (order == kIntel) {
        return;
    }
    auto* bytes = static_cast<std::uint8_t*>(target);
    if (elementSize == 2) {
        SwapAll<std::uint16_t, &SwapSHORT>(bytes, count);
    } else if (elementSize == 4) {
        SwapAll<std::uint32_t, &SwapLONG>(bytes, count);
    } else if (elementSize > 1) {
        ReverseAll(bytes, count, elementSize);
    }
}

}  // namespace platen::tiff
