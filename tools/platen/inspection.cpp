#include "inspection.h"

#include <filesystem>
#include <limits>

namespace platen::tool {
namespace {

struct Class {
    const char* name;
    short (Tiff::*test)(short) const;
};

/// The first that holds is shown.
constexpr Class kClasses[] = {
    {"XKold", &Tiff::IsTIFFClassXKold}, {"XK", &Tiff::IsTIFFClassXK}, {"B", &Tiff::IsTIFFClassB},
    {"G", &Tiff::IsTIFFClassG},         {"P", &Tiff::IsTIFFClassP},   {"R", &Tiff::IsTIFFClassR},
};

/// The engine counts no further than 2 GiB - 1; what counts as that and is no file, as 0.
std::uint64_t WholeSize(const std::string& name, long counted) {
    if (counted != std::numeric_limits<std::int32_t>::max()) {
        return static_cast<std::uint64_t>(counted);
    }
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(name, error);
    return error ? 0 : size;
}

}  // namespace

Inspection::Inspection(const std::string& name) : m_name(name), m_source(name) {
    m_size = WholeSize(name, Engine().getFileSize());
    for (std::size_t i = 0; i < kRoles.size(); ++i) {
        const short dir = (Engine().*kRoles[i].select)();
        m_chosen[i] = dir < Directories() ? dir : static_cast<short>(-1);
    }
}

/// The record of the last directory does not tell when that was cut short.
std::uint16_t Inspection::Entries(short dir) const {
    const std::uint16_t entries = Directory(dir).NumEntries;
    if (entries != 0 || dir + 1 != Directories()) {
        return entries;
    }
    std::uint16_t others = 0;
    for (short other = 0; other < dir; ++other) {
        others = static_cast<std::uint16_t>(others + Directory(other).NumEntries);
    }
    return static_cast<std::uint16_t>(Engine().EntriesMet() - others);
}

const char* Inspection::Format() const {
    switch (Engine().getFormat()) {
        case kIntel:
            return "INTEL";
        case kMotorola:
            return "MOTOROLA";
        default:
            return nullptr;
    }
}

const char* Inspection::ClassOf(short dir) const {
    for (const Class& candidate : kClasses) {
        if ((Engine().*candidate.test)(dir) == 1) {
            return candidate.name;
        }
    }
    return "unknown";
}

}  // namespace platen::tool
