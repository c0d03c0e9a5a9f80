#include "results.h"

#include "before/explain/explain_walk.h"
#include "before/translate/encoding.h"
#include "before/words/ai_dictionary.h"
#include "csv_cells.h"
#include "output.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace rosetag {

namespace {

// An object whose members stay in the order in which they are added.
using Json = nlohmann::ordered_json;

std::string_view formWord(ValueForm form) {
    switch (form) {
    case ValueForm::HEX:
        return "hex";
    case ValueForm::TAG_URI:
        return "tag-uri";
    case ValueForm::PURE_URI:
        return "pure-uri";
    case ValueForm::ELEMENT_STRING:
        return "element-string";
    case ValueForm::BARCODE:
        return "barcode-string";
    case ValueForm::LINK:
        return "digital-link";
    case ValueForm::UNKNOWN:
        break;
    }
    return "unknown";
}

std::string valueText(const Result& result) {
    return std::string(result.value);
}
std::string lineText(const Result& result) {
    return std::to_string(result.line);
}
std::string formText(const Result& result) {
    return std::string(formWord(result.prepared.form));
}
std::string schemeText(const Result& result) {
    return std::string(result.forms.scheme == nullptr ? "" : result.forms.scheme->name);
}
std::string filterText(const Result& result) {
    return result.forms.filter.has_value() ? std::to_string(*result.forms.filter) : "";
}
std::string tagUriText(const Result& result) {
    return result.forms.tagUri;
}
std::string pureUriText(const Result& result) {
    return result.forms.pureUri;
}
std::string elementStringText(const Result& result) {
    return result.forms.elementString;
}
std::string barcodeStringText(const Result& result) {
    return result.forms.barcodeString;
}
std::string linkText(const Result& result) {
    return result.forms.link;
}
std::string hexText(const Result& result) {
    return result.forms.hex;
}
std::string wordsText(const Result& result) {
    return wordsOfHex(result.forms.hex);
}
std::string binaryText(const Result& result) {
    return bitsOfHex(result.forms.hex);
}
std::string bitsText(const Result& result) {
    return result.forms.bits == 0 ? "" : std::to_string(result.forms.bits);
}
std::string aisText(const Result& result) {
    std::string text;
    for (const AiValue& ai : result.forms.ais) {
        text += (text.empty() ? "" : " ") + ai.ai + '=' + ai.value;
    }
    return text;
}
std::string statusText(const Result& result) {
    return std::string(epc_statusName(result.failure.status));
}
std::string messageText(const Result& result) {
    return result.failure.message;
}

// clang-format off
constexpr ResultField fieldTable[] = {
    // name            text               form   encode failed
    {"value",          valueText,         false,  true,   true},
    {"line",           lineText,          false,  true,   true},
    {"form",           formText,          false,  true,   true},
    {"scheme",         schemeText,        false,  true,   false},
    {"filter",         filterText,        false,  true,   false},
    {"tag-uri",        tagUriText,        true,   false,  false},
    {"pure-uri",       pureUriText,       true,   false,  false},
    {"element-string", elementStringText, true,   false,  false},
    {"barcode-string", barcodeStringText, true,   false,  false},
    {"digital-link",   linkText,          true,   false,  false},
    {"hex",            hexText,           true,   true,   false},
    {"words",          wordsText,         true,   true,   false},
    {"binary",         binaryText,        true,   true,   false},
    {"bits",           bitsText,          true,   true,   false},
    {"ais",            aisText,           true,   false,  false},
    {"status",         statusText,        false,  true,   true},
    {"message",        messageText,       false,  true,   true},
};
// clang-format on

Json aisJson(const std::vector<AiValue>& ais) {
    Json array = Json::array();
    for (const AiValue& ai : ais) {
        array.push_back({{"ai", ai.ai}, {"title", aiTitle(ai.ai)}, {"value", ai.value}});
    }
    return array;
}

void addIfAny(Json& object, const char* name, const std::string& text) {
    if (!text.empty()) {
        object[name] = text;
    }
}

void addForms(Json& object, const Forms& forms) {
    if (forms.scheme != nullptr) {
        object["scheme"] = forms.scheme->name;
    }
    if (forms.filter.has_value()) {
        object["filter"] = *forms.filter;
    }
    addIfAny(object, "tagUri", forms.tagUri);
    addIfAny(object, "pureIdentityUri", forms.pureUri);
    addIfAny(object, "elementString", forms.elementString);
    addIfAny(object, "barcodeString", forms.barcodeString);
    addIfAny(object, "digitalLink", forms.link);
    addIfAny(object, "hex", forms.hex);
    if (forms.bits != 0) {
        object["bits"] = forms.bits;
    }
    if (!forms.ais.empty()) {
        object["ais"] = aisJson(forms.ais);
    }
    for (const SchemeEntry* scheme : forms.fits) {
        object["fitsSchemes"].push_back(scheme->name);
    }
}

} // namespace

const ResultField& resultField(std::string_view name, bool ofEncode) {
    const auto* const field = std::ranges::find(fieldTable, name, &ResultField::name);
    if (field == std::end(fieldTable) || (ofEncode && !field->isOfEncode)) {
        std::string message = "\"" + std::string(name) + "\" is no field; they are";
        for (const std::string& known : resultFieldNames(ofEncode)) {
            message += ' ' + known;
        }
        throw UsageError(message);
    }
    return *field;
}

void requireForm(const ResultField& field, Result& result) {
    if (!field.isForm || isFailure(result.failure) || !field.text(result).empty()) {
        return;
    }
    const bool needsLength = field.name == "pure-uri" && result.forms.lacksGcpLength;
    result.failure = {EPC_ERR_NOT_SUPPORTED,
                      "this value has no " + std::string(field.name) +
                          (needsLength ? " without --gcp-length" : "; --to chooses a form")};
}

std::vector<std::string> resultFieldNames(bool ofEncode) {
    std::vector<std::string> names;
    for (const ResultField& field : fieldTable) {
        if (!ofEncode || field.isOfEncode) {
            names.emplace_back(field.name);
        }
    }
    return names;
}

std::string resultText(const ResultField& field, const Result& result, bool raw) {
    if (isFailure(result.failure) && !field.isOfFailure) {
        return {};
    }
    std::string text = field.text(result);
    return raw ? text : groupSeparatorsSpelled(text);
}

bool resultIsNumber(std::string_view name) {
    return name == "line" || name == "filter" || name == "bits";
}

void appendTsvRow(std::string& line, const std::vector<const ResultField*>& fields,
                  const Result& result, bool raw) {
    const char* separator = "";
    for (const ResultField* field : fields) {
        line += separator;
        tsvAppendCell(line, resultText(*field, result, raw));
        separator = "\t";
    }
}

std::string resultJson(const Result& result) {
    Json object;
    if (result.line != 0) {
        object["line"] = result.line;
    }
    object["value"] = result.value;
    object["form"] = formWord(result.prepared.form);
    if (isFailure(result.failure)) {
        object["status"] = epc_statusName(result.failure.status);
        object["message"] = result.failure.message;
    } else {
        addForms(object, result.forms);
    }
    return object.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace rosetag
