/*
 * The GS1 Application Identifiers by their code.
 */
#ifndef ROSETAG_GS1_AI_CATALOGUE_H
#define ROSETAG_GS1_AI_CATALOGUE_H

#include "core/text_cursor.h"
#include "gs1/ai_shape.h"

#include <cstdint>
#include <cstring>
#include <string_view>

namespace rosetag {

// An AI code takes four digits and a NUL.
constexpr std::size_t AI_CODE_SIZE = EPC_AI_CODE_SIZE;

struct AiDefinition {
    char code[AI_CODE_SIZE]; // filled up with NULs
    std::uint8_t componentCount;
    AiComponent components[AI_MAX_COMPONENTS];
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

// Reads the code at the cursor. ai is null if the code is well formed but not assigned;
// EPC_ERR_UNKNOWN_AI if no AI begins with its two leading digits.
EpcStatus aiReadCode(TextCursor& cursor, const AiDefinition*& ai);

} // namespace rosetag

#endif
