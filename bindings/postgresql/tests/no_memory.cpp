// Preloaded into a server, lets larger allocations of C++ fail.
#include <cstdlib>
#include <new>

void* operator new(std::size_t size) {
    constexpr std::size_t most = 100000;
    void* const room = size > most ? nullptr : std::malloc(size);
    if (room == nullptr) {
        throw std::bad_alloc();
    }
    return room;
}

void operator delete(void* room) noexcept {
    std::free(room);
}

void operator delete(void* room, std::size_t) noexcept {
    std::free(room);
}
