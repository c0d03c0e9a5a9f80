// No export allocates: this program brings an allocator that counts the calls.
#include "contract/cases.h"
#include "support/sanitizers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>

// The sanitizers bring an allocator of their own, and only glibc gives access to the original one.
#if defined(__GLIBC__) && !BUILT_WITH_SANITIZER
#define COUNTS_ALLOCATIONS

namespace {
thread_local bool isCounting = false;
thread_local int allocations = 0;

void countOne() {
    allocations += isCounting ? 1 : 0;
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

namespace {

TEST(Allocation, NoExportAllocates) {
#ifdef COUNTS_ALLOCATIONS
    isCounting = true;
    void* volatile block = std::malloc(1);
    std::free(block);
    isCounting = false;
    ASSERT_EQ(2, allocations) << "the allocator of this program is not in use";

    ExportCaller caller;
    for (const Case& c : allCases()) {
        const Call call = caller.lay(*c.row, c.arguments, enoughRoom(*c.row));
        allocations = 0;
        isCounting = true;
        c.row->call(call);
        isCounting = false;
        EXPECT_EQ(0, allocations) << c.row->name << ", " << c.name;
    }
#else
    GTEST_SKIP() << "the allocator of this build cannot be replaced";
#endif
}

} // namespace
