#include "core/bit_buffer.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

// A field of up to this many bits lies within eight bytes wherever it begins.
constexpr std::int32_t WINDOW_BITS = 57;

// A wider one is read and written as one of its last bits behind one of the rest.
constexpr std::int32_t SPLIT_BITS = 32;

constexpr std::uint64_t lowBits(std::int32_t bitCount) {
    return bitCount >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << bitCount) - 1;
}

bool hasRoom(const BitBuffer& buffer, std::int32_t bitCount) {
    return bitCount >= 0 && bitCount <= buffer.capacity - buffer.position;
}

// Written out, so that compilers make one load and a byte swap of it on any byte order, and one
// store of its twin.
std::uint64_t loadBigEndian(const std::uint8_t* bytes) {
    const auto byte = [bytes](int i) { return std::uint64_t{bytes[i]} << (56 - 8 * i); };
    return byte(0) | byte(1) | byte(2) | byte(3) | byte(4) | byte(5) | byte(6) | byte(7);
}

void storeBigEndian(std::uint8_t* bytes, std::uint64_t value) {
    const auto put = [bytes, value](int i) {
        bytes[i] = static_cast<std::uint8_t>(value >> (56 - 8 * i) & 0xFF);
    };
    put(0), put(1), put(2), put(3), put(4), put(5), put(6), put(7);
}

// True if a field of bitCount bits can be read and written through windows.
bool hasWindow(const BitBuffer& buffer, std::int32_t bitCount) {
    return buffer.capacity >= 64 && bitCount <= 64;
}

// Eight bytes inside the buffer that hold the next bits: those from the byte of position on or,
// near the end, the last eight.
struct Window {
    std::uint8_t* bytes;
    std::int32_t before; // bits of the window before position
};

Window windowAtPosition(const BitBuffer& buffer) {
    const std::int32_t byteCount = buffer.capacity / 8 + (buffer.capacity % 8 != 0 ? 1 : 0);
    const std::int32_t first = std::min(buffer.position / 8, byteCount - 8);
    return {buffer.bytes + first, buffer.position - first * 8};
}

// bitCount of both is 1 to WINDOW_BITS.
void putInWindow(BitBuffer& buffer, std::uint64_t value, std::int32_t bitCount) {
    const Window window = windowAtPosition(buffer);
    const std::int32_t behind = 64 - window.before - bitCount;
    const std::uint64_t mask = lowBits(bitCount) << behind;
    const std::uint64_t kept = loadBigEndian(window.bytes) & ~mask;
    storeBigEndian(window.bytes, kept | (value << behind & mask));
    buffer.position += bitCount;
}

std::uint64_t getFromWindow(BitBuffer& buffer, std::int32_t bitCount) {
    const Window window = windowAtPosition(buffer);
    buffer.position += bitCount;
    return loadBigEndian(window.bytes) << window.before >> (64 - bitCount);
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
    if (hasWindow(buffer, bitCount)) {
        if (bitCount > WINDOW_BITS) {
            putInWindow(buffer, value >> SPLIT_BITS, bitCount - SPLIT_BITS);
            bitCount = SPLIT_BITS;
        }
        putInWindow(buffer, value, bitCount);
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
    if (hasWindow(buffer, bitCount)) {
        std::uint64_t high = 0;
        if (bitCount > WINDOW_BITS) {
            high = getFromWindow(buffer, bitCount - SPLIT_BITS) << SPLIT_BITS;
            bitCount = SPLIT_BITS;
        }
        out = high | getFromWindow(buffer, bitCount);
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
