#include "tests/memory/failing_allocator.h"

#include <cstdlib>
#include <new>

namespace platen::test {

Failure g_failure;

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

}  // namespace

// The linker also looks at what shared libraries ask for.
#pragma GCC visibility push(default)
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);

void* __wrap_malloc(std::size_t size) {
    return Fails() ? nullptr : __real_malloc(size);
}
void* __wrap_calloc(std::size_t count, std::size_t size) {
    return Fails() ? nullptr : __real_calloc(count, size);
}
void* __wrap_realloc(void* block, std::size_t size) {
    return Fails() ? nullptr : __real_realloc(block, size);
}
}

#pragma GCC visibility pop

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return std::malloc(size);
}
void* operator new(std::size_t size) {
    const bool fails = platen::test::g_failure.throwing && Fails();
    void* block = fails ? nullptr : __real_malloc(size);
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
