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
        if (text.size() > sizeof(m_buffer)) {
            Finish();
            m_sink(text);
            return *this;
        }
        std::memcpy(Room(text.size()), text.data(), text.size());
        m_length += text.size();
        return *this;
    }

    /// A text filled up with spaces behind it.
    TextPieces& Left(std::string_view text, std::size_t width) {
        Text(text);
        return Spaces(width > text.size() ? width - text.size() : 0);
    }

    TextPieces& Number(std::integral auto number) {
        PutDigits(number);
        return *this;
    }

    TextPieces& Hex(std::uint32_t number, std::size_t width = 0) {
        char digits[kDigits];
        const std::to_chars_result end = std::to_chars(digits, digits + kDigits, number, 16);
        return Right({digits, static_cast<std::size_t>(end.ptr - digits)}, width);
    }

    TextPieces& NumberRight(std::integral auto number, std::size_t width) {
        char digits[kDigits];
        const std::to_chars_result end = std::to_chars(digits, digits + kDigits, number);
        return Right({digits, static_cast<std::size_t>(end.ptr - digits)}, width);
    }

    TextPieces& NumberLeft(std::integral auto number, std::size_t width) {
        const std::size_t length = PutDigits(number);
        return Spaces(width > length ? width - length : 0);
    }

    TextPieces& Spaces(std::size_t count) {
        for (; count > kSpaces; count -= kSpaces) {
            std::memset(Room(kSpaces), ' ', kSpaces);
            m_length += kSpaces;
        }
        // All of them at once, whatever the count: what is too much is written over.
        std::memset(Room(kSpaces), ' ', kSpaces);
        m_length += count;
        return *this;
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
    static constexpr std::size_t kSpaces = 32;

    /// Where the next `size` characters go, of those that a buffer takes.
    char* Room(std::size_t size) {
        if (size > sizeof(m_buffer) - m_length) {
            Finish();
        }
        return m_buffer + m_length;
    }

    std::size_t PutDigits(std::integral auto number) {
        char* at = Room(kDigits);
        const auto length =
            static_cast<std::size_t>(std::to_chars(at, at + kDigits, number).ptr - at);
        m_length += length;
        return length;
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
