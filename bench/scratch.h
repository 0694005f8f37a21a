#pragma once

#include <filesystem>
#include <string>

#include <tests/support/paged_file.h>

namespace platen::bench {

/// A folder for the benchmark's files, removed with the object.
class Scratch {
  public:
    /// Throws when the folder cannot be made.
    Scratch();
    ~Scratch();
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    [[nodiscard]] std::string Path(const std::string& name) const { return m_folder / name; }
    /// Writes a file of pages and gives its path. Throws when that fails.
    [[nodiscard]] std::string Write(const std::string& name, const test::PagedFile& file) const;

  private:
    std::filesystem::path m_folder;
};

}  // namespace platen::bench
