/*
 * Decimal digits eight at a time. A digit word holds eight of them, the first in its lowest byte,
 * each byte the value of one digit; neighbours are joined to numbers, or a number is split into
 * them, in three steps instead of eight.
 */
#ifndef ROSETAG_CORE_DIGIT_WORDS_H
#define ROSETAG_CORE_DIGIT_WORDS_H

#include "core/char_scan.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace rosetag {

using PowersOfTen = std::array<std::uint64_t, std::numeric_limits<std::uint64_t>::digits10 + 1>;

constexpr PowersOfTen powersOfTenMake() {
    PowersOfTen powers{1};
    for (std::size_t exponent = 1; exponent < powers.size(); ++exponent) {
        powers[exponent] = powers[exponent - 1] * 10;
    }
    return powers;
}

// The powers of ten that 64 bits hold, by their exponent.
inline constexpr PowersOfTen powersOfTen = powersOfTenMake();

constexpr std::uint64_t powerOfTen(std::int32_t exponent) {
    return powersOfTen[static_cast<std::size_t>(exponent)];
}

constexpr std::int32_t WORD_DIGITS = SCAN_WIDTH;
constexpr std::uint64_t WORD_LIMIT = 100000000; // numbers of a digit word lie below it

// What turns the characters of digits into their values, and back.
constexpr std::uint64_t DIGIT_CHARACTERS = inEveryByte('0');

// Two digits are joined in every other byte. The upper half of the sum then takes all four pairs,
// each with its power: two products side by side take less time than one after the other.
ROSETAG_WRAPS constexpr std::uint64_t digitWordValue(std::uint64_t word) {
    constexpr std::uint64_t everyFourth = 0x000000FF000000FF;
    const std::uint64_t pairs = word * 10 + (word >> 8);
    return ((pairs & everyFourth) * (std::uint64_t{1000000} << 32 | 100) +
            (pairs >> 16 & everyFourth) * (std::uint64_t{10000} << 32 | 1)) >>
           32;
}

// The same of four digits.
ROSETAG_WRAPS constexpr std::uint32_t digitHalfValue(std::uint32_t half) {
    half = half * (10 << 8 | 1) >> 8 & 0x00FF00FF;
    return half * (100 << 16 | 1) >> 16;
}
static_assert(digitWordValue(0x0807060504030201) == 12345678 && digitHalfValue(0x04030201) == 1234);

// Not 0 under ALL_MARKS if one of the bytes is not the value of a digit; which one is only right up
// to the first. The words of many numbers are collected by "|" and tested once.
ROSETAG_WRAPS constexpr std::uint64_t strayMarks(std::uint64_t values) {
    return (values + inEveryByte(0x80 - 10)) | values;
}

// For numbers below WORD_LIMIT. Within a lane 10486 / 2^20 and 103 / 2^10 divide by 100 and 10.
constexpr std::uint64_t digitWordOf(std::uint64_t value) {
    const std::uint64_t fours = value / 10000 | value % 10000 << 32;
    const std::uint64_t hundreds = fours * 10486 >> 20 & 0x0000007F0000007F;
    const std::uint64_t twos = hundreds | (fours - 100 * hundreds) << 16;
    const std::uint64_t tens = twos * 103 >> 10 & 0x000F000F000F000F;
    return tens | (twos - 10 * tens) << 8;
}
static_assert(digitWordOf(12345678) == 0x0807060504030201 && digitWordOf(99999999) >> 56 == 9 &&
              digitWordOf(7) == 7ULL << 56 && digitWordValue(digitWordOf(98760123)) == 98760123);

// Numbers below 10^16, with leading zeros.
struct DigitWords {
    std::uint64_t high;
    std::uint64_t low;
};

constexpr DigitWords digitWordsOf(std::uint64_t value) {
    return {digitWordOf(value / WORD_LIMIT), digitWordOf(value % WORD_LIMIT)};
}

// Masks of the last digits of a word, by their count: from -8, none, to 24, all of them.
constexpr std::int32_t LEAST_MASK = -WORD_DIGITS;
using LastDigitMasks = std::array<std::uint64_t, 4 * WORD_DIGITS + 1>;

constexpr LastDigitMasks lastDigitMasksMake() {
    LastDigitMasks masks{};
    for (std::int32_t count = 1; count < 4 * WORD_DIGITS + 1 + LEAST_MASK; ++count) {
        masks[static_cast<std::size_t>(count - LEAST_MASK)] =
            ~std::uint64_t{0} << (8 * std::max(WORD_DIGITS - count, 0));
    }
    return masks;
}

