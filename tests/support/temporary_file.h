#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platen::test {

/// A file on disk, in the folder for temporary files, that goes away with the object.
class TemporaryFile {
  public:
    explicit TemporaryFile(std::string_view bytes = {});
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] const std::string& Path() const { return m_path; }
    [[nodiscard]] const char* Name() const { return m_path.c_str(); }

    /// What another program does to the file: its bytes, overwritten in place; its size; all of it.
    void Overwrite(std::size_t offset, std::string_view bytes) const;
    void Resize(std::size_t size) const;
    [[nodiscard]] std::string Contents() const;

  private:
    std::string m_path;
};

/// A name, with forward slashes, that nothing has yet in the folder for temporary files.
std::string NewTemporaryPath();

/// All bytes of a file; empty when it cannot be read.
std::string FileContents(const std::string& path);

}  // namespace platen::test
