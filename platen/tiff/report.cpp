#include <algorithm>
#include <cstdio>
#include <cstring>

#include <platen/base/memory.h>
#include <platen/tiff/Tiff.h>
#include <platen/tiff/tag_table.h>
#include <platen/tiff/text_pieces.h>

namespace {

constexpr std::size_t kLongestLabel = 255;
constexpr std::size_t kItemIndent = 60;
constexpr std::string_view kLineEnd = "\r\n";

/// The report's words for the field types; other types leave no line.
std::string_view TypeWord(std::uint16_t type) {
    static constexpr std::string_view kWords[] = {"", "byte", "ascii", "short", "long", "rational"};
    return type < std::size(kWords) ? kWords[type] : std::string_view();
}

/// One entry's lines: a head with the values behind it, or, for several, below it.
template <typename Pieces>
class EntryLines {
  public:
    EntryLines(Pieces& out, const TiffIFDEntryStruct& entry, const void* data, std::uint32_t held)
        : m_out(out), m_entry(entry), m_data(data) {
        const auto count = static_cast<std::int32_t>(entry.Count);
        m_shown = data != nullptr && count > 1 ? std::min(entry.Count, held) : 0;
    }

    void Head(std::string_view label) {
        m_out.Left(label.substr(0, kLongestLabel), 24).Text(" ").NumberRight(m_entry.Tag, 5);
        m_out.Text("(0x").Hex(m_entry.Tag, 5).Text(") N=");
        m_out.NumberLeft(static_cast<std::int32_t>(m_entry.Count), 8);
        m_out.Text(" ").Left(TypeWord(m_entry.Type), 8);
    }

    void Values() {
        switch (m_entry.Type) {
            case platen::kTypeByte:
                return Single(m_entry.ValueOffset & 0xFFFFU);
            case platen::kTypeAscii:
                m_out.Text(" Data: '").Text(static_cast<const char*>(m_data)).Text("'\r\n");
                return;
            case platen::kTypeShort:
                return Numbers<std::uint16_t>(m_entry.ValueOffset & 0xFFFFU);
            case platen::kTypeLong:
                return Numbers<std::uint32_t>(static_cast<std::int32_t>(m_entry.ValueOffset));
            default:
                return Rationals();
        }
    }

  private:
    void Single(std::integral auto number) { m_out.Text(" Data: ").Number(number).Text(kLineEnd); }

    template <typename T>
    void Numbers(std::integral auto inEntry) {
        if (m_shown == 0) {
            return Single(inEntry);
        }
        m_out.Text(kLineEnd);
        const auto* values = static_cast<const T*>(m_data);
        std::for_each(values, values + m_shown, [&](T value) { m_out.Number(value).Text(" "); });
        m_out.Text(kLineEnd);
    }

    void Ratio(const Rational& value) {
        m_out.Number(static_cast<std::int32_t>(value.Numerator)).Text("/");
        m_out.Number(static_cast<std::int32_t>(value.Denominator)).Text(kLineEnd);
    }

    void Rationals() {
        const auto* values = static_cast<const Rational*>(m_data);
        if (m_shown == 0) {
            m_out.Text(" Data: ");
            return Ratio(values == nullptr ? Rational{0, 0} : *values);
        }
        m_out.Text(kLineEnd);
        for (std::uint32_t i = 0; i < m_shown; ++i) {
            m_out.Spaces(kItemIndent).Text("Data[").Number(i).Text("]: ");
            Ratio(values[i]);
        }
    }

    Pieces& m_out;
    const TiffIFDEntryStruct& m_entry;
    const void* m_data;
    std::uint32_t m_shown;  ///< elements below the head; 0: the value stands behind it
};

/// The XK flavour's own class lines, by the low half of FileTag.
const char* XKClassLine(std::uint32_t fileTag) {
    switch (static_cast<std::uint16_t>(fileTag)) {
        case 128:
            return "TIFF Class XK - Densitometer\r\n";
        case 0:
        case 1:
        case 2:
            return "TIFF Class XK - Glowscan\r\n";
        default:
            return nullptr;
    }
}

struct ClassLine {
    short (Tiff::*test)(short) const;
    const char* line;
};

constexpr ClassLine kClassLines[] = {
    {&Tiff::IsTIFFClassB, "TIFF Class B - Bilevel\r\n"},
    {&Tiff::IsTIFFClassG, "TIFF Class G - GrayScale\r\n"},
    {&Tiff::IsTIFFClassP, "TIFF Class P - Palette Color\r\n"},
    {&Tiff::IsTIFFClassR, "TIFF Class R - RGB Full Color\r\n"},
};

bool IsMissing(const Rational& value) {
    return value == platen::tiff::kNoRational;
}

struct MissingLine {
    bool (*missing)(const TiffIFDStdDirStruct&);
    const char* line;
};

using Record = TiffIFDStdDirStruct;

constexpr MissingLine kMissingLines[] = {
    {[](const Record& r) { return r.ImageWidth == 0; },
     "Basic TAG ImageWidth is zero (0) or missing\r\n"},
    {[](const Record& r) { return r.ImageLength == 0; },
     "Basic TAG ImageLength is zero (0) or missing\r\n"},
    {[](const Record& r) { return r.RowsPerStrip == 0; },
     "Basic TAG RowsPerStrip is zero (0) or missing\r\n"},
    {[](const Record& r) {
         return r.StripOffsetsShort == nullptr && r.StripOffsetsLong == nullptr;
     },
     "Basic TAG StripOffsets is missing\r\n"},
    {[](const Record& r) {
         return r.StripByteCountsShort == nullptr && r.StripByteCountsLong == nullptr;
     },
     "Basic TAG StripByteCounts is missing\r\n"},
    {[](const Record& r) { return IsMissing(r.XResolution); },
     "Basic TAG XResolution is missing\r\n"},
    {[](const Record& r) { return IsMissing(r.YResolution); },
     "Basic TAG YResolution is missing\r\n"},
    {[](const Record& r) { return r.ResolutionUnit == platen::tiff::kNone16; },
     "Basic TAG ResolutionUnit is missing\r\n"},
};

}  // namespace

