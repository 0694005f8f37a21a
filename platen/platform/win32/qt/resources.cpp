#include <platen/platform/win32/resource.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <string>
#include <vector>

#include <platen/platform/win32/qt/dialog_template.h>

namespace platen::win32 {
namespace {

/// No template with its 65535 items at most is larger.
constexpr std::size_t kLargestTemplate = std::size_t{64} << 20;

using Templates = std::map<std::string, std::vector<std::byte>>;

/// Never destroyed: templates may be registered and looked up by static objects.
Templates& RegisteredTemplates() {
    static auto* const templates = new Templates;
    return *templates;
}

/// An identifier's key is what "#5" means in Win32 too.
std::string KeyOf(LPCSTR name) {
    if (IS_INTRESOURCE(name)) {
        return std::to_string(reinterpret_cast<ULONG_PTR>(name)).insert(0, 1, '#');
    }
    std::string key = name;
    std::ranges::transform(key, key.begin(), [](unsigned char character) {
        return static_cast<char>(std::toupper(character));
    });
    return key;
}

std::vector<std::byte>* BytesOf(void* resource) {
    return static_cast<std::vector<std::byte>*>(resource);
}

}  // namespace

bool RegisterDialogTemplate(LPCSTR nameOrIdentifier, std::span<const std::byte> bytes) {
    if (!ParseDialogTemplate(bytes)) {
        return false;
    }
    RegisteredTemplates()[KeyOf(nameOrIdentifier)].assign(bytes.begin(), bytes.end());
    return true;
}

std::span<const std::byte> DialogTemplateBytes(LPCDLGTEMPLATE dialogTemplate) {
    const auto* start = reinterpret_cast<const std::byte*>(dialogTemplate);
    for (const auto& [key, bytes] : RegisteredTemplates()) {
        if (bytes.data() == start) {
            return bytes;
        }
    }
    return {start, kLargestTemplate};
}

}  // namespace platen::win32

HRSRC FindResource(HMODULE /*module*/, LPCSTR name, LPCSTR type) {
    auto& templates = platen::win32::RegisteredTemplates();
    const auto found =
        type == RT_DIALOG ? templates.find(platen::win32::KeyOf(name)) : templates.end();
    return found == templates.end() ? nullptr : reinterpret_cast<HRSRC>(&found->second);
}

HGLOBAL LoadResource(HMODULE /*module*/, HRSRC resource) {
    return resource;
}

LPVOID LockResource(HGLOBAL resource) {
    return resource == nullptr ? nullptr : platen::win32::BytesOf(resource)->data();
}

DWORD SizeofResource(HMODULE /*module*/, HRSRC resource) {
    return resource == nullptr ? 0 : static_cast<DWORD>(platen::win32::BytesOf(resource)->size());
}
