#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <variant>

#include <platen/tiff/records.h>

/// Everything that is known of a tag: one row a tag, in ascending order. Parsing, initialising,
/// releasing, reporting, tag access, writing and listing are walks over these rows.
namespace platen::tiff {

using Record = TiffIFDStdDirStruct;

/// What a field holds whose tag is absent, where that is not 0 or null.
inline constexpr std::uint16_t kNone16 = 0xFFFF;
inline constexpr std::uint32_t kNone32 = 0xFFFFFFFF;
inline constexpr Rational kNoRational = {kNone32, kNone32};

/// The colour table holds 18 slots, takes 17 numbers and gives 16.
inline constexpr std::uint32_t kColorTableTaken = 17;
inline constexpr std::uint32_t kColorTableGiven = 16;

/// A 16-bit number. `initial` is a fresh record's value, `absent` the one that is not written.
struct WordField {
    std::uint16_t Record::*value;
    std::uint16_t initial;
    std::uint16_t absent;

    constexpr WordField(std::uint16_t Record::*member, std::uint16_t none)
        : value(member), initial(none), absent(none) {}
    constexpr WordField(std::uint16_t Record::*member, std::uint16_t fresh, std::uint16_t none)
        : value(member), initial(fresh), absent(none) {}
};

/// A 32-bit number.
struct LongField {
    std::uint32_t Record::*value;
    std::uint32_t absent;
};

/// A number of pixels, 0 when absent.
struct SizeField {
    std::int32_t Record::*value;
    bool zeroedOnRelease;
};

struct RationalField {
    Rational Record::*value;
};

struct TextField {
    char* Record::*text;
};

/// A block of 16-bit numbers.
struct WordArrayField {
    std::uint16_t* Record::*values;
    std::uint32_t Record::*count;
};

/// Offsets or byte counts, held in the width that the file gave them.
struct OffsetArrayField {
    std::uint16_t* Record::*shorts;
    std::uint32_t* Record::*longs;
    std::uint32_t Record::*count;
};

/// Two 16-bit numbers inside the record.
struct WordPairField {
    std::uint16_t (Record::*values)[2];
};

/// `N` fractions inside the record.
template <std::size_t N>
struct RationalGroupField {
    Rational (Record::*values)[N];
};

/// The colour table of the XK flavour.
struct ColorTableField {
    std::uint16_t (Record::*values)[18];
    std::uint32_t Record::*offset;
    std::uint32_t Record::*count;
};

/// Slots that nothing reads or writes.
struct BlockSlot {
    std::uint32_t* Record::*block;
};
struct LongSlot {
    std::uint32_t Record::*value;
};

/// A row's kind is its alternative.
using Field = std::variant<WordField, LongField, SizeField, RationalField, TextField,
                           WordArrayField, OffsetArrayField, WordPairField, RationalGroupField<2>,
                           RationalGroupField<6>, ColorTableField, BlockSlot, LongSlot>;

/// `std::visit` for the few places where its call through a table is felt: this one is laid out in
/// place, so that kinds which the visitor treats alike cost nothing.
template <std::size_t Kind = 0, typename Visitor>
constexpr auto VisitField(const Visitor& visitor, const Field& field) {
    if constexpr (Kind + 1 < std::variant_size_v<Field>) {
        if (field.index() != Kind) {
            return VisitField<Kind + 1>(visitor, field);
        }
    }
    return visitor(*std::get_if<Kind>(&field));
}

/// The word for a coded value.
struct Word {
    std::uint32_t value;
    const char* text;
};

/// How the listing shows a value, where the kind leaves a choice.
enum class Style : std::uint8_t {
    ByKind,
    Coded,          ///< number and word
    CodedUnsigned,  ///< the same, a 16-bit number without its sign
    CodedTight,     ///< the same, without padding; the word goes by the low 16 bits
    Plain,
    PlainUnsigned,
    Wide,    ///< padded to 10
    Padded,  ///< a text padded to 10
    Count,   ///< an array's number of elements
    Bits     ///< an array's elements, then "Bits"
};

struct TagRow {
    std::uint16_t tag;
    std::uint16_t accepted;  ///< bit per field type that the parser takes
    std::uint16_t written;   ///< field type written, 0 for tags that are never written
    Style style;
    const char* name;          ///< as TIFF 6.0 names it
    const char* reportLabel;   ///< null: no line
    const char* listingLabel;  ///< null: no line
    Field field;
    std::span<const Word> words;

    [[nodiscard]] constexpr bool Accepts(std::uint16_t type) const {
        return type < 16 && (accepted >> type & 1U) != 0;
    }
};

inline constexpr std::size_t kTagCount = 59;

/// All rows, in ascending order of their tags.
extern const std::array<TagRow, kTagCount> kTags;

/// Rows by distance from the first tag of the standard and of the private group; null for numbers
/// that are no tags.
struct TagIndex {
    static constexpr std::uint16_t kFirstStandard = 254;
    static constexpr std::uint16_t kFirstPrivate = 33445;

    std::array<const TagRow*, 77> standard;
    std::array<const TagRow*, 8> privates;
};
extern const TagIndex kTagIndex;

/// The row of a tag, or null.
inline const TagRow* FindTag(std::uint16_t tag) {
    // A tag before a group's first wraps round to one far behind its last.
    const unsigned standard = unsigned{tag} - TagIndex::kFirstStandard;
    if (standard < kTagIndex.standard.size()) {
        return kTagIndex.standard[standard];
    }
    const unsigned other = unsigned{tag} - TagIndex::kFirstPrivate;
    return other < kTagIndex.privates.size() ? kTagIndex.privates[other] : nullptr;
}

/// A record at defaults.
extern const Record kFreshRecord;

/// Releases every block of a record, storing null, and zeroes what stands for an absent tag there.
void ReleaseRecord(Record& record);

}  // namespace platen::tiff
