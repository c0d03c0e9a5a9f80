#include "values/ai_conversions.h"

#include "core/frames.h"
#include "values/ai_code_bits.h"

#include <algorithm>

namespace rosetag {

namespace {

// A component that another one follows gets exactly its own characters; the last one gets the rest.
EpcStatus putComponents(BitBuffer& bits, const AiDefinition& ai, std::string_view value,
                        std::int32_t encoding) {
    TextCursor cursor = textCursorOver(value);
    if (ai.componentCount > 1) {
        const std::size_t length = std::min<std::size_t>(ai.components[0].digitCount, value.size());
        TextCursor first = textCursorOver({value.data(), length});
        EPC_TRY(aiValueEncode(first, bits, ai, 0, AI_KIND_NONE, encoding));
        cursor.current += length;
    }
    const auto last = static_cast<std::uint8_t>(ai.componentCount - 1);
    return aiValueEncode(cursor, bits, ai, last, AI_KIND_NONE, encoding);
}

EpcStatus valueToBits(BitBuffer& bits, const AiDefinition& ai, const AiValueRequest& request,
                      std::int32_t* outBits) {
    if (request.withCode != 0) {
        EPC_TRY(aiCodePut(bits, ai));
    }
    EPC_TRY(putComponents(bits, ai, request.value, request.encoding));
    if (outBits != nullptr) {
        *outBits = bits.position;
    }
    return EPC_OK;
}

} // namespace

EpcStatus aiToBinary(const char* code, const AiValueRequest& request, std::int32_t maxBytes,
                     std::uint8_t* out, std::int32_t* outBits) {
    const AiDefinition* ai = nullptr;
    EPC_TRY(aiDefinitionOf(code, ai));
    return binaryOutputFrame(maxBytes, out, nullptr, valueToBits, *ai, request, outBits);
}

EpcStatus aiToHex(const char* code, const AiValueRequest& request, std::int32_t dstSize, char* dst,
                  std::int32_t* outBits) {
    const AiDefinition* ai = nullptr;
    EPC_TRY(aiDefinitionOf(code, ai));
    return hexOutputFrame(dstSize, dst, valueToBits, *ai, request, outBits);
}

EpcStatus aiToWords(const char* code, const AiValueRequest& request, std::int32_t maxWords,
                    std::uint16_t* outWords, std::int32_t* outBits) {
    if (maxWords < 0 || maxWords > MAX_BINARY_WORDS) {
        return EPC_ERR_TOO_LONG;
    }
    const AiDefinition* ai = nullptr;
    EPC_TRY(aiDefinitionOf(code, ai));
    std::int32_t bitCount = 0;
    EPC_TRY(wordOutputFrame(maxWords, outWords, nullptr, valueToBits, *ai, request, &bitCount));
    if (outBits != nullptr) {
        *outBits = bitCount;
    }
    return EPC_OK;
}

EpcStatus bitsToAiValue(BitBuffer& bits, const char* ai, std::int32_t dstSize, char* dst) {
    TextBuffer text = textBufferOver(dst, dstSize);
    const AiDefinition* definition = nullptr;
    EPC_TRY(aiDefinitionOf(ai, definition));
    return aiValueDecode(bits, text, *definition);
}

EpcStatus bitsToAiAndValue(BitBuffer& bits, char* aiOut, std::int32_t dstSize, char* dst) {
    TextBuffer text = textBufferOver(dst, dstSize);
    std::fill(aiOut + 2, aiOut + AI_CODE_SIZE, '\0');
    EPC_TRY(aiCodeGetPrefix(bits, aiOut));
    if (aiCodeIsPadding({aiOut, 2}, bitBufferLeft(bits))) {
        return EPC_ERR_TRUNCATED;
    }
    const AiDefinition* ai = nullptr;
    EPC_TRY(aiCodeGetRest(bits, aiOut, ai));
    return aiValueDecode(bits, text, *ai);
}

} // namespace rosetag
