/*
 * Decimal numbers of 1 to 90 digits: the bits that they take, and reading and writing those that
 * are too long for a machine integer.
 */
#ifndef ROSETAG_CORE_LONG_DECIMAL_H
#define ROSETAG_CORE_LONG_DECIMAL_H

#include "core/bit_buffer.h"
#include "core/digit_words.h"
#include "core/text_buffer.h"

#include <array>
#include <bit>
#include <cstdint>
#include <string_view>

namespace rosetag {

constexpr std::int32_t MAX_LONG_DIGITS = 90;

// The bits b of any number of n decimal digits: 2^b >= 10^n. No power of ten above 1 is a power of
// two, so b is the width of 10^n itself.
constexpr std::array<std::int32_t, MAX_LONG_DIGITS + 1> aiDigitBitsTableMake() {
    std::array<std::int32_t, MAX_LONG_DIGITS + 1> bits{};
    std::array<std::uint32_t, MAX_LONG_DIGITS / 9> power{1}; // lowest first, each over 9 digits
    for (std::size_t n = 1; n < bits.size(); ++n) {
        std::uint64_t carry = 0;
        for (std::size_t limb = 0; limb < power.size(); ++limb) {
            carry += std::uint64_t{power[limb]} * 10;
            power[limb] = static_cast<std::uint32_t>(carry & 0xFFFFFFFF);
            carry >>= 32;
            const auto width = static_cast<std::int32_t>(std::bit_width(power[limb]));
            bits[n] = width == 0 ? bits[n] : 32 * static_cast<std::int32_t>(limb) + width;
        }
    }
    return bits;
}

inline constexpr std::array<std::int32_t, MAX_LONG_DIGITS + 1> aiDigitBitsTable =
    aiDigitBitsTableMake();
static_assert(aiDigitBitsTable[1] == 4 && aiDigitBitsTable[19] == 64 &&
              aiDigitBitsTable[20] == 67 && aiDigitBitsTable[90] == 299);

// digits is 0 to MAX_LONG_DIGITS.
constexpr std::int32_t aiDigitBits(std::int32_t digits) {
    return aiDigitBitsTable[static_cast<std::size_t>(digits)];
}

// Writes the number of up to MAX_LONG_DIGITS digits in exactly bitCount bits, which hold it. If the
// room runs out, what fitted stays: leading zeros, then 64 bits at a time.
EpcStatus bitBufferPutLongDecimal(BitBuffer& buffer, std::string_view digits,
                                  std::int32_t bitCount);

// Reads bitCount bits, no more than MAX_LONG_DIGITS digits take, and appends them as decimal
// digits, zero-padded to width; a longer number is not cut. More than MAX_LONG_DIGITS digits are
// EPC_ERR_NO_ROOM.
EpcStatus bitBufferGetLongDecimal(TextBuffer& text, BitBuffer& buffer, std::int32_t bitCount,
                                  std::int32_t width);

} // namespace rosetag

#endif
