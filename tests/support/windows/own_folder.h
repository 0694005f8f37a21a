#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace platen::test {

/// The path of a folder, or a file, that no other program uses, in the folder for temporary files:
/// tests run side by side.
inline std::filesystem::path OwnFolder(const std::string& name) {
    return std::filesystem::temp_directory_path() /
           std::string(name).append(" ").append(std::to_string(std::random_device{}()));
}

}  // namespace platen::test
