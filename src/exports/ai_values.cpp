#include "core/frames.h"
#include "values/ai_conversions.h"

using namespace rosetag;

EpcStatus epc_AIToBinary(const char* ai, const char* value, std::int32_t withCode,
                         std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBits) {
    return aiToBinary(ai, {value, withCode, AI_ENC_AUTO}, maxBytes, out, outBits);
}

EpcStatus epc_AIToBinaryEnc(const char* ai, const char* value, std::int32_t withCode,
                            std::int32_t encoding, std::int32_t maxBytes, std::uint8_t* out,
                            std::int32_t* outBits) {
    return aiToBinary(ai, {value, withCode, encoding}, maxBytes, out, outBits);
}

EpcStatus epc_AIToHex(const char* ai, const char* value, std::int32_t withCode,
                      std::int32_t dstSize, char* dst, std::int32_t* outBits) {
    return aiToHex(ai, {value, withCode, AI_ENC_AUTO}, dstSize, dst, outBits);
}

EpcStatus epc_AIToHexEnc(const char* ai, const char* value, std::int32_t withCode,
                         std::int32_t encoding, std::int32_t dstSize, char* dst,
                         std::int32_t* outBits) {
    return aiToHex(ai, {value, withCode, encoding}, dstSize, dst, outBits);
}

EpcStatus epc_AIToWords(const char* ai, const char* value, std::int32_t withCode,
                        std::int32_t maxWords, std::uint16_t* outWords, std::int32_t* outBits) {
    return aiToWords(ai, {value, withCode, AI_ENC_AUTO}, maxWords, outWords, outBits);
}

EpcStatus epc_AIToWordsEnc(const char* ai, const char* value, std::int32_t withCode,
                           std::int32_t encoding, std::int32_t maxWords, std::uint16_t* outWords,
                           std::int32_t* outBits) {
    return aiToWords(ai, {value, withCode, encoding}, maxWords, outWords, outBits);
}

EpcStatus epc_binaryValueToAI(std::int32_t bits, const std::uint8_t* binary, const char* ai,
                              std::int32_t dstSize, char* dst) {
    return binaryInputFrame(bits, binary, bitsToAiValue, ai, dstSize, dst);
}

EpcStatus epc_hexValueToAI(const char* hex, const char* ai, std::int32_t dstSize, char* dst) {
    return hexInputFrame(hex, bitsToAiValue, ai, dstSize, dst);
}

EpcStatus epc_wordsValueToAI(std::int32_t bits, const std::uint16_t* words, const char* ai,
                             std::int32_t dstSize, char* dst) {
    return wordInputFrame(bits, words, bitsToAiValue, ai, dstSize, dst);
}

EpcStatus epc_plusAidcBinaryToAI(std::int32_t bits, const std::uint8_t* binary, char* aiOut,
                                 std::int32_t dstSize, char* dst) {
    return binaryInputFrame(bits, binary, bitsToAiAndValue, aiOut, dstSize, dst);
}

EpcStatus epc_plusAidcHexToAI(const char* hex, char* aiOut, std::int32_t dstSize, char* dst) {
    return hexInputFrame(hex, bitsToAiAndValue, aiOut, dstSize, dst);
}

EpcStatus epc_plusAidcWordsToAI(std::int32_t bits, const std::uint16_t* words, char* aiOut,
                                std::int32_t dstSize, char* dst) {
    return wordInputFrame(bits, words, bitsToAiAndValue, aiOut, dstSize, dst);
}
