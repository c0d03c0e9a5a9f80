#include "translate/translate.h"

#include "bridge/gs1_conversions.h"
#include "bridge/gs1_key_table.h"
#include "gs1/text_writers.h"
#include "recognise/hex_text.h"
#include "recognise/look.h"
#include "schemes/epc_uri.h"
#include "schemes/tag_scheme.h"
#include "translate/company_prefix.h"
#include "translate/text_room.h"
#include "words/failure.h"
#include "words/scheme_words.h"

#include <array>

namespace rosetag {

namespace {

constexpr FormSet GS1_TEXTS = Form::ELEMENT_STRING | Form::BARCODE_STRING | Form::DIGITAL_LINK;
constexpr FormSet AI_FORMS = Form::AIS | Form::GTIN | Form::SERIAL;

// A tag value in bytes.
struct TagBits {
    std::array<std::uint8_t, EPC_MAX_BINARY_BYTES> bytes;
    std::int32_t count; // of bits
};

TagBits tagBitsOf(std::string_view hex) {
    TagBits bits;
    bits.count = static_cast<std::int32_t>(8 * bytesOfHex(hex, bits.bytes.data()));
    return bits;
}

// The value of an AI that is a serial number: one of its own, or what follows the digits of a key.
bool takeSerial(const AiValue& element, const Gs1KeyDefinition& key, std::string& serial) {
    if (key.tailIsSecondaryAi != 0 && element.ai == key.secondaryAi) {
        serial = element.value;
        return true;
    }
    const auto keyLength = static_cast<std::size_t>(key.keyValueLength);
    if (key.hasTail != 0 && key.tailIsSecondaryAi == 0 && element.ai == key.primaryAi &&
        element.value.size() > keyLength) {
        serial.assign(element.value, keyLength);
        return true;
    }
    return false;
}

const Gs1KeyDefinition* keyAmong(const Rows<AiValue>& ais) {
    for (const AiValue& element : ais) {
        if (const Gs1KeyDefinition* const key = gs1KeyFindByAi(element.ai); key != nullptr) {
            return key;
        }
    }
    return nullptr;
}

void addNumbers(Translation& result) {
    const Gs1KeyDefinition* const key = keyAmong(result.ais);
    result.gtin = aiValueOf(result, "01");
    for (const AiValue& element : result.ais) {
        if (key != nullptr && takeSerial(element, *key, result.serial)) {
            return;
        }
    }
}

AiValue& addAi(Translation& result, std::string_view code, std::string_view value) {
    AiValue& ai = result.ais.add();
    ai.ai = code;
    ai.value = value;
    ai.title = aiTitle(code);
    return ai;
}

// Numbers are made of the AIs, which go again if they were not asked for themselves.
void finishAis(FormSet wanted, Translation& result) {
    if (wanted.hasAny(Form::GTIN | Form::SERIAL)) {
        addNumbers(result);
    }
    if (!wanted.has(Form::AIS)) {
        result.ais.clear();
    }
}

EpcStatus aisOfBits(BitBuffer bits, Translation& result) {
    std::array<char, std::size_t{EPC_MAX_AIS} * EPC_AI_CODE_SIZE> codes;
    std::array<char, std::size_t{EPC_MAX_AIS} * EPC_AI_VALUE_SIZE> values;
    std::uint32_t count = 0;
    EPC_TRY(bitsToAIs(bits, {EPC_MAX_AIS, EPC_AI_VALUE_SIZE, codes.data(), values.data(), &count}));
    for (std::size_t i = 0; i < count; ++i) {
        addAi(result, &codes[i * EPC_AI_CODE_SIZE], &values[i * EPC_AI_VALUE_SIZE]);
    }
    return EPC_OK;
}

template <std::size_t size>
EpcStatus gs1TextOfBits(BitBuffer bits, BinaryToText TagSchemeOps::*slot, std::string& text) {
    return textFrom<size>(text, [&](std::int32_t dstSize, char* dst) {
        return bitsToGs1Text(bits, dstSize, dst, slot);
    });
}

EpcStatus uriOfBits(BitBuffer bits, UriForm form, std::string& text) {
    return textFrom<EPC_URI_SIZE>(text, [&](std::int32_t dstSize, char* dst) {
        return bitsToEpcUri(bits, dstSize, dst, form);
    });
}

// The texts of a value that has a GS1 key. A value need not have a link: further AIs can be a key
// too, and a serial number can hold what the link writer takes for an escape.
EpcStatus gs1TextsOfBits(const BitBuffer& bits, FormSet wanted, Translation& result) {
    if (wanted.has(Form::ELEMENT_STRING)) {
        EPC_TRY(gs1TextOfBits<EPC_ELEMENT_STRING_SIZE>(bits, &TagSchemeOps::binaryToElementString,
                                                       result.elementString));
    }
    if (wanted.has(Form::BARCODE_STRING)) {
        EPC_TRY(gs1TextOfBits<EPC_BARCODE_STRING_SIZE>(bits, &TagSchemeOps::binaryToBarcodeString,
                                                       result.barcodeString));
    }
    if (wanted.has(Form::DIGITAL_LINK) &&
        gs1TextOfBits<EPC_DIGITAL_LINK_SIZE>(bits, &TagSchemeOps::binaryToDigitalLink,
                                             result.digitalLink) != EPC_OK) {
        // Whether the bits can be read at all.
        EPC_TRY(gs1TextOfBits<EPC_ELEMENT_STRING_SIZE>(bits, &TagSchemeOps::binaryToElementString,
                                                       result.elementString));
    }
    if (wanted.hasAny(AI_FORMS)) {
        EPC_TRY(aisOfBits(bits, result));
        finishAis(wanted, result);
    }
    return EPC_OK;
}

EpcStatus urisOfBits(const BitBuffer& bits, FormSet wanted, Translation& result) {
    if (wanted.has(Form::TAG_URI)) {
        EPC_TRY(uriOfBits(bits, UriForm::TAG, result.tagUri));
    }
    if (wanted.has(Form::PURE_IDENTITY)) {
        EPC_TRY(uriOfBits(bits, UriForm::PURE_IDENTITY, result.pureIdentity));
    }
    return EPC_OK;
}

// Some form that tells whether the bits can be read, if none was asked for.
FormSet readable(FormSet wanted, const SchemeInfo& scheme) {
    if (wanted.hasAny(scheme.hasUris ? Form::TAG_URI | Form::PURE_IDENTITY : FormSet()) ||
        wanted.hasAny(scheme.hasGs1Texts ? GS1_TEXTS | AI_FORMS : FormSet())) {
        return wanted;
    }
    return wanted | (scheme.hasUris ? Form::PURE_IDENTITY : Form::ELEMENT_STRING);
}

void dropUnasked(FormSet asked, Translation& result) {
    if (!asked.has(Form::PURE_IDENTITY)) {
        result.pureIdentity.clear();
    }
    if (!asked.has(Form::ELEMENT_STRING)) {
        result.elementString.clear();
    }
}

// ---- From a tag URI ----

// The name of a plus scheme can be in a tag URI, which has the GS1 texts and no binary value.
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
    return EPC_OK;
}

// ---- From GS1 texts ----

void addAis(const ParsedAis& ais, Translation& result) {
    for (std::size_t i = 0; i < ais.list.count; ++i) {
        addAi(result, aiCodeAt(ais, i), aiValueAt(ais, i));
    }
}

// Makes a text of AIs by one of the library's writers.
template <std::size_t size, typename List>
EpcStatus writeAis(std::string& text, EpcStatus (*write)(TextBuffer&, List, const char*), List list,
                   const char* base) {
    std::array<char, size> room;
    TextBuffer buffer = textBufferOver(room.data(), static_cast<std::int32_t>(size));
    EPC_TRY(write(buffer, list, base));
    text = textBufferView(buffer);
    return EPC_OK;
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
        readingNote(reading, NoteKind::NEEDS_GCP_LENGTH, reading.value,
                    "the pure identity URI needs the length of the GS1 company prefix" +
                        (prefix.problem.empty() ? "" : ", and " + prefix.problem))
            .option = "gcp_length";
        return;
    }
    if (schemesThatFit(uri, result.fitsSchemes) == EPC_OK && wanted.has(Form::PURE_IDENTITY)) {
        result.pureIdentity = uri;
    }
}

