#include "paper/allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define SPECIALPAGES_SANITIZED_ALLOCATOR 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define SPECIALPAGES_SANITIZED_ALLOCATOR 1
#endif
#endif

namespace {

// Constant from the start: the first allocations come before any initializer runs.
constinit std::atomic<std::size_t> blocks = 0;

} // namespace

#ifdef SPECIALPAGES_SANITIZED_ALLOCATOR

#include <sanitizer/allocator_interface.h>

namespace {

void count_block(const volatile void* /*block*/, std::size_t /*size*/) {
    ++blocks;
}
void ignore_release(const volatile void* /*block*/) {}

// What it answers is 0 when there is no room for the hooks; the test that counts a known block then fails.
[[maybe_unused]] const int installed = __sanitizer_install_malloc_and_free_hooks(count_block, ignore_release);

} // namespace

#else

void* operator new(std::size_t size) {
    ++blocks;
    if (void* block = std::malloc(size == 0 ? 1 : size)) {
        return block;
    }
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
    std::free(block);
}

#endif

namespace specialpages::test {

std::size_t allocations() {
    return blocks;
}

} // namespace specialpages::test
