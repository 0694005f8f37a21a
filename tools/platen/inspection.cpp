#include "inspection.h"

#include <cerrno>
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

/// The engine counts no further than 2 GiB - 1.
std::uint64_t WholeSize(const std::string& name, long counted) {
    if (counted == std::numeric_limits<std::int32_t>::max()) {
        std::error_code error;
        const std::uintmax_t size = std::filesystem::file_size(name, error);
        if (!error) {
            return size;
        }
    }
    return static_cast<std::uint64_t>(counted);
}

}  // namespace

Inspection::Inspection(const std::string& name) : m_name(name) {
    errno = 0;
    void* file = m_tiff.Open(name.c_str(), OF_READ);
    long status = 0;
    if (m_tiff.getFileAttributes() != -1) {
        status = m_tiff.Read(file);
    }
    if (status != 1) {
        m_problem = ProblemOf(status, errno);
    }
    m_tiff.Close(file);
    m_size = WholeSize(name, m_tiff.getFileSize());
    for (std::size_t i = 0; i < kRoles.size(); ++i) {
        const short dir = (m_tiff.*kRoles[i].select)();
        m_chosen[i] = dir < Directories() ? dir : static_cast<short>(-1);
    }
}

const char* Inspection::Format() const {
    switch (m_tiff.getFormat()) {
        case TIFF_INTEL:
            return "INTEL";
        case TIFF_MOTOROLA:
            return "MOTOROLA";
        default:
            return nullptr;
    }
}

short Inspection::Directories() const {
    const short records = m_tiff.getFileNumIFDStdDir();
    if (Format() == nullptr || m_tiff.getStdDir() == nullptr || records == 0) {
        return 0;
    }
    const bool lastIsWhole = Directory(static_cast<short>(records - 1)).NumEntries != 0;
    return static_cast<short>(lastIsWhole ? records : records - 1);
}

const char* Inspection::ClassOf(short dir) const {
    for (const Class& candidate : kClasses) {
        if ((m_tiff.*candidate.test)(dir) == 1) {
            return candidate.name;
        }
    }
    return "unknown";
}

}  // namespace platen::tool
