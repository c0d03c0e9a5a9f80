#include "core/frames.h"
#include "values/ai_code_bits.h"
#include "values/ai_value.h"

#include <algorithm>

namespace rosetag {
namespace {

// One value and how it is to be written.
struct ValueRequest {
    const char* ai;
    const char* value;
    std::int32_t withCode;
    std::int32_t encoding;
};

// A component that another one follows gets exactly its own characters; the last one gets all that
// is left.
EpcStatus putComponents(BitBuffer& out, const AiDefinition& ai, std::string_view value,
                        std::int32_t encoding) {
    TextCursor cursor = textCursorOver(value);
    if (ai.componentCount > 1) {
        const std::size_t length = std::min<std::size_t>(ai.components[0].digitCount, value.size());
        TextCursor first = textCursorOver({value.data(), length});
        EPC_TRY(aiValueEncode(first, out, ai, 0, AI_KIND_NONE, encoding));
        cursor.current += length;
    }
    const auto last = static_cast<std::uint8_t>(ai.componentCount - 1);
    return aiValueEncode(cursor, out, ai, last, AI_KIND_NONE, encoding);
}

EpcStatus aiToBinary(const ValueRequest& request, std::int32_t maxBytes, std::uint8_t* out,
                     std::int32_t* outBits) {
    const AiDefinition* ai = nullptr;
    EPC_TRY(aiDefinitionOf(request.ai, ai));
    BitBuffer bits = bitBufferForWriting(out, maxBytes);
    if (request.withCode != 0) {
        EPC_TRY(aiCodePut(bits, *ai));
    }
    EPC_TRY(putComponents(bits, *ai, request.value, request.encoding));
    if (outBits != nullptr) {
        *outBits = bits.position;
    }
    return EPC_OK;
}

// outBits is known before the digits find out whether they have room.
EpcStatus aiToHex(const ValueRequest& request, std::int32_t dstSize, char* dst,
                  std::int32_t* outBits) {
    return hexOutputFrame(
        dstSize, dst,
        [&](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) -> EpcStatus {
            std::int32_t bitCount = 0;
            EPC_TRY(aiToBinary(request, maxBytes, out, &bitCount));
            *outBytes = (bitCount + 7) / 8;
            if (outBits != nullptr) {
                *outBits = bitCount;
            }
            return EPC_OK;
        });
}

EpcStatus aiToWords(const ValueRequest& request, std::int32_t maxWords, std::uint16_t* outWords,
                    std::int32_t* outBits) {
    if (maxWords < 0 || maxWords > MAX_BINARY_WORDS) {
        return EPC_ERR_TOO_LONG;
    }
    std::int32_t bitCount = 0;
    const EpcStatus status = wordOutputFrame(
        maxWords, outWords, nullptr,
        [&](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) -> EpcStatus {
            EPC_TRY(aiToBinary(request, maxBytes, out, &bitCount));
            *outBytes = (bitCount + 7) / 8;
            return EPC_OK;
        });
    if (status == EPC_OK && outBits != nullptr) {
        *outBits = bitCount;
    }
    return status;
}

EpcStatus valueToAi(std::int32_t bitCount, const std::uint8_t* binary, const char* ai,
                    std::int32_t dstSize, char* dst) {
    BitBuffer bits = bitBufferForReading(binary, bitCount);
    TextBuffer text = textBufferOver(dst, dstSize);
    const AiDefinition* definition = nullptr;
    EPC_TRY(aiDefinitionOf(ai, definition));
    return aiValueDecodeAll(bits, text, *definition);
}

EpcStatus plusAidcToAi(std::int32_t bitCount, const std::uint8_t* binary, char* aiOut,
                       std::int32_t dstSize, char* dst) {
    BitBuffer bits = bitBufferForReading(binary, bitCount);
    TextBuffer text = textBufferOver(dst, dstSize);
    std::fill(aiOut + 2, aiOut + AI_CODE_SIZE, '\0');
    EPC_TRY(aiCodeGetPrefix(bits, aiOut));
    if (aiCodeIsPadding({aiOut, 2}, bitBufferLeft(bits))) {
        return EPC_ERR_TRUNCATED;
    }
    const AiDefinition* ai = nullptr;
    EPC_TRY(aiCodeGetRest(bits, aiOut, ai));
    return aiValueDecodeAll(bits, text, *ai);
}

} // namespace
} // namespace rosetag