inline constexpr LastDigitMasks lastDigitMasks = lastDigitMasksMake();

// The last count digits of the word that ends at end; the others are 0.
ROSETAG_INLINE std::uint64_t digitWordBefore(const char* end, std::ptrdiff_t count) {
    return (loadCharacters(end - WORD_DIGITS) ^ DIGIT_CHARACTERS) &
           lastDigitMasks[static_cast<std::size_t>(count - LEAST_MASK)];
}

// Reads the number of count digits that ends at end; count is mostDigits at most. Whole words
// before end can be read. Returns the marks of what is not a digit.
template <std::int32_t mostDigits>
ROSETAG_INLINE std::uint64_t digitsReadBefore(const char* end, std::ptrdiff_t count,
                                              std::uint64_t& value) {
    const std::uint64_t word = digitWordBefore(end, count);
    value = digitWordValue(word);
    std::uint64_t strays = strayMarks(word);
    if constexpr (mostDigits > WORD_DIGITS) {
        if (count > WORD_DIGITS) {
            std::uint64_t above = 0;
            strays |= digitsReadBefore<mostDigits - WORD_DIGITS>(end - WORD_DIGITS,
                                                                 count - WORD_DIGITS, above);
            value += above * WORD_LIMIT;
        }
    }
    return strays;
}

// The same without a branch, for a number whose digits are counted anew in each text; both words
// before end can be read.
template <std::int32_t mostDigits>
ROSETAG_INLINE std::uint64_t digitsReadEvenly(const char* end, std::ptrdiff_t count,
                                              std::uint64_t& value) {
    static_assert(mostDigits <= 2 * WORD_DIGITS);
    const std::uint64_t low = digitWordBefore(end, count);
    value = digitWordValue(low);
    if constexpr (mostDigits <= WORD_DIGITS) {
        return strayMarks(low);
    }
    const std::uint64_t high = digitWordBefore(end - WORD_DIGITS, count - WORD_DIGITS);
    value += digitWordValue(high) * WORD_LIMIT;
    return strayMarks(low) | strayMarks(high);
}

// Writes the number with leading zeros in whole words that end at end: as many as its digits need.
template <std::int32_t mostDigits>
ROSETAG_INLINE void digitsPutBefore(char* end, std::int32_t count, std::uint64_t value) {
    if constexpr (mostDigits > WORD_DIGITS) {
        if (count > WORD_DIGITS) {
            digitsPutBefore<mostDigits - WORD_DIGITS>(end - WORD_DIGITS, count - WORD_DIGITS,
                                                      value / WORD_LIMIT);
            value %= WORD_LIMIT;
        }
    }
    storeCharacters(end - WORD_DIGITS, digitWordOf(value) | DIGIT_CHARACTERS);
}

// Eight characters, or those up to end and then NULs. A word before end can be read.
ROSETAG_INLINE std::uint64_t loadUpTo(const char* characters, const char* end) {
    const std::ptrdiff_t left = end - characters;
    if (left >= WORD_DIGITS) {
        return loadCharacters(characters);
    }
    return left > 0 ? loadCharacters(end - WORD_DIGITS) >> (8 * (WORD_DIGITS - left)) : 0;
}

// The digits before the first other character of a word, without a branch.
constexpr std::int32_t leadingDigitsOf(std::uint64_t word) {
    const std::uint64_t others = nonDigits(word);
    return std::countr_zero(others | std::uint64_t{1} << 63) / 8 + (others == 0 ? 1 : 0);
}

// Counts the digits from the first character on: 16 at most. More than seven are rare.
ROSETAG_INLINE std::int32_t digitsCount(const char* characters, const char* end) {
    const std::int32_t first = leadingDigitsOf(loadUpTo(characters, end) ^ DIGIT_CHARACTERS);
    if (first < WORD_DIGITS) {
        return first;
    }
    return first + leadingDigitsOf(loadUpTo(characters + WORD_DIGITS, end) ^ DIGIT_CHARACTERS);
}

// The number of decimal digits of a number: 1 for 0, at most 20.
constexpr std::int32_t decimalDigitCount(std::uint64_t value) {
    // 1233 / 4096 is below log10(2) by so little that the whole part is right for all 64 widths.
    const auto bits = static_cast<std::int32_t>(std::bit_width(value | 1));
    const std::int32_t lower = bits * 1233 >> 12;
    return lower + (value >= powerOfTen(lower) || value == 0 ? 1 : 0);
}

} // namespace rosetag

#endif
