// No export allocates.
#include "contract/cases.h"
#include "support/counted_allocations.h"

#include <gtest/gtest.h>

namespace {

TEST(Allocation, NoExportAllocates) {
#ifdef COUNTS_ALLOCATIONS
    const int own = allocationsOf([] {
        void* volatile block = std::malloc(1);
        std::free(block);
    });
    ASSERT_EQ(2, own) << "the allocator of this program is not in use";

    ExportCaller caller;
    for (const Case& c : allCases()) {
        const Call call = caller.lay(*c.row, c.arguments, enoughRoom(*c.row));
        EXPECT_EQ(0, allocationsOf([&] { c.row->call(call); })) << c.row->name << ", " << c.name;
    }
#else
    GTEST_SKIP() << "the allocator of this build cannot be replaced";
#endif
}

} // namespace
