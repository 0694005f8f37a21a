#include "tests/support/temporary_file.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace platen::test {

TemporaryFile::TemporaryFile(std::string_view bytes)
    : m_path((std::filesystem::temp_directory_path() / "platen-test-XXXXXX").string()) {
    const int descriptor = mkstemp(m_path.data());
    if (descriptor < 0) {
        std::abort();
    }
    close(descriptor);
    Overwrite(0, bytes);
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

std::string FileContents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace platen::test
