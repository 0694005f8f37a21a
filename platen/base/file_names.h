#pragma once

#include <filesystem>
#include <string>

namespace platen {

/// A name as the FILE_ functions take it, on Windows in the system's code page, as a path, and
/// back. Empty when the other form has no such name.
std::filesystem::path PathOf(const char* name);
std::string NameOf(const std::filesystem::path& path);

}  // namespace platen
