#include <platen/platform/win32/memory.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

/// Stands in memory right before the block's bytes.
struct alignas(std::max_align_t) BlockHeader {
    std::size_t size;
    std::size_t capacity;
};

constexpr std::size_t kLargestBlock = SIZE_MAX / 2 - sizeof(BlockHeader);

BlockHeader* HeaderOf(HGLOBAL block) {
    return static_cast<BlockHeader*>(block) - 1;
}

/// Half as much again as was asked for: appending costs O(1) a byte.
std::size_t GrownCapacity(std::size_t size) {
    return std::min(size + size / 2, kLargestBlock);
}

BlockHeader* Resize(BlockHeader* header, std::size_t capacity) {
    return static_cast<BlockHeader*>(std::realloc(header, sizeof(BlockHeader) + capacity));
}

/// Moves the block to where `size` bytes fit; null, and the block untouched, when memory is
/// exhausted.
BlockHeader* Reserve(BlockHeader* header, std::size_t size) {
    std::size_t capacity = GrownCapacity(size);
    BlockHeader* grown = Resize(header, capacity);
    if (grown == nullptr) {
        capacity = size;
        grown = Resize(header, capacity);
    }
    if (grown != nullptr) {
        grown->capacity = capacity;
    }
    return grown;
}

}  // namespace

HGLOBAL GlobalAlloc(UINT flags, SIZE_T size) {
    if (size > kLargestBlock) {
        return nullptr;
    }
    const std::size_t bytes = sizeof(BlockHeader) + size;
    void* memory = (flags & GMEM_ZEROINIT) != 0 ? std::calloc(1, bytes) : std::malloc(bytes);
    if (memory == nullptr) {
        return nullptr;
    }
    auto* header = static_cast<BlockHeader*>(memory);
    header->size = size;
    header->capacity = size;
    return header + 1;
}

HGLOBAL GlobalReAlloc(HGLOBAL block, SIZE_T size, UINT flags) {
    if (block == nullptr || size > kLargestBlock) {
        return nullptr;
    }
    BlockHeader* header = HeaderOf(block);
    if (size > header->capacity) {
        header = Reserve(header, size);
        if (header == nullptr) {
            return nullptr;
        }
    }
    auto* bytes = reinterpret_cast<std::byte*>(header + 1);
    if ((flags & GMEM_ZEROINIT) != 0 && size > header->size) {
        std::memset(bytes + header->size, 0, size - header->size);
    }
    header->size = size;
    return bytes;
}

LPVOID GlobalLock(HGLOBAL block) {
    return block;
}

BOOL GlobalUnlock(HGLOBAL /*block*/) {
    return FALSE;
}

HGLOBAL GlobalFree(HGLOBAL block) {
    if (block != nullptr) {
        std::free(HeaderOf(block));
    }
    return nullptr;
}

SIZE_T GlobalSize(HGLOBAL block) {
    return block == nullptr ? 0 : HeaderOf(block)->size;
}

HGLOBAL GlobalHandle(LPCVOID address) {
    return const_cast<LPVOID>(address);
}
