#pragma once

#include <string>

#include "inspection.h"

/// The two forms of what `platen info` tells of a file.
namespace platen::tool {

/// A heading and a line a directory; nothing for a file whose header was not accepted.
std::string InfoTable(const Inspection& file);

/// One line of JSON. Bytes of the name that are not UTF-8 become U+FFFD.
std::string InfoJson(const Inspection& file);

}  // namespace platen::tool
