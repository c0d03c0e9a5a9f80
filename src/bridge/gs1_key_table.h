/*
 * Where the fields of an EPC URI body are in the values of AIs, for each kind of GS1 key. A row
 * describes shape and nothing else, and both directions read the same fields:
 *
 *     first field "." second field ["." extra fields] ["." tail]
 *
 * The first field is the GS1 company prefix, the second the reference that follows it.
 *
 * Source: EPC Tag Data Standard, section 7 (correspondence between EPCs and GS1 keys).
 */
#ifndef ROSETAG_BRIDGE_GS1_KEY_TABLE_H
#define ROSETAG_BRIDGE_GS1_KEY_TABLE_H

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace rosetag {

// How the first two fields are arranged in the value of the key's AI.
enum KeyDigitArrangement : std::uint32_t {
    KEY_DIGITS_AS_IS = 0,       // first field, second field
    KEY_DIGITS_FIRST_MOVES = 1, // first character of the second field, first field, the rest
    KEY_DIGITS_ZERO_FILL = 2,   // the digit 0, first field, second field
};

struct Gs1KeyDefinition {
    std::string_view familyName;  // the word of a pure identity URI
    std::string_view primaryAi;   // holds the key
    std::string_view secondaryAi; // holds the tail if that is a separate AI; else empty
    KeyDigitArrangement digitArrangement;
    std::uint8_t hasCheckDigit;     // 1: a check digit closes the first two fields
    std::uint8_t hasTail;           // 1: the body has further fields after the second
    std::uint8_t tailIsSecondaryAi; // 0: the tail continues the value of primaryAi
    std::int32_t keyValueLength;    // of the primaryAi value, check digit included; 0: not fixed
    std::int32_t extraFieldCount;   // fields of fixed length between the second field and the tail
    std::int32_t extraFieldLengths[2];
};

// clang-format off
inline constexpr Gs1KeyDefinition gs1KeyTable[] = {
    //                    secon-                           check  tail  in own  value   extra fields
    // family   primary   dary    digits                   digit         AI     length  count, lengths
    {"sgtin",   "01",     "21",   KEY_DIGITS_FIRST_MOVES,  1,     1,    1,      14,   0, {}},
    {"sscc",    "00",     "",     KEY_DIGITS_FIRST_MOVES,  1,     0,    0,      18,   0, {}},
    {"sgln",    "414",    "254",  KEY_DIGITS_AS_IS,        1,     1,    1,      13,   0, {}},
    {"grai",    "8003",   "",     KEY_DIGITS_ZERO_FILL,    1,     1,    0,      14,   0, {}},
    {"giai",    "8004",   "",     KEY_DIGITS_AS_IS,        0,     0,    0,       0,   0, {}},
    {"gsrn",    "8018",   "",     KEY_DIGITS_AS_IS,        1,     0,    0,      18,   0, {}},
    {"gsrnp",   "8017",   "",     KEY_DIGITS_AS_IS,        1,     0,    0,      18,   0, {}},
    {"gdti",    "253",    "",     KEY_DIGITS_AS_IS,        1,     1,    0,      13,   0, {}},
    {"cpi",     "8010",   "8011", KEY_DIGITS_AS_IS,        0,     1,    1,       0,   0, {}},
    {"sgcn",    "255",    "",     KEY_DIGITS_AS_IS,        1,     1,    0,      13,   0, {}},
    {"ginc",    "401",    "",     KEY_DIGITS_AS_IS,        0,     0,    0,       0,   0, {}},
    {"gsin",    "402",    "",     KEY_DIGITS_AS_IS,        1,     0,    0,       0,   0, {}},
    {"itip",    "8006",   "21",   KEY_DIGITS_FIRST_MOVES,  1,     1,    1,      14,   2, {2, 2}},
    {"upui",    "01",     "235",  KEY_DIGITS_FIRST_MOVES,  1,     1,    1,      14,   0, {}},
    {"pgln",    "417",    "",     KEY_DIGITS_AS_IS,        1,     0,    0,      13,   0, {}},
};
// clang-format on

constexpr bool holdsForKeys(bool (*holds)(const Gs1KeyDefinition& key)) {
    return std::all_of(std::begin(gs1KeyTable), std::end(gs1KeyTable), holds);
}

// The row of exactly this family word, or null.
constexpr const Gs1KeyDefinition* gs1KeyFindByName(std::string_view familyName) {
    const auto* const row =
        std::find_if(std::begin(gs1KeyTable), std::end(gs1KeyTable),
                     [=](const Gs1KeyDefinition& key) { return key.familyName == familyName; });
    return row != std::end(gs1KeyTable) ? row : nullptr;
}

// The first row whose key is in exactly this AI, or null. AI 01 is always the key sgtin.
const Gs1KeyDefinition* gs1KeyFindByAi(std::string_view code);

} // namespace rosetag

#endif
