#include <platen/platform/afx/dialog_template.h>

namespace {

/// Where the number of items stands: behind the two 32-bit styles.
constexpr std::size_t kItemCount = 4;

}  // namespace

CDialogTemplate::CDialogTemplate(DWORD style, const Place& place, LPCSTR caption) {
    // A font of its own would have to follow the caption.
    Append(static_cast<std::uint32_t>(style & ~DWORD{DS_SETFONT}));
    Append(std::uint32_t{0});  // extended style
    Append(std::uint16_t{0});  // items
    Append(place);
    Append(std::uint16_t{0});  // no menu
    Append(std::uint16_t{0});  // the class of all dialogs
    Append(caption);
}

CDialogTemplate& CDialogTemplate::Add(LPCSTR className, LPCSTR text, WORD identifier, DWORD style,
                                      const Place& place) {
    if (m_words.size() % 2 != 0) {
        Append(std::uint16_t{0});  // items start at multiples of 4 bytes
    }
    Append(static_cast<std::uint32_t>(style | WS_CHILD | WS_VISIBLE));
    Append(std::uint32_t{0});  // extended style
    Append(place);
    Append(std::uint16_t{identifier});
    Append(className);
    Append(text);
    Append(std::uint16_t{0});  // no creation data
    ++m_words[kItemCount];
    return *this;
}

std::span<const std::byte> CDialogTemplate::Bytes() const {
    return std::as_bytes(std::span(m_words));
}

void CDialogTemplate::Append(std::uint16_t word) {
    m_words.push_back(word);
}

void CDialogTemplate::Append(std::uint32_t value) {
    m_words.push_back(static_cast<std::uint16_t>(value));
    m_words.push_back(static_cast<std::uint16_t>(value >> 16));
}

void CDialogTemplate::Append(const Place& place) {
    for (const std::int16_t value : {place.x, place.y, place.width, place.height}) {
        m_words.push_back(static_cast<std::uint16_t>(value));
    }
}

void CDialogTemplate::Append(LPCSTR text) {
    for (; text != nullptr && *text != '\0'; ++text) {
        m_words.push_back(static_cast<unsigned char>(*text));
    }
    m_words.push_back(0);
}
