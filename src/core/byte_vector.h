/*
 * Sixteen bytes side by side, of which the first is the one at the lowest address. Compilers make
 * of the operations what the machine has: vector registers, or one byte after the other.
 */
#ifndef ROSETAG_CORE_BYTE_VECTOR_H
#define ROSETAG_CORE_BYTE_VECTOR_H

#include "core/byte_order.h"

#include <cstdint>
#include <cstring>

namespace rosetag {

// Built with ROSETAG_GENERAL_WRITING, the library does without: where one byte comes after the
// other, this would make it larger.
#ifdef ROSETAG_GENERAL_WRITING
constexpr bool BYTE_VECTORS = false;
#else
constexpr bool BYTE_VECTORS = true;
#endif

using ByteVector [[gnu::vector_size(16)]] = std::uint8_t;
using SignedByteVector [[gnu::vector_size(16)]] = std::int8_t; // compared with fewer instructions
using WordVector [[gnu::vector_size(16)]] = std::uint64_t;

// The words are as they are in memory: in the byte order of the machine.
ROSETAG_INLINE ByteVector byteVectorOf(std::uint64_t first, std::uint64_t second) {
    return reinterpret_cast<ByteVector>(WordVector{first, second});
}

ROSETAG_INLINE WordVector wordVectorOf(ByteVector bytes) {
    return reinterpret_cast<WordVector>(bytes);
}

ROSETAG_INLINE ByteVector byteVectorLoad(const char* characters) {
    ByteVector bytes;
    std::memcpy(&bytes, characters, sizeof bytes);
    return bytes;
}

ROSETAG_INLINE void byteVectorStore(char* out, ByteVector bytes) {
    std::memcpy(out, &bytes, sizeof bytes);
}

// The first byte of one, the first of the other, the second of one, and so on up to the eighth.
ROSETAG_INLINE ByteVector byteVectorMerge(ByteVector one, ByteVector other) {
    return __builtin_shufflevector(one, other, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7,
                                   23);
}

// The eight bytes at even places, counted from 0, and those at odd places, as a word in memory.
ROSETAG_INLINE std::uint64_t byteVectorEven(ByteVector bytes) {
    return wordVectorOf(__builtin_shufflevector(bytes, bytes, 0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20,
                                                22, 24, 26, 28, 30))[0];
}

ROSETAG_INLINE std::uint64_t byteVectorOdd(ByteVector bytes) {
    return wordVectorOf(__builtin_shufflevector(bytes, bytes, 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21,
                                                23, 25, 27, 29, 31))[0];
}

} // namespace rosetag

#endif
