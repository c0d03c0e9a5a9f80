/*
 * Numbers of up to 90 decimal digits, beyond any machine integer, as decimal and as hexadecimal
 * text, and the widths that such numbers take.
 */
#ifndef ROSETAG_CORE_LONG_DECIMAL_H
#define ROSETAG_CORE_LONG_DECIMAL_H

#include "core/status.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace rosetag {

constexpr std::int32_t MAX_LONG_DIGITS = 90;
constexpr std::int32_t MAX_LONG_HEX_DIGITS = 75;

constexpr std::array<std::uint64_t, 20> powersOfTenMake() {
    std::array<std::uint64_t, 20> powers{1};
    for (std::size_t exponent = 1; exponent < powers.size(); ++exponent) {
        powers[exponent] = powers[exponent - 1] * 10;
    }
    return powers;
}

// The powers of ten that 64 bits hold, by their exponent.
inline constexpr std::array<std::uint64_t, 20> powersOfTen = powersOfTenMake();

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

// Both write the number without leading zeros, and the number zero as the empty text. They do not
// look whether the characters are digits, and tell the length of what they wrote.
//
// Too many digits are EPC_ERR_TOO_LONG. A capacity below what a number of so many digits may need
// is EPC_ERR_NO_ROOM, even if this one would fit.
EpcStatus hexToDecimal(std::string_view hex, std::int32_t capacity, char* out,
                       std::int32_t& outCount);
EpcStatus decimalToHex(std::string_view digits, std::int32_t capacity, char* out,
                       std::int32_t& outCount);

} // namespace rosetag

#endif
