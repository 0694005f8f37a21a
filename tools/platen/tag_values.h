#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <platen/tiff/tag_table.h>

/// Tags as people write them.
namespace platen::tool {

using tiff::kNone16;
using tiff::kNone32;

/// The row of a tag that is given by its number or its name; throws CLI::ValidationError for a tag
/// that is not known.
const tiff::TagRow& TagNamed(std::string_view tag);

/// The value that a record holds of a stored entry: numbers or fractions separated by one space, or
/// the text as it is. None when the entry gave no value.
std::optional<std::string> TagText(const tiff::TagRow& row, const TiffIFDStdDirStruct& record,
                                   const TiffIFDEntryStruct& stored);

}  // namespace platen::tool
