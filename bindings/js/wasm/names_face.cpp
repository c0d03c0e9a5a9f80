/*
 * What the build of the package asks for: the names that stand in its JavaScript. No module that is
 * shipped has this.
 */
#include "face.h"
#include "gs1/ai_table.h"

using namespace rosetag;
using namespace rosetag::js;

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
    putKey(json, "titles");
    json += '[';
    for (const AiTableRow& row : aiTable) {
        putKey(json, {});
        json += '[';
        putText(json, {}, row.codes);
        putText(json, {}, row.title);
        json += ']';
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
