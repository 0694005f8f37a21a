#pragma once

#include <string>

#include "inspection.h"

/// The two forms of what `platen info` tells of a file. For a terminal, control characters in its
/// name are escaped.
namespace platen::tool {

/// A heading and a line a directory; nothing for a file whose header was not accepted.
std::string InfoTable(const Inspection& file, bool forTerminal);

/// One line of JSON. Bytes of the name that are not UTF-8 become U+FFFD.
std::string InfoJson(const Inspection& file, bool forTerminal);

}  // namespace platen::tool
