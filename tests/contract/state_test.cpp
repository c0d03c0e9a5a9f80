// The library keeps nothing between calls and runs on any thread: its writable memory before and
// after all calls, many threads at once, and the stack that a call takes.
#include "contract/cases.h"
#include "support/sanitizers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#ifdef __linux__
#include <elf.h>
#include <link.h>
#include <pthread.h>
#include <sys/mman.h>
#endif

namespace {

std::vector<Outcome> outcomesOfAllCases() {
    std::vector<Outcome> outcomes;
    ExportCaller caller;
    for (const Case& c : allCases()) {
        outcomes.push_back(caller.call(*c.row, c.arguments, enoughRoom(*c.row)));
    }
    return outcomes;
}

TEST(State, ManyThreadsGetWhatOneGets) {
    const std::vector<Outcome> expected = outcomesOfAllCases();
    std::vector<std::vector<Outcome>> outcomes(8);
    std::vector<std::thread> threads;
    for (std::vector<Outcome>& own : outcomes) {
        threads.emplace_back([&own] { own = outcomesOfAllCases(); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const std::vector<Outcome>& own : outcomes) {
        EXPECT_TRUE(expected == own);
    }
}

#ifdef __linux__

// The current bytes of all writable segments of the library.
std::string writableMemory() {
    std::string memory;
    const auto visit = [](dl_phdr_info* object, std::size_t, void* data) {
        if (std::strstr(object->dlpi_name, "librosetag") == nullptr) {
            return 0;
        }
        for (int i = 0; i < object->dlpi_phnum; ++i) {
            const ElfW(Phdr)& segment = object->dlpi_phdr[i];
            if (segment.p_type == PT_LOAD && (segment.p_flags & PF_W) != 0) {
                const ElfW(Addr) address = object->dlpi_addr + segment.p_vaddr;
                static_cast<std::string*>(data)->append(reinterpret_cast<const char*>(address),
                                                        segment.p_memsz);
            }
        }
        return 1;
    };
    dl_iterate_phdr(visit, &memory);
    return memory;
}

TEST(State, WritableMemoryStaysAsItWasLoaded) {
    if (BUILT_WITH_SANITIZER != 0) {
        GTEST_SKIP() << "the sanitizers keep memory of their own among the library's";
    }
    const char* const bindNow = std::getenv("LD_BIND_NOW");
    ASSERT_TRUE(bindNow != nullptr) << "the loader must bind all functions at the start";
    const std::string before = writableMemory();
    if (before.empty()) {
        GTEST_SKIP() << "the library is not shared";
    }
    outcomesOfAllCases();
    EXPECT_TRUE(before == writableMemory());
}

// Runs a call in a thread whose stack was painted before, which shows how deep the call went.
class PaintedStack {
public:
    PaintedStack() {
        void* at = mmap(nullptr, SIZE, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        memory = static_cast<std::uint8_t*>(at == MAP_FAILED ? nullptr : at);
    }
    ~PaintedStack() {
        munmap(memory, SIZE);
    }
    PaintedStack(const PaintedStack&) = delete;
    PaintedStack& operator=(const PaintedStack&) = delete;

    // The bytes of stack that the call takes, below the frame of its caller.
    std::size_t depthOf(const Export& row, const Call& call) {
        std::fill_n(memory, SIZE, PAINT);
        Job job{&row, &call, nullptr};
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        EXPECT_EQ(0, pthread_attr_setstack(&attributes, memory, SIZE));
        pthread_t thread;
        EXPECT_EQ(0, pthread_create(&thread, &attributes, run, &job));
        pthread_join(thread, nullptr);
        pthread_attr_destroy(&attributes);
        const std::uint8_t* deepest =
            std::find_if(memory, memory + SIZE, [](std::uint8_t byte) { return byte != PAINT; });
        return static_cast<std::size_t>(job.frame - deepest);
    }

private:
    static constexpr std::size_t SIZE = 256 * 1024;
    static constexpr std::uint8_t PAINT = 0x5C;

    struct Job {
        const Export* row;
        const Call* call;
        const std::uint8_t* frame;
    };
    static void* run(void* data) {
        Job& job = *static_cast<Job*>(data);
        job.frame = static_cast<const std::uint8_t*>(__builtin_frame_address(0));
        job.row->call(*job.call);
        return nullptr;
    }

    std::uint8_t* memory;
};

TEST(State, SmallStacksAreEnough) {
    constexpr std::size_t limit = 8 * 1024;
    outcomesOfAllCases(); // after this, the loader no longer uses the stack
    ExportCaller caller;
    PaintedStack stack;
    std::size_t deepest = 0;
    std::string deepestCase;
    for (const Case& c : allCases()) {
        const Call call = caller.lay(*c.row, c.arguments, enoughRoom(*c.row));
        const std::size_t depth = stack.depthOf(*c.row, call);
        if (depth > deepest) {
            deepest = depth;
            deepestCase = std::string(c.row->name) + ", " + c.name;
        }
    }
    std::printf("deepest stack: %zu bytes (%s)\n", deepest, deepestCase.c_str());
    EXPECT_TRUE(deepest < limit || BUILT_WITH_SANITIZER) << deepest << " bytes";
    EXPECT_GT(deepest, 500U) << "nothing was painted over";
}

#endif

} // namespace
