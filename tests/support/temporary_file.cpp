#include "tests/support/temporary_file.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace platen::test {

TemporaryFile::TemporaryFile(std::string_view bytes) : m_path(NewTemporaryPath()) {
    if (!std::ofstream(m_path, std::ios::binary)
             .write(bytes.data(), static_cast<std::streamsize>(bytes.size()))
             .flush()) {
        std::abort();
    }
}

TemporaryFile::~TemporaryFile() {
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
}

void TemporaryFile::Overwrite(std::size_t offset, std::string_view bytes) const {
    std::fstream file(m_path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(static_cast<std::streamoff>(offset));
    if (!file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush()) {
        std::abort();
    }
}

void TemporaryFile::Resize(std::size_t size) const {
    std::filesystem::resize_file(m_path, size);
}

std::string TemporaryFile::Contents() const {
    return FileContents(m_path);
}

std::string NewTemporaryPath() {
    std::random_device random;
    const std::string name =
        "platen-test-" + std::to_string(random()) + "-" + std::to_string(random());
    return (std::filesystem::temp_directory_path() / name).generic_string();
}

std::string FileContents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace platen::test
