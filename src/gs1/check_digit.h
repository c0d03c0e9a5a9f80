#ifndef ROSETAG_GS1_CHECK_DIGIT_H
#define ROSETAG_GS1_CHECK_DIGIT_H

#include "core/char_scan.h"

#include <cstdint>
#include <string_view>

namespace rosetag {

// The sums of the eight digits of a word at even places, counted from 0, and at odd places.
ROSETAG_WRAPS constexpr std::int32_t sumOfPlaces(std::uint64_t digits, int firstPlace) {
    const std::uint64_t places = digits >> (8 * firstPlace) & 0x000F000F000F000F;
    return static_cast<std::int32_t>(places * 0x0001000100010001 >> 48);
}

// The sum of sixteen digits in two words with the weights of the check digit that follows them: 3
// for the last one, then 1 and 3 in turn.
ROSETAG_WRAPS constexpr std::uint64_t weightedSumOf(std::uint64_t high, std::uint64_t low) {
    constexpr std::uint64_t places = 0x00FF00FF00FF00FF;
    const std::uint64_t even = (high & places) + (low & places);
    const std::uint64_t odd = (high >> 8 & places) + (low >> 8 & places);
    return (even + 3 * odd) * 0x0001000100010001 >> 48;
}

// The GS1 modulo 10 check digit, '0' to '9', over the characters before it, up to a NUL. A
// character that is not a digit counts as its code less that of '0'.
//
// Source: GS1 General Specifications, section 7.9.
constexpr char gs1CheckDigit(std::string_view digits) {
    // The digit next to the check digit always has weight 3.
    std::int32_t weight = digits.size() % 2 != 0 ? 3 : 1;
    std::int32_t sum = 0;
    while (digits.size() >= SCAN_WIDTH) {
        const std::uint64_t eight = loadCharacters(digits.data());
        if (markNonDigits(eight) != 0) {
            break;
        }
        sum += sumOfPlaces(eight, 0) * weight + sumOfPlaces(eight, 1) * (4 - weight);
        digits.remove_prefix(SCAN_WIDTH);
    }
    for (const char digit : digits) {
        if (digit == '\0') {
            break;
        }
        sum += (static_cast<unsigned char>(digit) - '0') * weight;
        weight = 4 - weight;
    }
    // Characters below '0' can make the sum negative. Its remainder is then above -10, so the
    // result is still a digit.
    return static_cast<char>('0' + (10 - sum % 10) % 10);
}

} // namespace rosetag

#endif
