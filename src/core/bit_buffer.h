/*
 * A byte area that is read or written bit by bit. Bit 0 is the most significant bit of the first
 * byte; a field is stored with its most significant bit first and needs no alignment.
 *
 * The elementary operations return 0, or -1 with nothing changed. bitBufferRead and bitBufferWrite
 * do the same and return the status that such a failure means to a decoder and to an encoder.
 */
#ifndef ROSETAG_CORE_BIT_BUFFER_H
#define ROSETAG_CORE_BIT_BUFFER_H

#include "core/byte_order.h"
#include "core/status.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

namespace rosetag {

// Invariant: 0 <= position <= capacity (a negative capacity takes nothing). In a buffer that is
// written, all bits from position on are 0.
struct BitBuffer {
    std::uint8_t* bytes;
    std::int32_t capacity; // in bits
    std::int32_t position; // the next bit; in a buffer that is written, the bits written so far
};

// A buffer that is only read. bits is the number of valid bits.
BitBuffer bitBufferForReading(const std::uint8_t* bytes, std::int32_t bits);

// A buffer to be written, its maxBytes bytes cleared.
inline BitBuffer bitBufferForWriting(std::uint8_t* bytes, std::int32_t maxBytes) {
    if (maxBytes <= 0) {
        return {bytes, 0, 0};
    }
    std::memset(bytes, 0, static_cast<std::size_t>(maxBytes));
    constexpr std::int32_t mostBytes = std::numeric_limits<std::int32_t>::max() / 8;
    return {bytes, std::min(maxBytes, mostBytes) * 8, 0};
}

// For fields that its inline twin below does not take: at the edge of a small buffer, wider than a
// window, empty, or failing.
std::int32_t bitBufferPutAnywhere(BitBuffer& buffer, std::uint64_t value, std::int32_t bitCount);
std::int32_t bitBufferGetAnywhere(BitBuffer& buffer, std::int32_t bitCount, std::uint64_t& out);

// A field of up to this many bits lies within eight bytes wherever it begins.
constexpr std::int32_t BIT_WINDOW_BITS = 57;

// Eight bytes inside the buffer that hold the next bits: those from the byte of position on or,
// near the end, the last eight.
struct BitWindow {
    std::uint8_t* bytes;
    std::int32_t before; // bits of the window before position
};

inline BitWindow bitWindowAt(const BitBuffer& buffer) {
    const std::int32_t lastFirst = (buffer.capacity - 1) / 8 - 7;
    const std::int32_t here = buffer.position / 8;
    const std::int32_t first = here < lastFirst ? here : lastFirst;
    return {buffer.bytes + first, buffer.position - first * 8};
}

inline bool bitWindowTakes(const BitBuffer& buffer, std::int32_t bitCount) {
    return bitCount >= 1 && bitCount <= BIT_WINDOW_BITS && buffer.capacity >= 64 &&
           bitCount <= buffer.capacity - buffer.position;
}

// Writes a field that a window takes.
inline void bitWindowPut(BitBuffer& buffer, std::uint64_t value, std::int32_t bitCount) {
    const BitWindow window = bitWindowAt(buffer);
    // A window that begins at the byte of the position needs only that byte. Loading all eight
    // would have to wait for the previous store, which they overlap only in part.
    const std::uint64_t written =
        window.before < 8 ? std::uint64_t{*window.bytes} << 56 : loadBigEndian(window.bytes);
    const std::uint64_t mask = (std::uint64_t{1} << bitCount) - 1;
    storeBigEndian(window.bytes, written | (value & mask) << (64 - window.before - bitCount));
    buffer.position += bitCount;
}

// Reads a field that a window takes.
inline std::uint64_t bitWindowGet(BitBuffer& buffer, std::int32_t bitCount) {
    const BitWindow window = bitWindowAt(buffer);
    const std::uint64_t mask = (std::uint64_t{1} << bitCount) - 1;
    buffer.position += bitCount;
    return loadBigEndian(window.bytes) >> (64 - window.before - bitCount) & mask;
}

// Writes the lowest bitCount bits of the value. Above 64 bits the leading ones are 0, so that zeros
// of any number are one call.
inline std::int32_t bitBufferPut(BitBuffer& buffer, std::uint64_t value, std::int32_t bitCount) {
    if (!bitWindowTakes(buffer, bitCount)) {
        return bitBufferPutAnywhere(buffer, value, bitCount);
    }
    bitWindowPut(buffer, value, bitCount);
    return 0;
}

// Reads bitCount bits, 64 at most, as a big-endian number. 0 bits are the number 0.
inline std::int32_t bitBufferGet(BitBuffer& buffer, std::int32_t bitCount, std::uint64_t& out) {
    if (!bitWindowTakes(buffer, bitCount)) {
        return bitBufferGetAnywhere(buffer, bitCount, out);
    }
    out = bitWindowGet(buffer, bitCount);
    return 0;
}

std::int32_t bitBufferSkip(BitBuffer& buffer, std::int32_t bitCount);

inline std::int32_t bitBufferLeft(const BitBuffer& buffer) {
    return buffer.capacity - buffer.position;
}

inline EpcStatus bitBufferRead(BitBuffer& buffer, std::int32_t bitCount, std::uint64_t& out) {
    return bitBufferGet(buffer, bitCount, out) == 0 ? EPC_OK : EPC_ERR_TRUNCATED;
}

inline EpcStatus bitBufferWrite(BitBuffer& buffer, std::uint64_t value, std::int32_t bitCount) {
    return bitBufferPut(buffer, value, bitCount) == 0 ? EPC_OK : EPC_ERR_NO_ROOM;
}

struct BitField {
    std::uint64_t value;
    std::int32_t bitCount;
};

// Writes fields one after the other, in one store where a window takes them all.
template <std::size_t count>
EpcStatus bitBufferWriteFields(BitBuffer& buffer, const BitField (&fields)[count]) {
    std::int32_t width = 0;
    for (const BitField& field : fields) {
        width += field.bitCount;
    }
    if (bitWindowTakes(buffer, width)) {
        std::uint64_t joined = 0;
        for (const BitField& field : fields) {
            joined = joined << field.bitCount | field.value;
        }
        return bitBufferWrite(buffer, joined, width);
    }
    for (const BitField& field : fields) {
        EPC_TRY(bitBufferWrite(buffer, field.value, field.bitCount));
    }
    return EPC_OK;
}

// True if value needs no more than bitCount bits.
inline bool fitsBits(std::uint64_t value, std::int32_t bitCount) {
    return bitCount >= 64 || (value >> bitCount) == 0;
}

// Skips zero bits to the end of a 16-bit word, where every EPC binary value that is made from text
// ends.
inline EpcStatus bitBufferPadToWord(BitBuffer& buffer) {
    const std::int32_t overhang = buffer.position % 16;
    if (overhang == 0) {
        return EPC_OK;
    }
    return bitBufferSkip(buffer, 16 - overhang) == 0 ? EPC_OK : EPC_ERR_NO_ROOM;
}

} // namespace rosetag

#endif
