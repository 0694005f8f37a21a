#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace platen::tiff {

/// A new file that takes its name only when it is whole. Until `Commit` it stands beside the name
/// under one of its own, and goes away with the object.
class OutputFile {
  public:
    OutputFile() = default;
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Null, or why no file can stand there: no such folder, no permission, or the name is taken by
    /// something that is not a file; errno, on Windows the last error, is the system's reason or 0.
    /// A link's target is what will be replaced.
    const char* Create(const char* name);
    /// Writes all of it, or answers false.
    bool Write(const void* bytes, std::size_t size);
    /// Takes the name, with the permissions of what stood there. False when that failed.
    bool Commit();

  private:
    std::filesystem::path m_name;
    std::filesystem::path m_temporary;
    void* m_file = nullptr;
};

}  // namespace platen::tiff
