#include "examples/inspector/document.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include <platen/base/files.h>
#include <platen/tiff/tags.h>

#include "examples/inspector/text_capture.h"

namespace inspector {
namespace {

constexpr std::uint16_t kFileTag = 33445;

/// The field types of TIFF 6.0, section 2, with their sizes in bytes.
struct FieldType {
    const char* name;
    std::uint32_t size;
};
constexpr FieldType kFieldTypes[] = {
    {"?", 0},         {"BYTE", 1},  {"ASCII", 1},     {"SHORT", 2},  {"LONG", 4},
    {"RATIONAL", 8},  {"SBYTE", 1}, {"UNDEFINED", 1}, {"SSHORT", 2}, {"SLONG", 4},
    {"SRATIONAL", 8}, {"FLOAT", 4}, {"DOUBLE", 8}};

const FieldType& TypeOf(std::uint16_t number) {
    return kFieldTypes[number < std::size(kFieldTypes) ? number : 0];
}

std::string ProblemOf(long status, int systemError) {
    switch (status) {
        case 1:
            return {};
        case 0:
            return std::string("It cannot be opened: ") + std::strerror(systemError) + ".";
        case -2:
            return "It is not a TIFF file of a version that is known.";
        case -3:
            return "It is not a TIFF file, or it is damaged.";
        default:
            return "Some of its values cannot be read.";
    }
}

struct Role {
    const char* name;
    std::uint32_t newSubfileType;
    std::int32_t subfileType;  ///< -1 for none
};
constexpr Role kRoles[] = {
    {"Full resolution", 0, 1}, {"Reduced resolution", 1, 2}, {"Page", 2, 3}, {"Mask", 4, -1}};

}  // namespace

const char* FieldTypeName(std::uint16_t number) {
    return TypeOf(number).name;
}

long Document::Engine::ParseIFDStdDir(void* file, TiffIFDEntryStruct& entry, short dir) {
    m_tags.resize(std::max(m_tags.size(), static_cast<std::size_t>(dir) + 1));
    m_tags[static_cast<std::size_t>(dir)].push_back({entry});
    return TiffCopy::ParseIFDStdDir(file, entry, dir);
}

Document::Document(std::string name) : m_name(std::move(name)), m_engine(m_tags) {
    errno = 0;
    m_file = m_engine.Open(m_name.c_str(), OF_READ);
    const bool opened = m_engine.getFileAttributes() != -1;
    const long status = opened ? m_engine.Read(m_file) : 0;
    m_problem = ProblemOf(status, errno);
    const short count = opened ? m_engine.getFileNumIFDStdDir() : short{0};
    const bool lastIsWhole = count > 0 && Directory(static_cast<short>(count - 1)).NumEntries != 0;
    m_directories = lastIsWhole || count == 0 ? count : static_cast<short>(count - 1);
    m_tags.resize(static_cast<std::size_t>(m_directories));
}

Document::~Document() {
    m_engine.Close(m_file);
}

const char* Document::ClassOf(short dir) const {
    struct Class {
        const char* name;
        short (Tiff::*test)(short) const;
    };
    constexpr Class kClasses[] = {{"XK (old form)", &Tiff::IsTIFFClassXKold},
                                  {"XK", &Tiff::IsTIFFClassXK},
                                  {"B", &Tiff::IsTIFFClassB},
                                  {"G", &Tiff::IsTIFFClassG},
                                  {"P", &Tiff::IsTIFFClassP},
                                  {"R", &Tiff::IsTIFFClassR}};
    const auto* found = std::ranges::find_if(
        kClasses, [&](const Class& candidate) { return (m_engine.*candidate.test)(dir) == 1; });
    return found == std::end(kClasses) ? "\u2013" : found->name;
}

const char* Document::RoleOf(short dir) const {
    const TiffIFDStdDirStruct& record = Directory(dir);
    const auto* found = std::ranges::find_if(kRoles, [&](const Role& role) {
        return record.NewSubfileType == role.newSubfileType ||
               record.SubfileType == role.subfileType;
    });
    return found == std::end(kRoles) ? "" : found->name;
}

Picture Document::Show(short dir, Rendering rendering) {
    return ShowPicture(m_engine, m_file, dir, rendering);
}

std::string Document::Report() const {
    Tiff reader;
    reader.ReadSetDump(1);
    void* file = reader.Open(m_name.c_str(), OF_READ);
    if (reader.getFileAttributes() == -1) {
        return {};
    }
    reader.Read(file);
    reader.Close(file);
    std::string text(reader.DumpGetSize(), '\0');
    reader.DumpGetData(text.data());
    return text.substr(0, text.find('\0'));
}

std::string Document::Listing(short dir) {
    return CapturedOutput([&] { m_engine.WriteIFDStdDir(FILE_none(), 0, dir, 1); });
}

std::string Document::UndecodedValue(const TiffIFDEntryStruct& entry) {
    constexpr std::int64_t kMostCharacters = 200;
    const std::int64_t size = std::int64_t{entry.Count} * TypeOf(entry.Type).size;
    if (size <= 4) {
        const bool isNumber = entry.Count == 1 &&
                              (entry.Type == platen::kTypeShort || entry.Type == platen::kTypeLong);
        return isNumber ? std::to_string(entry.ValueOffset) : "(not decoded)";
    }
    const std::string place = "at offset " + std::to_string(entry.ValueOffset);
    if (entry.Type != platen::kTypeAscii || entry.ValueOffset >= Size()) {
        return "(not decoded, " + std::to_string(size) + " bytes " + place + ")";
    }
    const auto shown = static_cast<long>(std::min(size, kMostCharacters));
    std::uint8_t* block = m_engine.CreateBLOCK(m_file, static_cast<long>(entry.ValueOffset), shown);
    std::string text;
    if (block != nullptr) {
        text.assign(reinterpret_cast<const char*>(block), static_cast<std::size_t>(shown));
        m_engine.DeleteBLOCK(block);
    }
    return text.substr(0, text.find('\0'));
}

std::string Document::ValueOf(short dir, const TagEntry& tag, std::size_t most) {
    const TiffIFDEntryStruct& entry = tag.entry;
    return IsDecoded(entry.Tag, entry.Type) ? TagText(m_engine, entry.Tag, dir, most)
                                            : UndecodedValue(entry);
}

bool Document::Has(short dir, std::uint16_t tag) const {
    return std::ranges::any_of(Tags(dir), [tag](const auto& at) { return at.entry.Tag == tag; });
}

void Document::Apply(const TagChange& change, short dir) {
    change.ApplyTo(m_engine, dir);
    m_engine.ForgetTAG(change.tag, dir);
    m_edited = true;
}

std::string Document::SetTag(short dir, std::uint16_t tag, std::string_view text) {
    if (tag > kFileTag && !Has(dir, kFileTag)) {
        return "This tag needs FileTag (33445) in its directory.";
    }
    auto parsed = ParseTag(tag, text);
    if (const auto* problem = std::get_if<std::string>(&parsed)) {
        return *problem;
    }
    const auto& change = std::get<TagChange>(parsed);
    Apply(change, dir);
    auto& tags = m_tags[static_cast<std::size_t>(dir)];
    const TagEntry now = {{tag, FieldTypeFor(tag), static_cast<std::uint32_t>(change.count), 0},
                          true};
    if (Has(dir, tag)) {
        std::ranges::replace_if(
            tags, [tag](const TagEntry& at) { return at.entry.Tag == tag; }, now);
        return {};
    }
    tags.insert(
        std::ranges::find_if(tags, [tag](const TagEntry& at) { return at.entry.Tag > tag; }), now);
    return {};
}

std::string Document::RemoveTag(short dir, std::uint16_t tag) {
    auto& tags = m_tags[static_cast<std::size_t>(dir)];
    if (KindOf(tag) != TagKind::Unknown && !IsEditable(tag)) {
        return "This tag says how the image lies in the file and cannot be removed.";
    }
    if (tag == kFileTag && std::ranges::any_of(tags, [](const auto& at) {
            return at.entry.Tag > kFileTag && KindOf(at.entry.Tag) != TagKind::Unknown;
        })) {
        return "Other tags of this directory need FileTag. Remove them first.";
    }
    Apply(RemovalOf(tag), dir);
    std::erase_if(tags, [tag](const TagEntry& at) { return at.entry.Tag == tag; });
    return {};
}

TiffCopy::Result Document::SaveCopy(const std::string& name, short byteOrder,
                                    TiffCopy::Progress progress, void* context) {
    std::error_code error;
    if (std::filesystem::equivalent(m_name, name, error)) {
        return {TiffCopy::Outcome::Refused, -1, "the name is that of the file being copied"};
    }
    const TiffCopy::Result result = m_engine.CopyTo(name.c_str(), byteOrder, progress, context);
    if (result.outcome == TiffCopy::Outcome::Done) {
        m_edited = false;
    }
    return result;
}

}  // namespace inspector
