#include <platen/base/file_names.h>

namespace platen {

std::filesystem::path PathOf(const char* name) {
    return name;
}

std::string NameOf(const std::filesystem::path& path) {
    return path.string();
}

}  // namespace platen
