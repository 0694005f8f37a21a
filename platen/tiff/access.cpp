#include <algorithm>
#include <cstring>
#include <limits>

#include <platen/tiff/Tiff.h>
#include <platen/tiff/blocks.h>
#include <platen/tiff/tag_table.h>

namespace platen::tiff {
namespace {

/// Copies a value out, by kind, and answers the count. `out` may be null.
struct Getter {
    const Record& record;
    void* out;

    std::int32_t operator()(const WordField& field) const {
        return Give(&(record.*field.value), 1);
    }
    std::int32_t operator()(const LongField& field) const {
        return Give(&(record.*field.value), 1);
    }
    std::int32_t operator()(const SizeField& field) const {
        return Give(&(record.*field.value), 1);
    }
    std::int32_t operator()(const RationalField& field) const {
        return Give(&(record.*field.value), 1);
    }
    std::int32_t operator()(const WordPairField& field) const {
        return Give(record.*field.values, 2);
    }
    template <std::size_t N>
    std::int32_t operator()(const RationalGroupField<N>& field) const {
        return Give(record.*field.values, N);
    }
    std::int32_t operator()(const ColorTableField& field) const {
        return Give(record.*field.values, kColorTableGiven);
    }

    std::int32_t operator()(const TextField& field) const {
        const char* text = record.*field.text;
        return text == nullptr ? 0 : Give(text, std::strlen(text) + 1);
    }

    std::int32_t operator()(const WordArrayField& field) const {
        const std::uint32_t count = record.*field.count;
        GiveHeld<std::uint16_t>(record.*field.values, count);
        return static_cast<std::int32_t>(count);
    }

    /// Always given as 32-bit numbers; the 32-bit form wins when both are held.
    std::int32_t operator()(const OffsetArrayField& field) const {
        const std::uint32_t count = record.*field.count;
        if (record.*field.longs != nullptr) {
            GiveHeld<std::uint32_t>(record.*field.longs, count);
        } else {
            GiveHeld<std::uint32_t>(record.*field.shorts, count);
        }
        return static_cast<std::int32_t>(count);
    }

    std::int32_t operator()(const BlockSlot& /*field*/) const { return 0; }
    std::int32_t operator()(const LongSlot& /*field*/) const { return 0; }

  private:
    template <typename T>
    std::int32_t Give(const T* values, std::size_t count) const {
        if (out != nullptr) {  // which may lie in the record
            std::memmove(out, values, count * sizeof(T));
        }
        return static_cast<std::int32_t>(count);
    }

    /// The caller's buffer holds `count` elements; what the block lacks of them is given as 0.
    template <typename Given, typename T>
    void GiveHeld(T* values, std::uint32_t count) const {
        if (out == nullptr || values == nullptr || static_cast<std::int32_t>(count) <= 0) {
            return;
        }
        auto* given = static_cast<Given*>(out);
        const std::uint32_t held = HeldElements(values, count);
        std::copy_n(values, held, given);
        std::fill(given + held, given + count, Given{0});
    }
};

/// Replaces a value, by kind. A new block is filled before the old one goes, which may be where the
/// caller's data lies.
struct Setter {
    Record& record;
    std::intptr_t value;
    std::int32_t count;

    void operator()(const WordField& field) const {
        record.*field.value = static_cast<std::uint16_t>(value);
    }
    void operator()(const LongField& field) const {
        record.*field.value = static_cast<std::uint32_t>(value);
    }
    void operator()(const SizeField& field) const {
        record.*field.value = static_cast<std::int32_t>(value);
    }
    void operator()(const RationalField& field) const { Take(&(record.*field.value), 1); }
    void operator()(const WordPairField& field) const { Take(record.*field.values, 2); }
    template <std::size_t N>
    void operator()(const RationalGroupField<N>& field) const {
        Take(record.*field.values, N);
    }
    void operator()(const ColorTableField& field) const {
        Take(record.*field.values, kColorTableTaken);
        record.*field.count = static_cast<std::uint32_t>(count);
    }

    /// Without room for the terminating zero, the text is cut by one byte.
    void operator()(const TextField& field) const {
        char* text =
            count > 0 && value != 0 ? NewBlock<char>(static_cast<std::size_t>(count)) : nullptr;
        if (text != nullptr) {
            const auto* given = reinterpret_cast<const char*>(value);
            std::copy(given, std::find(given, given + count - 1, '\0'), text);
        }
        ReleaseBlock(record.*field.text);
        record.*field.text = text;
    }

    void operator()(const WordArrayField& field) const {
        const bool held = record.*field.values != nullptr;
        auto* values = NewArray<std::uint16_t>();
        ReleaseBlock(record.*field.values);
        record.*field.values = values;
        StoreCount(record.*field.count, held, values != nullptr);
    }

    void operator()(const OffsetArrayField& field) const {
        const bool held = record.*field.shorts != nullptr || record.*field.longs != nullptr;
        auto* values = NewArray<std::uint32_t>();
        ReleaseBlock(record.*field.shorts);
        ReleaseBlock(record.*field.longs);
        record.*field.longs = values;
        StoreCount(record.*field.count, held, values != nullptr);
    }

    void operator()(const BlockSlot& /*field*/) const {}
    void operator()(const LongSlot& /*field*/) const {}

  private:
    template <typename T>
    void Take(T* values, std::size_t number) const {
        if (value != 0) {
            std::memmove(values, reinterpret_cast<const void*>(value), number * sizeof(T));
        }
    }

    /// An empty field has the count 0. Emptying one that held no block leaves the count that an
    /// entry of another type left behind.
    void StoreCount(std::uint32_t& stored, bool held, bool holds) const {
        if (holds || held || count != 0) {
            stored = holds ? static_cast<std::uint32_t>(count) : 0;
        }
    }

    /// A copy of the caller's array. Null for a count that is not positive, one whose bytes do not
    /// fit in 32 bits, and without memory: the field is then left empty.
    template <typename T>
    T* NewArray() const {
        constexpr std::uint64_t kMost = std::numeric_limits<std::uint32_t>::max();
        if (count <= 0 || value == 0 || static_cast<std::uint64_t>(count) * sizeof(T) > kMost) {
            return nullptr;
        }
        const auto number = static_cast<std::size_t>(count);
        T* values = NewBlock<T>(number);
        if (values != nullptr) {
            std::memcpy(values, reinterpret_cast<const void*>(value), number * sizeof(T));
        }
        return values;
    }
};

}  // namespace
}  // namespace platen::tiff

void Tiff::getTAG(std::uint16_t tag, void* out, std::int32_t& count, short dir) const {
    if (m_StdDir == nullptr) {
        return;
    }
    const TiffIFDStdDirStruct* record = RecordAt(dir);
    const platen::tiff::TagRow* row = platen::tiff::FindTag(tag);
    count = record == nullptr || row == nullptr
                ? 0
                : std::visit(platen::tiff::Getter{*record, out}, row->field);
}

void Tiff::setTAG(std::uint16_t tag, std::intptr_t value, std::int32_t count, short dir) {
    TiffIFDStdDirStruct* record = RecordAt(dir);
    const platen::tiff::TagRow* row = platen::tiff::FindTag(tag);
    if (record != nullptr && row != nullptr) {
        std::visit(platen::tiff::Setter{*record, value, count}, row->field);
    }
}
