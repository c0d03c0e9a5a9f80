#include "values/ai_code_bits.h"

#include "values/ai_value.h"

namespace rosetag {

namespace {

EpcStatus getDigit(BitBuffer& bits, char& out) {
    std::uint64_t digit = 0;
    EPC_TRY(bitBufferRead(bits, DIGIT_BITS, digit));
    if (digit > 9) {
        return EPC_ERR_BAD_FORMAT;
    }
    out = static_cast<char>('0' + digit);
    return EPC_OK;
}

} // namespace

EpcStatus aiCodePut(BitBuffer& out, const AiDefinition& ai) {
    const std::int32_t width = ai.codeLength * DIGIT_BITS;
    return bitBufferLeft(out) < width ? digitRunPut(out, aiCodeOf(ai))
                                      : bitBufferWrite(out, ai.packedCode, width);
}

EpcStatus aiCodeGetPrefix(BitBuffer& bits, char* code) {
    EPC_TRY(getDigit(bits, code[0]));
    return getDigit(bits, code[1]);
}

EpcStatus aiCodeGetRest(BitBuffer& bits, char* code, const AiDefinition*& ai) {
    const std::size_t length = aiPrefixOf(code[0], code[1]).codeDigits;
    if (length == 0) {
        return EPC_ERR_UNKNOWN_AI;
    }
    for (std::size_t i = 2; i < length; ++i) {
        EPC_TRY(getDigit(bits, code[i]));
    }
    ai = aiAtSlot(aiSlotOf({code, length}));
    return ai != nullptr ? EPC_OK : EPC_ERR_UNKNOWN_AI;
}

} // namespace rosetag
