#include "translate/translate.h"

#include "check/check_text.h"
#include "recognise/hex_text.h"
#include "recognise/plain_text.h"
#include "schemes/epc_uri.h"
#include "translate/tag_notes.h"
#include "translate/text_forms.h"
#include "translate/text_room.h"
#include "words/failure.h"

#include <algorithm>
#include <array>

namespace rosetag {

namespace {

EpcStatus formsOfTagUri(Reading& reading, FormSet wanted, Translation& result) {
    const std::string& uri = reading.workspace.text;
    TagBits tag;
    const EpcStatus status =
        tagBitsWrite(tag, [&](BitBuffer& bits) { return tagUriToBits(bits, uri); });
    if (status != EPC_ERR_NOT_SUPPORTED) {
        return status == EPC_OK ? formsOfEncoded(tag, wanted, result) : status;
    }
    return formsOfPlusTagUri(uri, wanted, result);
}

EpcStatus formsOf(Reading& reading, FormSet wanted, Translation& result) {
    switch (reading.form) {
    case Form::HEX:
    case Form::TID:
        return formsOfHex(reading.workspace.text, wanted, result);
    case Form::TAG_URI:
        return formsOfTagUri(reading, wanted, result);
    case Form::PURE_IDENTITY:
        return formsOfPureIdentity(reading, wanted, result);
    default:
        return formsOfGs1Text(reading, reading.form, reading.workspace.text, wanted, result);
    }
}

// What has to be made for what is wanted: findings are about AIs.
FormSet neededFor(FormSet wanted) {
    return wanted.has(Form::FINDINGS) ? wanted | Form::AIS : wanted;
}

// Translates a plain tag value. False if it is not one or cannot be read: the usual way says why.
bool translatePlainTag(std::string_view value, const ReadOptions& options, FormSet wanted,
                       Translation& result) {
    TagBits tag;
    if (!plainTagRead(value, options, tag)) {
        return false;
    }
    result.form = Form::HEX;
    if (wanted.has(Form::HEX)) {
        hexInUpperCase(value, result.hex);
    }
    if (formsOfTag(tag, neededFor(wanted), TagOrigin::GIVEN, result) == EPC_OK) {
        return true;
    }
    translationClear(result, wanted);
    return false;
}

// The forms of a value that is not a plain tag. The failure is set where it could not be prepared.
EpcStatus formsOfText(Reading& reading, FormSet wanted, Translation& result) {
    ParsedAis ais;
    const bool isPlain = plainTextPrepare(reading) && plainAisParse(reading, ais);
    const bool isPrepared = isPlain || readingPrepare(reading);
    result.form = reading.form;
    return isPlain      ? formsOfAis(reading, ais, wanted, result)
           : isPrepared ? formsOf(reading, wanted, result)
                        : EPC_OK;
}

// The first error is the failure of the value.
void failByError(Reading& reading, const Rows<Finding>& findings) {
    const Finding* const error =
        std::find_if(findings.begin(), findings.end(),
                     [](const Finding& finding) { return finding.severity == Severity::ERROR; });
    if (error != findings.end()) {
        readingFail(reading, error->status, error->position, error->length,
                    {error->message, {}, "strict"});
    }
}

} // namespace

void findOut(Reading& reading, Translation& result) {
    constexpr FormSet tagForms = Form::HEX | Form::TAG_URI | Form::PURE_IDENTITY;
    if (tagForms.has(result.form)) {
        checkAis(reading.value, reading.options, result, result.findings);
    } else {
        check(reading.value, reading.options, result.findings);
    }
    if (reading.options.strict) {
        failByError(reading, result.findings);
    }
}

void dropUnasked(FormSet asked, Translation& result) {
    if (!asked.has(Form::PURE_IDENTITY)) {
        result.pureIdentity.clear();
    }
    if (!asked.has(Form::ELEMENT_STRING)) {
        result.elementString.clear();
    }
    if (!asked.has(Form::FITS_SCHEMES)) {
        result.fitsSchemes.clear();
    }
    if (!asked.has(Form::AIS)) {
        result.ais.clear();
    }
}

void translationClear(Translation& result, FormSet asked) {
    failureClear(result.failure);
    result.form = Form::UNKNOWN;
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
    result.findings.clear();
    result.asked = asked;
}

EpcStatus schemesThatFit(const std::string& pureIdentity, HowMany howMany,
                         Rows<const SchemeInfo*>& fits) {
    std::string_view family = pureIdentity;
    family.remove_prefix(PURE_IDENTITY_URI_PREFIX.size());
    family = family.substr(0, family.find(':'));
    EpcStatus status = EPC_OK;
    TagBits tag;
    for (const SchemeInfo& scheme : schemes()) {
        if (!scheme.hasUris || scheme.family != family) {
            continue;
        }
        status = tagBitsWrite(tag, [&](BitBuffer& bits) {
            return pureIdentityUriToBits(bits, pureIdentity, scheme.scheme, 0);
        });
        if (status == EPC_OK) {
            fits.add() = &scheme;
        }
        if (status == EPC_OK && howMany == HowMany::ONE) {
            break;
        }
    }
    return fits.empty() ? status : EPC_OK;
}

void translate(std::string_view value, const ReadOptions& options, FormSet wanted,
               Translation& result) {
    translationClear(result, wanted);
    Reading reading{value, options, result.workspace, result.notes, result.failure};
    if (!translatePlainTag(value, options, wanted, result)) {
        const EpcStatus status = formsOfText(reading, neededFor(wanted), result);
        if (isFailure(result.failure)) {
            return;
        }
        if (status != EPC_OK) {
            return failReading(reading, status);
        }
        if (reading.form == Form::HEX) {
            noteTagBits(reading);
        }
    }
    if (wanted.has(Form::FINDINGS)) {
        findOut(reading, result);
    }
    dropUnasked(wanted, result);
}

Translation translate(std::string_view value, const ReadOptions& options, FormSet wanted) {
    Translation result;
    translate(value, options, wanted, result);
    return result;
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
    case Form::FINDINGS:
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

} // namespace rosetag
