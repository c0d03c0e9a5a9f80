/*
 * What the toolkit needs of the C and C++ runtimes, so that the modules link with nothing else: the
 * ones of the system bring floating point, locales and files with them, three times the size of all
 * the rest.
 */
#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

namespace {

// Blocks of 2^n bytes, 16 and more. A block that is given back waits in the list of its size for
// the next of that size, so that a program that does the same over and over does not grow.
struct FreeBlock {
    FreeBlock* next;
};

struct BlockHead {
    std::size_t sizeLog2;
    std::size_t unused; // keeps what follows aligned to 8 bytes
};

constexpr std::size_t PAGE = 65536;

std::array<FreeBlock*, 32> freeBlocks;
std::uintptr_t heapNext = 0; // 0: nothing has been asked for
std::uintptr_t heapEnd = 0;

extern "C" unsigned char __heap_base; // NOLINT: the linker names it

// Whether the heap has that many bytes after heapNext.
bool heapHas(std::size_t bytes) {
    if (heapNext == 0) {
        heapNext = (reinterpret_cast<std::uintptr_t>(&__heap_base) + 15) & ~std::uintptr_t{15};
        heapEnd = __builtin_wasm_memory_size(0) * PAGE;
    }
    if (heapEnd - heapNext >= bytes) {
        return true;
    }
    const std::size_t pages = (bytes - (heapEnd - heapNext) + PAGE - 1) / PAGE;
    if (__builtin_wasm_memory_grow(0, pages) == static_cast<std::size_t>(-1)) {
        return false;
    }
    heapEnd += pages * PAGE;
    return true;
}

void* blockTake(std::size_t bytes) {
    constexpr std::size_t most = std::size_t{1} << 30;
    if (bytes > most) {
        return nullptr;
    }
    const auto sizeLog2 = static_cast<std::size_t>(
        std::bit_width(std::max<std::size_t>(bytes + sizeof(BlockHead), 32) - 1));
    if (FreeBlock* const block = freeBlocks[sizeLog2]) {
        freeBlocks[sizeLog2] = block->next;
        return block;
    }
    if (!heapHas(std::size_t{1} << sizeLog2)) {
        return nullptr;
    }
    auto* const head = reinterpret_cast<BlockHead*>(heapNext);
    heapNext += std::size_t{1} << sizeLog2;
    head->sizeLog2 = sizeLog2;
    return head + 1;
}

void blockGive(void* memory) {
    auto* const block = static_cast<FreeBlock*>(memory);
    FreeBlock*& first = freeBlocks[(static_cast<BlockHead*>(memory) - 1)->sizeLog2];
    block->next = first;
    first = block;
}

template <typename Number>
std::string digitsOf(Number number) {
    std::array<char, 24> digits;
    char* const end = digits.data() + digits.size();
    char* first = end;
    const auto value = static_cast<std::uint64_t>(number);
    std::uint64_t rest = number < 0 ? 0 - value : value;
    do {
        *--first = static_cast<char>('0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    if (number < 0) {
        *--first = '-';
    }
    return {first, end};
}

} // namespace

void* operator new(std::size_t bytes) {
    void* const memory = blockTake(bytes);
    if (memory == nullptr) {
        __builtin_trap(); // the face begins anew with a fresh instance
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    if (memory != nullptr) {
        blockGive(memory);
    }
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

extern "C" void abort() {
    __builtin_trap();
}

// Those of the C++ library that are not in its headers.
// NOLINTBEGIN(cert-dcl58-cpp)
std::string std::to_string(int number) {
    return digitsOf(number);
}
std::string std::to_string(unsigned number) {
    return digitsOf(number);
}
std::string std::to_string(long number) {
    return digitsOf(number);
}
std::string std::to_string(unsigned long number) {
    return digitsOf(number);
}
std::string std::to_string(long long number) {
    return digitsOf(number);
}
std::string std::to_string(unsigned long long number) {
    return digitsOf(number);
}
// NOLINTEND(cert-dcl58-cpp)
