/*
 * The value of one AI to bits and back, by the code of the AI, with or without that code in the
 * bits.
 *
 * Source: EPC Tag Data Standard, section 15.3.
 */
#ifndef ROSETAG_VALUES_AI_CONVERSIONS_H
#define ROSETAG_VALUES_AI_CONVERSIONS_H

#include "values/ai_value.h"

namespace rosetag {

// How a value is to be written.
struct AiValueRequest {
    const char* value;
    std::int32_t withCode; // not 0: the code of the AI precedes the value
    std::int32_t encoding; // AI_ENC_AUTO or an indicator to force
};

// To the three forms of a binary value. outBits may be null. An unknown AI leaves out untouched;
// the number of bits is written before it is known whether their hexadecimal digits have room.
EpcStatus aiToBinary(const char* code, const AiValueRequest& request, std::int32_t maxBytes,
                     std::uint8_t* out, std::int32_t* outBits);
EpcStatus aiToHex(const char* code, const AiValueRequest& request, std::int32_t dstSize, char* dst,
                  std::int32_t* outBits);
EpcStatus aiToWords(const char* code, const AiValueRequest& request, std::int32_t maxWords,
                    std::uint16_t* outWords, std::int32_t* outBits);

// What was written before a failure stays in dst.
EpcStatus bitsToAiValue(BitBuffer& bits, const char* ai, std::int32_t dstSize, char* dst);

// The same for bits that begin with the code, which goes to aiOut.
EpcStatus bitsToAiAndValue(BitBuffer& bits, char* aiOut, std::int32_t dstSize, char* dst);

} // namespace rosetag

#endif