EpcStatus textsOfAis(Reading& reading, ParsedAis& ais, FormSet wanted, Translation& result) {
    const bool hasBrackets = canStandInBrackets(ais);
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
        addAis(ais, result);
        finishAis(wanted, result);
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
    return ais.list.count == 0 ? EPC_ERR_NO_KEY_AI : textsOfAis(reading, ais, wanted, result);
}

// ---- From a pure identity URI ----

EpcStatus formsOfPureIdentity(Reading& reading, FormSet wanted, Translation& result) {
    const std::string& uri = reading.workspace.text;
    EPC_TRY(schemesThatFit(uri, result.fitsSchemes));
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

EpcStatus formsOfTagUri(Reading& reading, FormSet wanted, Translation& result) {
    const std::string& uri = reading.workspace.text;
    const EpcStatus status =
        textFrom<EPC_HEX_SIZE>(result.workspace.more, [&](std::int32_t size, char* dst) {
            return epc_epcTagUriToHex(uri.c_str(), size, dst);
        });
    if (status != EPC_ERR_NOT_SUPPORTED) {
        return status == EPC_OK ? formsOfHex(result.workspace.more, wanted, result) : status;
    }
    EPC_TRY(formsOfPlusTagUri(uri, wanted, result));
    if (wanted.hasAny(AI_FORMS)) {
        ParsedAis ais;
        EPC_TRY(aisParse(Form::ELEMENT_STRING, result.elementString, ais));
        addAis(ais, result);
        finishAis(wanted, result);
    }
    return EPC_OK;
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

} // namespace

void translationClear(Translation& result, FormSet asked) {
    result.failure.status = EPC_OK;
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
    result.asked = asked;
}

EpcStatus formsOfHex(std::string_view hex, FormSet wanted, Translation& result) {
    if (wanted.has(Form::HEX)) {
        result.hex = hex;
    }
    TagBits tag = tagBitsOf(hex);
    result.bits = tag.count;
    if (tag.count < TAG_HEADER_BITS) {
        return EPC_ERR_TRUNCATED;
    }
    result.scheme = schemeByHeader(tag.bytes[0]);
    if (result.scheme == nullptr) {
        return EPC_ERR_UNKNOWN_HEADER;
    }
    if (result.scheme->filterLimit > 0 && tag.count >= 2 * TAG_HEADER_BITS) {
        result.filter = schemeFilterOf(*result.scheme, tag.bytes.data());
    }
    const BitBuffer bits = bitBufferForReading(tag.bytes.data(), tag.count);
    const FormSet forms = readable(wanted, *result.scheme);
    if (result.scheme->hasUris) {
        EPC_TRY(urisOfBits(bits, forms, result));
    }
    if (result.scheme->hasGs1Texts) {
        EPC_TRY(gs1TextsOfBits(bits, forms, result));
    }
    dropUnasked(wanted, result);
    return EPC_OK;
}

std::size_t tagValueBits(std::string_view hex) {
    TagBits tag = tagBitsOf(hex);
    BitBuffer bits = bitBufferForReading(tag.bytes.data(), tag.count);
    const TagSchemeOps* row = nullptr;
    if (tagSchemeReadHeader(bits, row) != EPC_OK) {
        return 0;
    }
    if (const std::int32_t fixed = schemeBits(schemeRows[row->info.scheme]); fixed != 0) {
        return static_cast<std::size_t>(fixed);
    }
    std::array<char, EPC_BARCODE_STRING_SIZE> room;
    TextBuffer text = textBufferOver(room.data(), static_cast<std::int32_t>(room.size()));
    const EpcStatus status = row->binaryToUriBody != nullptr
                                 ? row->binaryToUriBody(bits, text, UriForm::PURE_IDENTITY)
                                 : row->binaryToElementString(*row, bits, text);
    return status == EPC_OK ? static_cast<std::size_t>(bits.position) : 0;
}

EpcStatus schemesThatFit(const std::string& pureIdentity, Rows<const SchemeInfo*>& fits) {
    std::string_view family = pureIdentity;
    family.remove_prefix(PURE_IDENTITY_URI_PREFIX.size());
    family = family.substr(0, family.find(':'));
    EpcStatus status = EPC_OK;
    std::array<char, EPC_HEX_SIZE> hex;
    for (const SchemeInfo& scheme : schemes()) {
        if (!scheme.hasUris || scheme.family != family) {
            continue;
        }
        status = epc_epcUriToHex(pureIdentity.c_str(), scheme.scheme, 0, EPC_HEX_SIZE, hex.data());
        if (status == EPC_OK) {
            fits.add() = &scheme;
        }
    }
    return fits.empty() ? status : EPC_OK;
}

void translate(std::string_view value, const ReadOptions& options, FormSet wanted,
               Translation& result) {
    translationClear(result, wanted);
    Reading reading{value, options, result.workspace, result.notes, result.failure};
    const bool isPrepared = readingPrepare(reading);
    result.form = reading.form;
    if (!isPrepared) {
        return;
    }
    if (const EpcStatus status = formsOf(reading, wanted, result); status != EPC_OK) {
        failReading(reading, status);
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
