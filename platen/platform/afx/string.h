#pragma once

#include <string>
#include <string_view>

#include <platen/platform/api.h>
#include <platen/platform/win32.h>

/// A text of 8-bit characters that owns its memory and copies by value.
class PLATEN_API CString {
  public:
    CString() = default;
    /// A null text counts as empty.
    CString(LPCSTR text);  // NOLINT(google-explicit-constructor): texts pass where a CString is due

    [[nodiscard]] int GetLength() const { return static_cast<int>(m_text.size()); }
    [[nodiscard]] bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }

    /// The text with its terminating zero, valid until the string changes.
    operator LPCSTR() const { return m_text.c_str(); }  // NOLINT(google-explicit-constructor)
    [[nodiscard]] char GetAt(int index) const { return m_text.at(static_cast<std::size_t>(index)); }

    CString& operator+=(LPCSTR text);
    /// Replaces the text by what `printf` would print.
    void Format(LPCSTR format, ...) __attribute__((format(printf, 2, 3)));

    friend bool operator==(const CString& left, const CString& right) {
        return left.m_text == right.m_text;
    }
    friend bool operator==(const CString& left, LPCSTR right) {
        return left.m_text == (right == nullptr ? "" : right);
    }

  private:
    std::string m_text;
};
