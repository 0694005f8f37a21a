#include <platen/base/file_names.h>
#include <platen/platform/win32.h>

namespace platen {

std::filesystem::path PathOf(const char* name) {
    const int size = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, name, -1, nullptr, 0);
    std::wstring path(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, name, -1, path.data(), size);
    path.resize(size > 0 ? path.size() - 1 : 0);  // without its terminating zero
    return path;
}

std::string NameOf(const std::filesystem::path& path) {
    const int size = WideCharToMultiByte(CP_ACP, 0, path.c_str(), -1, nullptr, 0, nullptr, nullptr);
    std::string name(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, path.c_str(), -1, name.data(), size, nullptr, nullptr);
    name.resize(size > 0 ? name.size() - 1 : 0);
    return PathOf(name.c_str()) == path ? name : std::string();
}

}  // namespace platen
