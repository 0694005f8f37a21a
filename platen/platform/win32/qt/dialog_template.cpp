#include <platen/platform/win32/qt/dialog_template.h>

#include <array>
#include <cstring>
#include <string_view>

namespace platen::win32 {
namespace {

constexpr WORD kNumberFollows = 0xFFFF;
constexpr DWORD kExtendedMark = 0xFFFF0001;

void AppendUtf8(std::string& text, char32_t character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | character >> 12);
        text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        text += static_cast<char>(0xF0 | character >> 18);
        text += static_cast<char>(0x80 | (character >> 12 & 0x3F));
        text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

/// Walks over the bytes; past their end it gives zeros and has failed.
class Reader {
  public:
    explicit Reader(std::span<const std::byte> bytes) : m_bytes(bytes) {}

    template <class Value>
    Value Take() {
        Value value{};
        if (m_bytes.size() - m_position < sizeof(Value)) {
            m_failed = true;
            m_position = m_bytes.size();
            return value;
        }
        std::memcpy(&value, m_bytes.data() + m_position, sizeof(Value));
        m_position += sizeof(Value);
        return value;
    }

    std::string TakeText() {
        std::string text;
        char32_t high = 0;
        for (WORD unit = Take<WORD>(); unit != 0; unit = Take<WORD>()) {
            if ((unit & 0xFC00) == 0xD800) {
                high = unit;
            } else if ((unit & 0xFC00) == 0xDC00 && high != 0) {
                AppendUtf8(text, 0x10000 + ((high & 0x3FF) << 10) + (unit & 0x3FFU));
                high = 0;
            } else {
                AppendUtf8(text, unit);
                high = 0;
            }
        }
        return text;
    }

    /// A text, or a number, which `number` then is.
    std::string TakeTextOrNumber(WORD& number) {
        const std::size_t start = m_position;
        if (Take<WORD>() == kNumberFollows) {
            number = Take<WORD>();
            return {};
        }
        m_position = m_failed ? m_position : start;
        return TakeText();
    }

    void Skip(std::size_t count) {
        m_failed = m_failed || m_bytes.size() - m_position < count;
        m_position = m_failed ? m_bytes.size() : m_position + count;
    }
    void Align() { Skip((4 - m_position % 4) % 4); }
    [[nodiscard]] bool HasFailed() const { return m_failed; }

  private:
    std::span<const std::byte> m_bytes;
    std::size_t m_position = 0;
    bool m_failed = false;
};

RECT TakePlace(Reader& reader) {
    std::array<SHORT, 4> place{};
    for (SHORT& coordinate : place) {
        coordinate = reader.Take<SHORT>();
    }
    return {place[0], place[1], place[2], place[3]};
}

std::string ClassOfNumber(WORD number) {
    constexpr std::array<std::string_view, 6> kClasses = {"BUTTON",  "EDIT",      "STATIC",
                                                          "LISTBOX", "SCROLLBAR", "COMBOBOX"};
    const auto index = static_cast<std::size_t>(number) - 0x80;
    return std::string(index < kClasses.size() ? kClasses[index] : "");
}

/// In an extended template the help number and the extended style come first.
void TakeStyles(Reader& reader, bool extended, DWORD& style, DWORD& exStyle) {
    if (extended) {
        reader.Skip(sizeof(DWORD));
        exStyle = reader.Take<DWORD>();
        style = reader.Take<DWORD>();
    } else {
        style = reader.Take<DWORD>();
        exStyle = reader.Take<DWORD>();
    }
}

DialogItem TakeItem(Reader& reader, bool extended) {
    DialogItem item;
    reader.Align();
    TakeStyles(reader, extended, item.style, item.exStyle);
    item.place = TakePlace(reader);
    item.identifier = extended ? reader.Take<DWORD>() : reader.Take<WORD>();
    WORD number = 0;
    item.className = reader.TakeTextOrNumber(number);
    if (number != 0) {
        item.className = ClassOfNumber(number);
    }
    item.text = reader.TakeTextOrNumber(number);
    const WORD creationData = reader.Take<WORD>();
    // A plain item counts the length's own two bytes.
    const int counted = extended || creationData == 0 ? 0 : static_cast<int>(sizeof(WORD));
    reader.Skip(static_cast<std::size_t>(creationData < counted ? 0 : creationData - counted));
    return item;
}

}  // namespace

std::optional<DialogDescription> ParseDialogTemplate(std::span<const std::byte> bytes) {
    Reader reader(bytes);
    DialogDescription dialog;
    const bool extended = Reader(bytes).Take<DWORD>() == kExtendedMark;
    if (extended) {
        reader.Skip(sizeof(DWORD));
    }
    TakeStyles(reader, extended, dialog.style, dialog.exStyle);
    const WORD count = reader.Take<WORD>();
    dialog.place = TakePlace(reader);
    WORD number = 0;
    reader.TakeTextOrNumber(number);
    dialog.className = reader.TakeTextOrNumber(number);
    dialog.title = reader.TakeTextOrNumber(number);
    if ((dialog.style & DS_SETFONT) != 0) {
        reader.Skip((extended ? 3 : 1) * sizeof(WORD));
        reader.TakeText();
    }
    for (WORD i = 0; i < count && !reader.HasFailed(); ++i) {
        dialog.items.push_back(TakeItem(reader, extended));
    }
    return reader.HasFailed() ? std::nullopt : std::optional(std::move(dialog));
}

}  // namespace platen::win32
