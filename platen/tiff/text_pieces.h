#pragma once

#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace platen::tiff {

/// Builds a text of any length in a fixed buffer and hands it on in pieces: `Sink` is called with
/// each full buffer, and with the rest by `Finish`.
template <std::invocable<std::string_view> Sink>
class TextPieces {
  public:
    explicit TextPieces(Sink sink) : m_sink(sink) {}

    TextPieces& Text(std::string_view text) {
        if (text.size() > sizeof(m_buffer) - m_length) {
            Finish();
        }
        if (text.size() > sizeof(m_buffer)) {
            m_sink(text);
            return *this;
        }
        std::memcpy(m_buffer + m_length, text.data(), text.size());
        m_length += text.size();
        return *this;
    }

    /// A text filled up with spaces behind it.
    TextPieces& Left(std::string_view text, std::size_t width) {
        Text(text);
        return Spaces(width > text.size() ? width - text.size() : 0);
    }

    TextPieces& Number(std::integral auto number) {
        char digits[kDigits];
        return Text(Digits(digits, number, 10));
    }

    TextPieces& Hex(std::uint32_t number, std::size_t width = 0) {
        char digits[kDigits];
        return Right(Digits(digits, number, 16), width);
    }

    TextPieces& NumberRight(std::integral auto number, std::size_t width) {
        char digits[kDigits];
        return Right(Digits(digits, number, 10), width);
    }

    TextPieces& NumberLeft(std::integral auto number, std::size_t width) {
        char digits[kDigits];
        return Left(Digits(digits, number, 10), width);
    }

    TextPieces& Spaces(std::size_t count) {
        for (; count >= sizeof(kSpaces); count -= sizeof(kSpaces)) {
            Text({kSpaces, sizeof(kSpaces)});
        }
        return Text({kSpaces, count});
    }

    /// Hands on what is left.
    void Finish() {
        if (m_length > 0) {
            m_sink(std::string_view(m_buffer, m_length));
            m_length = 0;
        }
    }

  private:
    static constexpr std::size_t kDigits = 20;
    static constexpr char kSpaces[] = {' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ',
                                       ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' '};

    static std::string_view Digits(char (&digits)[kDigits], std::integral auto number, int base) {
        const std::to_chars_result end = std::to_chars(digits, digits + kDigits, number, base);
        return {digits, static_cast<std::size_t>(end.ptr - digits)};
    }

    TextPieces& Right(std::string_view text, std::size_t width) {
        Spaces(width > text.size() ? width - text.size() : 0);
        return Text(text);
    }

    Sink m_sink;
    std::size_t m_length = 0;
    char m_buffer[1024];
};

}  // namespace platen::tiff
