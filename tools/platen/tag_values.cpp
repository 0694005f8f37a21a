#include "tag_values.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>

#include <platen/tiff/blocks.h>
#include <platen/tiff/tags.h>

namespace platen::tool {
namespace {

using Text = std::optional<std::string>;

void AppendValue(std::string& text, const Rational& value) {
    text.append(std::to_string(value.Numerator)).append("/");
    text.append(std::to_string(value.Denominator));
}

template <typename Number>
void AppendValue(std::string& text, Number value) {
    text.append(std::to_string(value));
}

/// None for no values at all.
template <typename Value>
Text Joined(const Value* values, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text.append(i == 0 ? "" : " ");
        AppendValue(text, values[i]);
    }
    return count == 0 ? Text() : text;
}

/// The text form of a field's value, by kind.
struct TextOf {
    const TiffIFDStdDirStruct& record;
    const TiffIFDEntryStruct& stored;

    Text operator()(const tiff::WordField& field) const {
        return Joined(&(record.*field.value), 1);
    }
    Text operator()(const tiff::LongField& field) const {
        return Joined(&(record.*field.value), 1);
    }
    /// The record takes a SHORT for signed.
    Text operator()(const tiff::SizeField& field) const {
        const std::int32_t size = record.*field.value;
        return std::to_string(stored.Type == kTypeShort ? static_cast<std::uint16_t>(size) : size);
    }
    Text operator()(const tiff::RationalField& field) const {
        return Joined(&(record.*field.value), 1);
    }
    template <std::size_t N>
    Text operator()(const tiff::RationalGroupField<N>& field) const {
        return Joined(record.*field.values, std::min<std::size_t>(stored.Count, N));
    }
    Text operator()(const tiff::TextField& field) const {
        const char* text = record.*field.text;
        return text == nullptr ? Text() : text;
    }
    Text operator()(const tiff::WordArrayField& field) const {
        return Block(record.*field.values, record.*field.count);
    }
    Text operator()(const tiff::OffsetArrayField& field) const {
        const std::uint32_t* longs = record.*field.longs;
        return longs != nullptr ? Block(longs, record.*field.count)
                                : Block(record.*field.shorts, record.*field.count);
    }
    Text operator()(const tiff::WordPairField& field) const {
        return Joined(record.*field.values, 2);
    }
    Text operator()(const tiff::ColorTableField& field) const {
        return Joined(record.*field.values, std::min(stored.Count, tiff::kColorTableTaken));
    }
    Text operator()(const tiff::BlockSlot& /*field*/) const { return std::nullopt; }
    Text operator()(const tiff::LongSlot& /*field*/) const { return std::nullopt; }

  private:
    /// A count can be that of another entry than the block.
    template <typename Value>
    static Text Block(const Value* values, std::uint32_t count) {
        return Joined(values, tiff::HeldElements(values, count));
    }
};

}  // namespace

const tiff::TagRow& TagNamed(std::string_view tag) {
    std::uint16_t number = 0;
    const char* end = tag.data() + tag.size();
    const auto parsed = std::from_chars(tag.data(), end, number);
    if (parsed.ec != std::errc() || parsed.ptr != end) {
        number = TagNumber(tag);
    }
    const tiff::TagRow* row = tiff::FindTag(number);
    if (row == nullptr) {
        throw CLI::ValidationError("Not a tag that platen knows: " + std::string(tag));
    }
    return *row;
}

std::optional<std::string> TagText(const tiff::TagRow& row, const TiffIFDStdDirStruct& record,
                                   const TiffIFDEntryStruct& stored) {
    return std::visit(TextOf{record, stored}, row.field);
}

}  // namespace platen::tool
