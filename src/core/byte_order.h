/*
 * Four or eight bytes as one number, in either order and at any address, on machines of any byte
 * order.
 */
#ifndef ROSETAG_CORE_BYTE_ORDER_H
#define ROSETAG_CORE_BYTE_ORDER_H

#include <bit>
#include <cstdint>
#include <cstring>

namespace rosetag {

// For the small steps of code that is generated for each scheme: without it compilers keep the
// numbers in memory between steps, which doubles the instructions.
#define ROSETAG_INLINE [[gnu::always_inline]] inline

// For arithmetic on several numbers in one word, whose highest bits are to be lost: clang's integer
// sanitizer takes any other loss for a fault.
#ifdef __clang__
#define ROSETAG_WRAPS [[clang::no_sanitize("unsigned-integer-overflow")]]
#else
#define ROSETAG_WRAPS
#endif

// Compilers recognise these as byte swaps.
ROSETAG_INLINE constexpr std::uint32_t bytesSwapped(std::uint32_t value) {
    return value << 24 | (value << 8 & 0x00FF0000) | (value >> 8 & 0x0000FF00) | value >> 24;
}

ROSETAG_INLINE constexpr std::uint64_t bytesSwapped(std::uint64_t value) {
    return std::uint64_t{bytesSwapped(static_cast<std::uint32_t>(value))} << 32 |
           bytesSwapped(static_cast<std::uint32_t>(value >> 32));
}

// Number is an unsigned integer of 32 or 64 bits.
template <std::endian order, typename Number>
Number bytesLoad(const void* bytes) {
    Number value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return order == std::endian::native ? value : bytesSwapped(value);
}

template <std::endian order, typename Number>
ROSETAG_INLINE void bytesStore(void* bytes, Number value) {
    value = order == std::endian::native ? value : bytesSwapped(value);
    std::memcpy(bytes, &value, sizeof value);
}

// A number as its bytes are in memory, the most significant first; and back.
ROSETAG_INLINE constexpr std::uint64_t bytesInMemory(std::uint64_t value) {
    return std::endian::native == std::endian::big ? value : bytesSwapped(value);
}

inline std::uint64_t loadBigEndian(const std::uint8_t* bytes) {
    return bytesLoad<std::endian::big, std::uint64_t>(bytes);
}

ROSETAG_INLINE void storeBigEndian(std::uint8_t* bytes, std::uint64_t value) {
    bytesStore<std::endian::big>(bytes, value);
}

} // namespace rosetag

#endif
