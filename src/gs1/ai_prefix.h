/*
 * What the two leading digits of an AI say: how many digits its code has, and whether its value
 * has a predefined length and needs no separator after it in a barcode string.
 *
 * Source: EPC Tag Data Standard, table K (length of AI codes); GS1 General Specifications, section
 * 7.8.5 (AIs of predefined length).
 */
#ifndef ROSETAG_GS1_AI_PREFIX_H
#define ROSETAG_GS1_AI_PREFIX_H

#include "core/char_class.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

namespace rosetag {

struct AiPrefix {
    std::uint8_t codeDigits;  // of the whole code; 0: no AI begins with these digits
    std::uint8_t valueLength; // predefined length of the value; 0: it varies
};

struct AiPrefixRow {
    std::uint8_t first; // two leading digits, both included
    std::uint8_t last;
    AiPrefix prefix;
};

inline constexpr AiPrefixRow aiPrefixRows[] = {
    // clang-format off
    // prefixes   code digits, value length
    { 0,  0,      {2,          18}},
    { 1,  2,      {2,          14}},
    {10, 10,      {2,           0}},
    {11, 13,      {2,           6}},
    {15, 17,      {2,           6}},
    {20, 20,      {2,           2}},
    {21, 22,      {2,           0}},
    {23, 25,      {3,           0}},
    {30, 30,      {2,           0}},
    {31, 36,      {4,           6}},
    {37, 37,      {2,           0}},
    {39, 39,      {4,           0}},
    {40, 40,      {3,           0}},
    {41, 41,      {3,          13}},
    {42, 42,      {3,           0}},
    {43, 43,      {4,           0}},
    {70, 70,      {4,           0}},
    {71, 71,      {3,           0}},
    {72, 72,      {4,           0}},
    {80, 82,      {4,           0}},
    {90, 99,      {2,           0}},
    // clang-format on
};
static_assert(std::adjacent_find(std::begin(aiPrefixRows), std::end(aiPrefixRows),
                                 [](const AiPrefixRow& row, const AiPrefixRow& next) {
                                     return row.last >= next.first;
                                 }) == std::end(aiPrefixRows),
              "the rows ascend and do not overlap");

constexpr std::array<AiPrefix, 100> aiPrefixesMake() {
    std::array<AiPrefix, 100> prefixes{};
    for (const AiPrefixRow& row : aiPrefixRows) {
        std::fill(prefixes.begin() + row.first, prefixes.begin() + row.last + 1, row.prefix);
    }
    return prefixes;
}

// By the two leading digits as a number.
inline constexpr std::array<AiPrefix, 100> aiPrefixes = aiPrefixesMake();

// By the two leading characters of a code, which need not be digits.
constexpr AiPrefix aiPrefixOf(char first, char second) {
    if (!charIsDigit(first) || !charIsDigit(second)) {
        return {0, 0};
    }
    return aiPrefixes[static_cast<std::size_t>((first - '0') * 10 + (second - '0'))];
}

} // namespace rosetag

#endif
