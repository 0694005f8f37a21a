#include <platen/tiff/tags.h>

#include <algorithm>

#include <platen/tiff/tag_table.h>

namespace platen {
namespace {

struct OtherName {
    std::string_view name;
    std::uint16_t tag;
};

constexpr OtherName kOtherNames[] = {{"Group3Options", 292},
                                     {"Group4Options", 293},
                                     {"ColorResponseCurve", 301},
                                     {"ColorResponseCurves", 301}};

/// Tag names are ASCII, whatever the locale.
constexpr char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool SameName(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, Lower, Lower);
}

}  // namespace

const char* TagName(std::uint16_t tag) {
    const tiff::TagRow* row = tiff::FindTag(tag);
    return row == nullptr ? nullptr : row->name;
}

std::uint16_t TagNumber(std::string_view name) {
    for (const tiff::TagRow& row : tiff::kTags) {
        if (SameName(row.name, name)) {
            return row.tag;
        }
    }
    for (const OtherName& other : kOtherNames) {
        if (SameName(other.name, name)) {
            return other.tag;
        }
    }
    return 0;
}

const char* TagWord(std::uint16_t tag, std::uint32_t value) {
    const tiff::TagRow* row = tiff::FindTag(tag);
    if (row == nullptr || row->words.empty()) {
        return nullptr;
    }
    const bool lowHalf = row->style == tiff::Style::CodedTight;
    const std::uint32_t code = lowHalf ? value & 0xFFFFU : value;
    const auto word = std::ranges::find(row->words, code, &tiff::Word::value);
    if (word != row->words.end()) {
        return word->text;
    }
    return lowHalf ? "Unknown" : "Invalid";
}

}  // namespace platen
