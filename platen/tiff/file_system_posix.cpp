#include <cerrno>
#include <system_error>

#include <platen/tiff/file_system.h>

namespace platen::tiff {

namespace fs = std::filesystem;

fs::path PathOf(const char* name) {
    return name;
}

std::string NameOf(const fs::path& path) {
    return path.string();
}

bool TakeName(const fs::path& whole, const fs::path& target) {
    std::error_code error;
    const fs::file_status old = fs::status(target, error);
    if (old.type() == fs::file_type::regular) {
        fs::permissions(whole, old.permissions(), error);
    }
    fs::rename(whole, target, error);
    if (error) {
        std::error_code ignored;
        fs::remove(whole, ignored);
    }
    return !error;
}

void ForgetSystemError() {
    errno = 0;
}

}  // namespace platen::tiff
