#include <platen/platform/afx/string.h>

#include <cstdarg>
#include <cstdio>

CString::CString(LPCSTR text) : m_text(text == nullptr ? "" : text) {}

CString& CString::operator+=(LPCSTR text) {
    m_text += text == nullptr ? "" : text;
    return *this;
}

void CString::Format(LPCSTR format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    // A text of its own, so that the old one may be among the arguments.
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    m_text = std::move(text);
}
