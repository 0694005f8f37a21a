#pragma once

#include <string>
#include <vector>

#include "tests/support/tiff_builder.h"

namespace platen::test {

struct NamedFile {
    std::string name;
    Bytes bytes;
};

/// Files made to exhaust time or memory of whoever believes them: loops, overlapping directories,
/// counts beyond the file, values shared many times over. At most 2 MB each.
std::vector<NamedFile> HostileFiles();

/// A file of `count` directories, each holding its index as ImageWidth.
Bytes Pages(std::uint32_t count, Order order = Order::Intel);

}  // namespace platen::test
