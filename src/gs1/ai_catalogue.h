/*
 * What is known of the GS1 Application Identifiers: which exist, how long their codes are, and what
 * their values look like in text and in bits.
 *
 * Source: GS1 General Specifications, section 3; EPC Tag Data Standard, section 15.3 and table F
 * (the bit form of each AI).
 */
#ifndef ROSETAG_GS1_AI_CATALOGUE_H
#define ROSETAG_GS1_AI_CATALOGUE_H

#include "core/text_cursor.h"

#include <cstdint>
#include <cstring>
#include <string_view>

namespace rosetag {

enum AiKind : std::uint8_t {
    AI_KIND_NONE = 0, // marks an empty component, and in kindOverride "no override"
    AI_KIND_NUMERIC = 2,
    AI_KIND_DATE_CODED = 3,
    AI_KIND_DIGITS = 4,
    AI_KIND_DIGITS_THEN_TEXT = 5,
    AI_KIND_TEXT = 6,
    AI_KIND_FLAG = 7,
    AI_KIND_DATE = 8,
    AI_KIND_DATE_TIME = 9,
    AI_KIND_DATE_RANGE = 10,
    AI_KIND_DATE_TIME_VAR = 11,
    AI_KIND_LETTERS = 12,
    AI_KIND_VAR_NUMERIC = 13,
    AI_KIND_SIGN = 14,
};

enum AiCheckKind : std::uint32_t {
    AI_CHECK_NONE = 0,
    AI_CHECK_DIGIT = 1, // the last character is a GS1 check digit over those before it
    AI_CHECK_PAIR = 2,  // AI 8013: nothing is verified
};

struct AiComponent {
    AiKind kind;
    std::uint8_t digitCount;            // characters of a fixed-length component; 0: variable
    std::uint8_t bitWidth;              // of a component whose field has a fixed width, else 0
    std::uint8_t encodingIndicatorBits; // 3 on components with a text field, else 0
    std::uint8_t lengthIndicatorBits;   // 0 where no length stands in the bits
    std::uint8_t maxLength;             // of a variable component; 0: no limit is given
    AiCheckKind checkKind;
};

// An AI code takes four digits and a NUL.
constexpr std::size_t AI_CODE_SIZE = 5;

struct AiDefinition {
    char code[AI_CODE_SIZE]; // filled up with NULs; empty in an empty slot
    std::uint8_t componentCount;
    AiComponent components[2];
};

// The text of a code that is filled up with NULs.
inline std::string_view aiCodeView(const char (&code)[AI_CODE_SIZE]) {
    return {code, code[2] == '\0' ? 2U : code[3] == '\0' ? 3U : 4U};
}

// True if two codes that are filled up with NULs are the same.
inline bool aiCodesAreEqual(const char (&one)[AI_CODE_SIZE], const char (&other)[AI_CODE_SIZE]) {
    return std::memcmp(one, other, AI_CODE_SIZE - 1) == 0;
}

// The definition of exactly this code, or null.
const AiDefinition* aiFind(std::string_view code);

// The count of digits of an AI code, 2 to 4, by its two leading characters, or 0 if no AI begins
// so.
std::int32_t aiCodeLength(char first, char second);

// Reads the code that stands at the cursor; whether the catalogue knows it is not looked at. On
// success code is filled up with NULs.
EpcStatus aiReadCode(TextCursor& cursor, char (&code)[AI_CODE_SIZE]);

} // namespace rosetag

#endif
