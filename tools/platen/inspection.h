#pragma once

#include <array>
#include <cstdint>
#include <string>

#include <platen/tiff/Tiff.h>

#include "source_file.h"

namespace platen::tool {

/// A directory's part among the others; the first one that has the part is chosen.
struct Role {
    const char* name;
    short (Tiff::*select)() const;
};

inline constexpr std::array<Role, 6> kRoles = {{
    {"full", &Tiff::GetFullResolutionIFDDir},
    {"reduced", &Tiff::GetReducedResolutionIFDDir},
    {"page", &Tiff::GetSPofMPIFDDir},
    {"transparency", &Tiff::GetTransparencyIFDDir},
    {"xk", &Tiff::GetXKIFDDir},
    {"xkold", &Tiff::GetXKoldIFDDir},
}};

/// One file, read, as the `info` command sees it.
class Inspection {
  public:
    explicit Inspection(const std::string& name);

    [[nodiscard]] const std::string& Name() const { return m_name; }
    /// The engine's.
    [[nodiscard]] long Status() const { return m_source.Status(); }
    [[nodiscard]] const Problem& GetProblem() const { return m_source.GetProblem(); }
    /// "INTEL", "MOTOROLA", or null when the header was not accepted.
    [[nodiscard]] const char* Format() const;
    [[nodiscard]] std::uint64_t Size() const { return m_size; }
    [[nodiscard]] short Directories() const { return m_source.Directories(); }
    [[nodiscard]] const TiffIFDStdDirStruct& Directory(short dir) const {
        return Engine().getStdDir()[dir];
    }
    /// As the directory says, be it cut short.
    [[nodiscard]] std::uint16_t Entries(short dir) const;
    /// "XKold", "XK", "B", "G", "P", "R", or "unknown".
    [[nodiscard]] const char* ClassOf(short dir) const;
    /// By role, the directory that has it, or -1.
    [[nodiscard]] const std::array<short, kRoles.size()>& Chosen() const { return m_chosen; }

  private:
    [[nodiscard]] const Tiff& Engine() const { return m_source.GetEngine(); }

    std::string m_name;
    SourceFile<Tiff> m_source;
    std::uint64_t m_size = 0;                     ///< bytes
    std::array<short, kRoles.size()> m_chosen{};  ///< once for all: each looks at every directory
};

}  // namespace platen::tool
