#include <platen/tiff/listing.h>

#include <algorithm>
#include <cstdio>

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

void PrintLabel(const char* label) {
    std::printf("%-20s ", label);
}

void PrintFractions(const Rational* values, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        std::printf("%s%-ld/%-ld", i == 0 ? "" : ", ", Signed(values[i].Numerator),
                    Signed(values[i].Denominator));
    }
    std::printf("\r\n");
}

/// Prints what stands behind a row's label, by kind and style.
struct ListingPrinter {
    const TagRow& row;
    const Record& record;

    void operator()(const WordField& field) const {
        const std::uint16_t value = record.*field.value;
        const bool isUnsigned =
            row.style == Style::CodedUnsigned || row.style == Style::PlainUnsigned;
        const int number = isUnsigned ? value : Signed(value);
        if (row.style == Style::Coded || row.style == Style::CodedUnsigned) {
            std::printf("%-15d %-s\r\n", number, TagWord(row.tag, value));
        } else if (row.style == Style::Wide) {
            std::printf("%-10d\r\n", number);
        } else {
            std::printf("%-d\r\n", number);
        }
    }

    void operator()(const LongField& field) const {
        const std::uint32_t value = record.*field.value;
        if (row.style == Style::Wide) {
            std::printf("%-10lu\r\n", static_cast<unsigned long>(value));
        } else if (row.style == Style::CodedTight) {
            std::printf("%-ld %s\r\n", Signed(value), TagWord(row.tag, value));
        } else {
            std::printf("%-15ld %-s\r\n", Signed(value), TagWord(row.tag, value));
        }
    }

    void operator()(const SizeField& field) const {
        std::printf("%-ld Pixels\r\n", static_cast<long>(record.*field.value));
    }

    void operator()(const RationalField& field) const { PrintFractions(&(record.*field.value), 1); }

    template <std::size_t N>
    void operator()(const RationalGroupField<N>& field) const {
        PrintFractions(record.*field.values, N);
    }

    void operator()(const TextField& field) const {
        std::printf(row.style == Style::Padded ? "'%-10s'\r\n" : "'%s'\r\n", record.*field.text);
    }

    void operator()(const WordArrayField& field) const {
        const std::uint32_t count = record.*field.count;
        if (row.style == Style::Count) {
            std::printf("%-ld Words\r\n", Signed(count));
            return;
        }
        const std::uint16_t* values = record.*field.values;
        std::for_each_n(values, HeldElements(values, count),
                        [](std::uint16_t value) { std::printf("%-d ", value); });
        std::printf("Bits\r\n");
    }

    void operator()(const OffsetArrayField& field) const {
        const std::uint32_t count = record.*field.count;
        if (const std::uint16_t* shorts = record.*field.shorts) {
            std::for_each_n(shorts, HeldElements(shorts, count),
                            [](std::uint16_t value) { std::printf("%-8d ", value); });
        } else {
            const std::uint32_t* longs = record.*field.longs;
            std::for_each_n(longs, HeldElements(longs, count),
                            [](std::uint32_t value) { std::printf("%-8ld ", Signed(value)); });
        }
        std::printf("\r\n");
    }

    void operator()(const WordPairField& field) const {
        const auto& pair = record.*field.values;
        std::printf("%-d, %d\r\n", Signed(pair[0]), Signed(pair[1]));
    }

    /// Lines of three; the first stands behind the label, the others under it.
    void operator()(const ColorTableField& field) const {
        const auto& slots = record.*field.values;
        for (std::size_t i = 0; i < kColorTableTaken; ++i) {
            const std::size_t column = i % kColorTableColumns;
            if (i > 0 && column == 0) {
                PrintLabel("");
            }
            const bool lineEnds = column == kColorTableColumns - 1 || i == kColorTableTaken - 1;
            std::printf("%-6u%s", static_cast<unsigned>(slots[i]), lineEnds ? "\r\n" : " ");
        }
    }

    void operator()(const BlockSlot& /*field*/) const {}
    void operator()(const LongSlot& /*field*/) const {}
};

const char* FormatWord(std::int16_t format) {
    if (format == TIFF_INTEL) {
        return "INTEL";
    }
    return format == TIFF_MOTOROLA ? "MOTOROLA" : "Unkown";
}

}  // namespace

void PrintListingHeader(const char* name, std::int32_t size, std::int16_t format) {
    std::printf("\r\nTiffDump\r\n>Header Info\r\n");
    if (name != nullptr) {
        std::printf("%-20s '%s'\r\n", "File", name);
    }
    std::printf("%-20s %-ld Bytes\r\n", "Size", static_cast<long>(size));
    std::printf("%-20s %s\r\n\r\n>Standard TIFF\r\n", "Format", FormatWord(format));
}

void PrintListingLine(const TagRow& row, const Record& record) {
    if (row.tag == TagIndex::kFirstPrivate) {
        std::printf("\r\n>XK Private TIFF\r\n");
    }
    PrintLabel(row.listingLabel);
    std::visit(ListingPrinter{row, record}, row.field);
}

}  // namespace platen::tiff
