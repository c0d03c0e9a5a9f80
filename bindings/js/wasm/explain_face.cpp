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

/*
 * ---- Names ----
 */

namespace {

void putKey(std::string& json, std::string_view key) {
    json += json.back() == '{' || json.back() == '[' ? "" : ",";
    if (!key.empty()) {
        json += '"';
        json += key;
        json += "\":";
    }
}

// Names need no escapes.
void putText(std::string& json, std::string_view key, std::string_view text) {
    putKey(json, key);
    json += '"';
    json += text;
    json += '"';
}

void putNumber(std::string& json, std::string_view key, int number) {
    putKey(json, key);
    json += std::to_string(number);
}

void putBool(std::string& json, std::string_view key, bool value) {
    putKey(json, key);
    json += value ? "true" : "false";
}

void putScheme(std::string& json, const SchemeInfo& scheme) {
    putKey(json, {});
    json += '{';
    putText(json, "name", scheme.name);
    putText(json, "family", scheme.family);
    putText(json, "thing", scheme.thing);
    putNumber(json, "header", scheme.header);
    putNumber(json, "filterLimit", scheme.filterLimit);
    putKey(json, "filters");
    json += '[';
    for (const FilterWord& row : filterWords(scheme)) {
        putKey(json, {});
        json += '{';
        putNumber(json, "filter", row.filter);
        putText(json, "word", row.word);
        putText(json, "name", row.name);
        json += '}';
    }
    json += ']';
    putBool(json, "hasUris", scheme.hasUris);
    putBool(json, "hasGs1Texts", scheme.hasGs1Texts);
    putBool(json, "isPlus", scheme.isPlus);
    json += '}';
}

// Those that a value can be given as.
constexpr FormSet givenForms = Form::HEX | Form::TAG_URI | Form::PURE_IDENTITY |
                               Form::ELEMENT_STRING | Form::BARCODE_STRING | Form::DIGITAL_LINK |
                               Form::GTIN | Form::TID | Form::UNKNOWN;

void putForms(std::string& json, std::string_view key, FormSet forms) {
    putKey(json, key);
    json += '[';
    for (int form = 0; form <= static_cast<int>(Form::UNKNOWN); ++form) {
        if (forms.has(static_cast<Form>(form))) {
            putText(json, {}, formWord(static_cast<Form>(form)));
        }
    }
    json += ']';
}

} // namespace

// Everything that has a name and a number, as an object; an element's place is its number.
ROSETAG_JS(rosetag_names) void rosetag_names() {
    std::string& json = beginText();
    json += '{';
    putText(json, "version", version());
    putForms(json, "forms", ALL_FORMS | Form::FINDINGS | givenForms);
    putForms(json, "texts", ALL_FORMS.without(Form::AIS | Form::FITS_SCHEMES));
    putForms(json, "given", givenForms);
    putKey(json, "statuses");
    json += '[';
    const std::string_view none = epc_statusName(-1);
    for (EpcStatus status = EPC_OK; epc_statusName(status) != none; ++status) {
        putText(json, {}, epc_statusName(status));
    }
    json += ']';
    putKey(json, "meanings");
    json += '[';
    for (EpcStatus status = EPC_OK; epc_statusName(status) != none; ++status) {
        putText(json, {}, epc_statusText(status));
    }
    json += ']';
    putKey(json, "encodings");
    json += '[';
    for (const std::string_view word : encodingWords()) {
        putText(json, {}, word);
    }
    json += ']';
    putKey(json, "notes");
    json += '[';
    for (int kind = 0; kind <= static_cast<int>(NoteKind::ODD_LENGTH); ++kind) {
        putText(json, {}, noteWord(static_cast<NoteKind>(kind)));
    }
    json += ']';
    putKey(json, "rules");
    json += '[';
    for (const CheckRuleInfo& rule : checkRules()) {
        putText(json, {}, rule.word);
    }
    json += ']';
    putKey(json, "schemes");
    json += '[';
    for (const SchemeInfo& scheme : schemes()) {
        putScheme(json, scheme);
    }
    json += "]}";
    giveText();
}
