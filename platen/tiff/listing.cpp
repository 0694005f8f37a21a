#include <platen/tiff/listing.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <string_view>

#include <platen/tiff/blocks.h>
#include <platen/tiff/tags.h>

namespace platen::tiff {
namespace {

constexpr std::size_t kColorTableColumns = 3;

long Signed(std::uint32_t number) {
    return static_cast<std::int32_t>(number);
}

int Signed(std::uint16_t number) {
    return static_cast<std::int16_t>(number);
}

/// Numbers and the project's own words: no piece is longer than the longest of those.
[[gnu::format(printf, 2, 3)]] void Print(TextSink& out, const char* format, ...) {
    std::array<char, 256> text{};
    std::va_list values;
    va_start(values, format);
    std::vsnprintf(text.data(), text.size(), format, values);
    va_end(values);
    out.Take(text.data());
}

void PrintLabel(TextSink& out, const char* label) {
    Print(out, "%-20s ", label);
}

/// Texts of a file can have any length.
void PrintQuoted(TextSink& out, std::string_view text, std::size_t width) {
    constexpr std::string_view kSpaces = "          ";
    out.Take("'");
    out.Take(text);
    out.Take(kSpaces.substr(0, width - std::min(text.size(), width)));
    out.Take("'\r\n");
}

void PrintFractions(TextSink& out, const Rational* values, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        Print(out, "%s%-ld/%-ld", i == 0 ? "" : ", ", Signed(values[i].Numerator),
              Signed(values[i].Denominator));
    }
    out.Take("\r\n");
}

/// Prints what stands behind a row's label, by kind and style.
struct ListingPrinter {
    TextSink& out;
    const TagRow& row;
    const Record& record;

    void operator()(const WordField& field) const {
        const std::uint16_t value = record.*field.value;
        const bool isUnsigned =
            row.style == Style::CodedUnsigned || row.style == Style::PlainUnsigned;
        const int number = isUnsigned ? value : Signed(value);
        if (row.style == Style::Coded || row.style == Style::CodedUnsigned) {
            Print(out, "%-15d %-s\r\n", number, TagWord(row.tag, value));
        } else if (row.style == Style::Wide) {
            Print(out, "%-10d\r\n", number);
        } else {
            Print(out, "%-d\r\n", number);
        }
    }

    void operator()(const LongField& field) const {
        const std::uint32_t value = record.*field.value;
        if (row.style == Style::Wide) {
            Print(out, "%-10lu\r\n", static_cast<unsigned long>(value));
        } else if (row.style == Style::CodedTight) {
            Print(out, "%-ld %s\r\n", Signed(value), TagWord(row.tag, value));
        } else {
            Print(out, "%-15ld %-s\r\n", Signed(value), TagWord(row.tag, value));
        }
    }

    void operator()(const SizeField& field) const {
        Print(out, "%-ld Pixels\r\n", static_cast<long>(record.*field.value));
    }

    void operator()(const RationalField& field) const {
        PrintFractions(out, &(record.*field.value), 1);
    }

    template <std::size_t N>
    void operator()(const RationalGroupField<N>& field) const {
        PrintFractions(out, record.*field.values, N);
    }

    void operator()(const TextField& field) const {
        PrintQuoted(out, record.*field.text, row.style == Style::Padded ? 10 : 0);
    }

    void operator()(const WordArrayField& field) const {
        const std::uint32_t count = record.*field.count;
        if (row.style == Style::Count) {
            Print(out, "%-ld Words\r\n", Signed(count));
            return;
        }
        const std::uint16_t* values = record.*field.values;
        std::for_each_n(values, HeldElements(values, count),
                        [this](std::uint16_t value) { Print(out, "%-d ", value); });
        out.Take("Bits\r\n");
    }

    void operator()(const OffsetArrayField& field) const {
        const std::uint32_t count = record.*field.count;
        if (const std::uint16_t* shorts = record.*field.shorts) {
            std::for_each_n(shorts, HeldElements(shorts, count),
                            [this](std::uint16_t value) { Print(out, "%-8d ", value); });
        } else {
            const std::uint32_t* longs = record.*field.longs;
            std::for_each_n(longs, HeldElements(longs, count),
                            [this](std::uint32_t value) { Print(out, "%-8ld ", Signed(value)); });
        }
        out.Take("\r\n");
    }

    void operator()(const WordPairField& field) const {
        const auto& pair = record.*field.values;
        Print(out, "%-d, %d\r\n", Signed(pair[0]), Signed(pair[1]));
    }

    /// Lines of three; the first stands behind the label, the others under it.
    void operator()(const ColorTableField& field) const {
        const auto& slots = record.*field.values;
        for (std::size_t i = 0; i < kColorTableTaken; ++i) {
            const std::size_t column = i % kColorTableColumns;
            if (i > 0 && column == 0) {
                PrintLabel(out, "");
            }
            const bool lineEnds = column == kColorTableColumns - 1 || i == kColorTableTaken - 1;
            Print(out, "%-6u%s", static_cast<unsigned>(slots[i]), lineEnds ? "\r\n" : " ");
        }
    }

    void operator()(const BlockSlot& /*field*/) const {}
    void operator()(const LongSlot& /*field*/) const {}
};

const char* FormatWord(std::int16_t format) {
    if (format == kIntel) {
        return "INTEL";
    }
    return format == kMotorola ? "MOTOROLA" : "Unkown";
}

}  // namespace

void ListHeader(TextSink& out, const char* name, std::int32_t size, std::int16_t format) {
    out.Take("\r\nTiffDump\r\n>Header Info\r\n");
    if (name != nullptr) {
        PrintLabel(out, "File");
        PrintQuoted(out, name, 0);
    }
    Print(out, "%-20s %-ld Bytes\r\n", "Size", static_cast<long>(size));
    Print(out, "%-20s %s\r\n\r\n>Standard TIFF\r\n", "Format", FormatWord(format));
}

void ListEntry(TextSink& out, const TagRow& row, const Record& record) {
    if (row.tag == TagIndex::kFirstPrivate) {
        out.Take("\r\n>XK Private TIFF\r\n");
    }
    PrintLabel(out, row.listingLabel);
    std::visit(ListingPrinter{out, row, record}, row.field);
}

}  // namespace platen::tiff
