#include "before/translate/library_calls.h"
#include "before/words/ai_dictionary.h"
#include "commands.h"
#include "human_text.h"

#include <nlohmann/json.hpp>

namespace rosetag {

namespace {

using Json = nlohmann::ordered_json;

struct AiBits {
    std::string ai;
    std::string value;
    std::string hex;
    int bits; // 0: not known
};

std::string aiText(const AiBits& ai, bool isJson) {
    const std::string_view title = aiTitle(ai.ai);
    if (isJson) {
        Json object = {{"ai", ai.ai}, {"title", title}, {"value", ai.value}, {"hex", ai.hex}};
        if (ai.bits != 0) {
            object["bits"] = ai.bits;
        }
        return object.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
    }
    return labelled("AI", ai.ai + "  " + std::string(title)) + labelled("value", ai.value) +
           labelled("hex", ai.hex) +
           (ai.bits == 0 ? "" : labelled("length", std::to_string(ai.bits) + " bits"));
}

} // namespace

int aiEncodeCommand(Output& output, const Arguments& arguments) {
    AiBits ai{arguments.ai, arguments.values.front(), {}, 0};
    std::int32_t bits = 0;
    const EpcStatus status = textFrom(ai.hex, [&](std::int32_t size, char* dst) {
        return epc_AIToHexEnc(ai.ai.c_str(), ai.value.c_str(), arguments.withCode ? 1 : 0,
                              arguments.encode.encoding, size, dst, &bits);
    });
    if (status != EPC_OK) {
        return complainOfFailure(output, ai.ai + ' ' + ai.value,
                                 failureOfAiValue(status, ai.ai, ai.value));
    }
    ai.bits = bits;
    outputWrite(output, aiText(ai, arguments.isJson));
    return EXIT_STATUS_GOOD;
}

int aiDecodeCommand(Output& output, const Arguments& arguments) {
    const std::string& given = arguments.values.front();
    AiBits ai{arguments.ai, {}, hexDigitsOf(given), 0};
    if (const Failure failure = failureOfHex(ai.hex); isFailure(failure)) {
        return complainOfFailure(output, given, failure);
    }
    std::array<char, 5> code{};
    const EpcStatus status = textFrom(ai.value, [&](std::int32_t size, char* dst) {
        return ai.ai.empty() ? epc_plusAidcHexToAI(ai.hex.c_str(), code.data(), size, dst)
                             : epc_hexValueToAI(ai.hex.c_str(), ai.ai.c_str(), size, dst);
    });
    if (status != EPC_OK) {
        return complainOfFailure(output, given, failureOfAiBits(status, ai.ai, ai.hex));
    }
    ai.ai = ai.ai.empty() ? code.data() : ai.ai;
    outputWrite(output, aiText(ai, arguments.isJson));
    return EXIT_STATUS_GOOD;
}

} // namespace rosetag