std::uint32_t Tiff::DumpGetSize() const {
    return MEM_LogSizeHandle(m_hDump);
}

std::uint32_t Tiff::DumpGetData(char* buffer) const {
    if (m_hDump == nullptr || buffer == nullptr) {
        return 0;
    }
    const std::uint32_t size = DumpGetSize();
    std::memcpy(buffer, MEM_LockHandle(m_hDump), size);
    MEM_UnlockHandle(m_hDump);
    return size;
}

void Tiff::DumpPrintf() const {
    if (m_Dump != 0 && m_hDump != nullptr) {
        std::printf("%s", static_cast<const char*>(MEM_LockHandle(m_hDump)));
        MEM_UnlockHandle(m_hDump);
    }
}

/// Adds to the end of the text, which is the block's last byte. Without memory, or beyond what a
/// read may spend, the report is abandoned: the object holds no text until the next read.
void Tiff::DumpAppend(std::string_view line) {
    if (m_Dump == 0 || m_hDump == nullptr) {
        return;
    }
    const std::uint64_t size = std::uint64_t{DumpGetSize()} + line.size();
    HGLOBAL grown = nullptr;
    if (size <= INT32_MAX && SpendBytes(line.size())) {
        grown = MEM_ReNewHandle(m_hDump, static_cast<DWORD>(size), GMEM_MOVEABLE);
    }
    if (grown == nullptr) {
        m_hDump = MEM_FreeHandle(m_hDump);
        return;
    }
    m_hDump = grown;
    auto* text = static_cast<char*>(MEM_LockHandle(m_hDump));
    std::memcpy(text + size - 1 - line.size(), line.data(), line.size());
    text[size - 1] = '\0';
    MEM_UnlockHandle(m_hDump);
}

/// Runs `write` on a text that is appended to the report; costs nothing while the report is off.
template <typename Write>
void Tiff::DumpWrite(Write write) {
    if (m_Dump == 0 || m_hDump == nullptr) {
        return;
    }
    platen::tiff::TextPieces pieces([this](std::string_view piece) { DumpAppend(piece); });
    write(pieces);
    pieces.Finish();
}

void Tiff::DumpAppendHeader() {
    DumpWrite([this](auto& out) {
        if (m_FileName != nullptr && *m_FileName != '\0') {
            out.Text("TIFFDUMP: ").Text(m_FileName).Text(kLineEnd);
        }
        out.Text(m_Format == platen::kMotorola ? "MOTOROLA file format\r\n"
                                               : "INTEL file format\r\n");
        out.Text("Version ").Hex(static_cast<std::uint16_t>(m_Version)).Text(kLineEnd);
    });
}

void Tiff::DumpAppendIFDOffset(std::uint32_t offset) {
    DumpWrite([offset](auto& out) {
        out.Text("IFD at offset ").Number(static_cast<std::int32_t>(offset));
        out.Text(" (0x").Hex(offset).Text(")\r\n");
    });
}

void Tiff::DumpAppendIFDCount(std::uint16_t count) {
    DumpWrite([this, count](auto& out) {
        out.Text("Directory #").Number(m_NumIFDStdDir);
        out.Text(", Number of IFD entries=").Number(count).Text(kLineEnd);
    });
}

void Tiff::DumpAppendIFD(const char* name, const TiffIFDEntryStruct& entry, const void* data,
                         std::uint32_t held) {
    if (m_Dump == 0 || TypeWord(entry.Type).empty() ||
        (entry.Type == platen::kTypeAscii && data == nullptr)) {
        return;
    }
    DumpWrite([&](auto& out) {
        EntryLines lines(out, entry, data, held);
        lines.Head(name);
        lines.Values();
    });
}

void Tiff::DumpAppendTIFFClass(short dir) {
    const TiffIFDStdDirStruct* record = RecordAt(dir);
    if (m_Dump == 0 || record == nullptr) {
        return;
    }
    const char* line = XKClassLine(record->FileTag);
    for (const ClassLine& candidate : kClassLines) {
        if (line == nullptr && (this->*candidate.test)(dir) == 1) {
            line = candidate.line;
        }
    }
    DumpAppend(line == nullptr ? "TIFF Class Unknown - Custom\r\n" : line);
}

void Tiff::DumpAppendMissingTAGS(short dir) {
    const TiffIFDStdDirStruct* record = RecordAt(dir);
    if (record == nullptr) {
        return;
    }
    DumpAppend(kLineEnd);
    for (const MissingLine& candidate : kMissingLines) {
        if (candidate.missing(*record)) {
            DumpAppend(candidate.line);
        }
    }
}
