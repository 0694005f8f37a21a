#include <algorithm>

#include <platen/tiff/tags.h>

#include "info.h"
#include "shown_text.h"
#include "table.h"

namespace platen::tool {
namespace {

constexpr const char* kAbsent = "-";
constexpr std::uint32_t kMostBitsShown = 4;

/// A coded value with its word, as in "5 Lempel-Ziv & Welch".
std::string Coded(const char* tagName, std::uint16_t value) {
    if (value == 0xFFFF) {
        return kAbsent;
    }
    return std::to_string(value) + " " + TagWord(TagNumber(tagName), value);
}

std::string Dimensions(const TiffIFDStdDirStruct& record) {
    return std::to_string(record.ImageWidth) + " x " + std::to_string(record.ImageLength);
}

std::string Bits(const TiffIFDStdDirStruct& record) {
    if (record.BitsPerSample == nullptr) {
        return kAbsent;
    }
    std::string text;
    for (std::uint32_t i = 0; i < std::min(record.BitsPerSampleCount, kMostBitsShown); ++i) {
        text.append(i == 0 ? "" : " ").append(std::to_string(record.BitsPerSample[i]));
    }
    return record.BitsPerSampleCount > kMostBitsShown ? text + " ..." : text;
}

std::string Roles(const Inspection& file, short dir) {
    std::string text;
    for (std::size_t i = 0; i < kRoles.size(); ++i) {
        if (file.Chosen()[i] == dir) {
            text.append(text.empty() ? "" : ", ").append(kRoles[i].name);
        }
    }
    return text.empty() ? kAbsent : text;
}

std::string Heading(const Inspection& file, bool forTerminal) {
    const bool one = file.Directories() == 1;
    return (forTerminal ? ShownText(file.Name()) : file.Name()) + ": " + file.Format() +
           " byte order, " + std::to_string(file.Size()) + " bytes, " +
           std::to_string(file.Directories()) + (one ? " directory\n" : " directories\n");
}

}  // namespace

std::string InfoTable(const Inspection& file, bool forTerminal) {
    if (file.Format() == nullptr) {
        return {};
    }
    if (file.Directories() == 0) {
        return Heading(file, forTerminal);
    }
    Table table({{"dir", true},
                 {"entries", true},
                 {"size", false},
                 {"bits", false},
                 {"compression", false},
                 {"photometric", false},
                 {"class", false},
                 {"roles", false}});
    for (short dir = 0; dir < file.Directories(); ++dir) {
        const TiffIFDStdDirStruct& record = file.Directory(dir);
        table.Add({std::to_string(dir), std::to_string(file.Entries(dir)), Dimensions(record),
                   Bits(record), Coded("Compression", record.Compression),
                   Coded("PhotometricInterpretation", record.PhotometricInterpretation),
                   file.ClassOf(dir), Roles(file, dir)});
    }
    return Heading(file, forTerminal) + table.Text();
}

}  // namespace platen::tool
