/*
 * The functions that only the larger module has.
 */
#include "face.h"

using namespace rosetag;
using namespace rosetag::js;

ROSETAG_JS(rosetag_explain)
EpcStatus rosetag_explain(std::size_t length, std::uint32_t flags, int gcpLength) {
    Explanation& explanation = face().explanation;
    explain(valueOf(length), readOptions(flags, gcpLength), explanation);
    beginJson();
    appendJson(face().json, explanation, {});
    giveJson();
    face().item.failure = explanation.failure;
    return explanation.failure.status;
}

// The bits that the last call explained, as the characters 0 and 1.
ROSETAG_JS(rosetag_bits) void rosetag_bits() {
    give(face().explanation.bits);
}

ROSETAG_JS(rosetag_check)
void rosetag_check(std::size_t length, std::uint32_t flags, int gcpLength) {
    Rows<Finding>& findings = face().findings;
    check(valueOf(length), readOptions(flags, gcpLength), findings);
    beginJson();
    appendJson(face().json, findings, {});
    giveJson();
}

namespace {

EpcStatus giveAi(const AiTranslation& result) {
    beginJson();
    appendJson(face().json, result);
    giveJson();
    face().item.failure = result.failure;
    return result.failure.status;
}

} // namespace

// The input holds the code of the AI, and its value or its bits after that.
ROSETAG_JS(rosetag_encodeAi)
EpcStatus rosetag_encodeAi(std::size_t codeLength, std::size_t length, int withCode, int encoding) {
    const std::string_view input = valueOf(length);
    return giveAi(
        encodeAi(input.substr(0, codeLength), input.substr(codeLength), withCode != 0, encoding));
}

ROSETAG_JS(rosetag_decodeAi)
EpcStatus rosetag_decodeAi(std::size_t codeLength, std::size_t length) {
    const std::string_view input = valueOf(length);
    return giveAi(decodeAi(input.substr(codeLength), input.substr(0, codeLength)));
}

// The words of the rules of check, and of the kinds of notes, as an object.
ROSETAG_JS(rosetag_moreNames) void rosetag_moreNames() {
    beginJson();
    std::string& json = face().json;
    json += "{\"rules\":[";
    for (const CheckRuleInfo& rule : checkRules()) {
        json += json.back() == '[' ? "\"" : ",\"";
        json += rule.word;
        json += '"';
    }
    json += "]}";
    giveJson();
}
