#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <type_traits>

/// Blocks of the general heap: what the fetchers give and the records own. A block carries its size
/// before its first byte, since a record's count may speak of another entry than its block: a
/// rejected or failed entry leaves its count behind.
namespace platen::tiff {

namespace detail {

struct alignas(std::max_align_t) BlockHeader {
    std::size_t bytes;
};

template <typename T>
auto* HeaderOf(T* block) {
    using Header = std::conditional_t<std::is_const_v<T>, const BlockHeader, BlockHeader>;
    return reinterpret_cast<Header*>(block) - 1;
}

/// Memory for a header and `bytes` zeroes behind it, or null. Most blocks are small, and for those
/// the heap serves `malloc` faster than `calloc`.
inline void* NewZeroed(std::size_t bytes) {
    constexpr std::size_t kSmall = 512;
    if (bytes > kSmall) {
        return std::calloc(1, sizeof(BlockHeader) + bytes);
    }
    void* memory = std::malloc(sizeof(BlockHeader) + bytes);
    if (memory != nullptr) {
        std::memset(static_cast<BlockHeader*>(memory) + 1, 0, bytes);
    }
    return memory;
}

}  // namespace detail

/// A new zero-filled block of `count` elements, or null.
template <typename T>
T* NewBlock(std::size_t count) {
    constexpr std::size_t kMost = std::numeric_limits<std::ptrdiff_t>::max() / 2;
    if (count > kMost / sizeof(T)) {
        return nullptr;
    }
    const std::size_t bytes = count * sizeof(T);
    auto* header = static_cast<detail::BlockHeader*>(detail::NewZeroed(bytes));
    if (header == nullptr) {
        return nullptr;
    }
    header->bytes = bytes;
    return reinterpret_cast<T*>(header + 1);
}

/// Releases a block, which may be null, and stores null.
template <typename T>
void ReleaseBlock(T*& block) {
    if (block != nullptr) {
        std::free(detail::HeaderOf(block));
        block = nullptr;
    }
}

struct BlockDeleter {
    template <typename T>
    void operator()(T* block) const {
        ReleaseBlock(block);
    }
};

/// A block that goes with its scope.
template <typename T>
using OwnedBlock = std::unique_ptr<T[], BlockDeleter>;

/// How many of `count` elements a block really holds; 0 for null and for a negative count.
template <typename T>
std::uint32_t HeldElements(T* block, std::uint32_t count) {
    if (block == nullptr || static_cast<std::int32_t>(count) < 0) {
        return 0;
    }
    const std::size_t held = detail::HeaderOf(block)->bytes / sizeof(T);
    return held < count ? static_cast<std::uint32_t>(held) : count;
}

}  // namespace platen::tiff
