#include "core/bit_buffer.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

// A field of up to this many bits lies within eight bytes wherever it begins.
constexpr std::int32_t ONE_LOAD_BITS = 57;

constexpr std::uint64_t lowBits(std::int32_t bitCount) {
    return bitCount >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << bitCount) - 1;
}

bool hasRoom(const BitBuffer& buffer, std::int32_t bitCount) {
    return bitCount >= 0 && bitCount <= buffer.capacity - buffer.position;
}

// True if the eight bytes from the byte of position on lie inside the buffer.
bool hasEightBytes(const BitBuffer& buffer) {
    return (buffer.position & ~7) <= buffer.capacity - 64;
}

// Compilers make one load and a byte swap of this, and one store of its twin, on any byte order.
std::uint64_t loadBigEndian(const std::uint8_t* bytes) {
    std::uint64_t value = 0;
    for (int i = 0; i < 8; ++i) {
        value = value << 8 | bytes[i];
    }
    return value;
}

void storeBigEndian(std::uint8_t* bytes, std::uint64_t value) {
    for (int i = 7; i >= 0; --i, value >>= 8) {
        bytes[i] = static_cast<std::uint8_t>(value & 0xFF);
    }
}

} // namespace

BitBuffer bitBufferForReading(const std::uint8_t* bytes, std::int32_t bits) {
    // One shape serves both directions; no reader writes through it.
    return {const_cast<std::uint8_t*>(bytes), bits, 0};
}

BitBuffer bitBufferForWriting(std::uint8_t* bytes, std::int32_t maxBytes) {
    if (maxBytes <= 0) {
        return {bytes, 0, 0};
    }
    std::memset(bytes, 0, static_cast<std::size_t>(maxBytes));
    constexpr std::int32_t mostBytes = std::numeric_limits<std::int32_t>::max() / 8;
    return {bytes, std::min(maxBytes, mostBytes) * 8, 0};
}

std::int32_t bitBufferPut(BitBuffer& buffer, std::uint64_t value, std::int32_t bitCount) {
    if (!hasRoom(buffer, bitCount)) {
        return -1;
    }
    if (bitCount == 0) {
        return 0;
    }
    if (bitCount <= ONE_LOAD_BITS && hasEightBytes(buffer)) {
        std::uint8_t* bytes = buffer.bytes + buffer.position / 8;
        const std::int32_t behind = 64 - buffer.position % 8 - bitCount;
        const std::uint64_t mask = lowBits(bitCount) << behind;
        storeBigEndian(bytes, (loadBigEndian(bytes) & ~mask) | (value << behind & mask));
        buffer.position += bitCount;
        return 0;
    }
    for (std::int32_t remaining = bitCount; remaining > 0;) {
        const std::int32_t free = 8 - buffer.position % 8;
        const std::int32_t take = std::min(free, remaining);
        remaining -= take;
        const std::uint64_t chunk = remaining >= 64 ? 0 : value >> remaining;
        const std::uint64_t mask = lowBits(take) << (free - take);
        std::uint8_t& byte = buffer.bytes[buffer.position / 8];
        byte = static_cast<std::uint8_t>((byte & ~mask) | (chunk << (free - take) & mask));
        buffer.position += take;
    }
    return 0;
}

std::int32_t bitBufferGet(BitBuffer& buffer, std::int32_t bitCount, std::uint64_t& out) {
    if (!hasRoom(buffer, bitCount)) {
        return -1;
    }
    if (bitCount == 0) {
        out = 0;
        return 0;
    }
    if (bitCount <= ONE_LOAD_BITS && hasEightBytes(buffer)) {
        const std::uint64_t bits = loadBigEndian(buffer.bytes + buffer.position / 8);
        const std::int32_t behind = 64 - buffer.position % 8 - bitCount;
        out = bits >> behind & lowBits(bitCount);
        buffer.position += bitCount;
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
