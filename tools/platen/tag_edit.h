#pragma once

#include <string>
#include <variant>
#include <vector>

#include <platen/tiff/Tiff.h>
#include <platen/tiff/tag_table.h>

namespace platen::tool {

/// What setTAG stores for a tag. Fixed groups have as many elements as the engine reads.
struct TagValue {
    std::variant<std::uint32_t, std::vector<std::uint16_t>, std::vector<Rational>, std::string>
        data;
    std::int32_t count;
};

/// One tag's new value, or its removal.
struct TagEdit {
    const tiff::TagRow* row;
    TagValue value;
    bool removes;
};

/// The edit that `TAG=VALUE` asks for, in the form that TagText gives; an empty value removes the
/// tag. Throws CLI::ValidationError for a tag that is not known, one that a copy governs itself,
/// and a value that the tag cannot have.
TagEdit ParseEdit(const std::string& argument);

/// Throws std::bad_alloc when the record cannot hold the value.
void Apply(const TagEdit& edit, Tiff& tiff, short dir);

}  // namespace platen::tool
