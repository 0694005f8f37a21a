#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <platen/tiff/records.h>

/// Builds TIFF files in memory, well-formed or broken on purpose. A file is plain data: fill a
/// `File` and `Build` it. Bytes are held in a `std::string`.
///
///     const Bytes bytes = Build({.order = Order::Motorola,
///                                .data = Bytes(480, '\0'),
///                                .directories = {{{Shorts(256, {640}), Text(305, "me")}}}});
namespace platen::test {

using Bytes = std::string;

enum class Order : std::uint8_t { Intel, Motorola };
inline constexpr Order kOrders[] = {Order::Intel, Order::Motorola};

/// One directory entry. Numbers of up to four bytes in all stand in the entry itself, more of them
/// lie in the file; `count` is written as it is, whatever the numbers are.
struct Entry {
    std::uint16_t tag = 0;
    std::uint16_t type = 0;
    std::uint32_t count = 0;
    unsigned width = 1;  ///< bytes a number
    std::vector<std::uint32_t> numbers;
};

Entry Bytes8(std::uint16_t tag, std::vector<std::uint32_t> numbers);
Entry Shorts(std::uint16_t tag, std::vector<std::uint32_t> numbers);
Entry Longs(std::uint16_t tag, std::vector<std::uint32_t> numbers);
Entry Rationals(std::uint16_t tag, const std::vector<Rational>& fractions);
/// The terminating zero is added and counted.
Entry Text(std::uint16_t tag, std::string_view text);
/// Any type, any count, and the value word as a 32-bit number in the file's order.
Entry Word(std::uint16_t tag, std::uint16_t type, std::uint32_t count, std::uint32_t word);

struct Directory {
    std::vector<Entry> entries;
    /// Offset of the next directory; without it the file's next directory, or 0 after the last.
    std::optional<std::uint32_t> link = std::nullopt;
};

/// Stands in this order: header, `data` from offset 8, directories, each followed by its long
/// values. Nothing is padded.
struct File {
    Order order = Order::Intel;
    std::uint16_t version = 42;
    Bytes data = {};
    std::vector<Directory> directories = {};
    std::optional<std::uint32_t> first = std::nullopt;  ///< offset of the first directory
};

Bytes Build(const File& file);

/// Overwrites `width` bytes, 1 to 4, with a number; the bytes grow when it lies beyond their end.
void Patch(Bytes& bytes, std::size_t offset, std::uint32_t number, unsigned width, Order order);

}  // namespace platen::test
