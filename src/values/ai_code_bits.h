/*
 * The code of an AI in front of its value in the bits, 4 bits a digit.
 *
 * Source: EPC Tag Data Standard, section 15.3 (+AIDC data).
 */
#ifndef ROSETAG_VALUES_AI_CODE_BITS_H
#define ROSETAG_VALUES_AI_CODE_BITS_H

#include "core/bit_buffer.h"
#include "gs1/ai_catalogue.h"

namespace rosetag {

EpcStatus aiCodePut(BitBuffer& out, const AiDefinition& ai);

// A code is read in two steps, because what its first two digits say depends on what is left behind
// them. The digits go to code, five characters that are NUL from the third on.
EpcStatus aiCodeGetPrefix(BitBuffer& bits, char* code);
EpcStatus aiCodeGetRest(BitBuffer& bits, char* code, const AiDefinition*& ai);

// True if the prefix is 00 and the bits left do not hold a value of AI 00: they are zeros that fill
// up a word.
bool aiCodeIsPadding(const char* code, const BitBuffer& bits);

} // namespace rosetag

#endif
