#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include <platen/platform/api.h>
#include <platen/platform/win32.h>

/// A dialog template made in memory, in the layout that the system's dialog functions take. A host
/// without resources describes its dialogs with it; the same description serves on both systems.
class PLATEN_API CDialogTemplate {
  public:
    /// A place in dialog units: a quarter of the mean width, an eighth of the height of the font.
    struct Place {
        std::int16_t x;
        std::int16_t y;
        std::int16_t width;
        std::int16_t height;
    };

    /// A dialog without items, in the system's font: the style's DS_SETFONT is left out. The
    /// caption is 7-bit text.
    CDialogTemplate(DWORD style, const Place& place, LPCSTR caption);

    /// Adds an item above the earlier ones: its class ("STATIC", "BUTTON", "EDIT", ...), its 7-bit
    /// text and its identifier. WS_CHILD and WS_VISIBLE are added to the style.
    CDialogTemplate& Add(LPCSTR className, LPCSTR text, WORD identifier, DWORD style,
                         const Place& place);

    /// The template, valid until an item is added. It starts at an address that suits the system.
    [[nodiscard]] std::span<const std::byte> Bytes() const;

  private:
    void Append(std::uint16_t word);
    void Append(std::uint32_t value);
    void Append(const Place& place);
    void Append(LPCSTR text);

    std::vector<std::uint16_t> m_words;
};
