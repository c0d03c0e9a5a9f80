#include "values/ai_code_bits.h"

#include "core/field_run.h"
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
    const std::string_view code = aiCodeView(ai.code);
    const char* next = code.data();
    return fieldRunPut<DIGIT_BITS>(out, static_cast<std::int32_t>(code.size()),
                                   [&next](std::uint64_t& digit) -> EpcStatus {
                                       digit = static_cast<std::uint64_t>(*next++ - '0');
                                       return EPC_OK;
                                   });
}

EpcStatus aiCodeGetPrefix(BitBuffer& bits, char* code) {
    EPC_TRY(getDigit(bits, code[0]));
    return getDigit(bits, code[1]);
}

EpcStatus aiCodeGetRest(BitBuffer& bits, char* code, const AiDefinition*& ai) {
    const std::int32_t length = aiCodeLength(code[0], code[1]);
    if (length == 0) {
        return EPC_ERR_UNKNOWN_AI;
    }
    for (std::int32_t i = 2; i < length; ++i) {
        EPC_TRY(getDigit(bits, code[i]));
    }
    return aiDefinitionOf({code, static_cast<std::size_t>(length)}, ai);
}

} // namespace rosetag
