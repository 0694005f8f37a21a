#pragma once

#include <cstdint>
#include <string_view>

#include <platen/tiff/tag_table.h>

/// The listing of a directory, with "\r\n" line ends.
namespace platen::tiff {

/// Takes a text piece by piece.
class TextSink {
  public:
    virtual ~TextSink() = default;
    virtual void Take(std::string_view piece) = 0;
};

/// The lines before the first entry. `name` may be null.
void ListHeader(TextSink& out, const char* name, std::int32_t size, std::int16_t format);

/// The lines of one entry that the record holds, and the heading of the private tags before theirs.
void ListEntry(TextSink& out, const TagRow& row, const Record& record);

}  // namespace platen::tiff
