#pragma once

#include <array>
#include <optional>

#include <platen/tiff/entry_encoder.h>
#include <platen/tiff/tag_table.h>

namespace platen::tiff {

/// The rows in writing order, which is that of the record's fields: ascending, but for 272 before
/// 271. Rows that are never written are among them.
const std::array<const TagRow*, kTagCount>& RowsInWritingOrder();

/// The entry that a row of a record gives, or none when the tag is absent. The private tags stand
/// only where FileTag does.
std::optional<EntryValue> ValueToWrite(const TagRow& row, const Record& record);

/// Hands every entry of a record to `visit(row, value)`, in writing order, and answers their
/// number.
template <typename Visit>
std::int16_t WalkEntries(const Record& record, Visit visit) {
    std::int16_t count = 0;
    for (const TagRow* row : RowsInWritingOrder()) {
        if (const std::optional<EntryValue> value = ValueToWrite(*row, record)) {
            visit(*row, *value);
            ++count;
        }
    }
    return count;
}

}  // namespace platen::tiff
