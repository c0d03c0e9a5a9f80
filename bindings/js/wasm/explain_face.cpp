/*
 * The functions that only the larger module has.
 */
#include "face.h"

#include <algorithm>

using namespace rosetag;
using namespace rosetag::js;

ROSETAG_JS(rosetag_explain)
EpcStatus rosetag_explain(std::size_t length, std::uint32_t flags, int gcpLength) {
    Explanation& explanation = face().explanation;
    explain(valueOf(length), readOptions(flags, gcpLength), explanation);
    appendJson(beginText(), explanation, {});
    giveText();
    face().item.failure = explanation.failure;
    return explanation.failure.status;
}

// The bits that the last call explained, as the characters 0 and 1.
ROSETAG_JS(rosetag_bits) void rosetag_bits() {
    give(face().explanation.bits);
}

ROSETAG_JS(rosetag_tid) EpcStatus rosetag_tid(std::size_t length) {
    Tid result;
    tid(valueOf(length), result);
    appendJson(beginText(), result, {});
    giveText();
    face().item.failure = result.failure;
    return result.failure.status;
}

ROSETAG_JS(rosetag_check)
void rosetag_check(std::size_t length, std::uint32_t flags, int gcpLength) {
    Rows<Finding>& findings = face().findings;
    check(valueOf(length), readOptions(flags, gcpLength), findings);
    appendJson(beginText(), findings, {});
    giveText();
}

namespace {

EpcStatus giveAi(const AiTranslation& result) {
    appendJson(beginText(), result);
    giveText();
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

// Keeps a list of company prefixes: the input has an entry a line, "0614141 7". What is wrong with
// it becomes the result, nothing if it is right.
ROSETAG_JS(rosetag_keepGcpList) void rosetag_keepGcpList(std::size_t length) {
    std::string_view lines = valueOf(length);
    GcpList& list = face().gcpList;
    list = {};
    std::string& wrong = beginText();
    while (!lines.empty() && wrong.empty()) {
        const std::string_view line = lines.substr(0, lines.find('\n'));
        lines.remove_prefix(std::min(line.size() + 1, lines.size()));
        const std::size_t blank = std::min(line.find(' '), line.size());
        const std::size_t second = std::min(blank + 1, line.size());
        wrong = gcpListAdd(list, line.substr(0, blank), line.substr(second));
    }
    if (wrong.empty()) {
        const std::string prefix = gcpListFinish(list);
        wrong = prefix.empty() ? "" : "prefix " + prefix + " has two lengths";
    }
    giveText();
}

// The length of the company prefix in the key of a value, by the list that was kept; 0 if the list
// does not tell it.
ROSETAG_JS(rosetag_gcpLength) int rosetag_gcpLength(std::size_t length) {
    Translation& item = face().item;
    translate(valueOf(length), {}, Form::AIS, item);
    for (const AiValue& ai : item.ais) {
        const std::string_view digits = companyPrefixOnwards(ai.ai, ai.value);
        if (!digits.empty()) {
            return gcpLengthOf(face().gcpList, digits).length;
        }
    }
    return 0;
}
