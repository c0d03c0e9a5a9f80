/*
 * A binary value of eight to sixteen bytes in two words, without a buffer: what the shortcuts give.
 * The value is written from them in two stores, or in the sixteen digits of each.
 */
#ifndef ROSETAG_CORE_SHORT_VALUE_H
#define ROSETAG_CORE_SHORT_VALUE_H

#include "core/bit_buffer.h"
#include "core/hex_digits.h"

namespace rosetag {

// The first eight bytes of a value and its last eight, which may be some of the first. The first
// are 0 if there is no value.
struct ValueEnds {
    std::uint64_t first;
    std::uint64_t last;
};

struct ShortValue {
    ValueEnds ends;
    std::int32_t byteCount; // even
};

// Writes the value into an empty buffer. False if there is none, or no room.
ROSETAG_INLINE bool shortValueToBits(const ShortValue& value, BitBuffer& bits) {
    const std::int32_t bitCount = value.byteCount * 8;
    if (value.ends.first == 0 || bits.capacity < bitCount) {
        return false;
    }
    storeBigEndian(bits.bytes + value.byteCount - 8, value.ends.last);
    storeBigEndian(bits.bytes, value.ends.first);
    bits.position = bitCount;
    return true;
}

// Writes the digits of the value and a NUL. False with nothing written if there is no value, or no
// room, and without vectors.
ROSETAG_INLINE bool shortValueToHex(const ShortValue& value, std::int32_t dstSize, char* dst) {
    const std::int32_t digits = 2 * value.byteCount;
    if (!BYTE_VECTORS || value.ends.first == 0 || digits >= dstSize) {
        return false;
    }
    char* const end = dst + digits;
    hexPutWord(dst, bytesInMemory(value.ends.first));
    hexPutWord(end - 2 * HEX_WORD_BYTES, bytesInMemory(value.ends.last));
    *end = '\0';
    return true;
}

} // namespace rosetag

#endif
