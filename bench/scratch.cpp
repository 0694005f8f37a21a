#include <bench/scratch.h>

#include <cerrno>
#include <cstdlib>
#include <stdexcept>
#include <system_error>

namespace platen::bench {

Scratch::Scratch() {
    std::string name = std::filesystem::temp_directory_path() / "platen-bench-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), name);
    }
    m_folder = name;
}

Scratch::~Scratch() {
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

std::string Scratch::Write(const std::string& name, const test::PagedFile& file) const {
    std::string path = Path(name);
    if (!file.Write(path)) {
        throw std::runtime_error("cannot write " + path);
    }
    return path;
}

}  // namespace platen::bench
