/*
 * Single AI values between text and the bits of the plus schemes.
 */
#include "explain/explain_ai_values.h"
#include "explain/explain_epc.h"
#include "recognise/hex_text.h"
#include "recognise/look.h"
#include "translate/text_room.h"
#include "words/ai_words.h"
#include "words/failure.h"
#include "words/shown_text.h"

namespace rosetag {

namespace {

bool failUnknownAi(Reading& reading, std::string_view ai) {
    return readingFail(
        reading, EPC_ERR_UNKNOWN_AI, 0, 0,
        {"GS1 has not assigned an AI " + shownText(ai), "give the code of an AI", "ai"});
}

void walkAis(Explanation& explanation, std::string_view hex, std::string_view ai) {
    Walk walk = walkBegin(explanation, hex);
    if (ai.empty()) {
        return walkDataSection(walk, 0);
    }
    walkAiValue(walk, ai);
    if (walk.isGood && walkLeft(walk) > 0) {
        walkTake(walk, "after the value", walkLeft(walk));
        walkMean(walk, "not part of the value");
    }
}

} // namespace

AiTranslation encodeAi(std::string_view ai, std::string_view value, bool withCode, int encoding) {
    AiTranslation result;
    Workspace workspace;
    const ReadOptions options;
    Reading reading{value, options, workspace, result.notes, result.failure};
    const std::string_view inner = withoutOuterBlanks(reading);
    result.ai = {std::string(ai), std::string(inner), aiTitle(ai)};
    if (aiRowOf(ai) == nullptr) {
        failUnknownAi(reading, ai);
        return result;
    }
    if (const std::size_t nul = value.find('\0'); nul != std::string_view::npos) {
        readingFail(reading, EPC_ERR_BAD_CHARACTER, nul, 1,
                    {"a value cannot hold a NUL, the byte 0", "leave it out"});
        return result;
    }
    std::int32_t bits = 0;
    const EpcStatus status = textFrom<EPC_HEX_SIZE>(result.hex, [&](std::int32_t size, char* dst) {
        return epc_AIToHexEnc(result.ai.ai.c_str(), result.ai.value.c_str(), withCode ? 1 : 0,
                              encoding, size, dst, &bits);
    });
    if (status != EPC_OK) {
        failAiValue(reading, status, ai, inner);
    }
    result.bits = bits;
    return result;
}

AiTranslation decodeAi(std::string_view hex, std::string_view ai) {
    AiTranslation result;
    result.ai.ai = ai;
    result.ai.title = aiTitle(ai);
    Workspace workspace;
    const ReadOptions options;
    Reading reading{hex, options, workspace, result.notes, result.failure, Form::HEX};
    if (!ai.empty() && aiRowOf(ai) == nullptr) {
        failUnknownAi(reading, ai);
        return result;
    }
    const std::string_view bits = withoutOuterBlanks(reading);
    if (failIsFileName(reading, bits) || !prepareHex(reading, bits)) {
        return result;
    }
    result.hex = workspace.text;
    std::array<char, EPC_AI_CODE_SIZE> code{};
    const EpcStatus status =
        textFrom<EPC_AI_VALUE_SIZE>(result.ai.value, [&](std::int32_t size, char* dst) {
            return ai.empty()
                       ? epc_plusAidcHexToAI(result.hex.c_str(), code.data(), size, dst)
                       : epc_hexValueToAI(result.hex.c_str(), result.ai.ai.c_str(), size, dst);
        });
    if (status != EPC_OK) {
        Explanation explanation;
        walkAis(explanation, result.hex, ai);
        failBits(reading, status, explanation);
    } else if (ai.empty()) {
        result.ai.ai = code.data();
        result.ai.title = aiTitle(result.ai.ai);
    }
    return result;
}

Explanation explainAi(std::string_view hex, std::string_view ai) {
    Explanation result;
    AiTranslation decoded = decodeAi(hex, ai);
    result.form = Form::HEX;
    result.failure = std::move(decoded.failure);
    if (!decoded.hex.empty()) {
        walkAis(result, decoded.hex, ai);
    }
    return result;
}

} // namespace rosetag
