/*
 * Decimal numbers by their count of digits, 1 to 90: the bits that they take, and those of more
 * digits than a machine integer holds in a bit field.
 */
#ifndef ROSETAG_CORE_LONG_DECIMAL_H
#define ROSETAG_CORE_LONG_DECIMAL_H

#include "core/bit_buffer.h"
#include "core/digit_words.h"
#include "core/text_buffer.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace rosetag {

constexpr std::int32_t MAX_LONG_DIGITS = 90;

constexpr std::array<std::int32_t, MAX_LONG_DIGITS + 1> aiDigitBitsTableMake() {
    std::array<std::int32_t, MAX_LONG_DIGITS + 1> bits{};
    for (std::size_t n = 1; n < bits.size(); ++n) {
        bits[n] = static_cast<std::int32_t>(n * 33219280949ULL / 10000000000ULL) + 1;
    }
    return bits;
}

// Bits of a number by the count n of its decimal digits: the smallest b with 2^b >= 10^n. No power
// of ten above 1 is a power of two, so that b is n * log2(10) rounded up.
inline constexpr std::array<std::int32_t, MAX_LONG_DIGITS + 1> aiDigitBitsTable =
    aiDigitBitsTableMake();
static_assert(aiDigitBitsTable[1] == 4 && aiDigitBitsTable[19] == 64 &&
              aiDigitBitsTable[20] == 67 && aiDigitBitsTable[90] == 299);

// digits is 0 to MAX_LONG_DIGITS.
constexpr std::int32_t aiDigitBits(std::int32_t digits) {
    return aiDigitBitsTable[static_cast<std::size_t>(digits)];
}

// Writes the number of up to MAX_LONG_DIGITS digits in exactly bitCount bits, which hold it. Out of
// room, what fitted stays: zeros in front, then 64 bits at a time.
EpcStatus bitBufferPutLongDecimal(BitBuffer& buffer, std::string_view digits,
                                  std::int32_t bitCount);

// Reads bitCount bits, no more than MAX_LONG_DIGITS digits take, and appends them as decimal
// digits, zero-padded to width; a longer number is not cut. More than MAX_LONG_DIGITS digits are
// EPC_ERR_NO_ROOM.
EpcStatus bitBufferGetLongDecimal(TextBuffer& text, BitBuffer& buffer, std::int32_t bitCount,
                                  std::int32_t width);

} // namespace rosetag

#endif
