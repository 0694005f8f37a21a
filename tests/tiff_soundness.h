#pragma once

#include "tests/support/read_tiff.h"

namespace platen::test {

/// A status of the known ones, a report that is whole or gone.
template <typename Reader>
bool IsSound(const ReadTiff<Reader>& read) {
    const long known[] = {1, -2, -3, -4};
    const std::string report = read.Report();
    return std::ranges::find(known, read.status) != std::end(known) &&
           (report == "(abandoned)" || report.find('\0') == std::string::npos);
}

}  // namespace platen::test
