/*
 * Memory between two pages that can be neither read nor written. What lies against one of them on
 * its near side cannot be overrun there: the machine stops the program. The rest of the memory
 * holds a fill byte that shows afterwards whether it was written.
 *
 *     GuardedArea area;
 *     char* dst = area.place<char>(size, GuardedArea::Side::BEFORE_PAGE);
 *     ... a call that writes dst ...
 *     EXPECT_TRUE(area.isUntouchedAround(dst, size));
 */
#ifndef ROSETAG_TESTS_SUPPORT_GUARDED_AREA_H
#define ROSETAG_TESTS_SUPPORT_GUARDED_AREA_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#else
#include <sys/mman.h>
#include <unistd.h>
#endif

class GuardedArea {
public:
    // Where a block lies: its end against the page after the memory, or its beginning against the
    // page in front.
    enum class Side { BEFORE_PAGE, AFTER_PAGE };

    static constexpr std::uint8_t FILL = 0xA5;

    // bytes is rounded up to whole pages.
    explicit GuardedArea(std::size_t bytes = 4096) {
        const std::size_t page = pageSize();
        size = (bytes + page - 1) / page * page;
        mapped = size + 2 * page;
        mapping = reserve(mapped);
        memory = mapping + page;
        makeWritable(memory, size);
        clear();
    }
    ~GuardedArea() {
        release(mapping, mapped);
    }
    GuardedArea(const GuardedArea&) = delete;
    GuardedArea& operator=(const GuardedArea&) = delete;

    // Everything gets the fill byte.
    void clear() {
        std::memset(memory, FILL, size);
    }

    template <typename Element>
    Element* place(std::size_t count, Side side) {
        const std::size_t bytes = count * sizeof(Element);
        if (bytes > size) {
            stop("a block larger than the guarded area");
        }
        std::uint8_t* at = side == Side::AFTER_PAGE ? memory : memory + size - bytes;
        return reinterpret_cast<Element*>(at);
    }

    // A copy of count elements, laid as place does.
    template <typename Element>
    Element* placeCopy(const Element* source, std::size_t count, Side side) {
        Element* at = place<Element>(count, side);
        if (count != 0) {
            std::memcpy(at, source, count * sizeof(Element));
        }
        return at;
    }

    // True if the memory outside the block, or the window of it on either side, still holds the
    // fill byte.
    template <typename Element>
    bool isUntouchedAround(const Element* block, std::size_t count,
                           std::size_t window = SIZE_MAX) const {
        const auto* first = reinterpret_cast<const std::uint8_t*>(block);
        const std::uint8_t* last = first + count * sizeof(Element);
        const auto before = static_cast<std::size_t>(first - memory);
        const auto behind = static_cast<std::size_t>(memory + size - last);
        return isFill(first - std::min(before, window), first) &&
               isFill(last, last + std::min(behind, window));
    }

    static bool isFill(const std::uint8_t* first, const std::uint8_t* last) {
        const auto count = static_cast<std::size_t>(last - first);
        return count == 0 || (*first == FILL && std::memcmp(first, first + 1, count - 1) == 0);
    }

private:
    [[noreturn]] static void stop(const char* reason) {
        std::fprintf(stderr, "GuardedArea: %s\n", reason);
        std::abort();
    }

#ifdef _WIN32
    static std::size_t pageSize() {
        SYSTEM_INFO info;
        GetSystemInfo(&info);
        return info.dwPageSize;
    }
    static std::uint8_t* reserve(std::size_t bytes) {
        void* at = VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_NOACCESS);
        return at != nullptr ? static_cast<std::uint8_t*>(at) : (stop("no memory"), nullptr);
    }
    static void makeWritable(std::uint8_t* at, std::size_t bytes) {
        DWORD before = 0;
        if (VirtualProtect(at, bytes, PAGE_READWRITE, &before) == 0) {
            stop("no protection");
        }
    }
    static void release(std::uint8_t* at, std::size_t) {
        VirtualFree(at, 0, MEM_RELEASE);
    }
#else
    static std::size_t pageSize() {
        return static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    }
    static std::uint8_t* reserve(std::size_t bytes) {
        void* at = mmap(nullptr, bytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (at == MAP_FAILED) {
            stop("no memory");
        }
        return static_cast<std::uint8_t*>(at);
    }
    static void makeWritable(std::uint8_t* at, std::size_t bytes) {
        if (mprotect(at, bytes, PROT_READ | PROT_WRITE) != 0) {
            stop("no protection");
        }
    }
    static void release(std::uint8_t* at, std::size_t bytes) {
        munmap(at, bytes);
    }
#endif

    std::uint8_t* mapping;
    std::uint8_t* memory;
    std::size_t size;
    std::size_t mapped;
};

#endif
