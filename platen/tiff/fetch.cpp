#include <algorithm>
#include <cstring>
#include <limits>

#include <platen/tiff/Tiff.h>
#include <platen/tiff/blocks.h>
#include <platen/tiff/byte_order.h>
#include <platen/tiff/entry_words.h>
#include <platen/tiff/file_layout.h>
#include <platen/tiff/peek.h>
#include <platen/tiff/tag_table.h>

using platen::tiff::kTextInEntry;
using platen::tiff::NewBlock;

namespace {

/// The most bytes that the values of one entry may take, of a file of that size.
std::uint64_t ValuesAllowed(LONG fileSize) {
    constexpr std::uint64_t kSlack = 65536;
    constexpr std::uint64_t kMost = std::numeric_limits<LONG>::max();
    return std::min(static_cast<std::uint64_t>(fileSize) + kSlack, kMost);
}

}  // namespace

/// The raw block of an entry's values, and `extra` bytes of what the file has behind them; null and
/// status -4 when it cannot be had. Outside of a read the file may be any, and is measured.
std::uint8_t* Tiff::FetchBlock(void* file, const TiffIFDEntryStruct& entry,
                               std::uint32_t elementSize, std::uint32_t extra) {
    const std::uint64_t size = std::uint64_t{entry.Count} * elementSize + extra;
    const LONG fileSize =
        m_Allowance.fileSize >= 0 ? m_Allowance.fileSize : platen::tiff::Measure(file);
    std::uint8_t* block = nullptr;
    if (size <= ValuesAllowed(fileSize) && SpendBytes(size)) {
        block = CreateBLOCK(file, static_cast<std::int32_t>(entry.ValueOffset),
                            static_cast<long>(size));
    }
    if (block == nullptr) {
        m_Status = -4;
    }
    return block;
}

/// A block for the few values that an entry carries itself, which costs its overhead; null and
/// status -4 when it cannot be had.
template <typename T>
T* Tiff::NewValues(std::uint32_t count) {
    constexpr std::uint64_t kSmallBlock = 32;
    T* values = SpendBytes(kSmallBlock) ? NewBlock<T>(count) : nullptr;
    if (values == nullptr) {
        m_Status = -4;
    }
    return values;
}

short Tiff::GetWORD(void* /*file*/, const TiffIFDEntryStruct& entry) {
    return static_cast<short>(entry.ValueOffset);
}

long Tiff::GetLONG(void* /*file*/, const TiffIFDEntryStruct& entry) {
    return static_cast<std::int32_t>(entry.ValueOffset);
}

std::uint16_t* Tiff::GetWORDArray(void* file, const TiffIFDEntryStruct& entry) {
    if (entry.Count == 1 || entry.Count == 2) {
        auto* values = NewValues<std::uint16_t>(entry.Count);
        if (values == nullptr) {
            return nullptr;
        }
        std::uint16_t words[2];
        platen::tiff::UnpackWords(entry, Order(), words);
        std::copy_n(words, entry.Count, values);
        return values;
    }
    auto* values = reinterpret_cast<std::uint16_t*>(FetchBlock(file, entry, sizeof(std::uint16_t)));
    if (values != nullptr && m_Format != platen::kIntel) {
        std::for_each(values, values + entry.Count,
                      [&](std::uint16_t& value) { value = SwapSHORT(value, Order()); });
    }
    return values;
}

std::uint32_t* Tiff::GetLONGArray(void* file, const TiffIFDEntryStruct& entry) {
    if (entry.Count == 1) {
        auto* value = NewValues<std::uint32_t>(1);
        if (value != nullptr) {
            *value = entry.ValueOffset;
        }
        return value;
    }
    auto* values = reinterpret_cast<std::uint32_t*>(FetchBlock(file, entry, sizeof(std::uint32_t)));
    if (values != nullptr && m_Format != platen::kIntel) {
        std::for_each(values, values + entry.Count, [&](std::uint32_t& value) {
            value = platen::tiff::SwapLONG(value, Order());
        });
    }
    return values;
}

Rational Tiff::GetRATIONAL(void* file, const TiffIFDEntryStruct& entry) {
    Rational first = {0, 0};
    if (entry.Count == 1 && SpendBytes(sizeof(first))) {
        platen::tiff::Peek(file, static_cast<LONG>(entry.ValueOffset), &first, sizeof(first));
        return platen::tiff::SwapRATIONAL(first, Order());
    }
    std::uint8_t* block = FetchBlock(file, entry, sizeof(Rational));
    if (block == nullptr) {
        return platen::tiff::kNoRational;
    }
    std::memcpy(&first, block, sizeof(first));
    DeleteBLOCK(block);
    return platen::tiff::SwapRATIONAL(first, Order());
}

Rational* Tiff::GetRATIONALArray(void* file, const TiffIFDEntryStruct& entry) {
    auto* values = reinterpret_cast<Rational*>(FetchBlock(file, entry, sizeof(Rational)));
    if (values != nullptr && m_Format != platen::kIntel) {
        std::for_each(values, values + entry.Count,
                      [&](Rational& value) { platen::tiff::SwapRATIONAL(value, Order()); });
    }
    return values;
}

char* Tiff::GetASCII(void* file, const TiffIFDEntryStruct& entry) {
    if (entry.Count == 0) {
        return nullptr;
    }
    if (entry.Count > kTextInEntry) {
        auto* characters = reinterpret_cast<char*>(FetchBlock(file, entry, 1, 1));
        if (characters != nullptr) {
            characters[entry.Count] = '\0';  // the file goes on behind the text
        }
        return characters;
    }
    auto* text = NewValues<char>(entry.Count);
    if (text == nullptr) {
        return nullptr;
    }
    // The rest of the block is zero, the last byte of it always.
    char characters[kTextInEntry];
    std::memcpy(characters, &entry.ValueOffset, sizeof(characters));
    const char* end = std::find(characters, characters + entry.Count - 1, '\0');
    std::copy(static_cast<const char*>(characters), end, text);
    return text;
}
