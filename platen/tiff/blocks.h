#pragma once

#include <cstddef>
#include <cstdlib>

/// Blocks of the general heap: what the fetchers give and the records own.
namespace platen::tiff {

/// A new zero-filled block of `count` elements, or null.
template <typename T>
T* NewBlock(std::size_t count) {
    return static_cast<T*>(std::calloc(count, sizeof(T)));
}

/// Releases a block, which may be null, and stores null.
template <typename T>
void ReleaseBlock(T*& block) {
    std::free(block);
    block = nullptr;
}

}  // namespace platen::tiff
