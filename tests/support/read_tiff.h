#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <platen/base/files.h>
#include <platen/tiff/Tiff.h>

#include "tests/support/temporary_file.h"
#include "tests/support/tiff_builder.h"

namespace platen::test {

/// The gathered report without its terminating zero; "(abandoned)" when there is none.
inline std::string ReportOf(const Tiff& tiff) {
    std::string text(tiff.DumpGetSize(), '\0');
    if (tiff.DumpGetData(text.data()) != text.size() || text.empty()) {
        return "(abandoned)";
    }
    text.pop_back();
    return text;
}

/// Bytes read as a file, the report switched on. No name is stored, so that the report is the same
/// wherever the file lies. `Reader` is Tiff or derived from it.
template <typename Reader = Tiff>
struct ReadTiff {
    explicit ReadTiff(std::string_view bytes) : file(bytes) {
        handle = FILE_open(file.Name(), 0, nullptr);
        tiff.ReadSetDump(1);
        status = tiff.Read(handle);
    }
    ~ReadTiff() { FILE_close(handle); }
    ReadTiff(const ReadTiff&) = delete;
    ReadTiff& operator=(const ReadTiff&) = delete;

    [[nodiscard]] const TiffIFDStdDirStruct& Record(short dir = 0) const {
        return tiff.getStdDir()[dir];
    }
    [[nodiscard]] short Count() const { return tiff.getFileNumIFDStdDir(); }
    [[nodiscard]] std::string Report() const { return ReportOf(tiff); }

    TemporaryFile file;
    Reader tiff;
    void* handle = nullptr;
    long status = 0;
};

}  // namespace platen::test
