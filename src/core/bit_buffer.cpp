#include "core/bit_buffer.h"

#include <algorithm>

namespace rosetag {

namespace {

// A field wider than a window is read and written in two parts, its last bits separately.
constexpr std::int32_t SPLIT_BITS = 32;

constexpr std::uint64_t lowBits(std::int32_t bitCount) {
    return bitCount >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << bitCount) - 1;
}

bool hasRoom(const BitBuffer& buffer, std::int32_t bitCount) {
    return bitCount >= 0 && bitCount <= buffer.capacity - buffer.position;
}

bool isSplit(const BitBuffer& buffer, std::int32_t bitCount) {
    return bitCount > BIT_WINDOW_BITS && bitCount <= 64 && buffer.capacity >= 64;
}

} // namespace

BitBuffer bitBufferForReading(const std::uint8_t* bytes, std::int32_t bits) {
    // The struct serves both directions; no reader writes through it.
    return {const_cast<std::uint8_t*>(bytes), bits, 0};
}

std::int32_t bitBufferPutAnywhere(BitBuffer& buffer, std::uint64_t value, std::int32_t bitCount) {
    if (!hasRoom(buffer, bitCount)) {
        return -1;
    }
    if (isSplit(buffer, bitCount)) {
        bitWindowPut(buffer, value >> SPLIT_BITS, bitCount - SPLIT_BITS);
        bitWindowPut(buffer, value, SPLIT_BITS);
        return 0;
    }
    for (std::int32_t remaining = bitCount; remaining > 0;) {
        const std::int32_t free = 8 - buffer.position % 8;
        const std::int32_t take = std::min(free, remaining);
        remaining -= take;
        const std::uint64_t chunk = remaining >= 64 ? 0 : value >> remaining & lowBits(take);
        buffer.bytes[buffer.position / 8] |= static_cast<std::uint8_t>(chunk << (free - take));
        buffer.position += take;
    }
    return 0;
}

std::int32_t bitBufferGetAnywhere(BitBuffer& buffer, std::int32_t bitCount, std::uint64_t& out) {
    if (!hasRoom(buffer, bitCount)) {
        return -1;
    }
    if (isSplit(buffer, bitCount)) {
        const std::uint64_t first = bitWindowGet(buffer, bitCount - SPLIT_BITS);
        out = first << SPLIT_BITS | bitWindowGet(buffer, SPLIT_BITS);
        return 0;
    }
    std::uint64_t value = 0;
    for (std::int32_t remaining = bitCount; remaining > 0;) {
        const std::int32_t free = 8 - buffer.position % 8;
        const std::int32_t take = std::min(free, remaining);
        const std::uint64_t byte = buffer.bytes[buffer.position / 8];
        value = value << take | (byte >> (free - take) & lowBits(take));
        remaining -= take;
        buffer.position += take;
    }
    out = value;
    return 0;
}

std::int32_t bitBufferSkip(BitBuffer& buffer, std::int32_t bitCount) {
    if (!hasRoom(buffer, bitCount)) {
        return -1;
    }
    buffer.position += bitCount;
    return 0;
}

} // namespace rosetag
