#include <platen/tiff/directory_walk.h>

#include <algorithm>
#include <cstring>

#include <platen/tiff/blocks.h>

namespace platen::tiff {
namespace {

constexpr std::uint16_t kMake = 271;
constexpr std::uint32_t kColorTableSlots = 18;

std::array<const TagRow*, kTagCount> OrderRows() {
    std::array<const TagRow*, kTagCount> rows{};
    std::ranges::transform(kTags, rows.begin(), [](const TagRow& row) { return &row; });
    auto make = std::ranges::find(rows, kMake, &TagRow::tag);
    std::iter_swap(make, make + 1);
    return rows;
}

bool IsNone(const Rational& value) {
    return value.Numerator == kNone32 || value.Denominator == kNone32;
}

std::intptr_t AddressOf(const void* values) {
    return reinterpret_cast<std::intptr_t>(values);
}

/// The count and value that a kind hands over, or none when the tag is absent.
struct ValueFinder {
    const TagRow& row;
    const Record& record;

    using Result = std::optional<EntryValue>;

    Result operator()(const WordField& field) const {
        const std::uint16_t number = record.*field.value;
        return number == field.absent ? Result() : Value(1, number);
    }
    Result operator()(const LongField& field) const {
        const std::uint32_t number = record.*field.value;
        return number == field.absent ? Result() : Value(1, static_cast<std::int32_t>(number));
    }
    Result operator()(const SizeField& field) const {
        const std::int32_t number = record.*field.value;
        return number == 0 ? Result() : Value(1, number);
    }
    Result operator()(const RationalField& field) const {
        const Rational& value = record.*field.value;
        return IsNone(value) ? Result() : Value(1, AddressOf(&value));
    }
    Result operator()(const TextField& field) const {
        const char* text = record.*field.text;
        return text == nullptr
                   ? Result()
                   : Value(static_cast<std::int32_t>(std::strlen(text)) + 1, AddressOf(text));
    }
    Result operator()(const WordArrayField& field) const {
        return Array(kTypeShort, record.*field.values, record.*field.count);
    }
    Result operator()(const OffsetArrayField& field) const {
        return record.*field.shorts != nullptr
                   ? Array(kTypeShort, record.*field.shorts, record.*field.count)
                   : Array(kTypeLong, record.*field.longs, record.*field.count);
    }
    Result operator()(const WordPairField& field) const {
        const auto& pair = record.*field.values;
        const bool held = std::ranges::all_of(
            pair, [](std::uint16_t number) { return static_cast<std::int16_t>(number) >= 0; });
        return held ? Value(2, AddressOf(pair)) : Result();
    }
    template <std::size_t N>
    Result operator()(const RationalGroupField<N>& field) const {
        const auto& values = record.*field.values;
        return std::ranges::any_of(values, IsNone) ? Result() : Value(N, AddressOf(values));
    }
    Result operator()(const ColorTableField& field) const {
        const std::uint32_t* count = &(record.*field.count);
        const auto& slots = record.*field.values;
        if (static_cast<std::int32_t>(*count) <= 0) {
            return std::nullopt;
        }
        // The record holds 18 slots; a larger count is taken as that.
        const std::uint32_t used = std::min(*count, kColorTableSlots);
        const bool held =
            std::any_of(slots, slots + used, [](std::uint16_t slot) { return slot != 0; });
        return held ? Numbers(kTypeShort, slots, used) : Result();
    }
    Result operator()(const BlockSlot& /*field*/) const { return std::nullopt; }
    Result operator()(const LongSlot& /*field*/) const { return std::nullopt; }

  private:
    [[nodiscard]] Result Value(std::int32_t count, std::intptr_t value) const {
        return EntryValue{row.tag, row.written, count, value};
    }

    /// A count that exceeds the block, or is negative, left by a rejected entry, is taken as what
    /// the block holds.
    template <typename T>
    [[nodiscard]] Result Array(std::uint16_t type, T* values, std::uint32_t count) const {
        return values == nullptr ? Result() : Numbers(type, values, HeldElements(values, count));
    }

    /// One number stands for itself, more of them by their address.
    template <typename T>
    [[nodiscard]] Result Numbers(std::uint16_t type, const T* values, std::uint32_t count) const {
        const std::intptr_t value =
            count == 1 ? static_cast<std::intptr_t>(*values) : AddressOf(values);
        return EntryValue{row.tag, type, static_cast<std::int32_t>(count), value};
    }
};

}  // namespace

const std::array<const TagRow*, kTagCount>& RowsInWritingOrder() {
    static const std::array<const TagRow*, kTagCount> rows = OrderRows();
    return rows;
}

std::optional<EntryValue> ValueToWrite(const TagRow& row, const Record& record) {
    if (row.written == 0 || (row.tag >= TagIndex::kFirstPrivate && record.FileTag == kNone32)) {
        return std::nullopt;
    }
    return VisitField(ValueFinder{row, record}, row.field);
}

}  // namespace platen::tiff
