#include "tag_edit.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <limits>
#include <new>
#include <string_view>

#include <platen/base/files.h>

#include "tag_values.h"

namespace platen::tool {
namespace {

using Words = std::vector<std::uint16_t>;
using Fractions = std::vector<Rational>;

constexpr std::uint16_t kRowsPerStrip = 278;
constexpr std::size_t kAnyNumber = std::numeric_limits<std::int32_t>::max();

[[noreturn]] void Reject(const std::string& what) {
    throw CLI::ValidationError(what);
}

std::vector<std::string_view> WordsOf(std::string_view text) {
    constexpr const char* kSpaces = " \t\r\n";
    std::vector<std::string_view> words;
    for (std::size_t start = 0; (start = text.find_first_not_of(kSpaces, start)) != text.npos;) {
        const std::size_t end = std::min(text.find_first_of(kSpaces, start), text.size());
        words.push_back(text.substr(start, end - start));
        start = end;
    }
    return words;
}

template <typename Number>
Number NumberIn(std::string_view word) {
    using Limits = std::numeric_limits<Number>;
    Number number = 0;
    const char* end = word.data() + word.size();
    const auto parsed = std::from_chars(word.data(), end, number);
    if (parsed.ec != std::errc() || parsed.ptr != end) {
        Reject("not a number from " + std::to_string(Limits::min()) + " to " +
               std::to_string(Limits::max()) + ": " + std::string(word));
    }
    return number;
}

Rational FractionIn(std::string_view word) {
    const std::size_t slash = word.find('/');
    if (slash == word.npos) {
        Reject("not a fraction such as 72/1: " + std::string(word));
    }
    return {NumberIn<std::uint32_t>(word.substr(0, slash)),
            NumberIn<std::uint32_t>(word.substr(slash + 1))};
}

/// All values of a text, held against how many the tag takes.
template <typename Value, typename Parse>
std::vector<Value> ValuesIn(std::string_view text, std::size_t least, std::size_t most,
                            Parse parse) {
    const std::vector<std::string_view> words = WordsOf(text);
    if (words.size() < least || words.size() > most) {
        const std::string number = least == most ? std::to_string(least)
                                   : most == kAnyNumber
                                       ? "at least 1"
                                       : std::to_string(least) + " to " + std::to_string(most);
        Reject("takes " + number + (most == 1 ? " value" : " values") + ", not " +
               std::to_string(words.size()));
    }
    std::vector<Value> values(words.size());
    std::ranges::transform(words, values.begin(), parse);
    return values;
}

template <typename Element>
TagValue ValueOf(std::vector<Element> values) {
    const auto count = static_cast<std::int32_t>(values.size());
    return {std::move(values), count};
}

/// A value of a field's kind, from its text form.
struct ValueParser {
    std::string_view text;

    TagValue operator()(const tiff::WordField& /*field*/) const { return One<std::uint16_t>(); }
    TagValue operator()(const tiff::LongField& /*field*/) const { return One<std::uint32_t>(); }
    TagValue operator()(const tiff::SizeField& /*field*/) const { return One<std::int32_t>(); }
    TagValue operator()(const tiff::RationalField& /*field*/) const { return Fraction(1); }
    template <std::size_t N>
    TagValue operator()(const tiff::RationalGroupField<N>& /*field*/) const {
        return Fraction(N);
    }
    TagValue operator()(const tiff::TextField& /*field*/) const {
        return {std::string(text), static_cast<std::int32_t>(text.size()) + 1};
    }
    TagValue operator()(const tiff::WordArrayField& /*field*/) const { return Word(1, kAnyNumber); }
    TagValue operator()(const tiff::WordPairField& /*field*/) const { return Word(2, 2); }
    TagValue operator()(const tiff::ColorTableField& /*field*/) const {
        TagValue value = Word(1, tiff::kColorTableTaken);
        std::get<Words>(value.data).resize(tiff::kColorTableTaken);
        return value;
    }
    /// Offsets and slots: ParseEdit lets none of them come this far.
    template <typename OtherField>
    TagValue operator()(const OtherField& /*field*/) const {
        return {0U, 0};
    }

