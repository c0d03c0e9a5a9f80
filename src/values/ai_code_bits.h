/*
 * The code of an AI before its value in the bits, digit by digit.
 *
 * Source: EPC Tag Data Standard, section 15.3 (+AIDC data).
 */
#ifndef ROSETAG_VALUES_AI_CODE_BITS_H
#define ROSETAG_VALUES_AI_CODE_BITS_H

#include "core/bit_buffer.h"
#include "gs1/ai_catalogue.h"
#include "gs1/ai_prefix.h"
#include "values/ai_kind.h"

namespace rosetag {

EpcStatus aiCodePut(BitBuffer& out, const AiDefinition& ai);

// A code is read in two steps, because what its first two digits mean depends on what follows them.
// code has room for five characters; those from the third on are NUL.
EpcStatus aiCodeGetPrefix(BitBuffer& bits, char* code);
EpcStatus aiCodeGetRest(BitBuffer& bits, char* code, const AiDefinition*& ai);

// The two digits of a prefix: this few bits hold no AI.
constexpr std::int32_t AI_PREFIX_BITS = 2 * DIGIT_BITS;
constexpr std::int32_t AI_00_VALUE_BITS = aiPrefixOf('0', '0').valueLength * DIGIT_BITS;

// True if the prefix is 00 and fewer bits follow it than a value of AI 00 takes: it is padding.
constexpr bool aiCodeIsPadding(std::string_view prefix, std::int32_t bitsAfter) {
    return bitsAfter < AI_00_VALUE_BITS && prefix == "00";
}

} // namespace rosetag

#endif
