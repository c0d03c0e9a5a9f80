#include "translate/text_forms.h"

#include "core/char_class.h"
#include "core/hex_digits.h"
#include "gs1/text_writers.h"
#include "translate/company_prefix.h"
#include "translate/numbers.h"
#include "translate/parsed_ais.h"
#include "translate/text_room.h"
#include "translate/translate.h"

#include <array>
#include <functional>

namespace rosetag {

namespace {

void addAis(const ParsedAis& ais, FormSet wanted, Translation& result) {
    for (std::size_t i = 0; wanted.has(Form::AIS) && i < ais.list.count; ++i) {
        addAi(result, aiCodeAt(ais, i), aiValueAt(ais, i));
    }
    addNumbers(wanted, ais.list.count, std::cref(ais), result);
}

// Makes a text of AIs by one of the library's writers.
template <std::size_t size, typename List>
EpcStatus writeAis(std::string& text, EpcStatus (*write)(TextBuffer&, List, const char*), List list,
                   const char* base) {
    return textWritten<size>(text, [&](TextBuffer& buffer) { return write(buffer, list, base); });
}

// An identity is sound if there is a scheme that holds it.
HowMany howManyFit(FormSet wanted) {
    return wanted.has(Form::FITS_SCHEMES) ? HowMany::ALL : HowMany::ONE;
}

// Whether there would be a pure identity URI is found out with any length of the prefix.
void addPureIdentity(Reading& reading, const ParsedAis& ais, FormSet wanted, Translation& result) {
    constexpr int anyLength = 7;
    const CompanyPrefix prefix = companyPrefixOf(reading.options, ais);
    std::string& uri = result.workspace.more;
    if (textFrom<EPC_URI_SIZE>(uri, [&](std::int32_t size, char* dst) {
            return epc_gs1ElementStringToEpcUri(result.elementString.c_str(),
                                                prefix.length.value_or(anyLength), size, dst);
        }) != EPC_OK) {
        return;
    }
    if (!prefix.length.has_value()) {
        readingNote(reading, NoteKind::NEEDS_GCP_LENGTH, reading.value, [&] {
            return "the pure identity URI needs the length of the GS1 company prefix" +
                   (prefix.problem.empty() ? "" : ", and " + prefix.problem);
        }).option = "gcp_length";
        return;
    }
    if (schemesThatFit(uri, howManyFit(wanted), result.fitsSchemes) == EPC_OK &&
        wanted.has(Form::PURE_IDENTITY)) {
        result.pureIdentity = uri;
    }
}

} // namespace

EpcStatus formsOfAis(Reading& reading, ParsedAis& ais, FormSet wanted, Translation& result) {
    const bool hasBrackets = fitBrackets(ais);
    const bool needsUri = wanted.hasAny(Form::PURE_IDENTITY | Form::FITS_SCHEMES) && hasBrackets;
    if (wanted.has(Form::ELEMENT_STRING) || needsUri) {
        EPC_TRY((writeAis<EPC_ELEMENT_STRING_SIZE, const AiList&>(
            result.elementString, elementStringWrite, ais.list, ais.base)));
    }
    if (wanted.has(Form::BARCODE_STRING)) {
        EPC_TRY((writeAis<EPC_BARCODE_STRING_SIZE, const AiList&>(
            result.barcodeString, barcodeStringWrite, ais.list, ais.base)));
    }
    if (wanted.hasAny(AI_FORMS)) {
        addAis(ais, wanted, result);
    }
    if (needsUri) {
        addPureIdentity(reading, ais, wanted, result);
    }
    if (wanted.has(Form::DIGITAL_LINK) && hasBrackets) {
        writeAis<EPC_DIGITAL_LINK_SIZE, AiList&>(result.digitalLink, digitalLinkWrite, ais.list,
                                                 ais.base);
    } else if (wanted.has(Form::DIGITAL_LINK) && reading.form == Form::DIGITAL_LINK) {
        result.digitalLink = reading.workspace.text;
    }
    return EPC_OK;
}

EpcStatus formsOfGs1Text(Reading& reading, Form form, const std::string& text, FormSet wanted,
                         Translation& result) {
    ParsedAis ais;
    EPC_TRY(aisParse(form, text, ais));
    return ais.list.count == 0 ? EPC_ERR_NO_KEY_AI : formsOfAis(reading, ais, wanted, result);
}

EpcStatus formsOfPureIdentity(Reading& reading, FormSet wanted, Translation& result) {
    const std::string& uri = reading.workspace.text;
    EPC_TRY(schemesThatFit(uri, howManyFit(wanted), result.fitsSchemes));
    const bool hasSchemes = !result.fitsSchemes.empty();
    const EpcStatus status =
        textFrom<EPC_ELEMENT_STRING_SIZE>(result.elementString, [&](std::int32_t size, char* dst) {
            return epc_epcUriToGs1ElementString(uri.c_str(), size, dst);
        });
    if (wanted.has(Form::PURE_IDENTITY)) {
        result.pureIdentity = uri;
    }
    if (status != EPC_OK) {
        return status == EPC_ERR_NO_KEY_DEFINITION && hasSchemes ? EPC_OK : status;
    }
    // The AIs come from the barcode string, whose values may hold a "(". An identity can have a
    // serial number that its AI is too short for: then it has these two texts only.
    std::string& barcode = result.workspace.more;
    EPC_TRY(textFrom<EPC_BARCODE_STRING_SIZE>(barcode, [&](std::int32_t size, char* dst) {
        return epc_epcUriToBarcodeString(uri.c_str(), size, dst);
    }));
    if (wanted.has(Form::BARCODE_STRING)) {
        result.barcodeString = barcode;
    }
    formsOfGs1Text(reading, Form::BARCODE_STRING, barcode, wanted & (AI_FORMS | Form::DIGITAL_LINK),
                   result);
    return EPC_OK;
}

EpcStatus formsOfPlusTagUri(const std::string& uri, FormSet wanted, Translation& result) {
    if (wanted.has(Form::TAG_URI)) {
        result.tagUri = uri;
    }
    EPC_TRY(
        textFrom<EPC_ELEMENT_STRING_SIZE>(result.elementString, [&](std::int32_t size, char* dst) {
            return epc_epcTagUriToGs1ElementString(uri.c_str(), size, dst);
        }));
    if (wanted.has(Form::BARCODE_STRING)) {
        textFrom<EPC_BARCODE_STRING_SIZE>(result.barcodeString, [&](std::int32_t size, char* dst) {
            return epc_epcTagUriToBarcodeString(uri.c_str(), size, dst);
        });
    }
    if (wanted.has(Form::DIGITAL_LINK)) {
        textFrom<EPC_DIGITAL_LINK_SIZE>(result.digitalLink, [&](std::int32_t size, char* dst) {
            return epc_epcTagUriToDigitalLink(uri.c_str(), size, dst);
        });
    }
    if (wanted.hasAny(AI_FORMS)) {
        ParsedAis ais;
        EPC_TRY(aisParse(Form::ELEMENT_STRING, result.elementString, ais));
        addAis(ais, wanted, result);
    }
    return EPC_OK;
}

void appendEscaped(std::string& text, std::string_view value) {
    constexpr std::uint32_t escapes = CHAR_CLASS_URI_ESCAPE | CHAR_CLASS_LINK_ESCAPE;
    for (const char character : value) {
        if (charIsOfClass(character, CHAR_CLASS_AI82) && !charIsOfClass(character, escapes)) {
            text += character;
        } else {
            text += '%';
            text += hexPairOf(static_cast<unsigned char>(character));
        }
    }
}

} // namespace rosetag