using namespace rosetag;

EpcStatus epc_AIToBinary(const char* ai, const char* value, std::int32_t withCode,
                         std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBits) {
    return aiToBinary({ai, value, withCode, AI_ENC_AUTO}, maxBytes, out, outBits);
}

EpcStatus epc_AIToBinaryEnc(const char* ai, const char* value, std::int32_t withCode,
                            std::int32_t encoding, std::int32_t maxBytes, std::uint8_t* out,
                            std::int32_t* outBits) {
    return aiToBinary({ai, value, withCode, encoding}, maxBytes, out, outBits);
}

EpcStatus epc_AIToHex(const char* ai, const char* value, std::int32_t withCode,
                      std::int32_t dstSize, char* dst, std::int32_t* outBits) {
    return aiToHex({ai, value, withCode, AI_ENC_AUTO}, dstSize, dst, outBits);
}

EpcStatus epc_AIToHexEnc(const char* ai, const char* value, std::int32_t withCode,
                         std::int32_t encoding, std::int32_t dstSize, char* dst,
                         std::int32_t* outBits) {
    return aiToHex({ai, value, withCode, encoding}, dstSize, dst, outBits);
}

EpcStatus epc_AIToWords(const char* ai, const char* value, std::int32_t withCode,
                        std::int32_t maxWords, std::uint16_t* outWords, std::int32_t* outBits) {
    return aiToWords({ai, value, withCode, AI_ENC_AUTO}, maxWords, outWords, outBits);
}

EpcStatus epc_AIToWordsEnc(const char* ai, const char* value, std::int32_t withCode,
                           std::int32_t encoding, std::int32_t maxWords, std::uint16_t* outWords,
                           std::int32_t* outBits) {
    return aiToWords({ai, value, withCode, encoding}, maxWords, outWords, outBits);
}

EpcStatus epc_binaryValueToAI(std::int32_t bits, const std::uint8_t* binary, const char* ai,
                              std::int32_t dstSize, char* dst) {
    return valueToAi(bits, binary, ai, dstSize, dst);
}

EpcStatus epc_hexValueToAI(const char* hex, const char* ai, std::int32_t dstSize, char* dst) {
    return hexInputFrame(hex, [&](std::int32_t bits, const std::uint8_t* binary) {
        return valueToAi(bits, binary, ai, dstSize, dst);
    });
}

EpcStatus epc_wordsValueToAI(std::int32_t bits, const std::uint16_t* words, const char* ai,
                             std::int32_t dstSize, char* dst) {
    return wordInputFrame(bits, words, [&](std::int32_t bitCount, const std::uint8_t* binary) {
        return valueToAi(bitCount, binary, ai, dstSize, dst);
    });
}

EpcStatus epc_plusAidcBinaryToAI(std::int32_t bits, const std::uint8_t* binary, char* aiOut,
                                 std::int32_t dstSize, char* dst) {
    return plusAidcToAi(bits, binary, aiOut, dstSize, dst);
}

EpcStatus epc_plusAidcHexToAI(const char* hex, char* aiOut, std::int32_t dstSize, char* dst) {
    return hexInputFrame(hex, [&](std::int32_t bits, const std::uint8_t* binary) {
        return plusAidcToAi(bits, binary, aiOut, dstSize, dst);
    });
}

EpcStatus epc_plusAidcWordsToAI(std::int32_t bits, const std::uint16_t* words, char* aiOut,
                                std::int32_t dstSize, char* dst) {
    return wordInputFrame(bits, words, [&](std::int32_t bitCount, const std::uint8_t* binary) {
        return plusAidcToAi(bitCount, binary, aiOut, dstSize, dst);
    });
}
