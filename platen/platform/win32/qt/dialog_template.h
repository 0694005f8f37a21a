#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <platen/platform/win32/dialog.h>

namespace platen::win32 {

/// An item of a dialog, in dialog units.
struct DialogItem {
    std::string className;
    std::string text;
    DWORD style = 0;
    DWORD exStyle = 0;
    UINT identifier = 0;
    RECT place{};  ///< left, top, width, height
};

/// What a dialog template says, plain or extended.
struct DialogDescription {
    std::string className;
    std::string title;
    DWORD style = 0;
    DWORD exStyle = 0;
    RECT place{};  ///< left, top, width, height
    std::vector<DialogItem> items;
};

/// Nothing when the bytes end before the template does.
std::optional<DialogDescription> ParseDialogTemplate(std::span<const std::byte> bytes);

/// The bytes of a template at an address: those of the registered one that lies there, or as many
/// as any template may have, for one that the caller vouches for.
std::span<const std::byte> DialogTemplateBytes(LPCDLGTEMPLATE dialogTemplate);

}  // namespace platen::win32
