/*
 * A byte area that is read or written bit by bit. Bit 0 is the most significant bit of the first
 * byte; a field is stored with its most significant bit first and needs no alignment.
 *
 * The elementary operations return 0, or -1 with nothing changed; bitBufferRead and bitBufferWrite
 * are the same with the status that such a failure means to a decoder and to an encoder.
 */
#ifndef ROSETAG_CORE_BIT_BUFFER_H
#define ROSETAG_CORE_BIT_BUFFER_H

#include "core/status.h"

#include <cstdint>

// Invariant: 0 <= position <= capacity (a capacity below 0 takes nothing).
struct BitBuffer {
    std::uint8_t* bytes;
    std::int32_t capacity; // in bits
    std::int32_t position; // the next bit; in a buffer that is written, the bits written so far
};

// A buffer that is only read. bits is the number of valid bits.
BitBuffer bitBufferForReading(const std::uint8_t* bytes, std::int32_t bits);

// A buffer to be written, its maxBytes bytes cleared.
BitBuffer bitBufferForWriting(std::uint8_t* bytes, std::int32_t maxBytes);

// Writes exactly bitCount bits and leaves all others alone. Above 64 bits the leading ones are 0,
// so that zeros of any number are one call.
std::int32_t bitBufferPut(BitBuffer& buffer, std::uint64_t value, std::int32_t bitCount);

// Reads bitCount bits, 64 at most, as a big-endian number. 0 bits are the number 0.
std::int32_t bitBufferGet(BitBuffer& buffer, std::int32_t bitCount, std::uint64_t& out);

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

// True if value needs no more than bitCount bits.
inline bool fitsBits(std::uint64_t value, std::int32_t bitCount) {
    return bitCount >= 64 || (value >> bitCount) == 0;
}

// Fills up the last 16-bit word with zero bits, as every EPC binary value that is built from text
// ends.
inline EpcStatus bitBufferPadToWord(BitBuffer& buffer) {
    const std::int32_t overhang = buffer.position % 16;
    return overhang == 0 ? EPC_OK : bitBufferWrite(buffer, 0, 16 - overhang);
}

#endif