  private:
    template <typename Number>
    [[nodiscard]] TagValue One() const {
        const auto numbers = ValuesIn<Number>(text, 1, 1, NumberIn<Number>);
        return {static_cast<std::uint32_t>(numbers.front()), 1};
    }
    [[nodiscard]] TagValue Word(std::size_t least, std::size_t most) const {
        return ValueOf(ValuesIn<std::uint16_t>(text, least, most, NumberIn<std::uint16_t>));
    }
    [[nodiscard]] TagValue Fraction(std::size_t count) const {
        return ValueOf(ValuesIn<Rational>(text, count, count, FractionIn));
    }
};

/// What stands for an absent tag of a field's kind.
struct AbsentValue {
    TagValue operator()(const tiff::WordField& field) const { return {field.absent, 1}; }
    TagValue operator()(const tiff::LongField& field) const { return {field.absent, 1}; }
    TagValue operator()(const tiff::RationalField& /*field*/) const {
        return ValueOf(Fractions(1, tiff::kNoRational));
    }
    template <std::size_t N>
    TagValue operator()(const tiff::RationalGroupField<N>& /*field*/) const {
        return ValueOf(Fractions(N, tiff::kNoRational));
    }
    TagValue operator()(const tiff::WordPairField& /*field*/) const {
        return ValueOf(Words(2, kNone16));
    }
    /// Sizes, arrays and texts.
    template <typename OtherField>
    TagValue operator()(const OtherField& /*field*/) const {
        return {0U, 0};
    }
};

/// Whether a field that holds its values in a block has one.
struct HasBlock {
    const TiffIFDStdDirStruct& record;

    bool operator()(const tiff::TextField& field) const { return record.*field.text != nullptr; }
    bool operator()(const tiff::WordArrayField& field) const {
        return record.*field.values != nullptr;
    }
    template <typename OtherField>
    bool operator()(const OtherField& /*field*/) const {
        return true;
    }
};

/// Whether the engine would write the tag with this value: some numbers stand for an absent tag.
bool IsWritable(const TagEdit& edit) {
    Tiff scratch;
    if (scratch.getStdDir() == nullptr) {
        throw std::bad_alloc();
    }
    const auto entries = [&scratch] { return scratch.WriteIFDStdDir(FILE_none(), 0, 0, 0); };
    scratch.setTAG(tiff::TagIndex::kFirstPrivate, 0, 1, 0);
    Apply({edit.row, std::visit(AbsentValue{}, edit.row->field), true}, scratch, 0);
    const short without = entries();
    Apply(edit, scratch, 0);
    return entries() > without;
}

bool IsGovernedByTheCopy(const tiff::TagRow& row) {
    return row.written == 0 || row.tag == kRowsPerStrip ||
           std::holds_alternative<tiff::OffsetArrayField>(row.field);
}

TagEdit EditOf(const tiff::TagRow& row, std::string_view value) {
    if (IsGovernedByTheCopy(row)) {
        Reject("follows from the copy and cannot be set");
    }
    if (value.empty()) {
        return {&row, std::visit(AbsentValue{}, row.field), true};
    }
    TagEdit edit = {&row, std::visit(ValueParser{value}, row.field), false};
    if (!IsWritable(edit)) {
        Reject("this value stands for an absent tag and cannot be written");
    }
    return edit;
}

}  // namespace

TagEdit ParseEdit(const std::string& argument) {
    const std::string_view text = argument;
    const std::size_t equals = text.find('=');
    if (equals == text.npos) {
        Reject("Not of the form TAG=VALUE: " + argument);
    }
    const tiff::TagRow& row = TagNamed(text.substr(0, equals));
    try {
        return EditOf(row, text.substr(equals + 1));
    } catch (const CLI::ValidationError& error) {
        throw CLI::ValidationError(std::string(row.name) + ": " + error.what());
    }
}

/// The engine tells nothing of a tag that it could not set.
void Apply(const TagEdit& edit, Tiff& tiff, short dir) {
    if (tiff.getStdDir() == nullptr) {
        throw std::bad_alloc();
    }
    const auto value = std::visit(
        [](const auto& data) {
            if constexpr (std::is_same_v<std::decay_t<decltype(data)>, std::uint32_t>) {
                return static_cast<std::intptr_t>(data);
            } else {
                return reinterpret_cast<std::intptr_t>(data.data());
            }
        },
        edit.value.data);
    tiff.setTAG(edit.row->tag, value, edit.value.count, dir);
    if (!edit.removes && !std::visit(HasBlock{tiff.getStdDir()[dir]}, edit.row->field)) {
        throw std::bad_alloc();
    }
}

}  // namespace platen::tool
