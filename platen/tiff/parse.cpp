#include <algorithm>

#include <platen/tiff/Tiff.h>
#include <platen/tiff/blocks.h>
#include <platen/tiff/entry_words.h>
#include <platen/tiff/tag_table.h>

namespace platen::tiff {
namespace {

/// What the report shows of a stored entry: `held` elements at `values`, or just the entry.
struct Stored {
    const void* values = nullptr;
    std::uint32_t held = 0;
    bool reported = true;
};

/// Stores the number that an entry carries itself, as most entries do; false for other kinds.
struct NumberParser {
    const TiffIFDEntryStruct& entry;
    Record& record;

    bool operator()(const WordField& field) const {
        record.*field.value = static_cast<std::uint16_t>(entry.ValueOffset);
        return true;
    }

    bool operator()(const LongField& field) const {
        record.*field.value = entry.ValueOffset;
        return true;
    }

    /// A SHORT is widened with its sign.
    bool operator()(const SizeField& field) const {
        record.*field.value = entry.Type == kTypeShort
                                  ? static_cast<std::int16_t>(entry.ValueOffset)
                                  : static_cast<std::int32_t>(entry.ValueOffset);
        return true;
    }

    template <typename OtherField>
    bool operator()(const OtherField& /*field*/) const {
        return false;
    }
};

/// Fetches an entry's values and stores them in the record, by kind.
struct EntryParser {
    Tiff& tiff;
    void* file;
    TiffIFDEntryStruct& entry;
    Record& record;

    /// Numbers, which are no matter of this parser, and slots that nothing fills.
    template <typename OtherField>
    Stored operator()(const OtherField& /*field*/) const {
        return {nullptr, 0, false};
    }

    Stored operator()(const RationalField& field) const {
        record.*field.value = tiff.GetRATIONAL(file, entry);
        return {&(record.*field.value), 1};
    }

    Stored operator()(const TextField& field) const {
        return Replace(record.*field.text, tiff.GetASCII(file, entry));
    }

    Stored operator()(const WordArrayField& field) const {
        record.*field.count = entry.Count;
        return Replace(record.*field.values, tiff.GetWORDArray(file, entry));
    }

    Stored operator()(const OffsetArrayField& field) const {
        return entry.Type == kTypeShort
                   ? Replace(record.*field.shorts, tiff.GetWORDArray(file, entry))
                   : Replace(record.*field.longs, tiff.GetLONGArray(file, entry));
    }

    /// Both values stand in the entry. An entry that carries one gives that and 0.
    Stored operator()(const WordPairField& field) const {
        UnpackWords(entry, static_cast<std::uint16_t>(tiff.getFormat()), record.*field.values);
        return {record.*field.values, 2};
    }

    template <std::size_t N>
    Stored operator()(const RationalGroupField<N>& field) const {
        Rational* values = tiff.GetRATIONALArray(file, entry);
        if (values != nullptr) {
            std::copy_n(values, std::min<std::uint32_t>(entry.Count, N), record.*field.values);
            ReleaseBlock(values);
        }
        return {record.*field.values, N};
    }

    Stored operator()(const ColorTableField& field) const;

  private:
    /// A second entry of the same tag replaces the block that the first one stored.
    template <typename T>
    Stored Replace(T*& block, T* fetched) const {
        ReleaseBlock(block);
        block = fetched;
        return {block, entry.Count};
    }
};

constexpr std::uint32_t kImpliedColorTable = 16;

/// A table without values stands for the inverse scale from MinSampleValue to MaxSampleValue.
void SynthesiseColorTable(Record& record, std::uint16_t* table) {
    table[0] = record.MinSampleValue;
    for (std::uint32_t i = 1; i < kColorTableTaken; ++i) {
        table[i] = static_cast<std::uint16_t>(record.MaxSampleValue / (kColorTableTaken - i));
    }
}

Stored EntryParser::operator()(const ColorTableField& field) const {
    const bool implied = entry.Count == 0;
    if (implied) {
        entry.Count = kImpliedColorTable;
    } else {
        record.*field.offset = entry.ValueOffset;
        record.*field.count = entry.Count;
    }
    std::uint16_t* values = tiff.GetWORDArray(file, entry);
    if (values == nullptr) {
        return {nullptr, 0, false};
    }
    std::uint16_t* table = record.*field.values;
    if (implied) {
        record.*field.offset = 0;
        SynthesiseColorTable(record, table);
    } else {
        std::copy_n(values, std::min(entry.Count, kColorTableTaken), table);
    }
    ReleaseBlock(values);
    return {table, static_cast<std::uint32_t>(std::size(record.*field.values))};
}

/// Offsets and byte counts note their count whatever the entry's type.
void NoteCount(const TagRow& row, const TiffIFDEntryStruct& entry, Record& record) {
    if (const auto* offsets = std::get_if<OffsetArrayField>(&row.field)) {
        record.*(offsets->count) = entry.Count;
    }
}

}  // namespace
}  // namespace platen::tiff

long Tiff::ParseIFDStdDir(void* file, TiffIFDEntryStruct& entry, short dir) {
    TiffIFDStdDirStruct* record = RecordAt(dir);
    if (record == nullptr) {
        return Fail(-4);
    }
    const platen::tiff::TagRow* row = platen::tiff::FindTag(entry.Tag);
    if (row == nullptr) {
        return ParseIFDCustomDir(file, entry, dir);
    }
    platen::tiff::NoteCount(*row, entry, *record);
    if (!row->Accepts(entry.Type)) {
        return 1;
    }
    if (platen::tiff::VisitField(platen::tiff::NumberParser{entry, *record}, row->field)) {
        if (m_Dump != 0) {
            DumpAppendIFD(row->reportLabel, entry, nullptr, 0);
        }
        return 1;
    }
    const platen::tiff::Stored stored =
        std::visit(platen::tiff::EntryParser{*this, file, entry, *record}, row->field);
    if (stored.reported && m_Dump != 0) {
        DumpAppendIFD(row->reportLabel, entry, stored.values, stored.held);
    }
    return 1;
}

long Tiff::ParseIFDCustomDir(void* /*file*/, TiffIFDEntryStruct& entry, short /*dir*/) {
    DumpAppendIFD("Private/Unknown", entry, nullptr, 0);
    return 1;
}
