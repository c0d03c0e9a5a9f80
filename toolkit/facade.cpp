/*
 * The front header over the rooms.
 */
#include "explain/explain.h"
#include "recognise/barcode_text.h"
#include "recognise/prepared_value.h"
#include "translate/encoding.h"
#include "translate/forms.h"
#include "words/ai_dictionary.h"

#include <rosetag/toolkit.hpp>

namespace rosetag {

namespace {

Form formOf(const PreparedValue& value) {
    constexpr Form forms[] = {Form::HEX,
                              Form::TAG_URI,
                              Form::PURE_IDENTITY,
                              Form::ELEMENT_STRING,
                              Form::BARCODE_STRING,
                              Form::DIGITAL_LINK,
                              Form::UNKNOWN};
    const Form form = forms[static_cast<std::size_t>(value.form)];
    return form == Form::HEX && hexIsTid(value.text) ? Form::TID : form;
}

// A failure that is about the whole value so far.
void place(Failure& failure, std::string_view value) {
    failure.length = value.size();
    failure.culprit = value;
}

void addNote(Rows<Note>& notes, NoteKind kind, std::string_view text, std::string_view value,
             std::string_view option = {}) {
    Note& note = notes.add();
    note.kind = kind;
    note.severity = Severity::NOTE;
    note.text = text;
    note.position = 0;
    note.length = value.size();
    note.option = option;
}

void addLinkNotes(Rows<Note>& notes, const PreparedValue& prepared, std::string_view value) {
    if (!prepared.notes.empty()) {
        addNote(notes, NoteKind::LEFT_OUT, prepared.notes, value);
    }
}

void clear(Translation& result) {
    result.failure = {};
    result.scheme = nullptr;
    result.filter.reset();
    result.bits = 0;
    for (std::string* text :
         {&result.hex, &result.tagUri, &result.pureIdentity, &result.elementString,
          &result.barcodeString, &result.digitalLink, &result.gtin, &result.serial}) {
        text->clear();
    }
    result.ais.clear();
    result.fitsSchemes.clear();
    result.notes.clear();
}

// The serial number stands in an AI of its own or after the digits of the key.
struct SerialPlace {
    std::string_view ai;
    std::size_t after;
};
constexpr SerialPlace serialPlaces[] = {
    {"21", 0}, {"254", 0}, {"8011", 0}, {"8003", 14}, {"253", 13}, {"255", 13},
};

void addNumbers(Translation& result) {
    result.gtin = aiValueOf(result, "01");
    for (const SerialPlace& place : serialPlaces) {
        const std::string_view value = aiValueOf(result, place.ai);
        if (value.size() > place.after) {
            result.serial = value.substr(place.after);
            return;
        }
    }
}

void take(Forms& forms, FormSet wanted, Translation& result) {
    const auto give = [wanted](Form form, std::string& from, std::string& to) {
        if (wanted.has(form)) {
            to = from;
        }
    };
    result.scheme = forms.scheme;
    result.filter = forms.filter;
    result.bits = forms.bits;
    give(Form::HEX, forms.hex, result.hex);
    give(Form::TAG_URI, forms.tagUri, result.tagUri);
    give(Form::PURE_IDENTITY, forms.pureUri, result.pureIdentity);
    give(Form::ELEMENT_STRING, forms.elementString, result.elementString);
    give(Form::BARCODE_STRING, forms.barcodeString, result.barcodeString);
    give(Form::DIGITAL_LINK, forms.link, result.digitalLink);
    for (const AiValue& ai : forms.ais) {
        AiValue& to = result.ais.add();
        to = ai;
        to.title = aiTitle(ai.ai);
    }
    if (wanted.hasAny(Form::GTIN | Form::SERIAL)) {
        addNumbers(result);
    }
    if (!wanted.has(Form::AIS)) {
        result.ais.clear();
    }
    if (wanted.has(Form::FITS_SCHEMES)) {
        for (const SchemeInfo* scheme : forms.fits) {
            result.fitsSchemes.add() = scheme;
        }
    }
}

} // namespace

std::string failureText(const Failure& failure) {
    return failure.remedy.empty() ? failure.message : failure.message + "; " + failure.remedy;
}

std::string_view formText(const Translation& translation, Form form) {
    switch (form) {
    case Form::HEX:
        return translation.hex;
    case Form::TAG_URI:
        return translation.tagUri;
    case Form::PURE_IDENTITY:
        return translation.pureIdentity;
    case Form::ELEMENT_STRING:
        return translation.elementString;
    case Form::BARCODE_STRING:
        return translation.barcodeString;
    case Form::DIGITAL_LINK:
        return translation.digitalLink;
    case Form::GTIN:
        return translation.gtin;
    case Form::SERIAL:
        return translation.serial;
    case Form::AIS:
    case Form::FITS_SCHEMES:
    case Form::TID:
    case Form::UNKNOWN:
        break;
    }
    return {};
}

std::string_view aiValueOf(const Translation& translation, std::string_view ai) {
    for (const AiValue& element : translation.ais) {
        if (element.ai == ai) {
            return element.value;
        }
    }
    return {};
}

std::string describe(const Translation& translation) {
    std::string text(formName(translation.form));
    if (translation.scheme != nullptr) {
        text += ", scheme ";
        text += translation.scheme->name;
    }
    return text;
}

void recognise(std::string_view value, const ReadOptions& options, Recognition& result) {
    PreparedValue prepared = prepareValue(value, options);
    result.failure = failureOfPreparing(prepared);
    place(result.failure, isFailure(result.failure) ? value : std::string_view());
    result.form = formOf(prepared);
    result.notes.clear();
    addLinkNotes(result.notes, prepared, value);
    result.text = prepared.text;
}

Recognition recognise(std::string_view value, const ReadOptions& options) {
    Recognition result;
    recognise(value, options, result);
    return result;
}

void translate(std::string_view value, const ReadOptions& options, FormSet wanted,
               Translation& result) {
    clear(result);
    result.asked = wanted;
    const PreparedValue prepared = prepareValue(value, options);
    result.form = formOf(prepared);
    addLinkNotes(result.notes, prepared, value);
    Forms forms;
    result.failure = formsOf(prepared, options.gcpLength, forms);
    if (isFailure(result.failure)) {
        return place(result.failure, value);
    }
    take(forms, wanted, result);
    if (forms.lacksGcpLength && wanted.has(Form::PURE_IDENTITY)) {
        addNote(result.notes, NoteKind::NEEDS_GCP_LENGTH,
                "the pure identity URI needs the length of the GS1 company prefix", value,
                "gcp_length");
    }
}

Translation translate(std::string_view value, const ReadOptions& options, FormSet wanted) {
    Translation result;
    translate(value, options, wanted, result);
    return result;
}

void encode(std::string_view value, const EncodeOptions& options, FormSet wanted,
            Translation& result) {
    clear(result);
    result.asked = wanted | Form::HEX;
    const PreparedValue prepared = prepareValue(value, options.read);
    result.form = formOf(prepared);
    addLinkNotes(result.notes, prepared, value);
    const EncodeRequest request = {options.scheme, options.filter, options.read.gcpLength,
                                   options.encoding};
    if (std::string error = encodeUsageError(request, prepared.form); !error.empty()) {
        result.failure.status =
            options.scheme == nullptr ? EPC_ERR_UNKNOWN_SCHEME : EPC_ERR_BAD_PARTITION;
        result.failure.message = std::move(error);
        result.failure.isOfOptions = true;
        return;
    }
    Forms forms;
    result.failure = encodeValue(prepared, request, forms.hex);
    if (isFailure(result.failure)) {
        return place(result.failure, value);
    }
    formsOf({ValueForm::HEX, forms.hex, {}}, {}, forms);
    take(forms, result.asked, result);
}

Translation encode(std::string_view value, const EncodeOptions& options, FormSet wanted) {
    Translation result;
    encode(value, options, wanted, result);
    return result;
}

void appendWords(std::string& text, std::string_view hex) {
    text += wordsOfHex(hex);
}

void appendBits(std::string& text, std::string_view hex) {
    text += bitsOfHex(hex);
}

void explain(std::string_view value, const ReadOptions& options, Explanation& result) {
    const PreparedValue prepared = prepareValue(value, options);
    result.form = formOf(prepared);
    result.scheme = nullptr;
    result.hex.clear();
    result.bits.clear();
    result.fields.clear();
    result.notes.clear();
    result.failure = failureOfPreparing(prepared);
    if (!isFailure(result.failure) && prepared.form == ValueForm::TAG_URI) {
        result.failure = encodeValue(prepared, {}, result.hex);
    } else if (prepared.form == ValueForm::HEX) {
        result.hex = prepared.text;
    } else if (!isFailure(result.failure)) {
        result.failure = {EPC_ERR_BAD_FORMAT,
                          std::string(formName(result.form)) +
                              " has no bits before it is encoded for a scheme",
                          "explain what encode makes of it"};
    }
    if (isFailure(result.failure)) {
        return place(result.failure, value);
    }
    WalkedBits walked = result.form == Form::TID ? explainTid(result.hex) : explainEpc(result.hex);
    result.scheme = schemeByName(walked.subject);
    result.bits = walked.walk.bits;
    for (ExplainedField& field : walked.walk.fields) {
        result.fields.add() = std::move(field);
    }
    Forms forms;
    result.failure = result.form == Form::TID
                         ? tid(value).failure
                         : formsOf({ValueForm::HEX, result.hex, {}}, {}, forms);
}

Explanation explain(std::string_view value, const ReadOptions& options) {
    Explanation result;
    explain(value, options, result);
    return result;
}

AiTranslation encodeAi(std::string_view ai, std::string_view value, bool withCode, int encoding) {
    AiTranslation result;
    result.ai = {std::string(ai), std::string(value), aiTitle(ai)};
    std::int32_t bits = 0;
    const EpcStatus status = textFrom(result.hex, [&](std::int32_t size, char* dst) {
        return epc_AIToHexEnc(result.ai.ai.c_str(), result.ai.value.c_str(), withCode ? 1 : 0,
                              encoding, size, dst, &bits);
    });
    result.failure = failureOfAiValue(status, result.ai.ai, result.ai.value);
    result.bits = bits;
    return result;
}

AiTranslation decodeAi(std::string_view hex, std::string_view ai) {
    AiTranslation result;
    result.hex = hexDigitsOf(hex);
    result.ai.ai = ai;
    result.failure = failureOfHex(result.hex);
    if (isFailure(result.failure)) {
        return result;
    }
    std::array<char, EPC_AI_CODE_SIZE> code{};
    const EpcStatus status = textFrom(result.ai.value, [&](std::int32_t size, char* dst) {
        return ai.empty() ? epc_plusAidcHexToAI(result.hex.c_str(), code.data(), size, dst)
                          : epc_hexValueToAI(result.hex.c_str(), result.ai.ai.c_str(), size, dst);
    });
    result.failure = failureOfAiBits(status, result.ai.ai, result.hex);
    if (ai.empty()) {
        result.ai.ai = code.data();
    }
    result.ai.title = aiTitle(result.ai.ai);
    return result;
}

void tid(std::string_view hex, Tid& result) {
    result.record = {};
    result.hex = hexDigitsOf(hex);
    result.failure = failureOfHex(result.hex);
    if (isFailure(result.failure)) {
        return;
    }
    const std::vector<std::uint8_t> bytes = bytesOfHex(result.hex);
    result.failure = failureOfTid(
        tid_binaryDecode(static_cast<std::int32_t>(8 * bytes.size()), bytes.data(), &result.record),
        result.hex);
}

Tid tid(std::string_view hex) {
    Tid result;
    tid(hex, result);
    return result;
}

} // namespace rosetag
