#pragma once

#include <bit>
#include <cstdint>
#include <limits>
#include <type_traits>

#include <platen/tags/values.h>

/// The elements that values are made of, beside whole numbers.
namespace platen::tags {

template <typename Number>
struct Fraction {
    Number numerator;
    Number denominator;
};

/// A floating point number by its bits: on the way through a register a NaN can lose some.
template <typename Number>
struct Real {
    using Bits = std::conditional_t<sizeof(Number) == 4, std::uint32_t, std::uint64_t>;
    static constexpr auto kInfinity = std::bit_cast<Bits>(std::numeric_limits<Number>::infinity());
    static constexpr auto kNan = std::bit_cast<Bits>(std::numeric_limits<Number>::quiet_NaN());

    Bits bits;

    [[nodiscard]] constexpr bool IsNan() const { return bits << 1U > kInfinity << 1U; }
};

/// A byte without a meaning of its own.
struct Octet {
    std::uint8_t value;
};

/// Calls `use` with an element of the kind that the type has; of an unknown type, an octet.
template <typename Use>
auto UseElementOf(FieldType type, const Use& use) {
    switch (type) {
        case FieldType::Byte:
            return use(std::uint8_t{});
        case FieldType::Short:
            return use(std::uint16_t{});
        case FieldType::Long:
        case FieldType::Ifd:
            return use(std::uint32_t{});
        case FieldType::Long8:
        case FieldType::Ifd8:
            return use(std::uint64_t{});
        case FieldType::SByte:
            return use(std::int8_t{});
        case FieldType::SShort:
            return use(std::int16_t{});
        case FieldType::SLong:
            return use(std::int32_t{});
        case FieldType::SLong8:
            return use(std::int64_t{});
        case FieldType::Rational:
            return use(Fraction<std::uint32_t>{});
        case FieldType::SRational:
            return use(Fraction<std::int32_t>{});
        case FieldType::Float:
            return use(Real<float>{});
        case FieldType::Double:
            return use(Real<double>{});
        default:
            return use(Octet{});
    }
}

/// Whether the bytes of a value are a text as they are.
inline bool AreCharacters(FieldType type, const TagInfo* tag) {
    return tag != nullptr && tag->characters &&
           (type == FieldType::Byte || type == FieldType::Undefined);
}

}  // namespace platen::tags
