#include <platen/tiff/output_file.h>

#include <limits>
#include <random>
#include <string>
#include <system_error>

#include <platen/base/files.h>
#include <platen/tiff/file_system.h>

namespace platen::tiff {
namespace {

namespace fs = std::filesystem;

constexpr int kTries = 16;

/// A name beside the file that nothing has yet, or an empty path.
fs::path FreeNameBeside(const fs::path& name) {
    std::random_device random;
    for (int i = 0; i < kTries; ++i) {
        fs::path candidate = name;
        candidate += '.';
        candidate += std::to_string(random());
        candidate += ".part";
        std::error_code error;
        if (fs::symlink_status(candidate, error).type() == fs::file_type::not_found) {
            return candidate;
        }
    }
    return {};
}

}  // namespace

OutputFile::~OutputFile() {
    if (m_file != nullptr) {
        FILE_close(m_file);
        std::error_code ignored;
        fs::remove(m_temporary, ignored);
    }
}

const char* OutputFile::Create(const char* name) {
    std::error_code error;
    m_name = fs::weakly_canonical(PathOf(name), error);
    const fs::file_type type = fs::status(m_name, error).type();
    if (type != fs::file_type::not_found && type != fs::file_type::regular) {
        ForgetSystemError();
        return type == fs::file_type::directory ? "the output is a directory"
                                                : "the output is not a regular file";
    }
    m_temporary = m_name.empty() ? fs::path() : FreeNameBeside(m_name);
    void* file = m_temporary.empty() ? FILE_none() : FILE_creat(NameOf(m_temporary).c_str(), 0);
    m_file = file == FILE_none() ? nullptr : file;
    return m_file == nullptr ? "the output could not be created" : nullptr;
}

bool OutputFile::Write(const void* bytes, std::size_t size) {
    return size <= std::numeric_limits<std::int32_t>::max() &&
           (size == 0 ||
            FILE_write(m_file, bytes, static_cast<LONG>(size)) == static_cast<LONG>(size));
}

bool OutputFile::Commit() {
    FILE_close(m_file);
    m_file = nullptr;
    return TakeName(m_temporary, m_name);
}

}  // namespace platen::tiff
