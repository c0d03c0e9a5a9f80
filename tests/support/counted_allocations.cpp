#include "support/counted_allocations.h"

#include <cstddef>

#ifdef COUNTS_ALLOCATIONS

thread_local bool isCountingAllocations = false;
thread_local int countedAllocations = 0;

namespace {

void countOne() {
    countedAllocations += isCountingAllocations ? 1 : 0;
}

} // namespace

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);

void* malloc(std::size_t size) noexcept {
    countOne();
    return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) noexcept {
    countOne();
    return __libc_calloc(count, size);
}
void* realloc(void* block, std::size_t size) noexcept {
    countOne();
    return __libc_realloc(block, size);
}
void free(void* block) noexcept {
    countOne();
    __libc_free(block);
}
}

#endif
