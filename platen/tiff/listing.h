#pragma once

#include <cstdint>

#include <platen/tiff/tag_table.h>

/// The printed listing of a directory, on standard output, with "\r\n" line ends.
namespace platen::tiff {

/// The lines before the first entry. `name` may be null.
void PrintListingHeader(const char* name, std::int32_t size, std::int16_t format);

/// The lines of one entry that the record holds, and the heading of the private tags before theirs.
void PrintListingLine(const TagRow& row, const Record& record);

}  // namespace platen::tiff
