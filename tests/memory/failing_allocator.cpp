#include "tests/memory/failing_allocator.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace platen::test {

Failure g_failure;
thread_local constinit HeapUse g_heapUse;

}  // namespace platen::test

namespace {

bool Fails() {
    platen::test::Failure& failure = platen::test::g_failure;
    if (failure.countdown == 0 || --failure.countdown > 0) {
        return false;
    }
    failure.countdown = failure.lasting ? 1 : 0;
    failure.happened = true;
    return true;
}

void* Counted(void* block, std::size_t asked) {
    platen::test::HeapUse& use = platen::test::g_heapUse;
    use.asked += asked;
    use.held += static_cast<std::ptrdiff_t>(malloc_usable_size(block));
    use.most = std::max(use.most, use.held);
    return block;
}

void CountRelease(std::size_t bytes) {
    platen::test::g_heapUse.held -= static_cast<std::ptrdiff_t>(bytes);
}

}  // namespace

// The linker also looks at what shared libraries ask for.
#pragma GCC visibility push(default)
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);

void* __wrap_malloc(std::size_t size) {
    return Fails() ? nullptr : Counted(__real_malloc(size), size);
}
void* __wrap_calloc(std::size_t count, std::size_t size) {
    return Fails() ? nullptr : Counted(__real_calloc(count, size), count * size);
}
void* __wrap_realloc(void* block, std::size_t size) {
    if (Fails()) {
        return nullptr;
    }
    const std::size_t before = malloc_usable_size(block);
    void* const moved = __real_realloc(block, size);
    if (moved != nullptr) {
        CountRelease(before);
        Counted(moved, size);
    }
    return moved;
}
void __wrap_free(void* block) {
    CountRelease(malloc_usable_size(block));
    __real_free(block);
}
}

#pragma GCC visibility pop

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return std::malloc(size);
}
void* operator new(std::size_t size) {
    const bool fails = platen::test::g_failure.throwing && Fails();
    void* block = fails ? nullptr : Counted(__real_malloc(size), size);
    return block != nullptr ? block : throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
    std::free(block);
}
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
    std::free(block);
}
