#include "translate/encode_plain.h"

#include "bridge/gs1_conversions.h"
#include "bridge/gs1_key_table.h"
#include "gs1/check_digit.h"
#include "schemes/epc_uri.h"
#include "translate/translate.h"
#include "words/scheme_words.h"

namespace rosetag {

namespace {

struct Syntax {
    TextToBinary TagSchemeOps::*encode;
    BinaryToText TagSchemeOps::*decode;
    std::size_t marks; // characters around the code of an AI
};

constexpr Syntax ELEMENT_STRING = {&TagSchemeOps::elementStringToBinary,
                                   &TagSchemeOps::binaryToElementString, 2};
constexpr Syntax BARCODE_STRING = {&TagSchemeOps::barcodeStringToBinary,
                                   &TagSchemeOps::binaryToBarcodeString, 0};
constexpr Syntax DIGITAL_LINK = {&TagSchemeOps::digitalLinkToBinary,
                                 &TagSchemeOps::binaryToDigitalLink, 2};

EpcStatus gs1TextEncode(const Reading& reading, const EncodeOptions& options, const Syntax& syntax,
                        bool isKeyAlone, TagBits& tag) {
    const EncodeArguments arguments = {options.filter.value_or(0),
                                       options.read.gcpLength.value_or(0), options.encoding,
                                       isKeyAlone};
    return tagBitsWrite(tag, [&](BitBuffer& bits) {
        return gs1TextToBits(bits, syntax.encode, reading.workspace.text, options.scheme->scheme,
                             arguments);
    });
}

// Of a text that begins with the AI of the key.
bool isCheckDigitRight(std::string_view text, const Gs1KeyDefinition& key, const Syntax& syntax) {
    const auto length = static_cast<std::size_t>(key.keyValueLength);
    const std::string_view value = text.substr(key.primaryAi.size() + syntax.marks);
    return key.hasCheckDigit == 0 ||
           gs1CheckDigit(value.substr(0, length - 1)) == value[length - 1];
}

// A text of the key alone leaves nothing out: all that may be wrong with it is the check digit. Any
// other text shows both when its bits give it back.
bool encodeGs1Text(const Reading& reading, const EncodeOptions& options, const Syntax& syntax,
                   TagBits& tag) {
    const std::string_view text = reading.workspace.text;
    if (isNumericScheme(*options.scheme) &&
        gs1TextEncode(reading, options, syntax, true, tag) == EPC_OK) {
        return isCheckDigitRight(text, *tagSchemeTable[options.scheme->scheme].key, syntax);
    }
    std::array<char, EPC_DIGITAL_LINK_SIZE> back;
    if (gs1TextEncode(reading, options, syntax, false, tag) != EPC_OK) {
        return false;
    }
    BitBuffer bits = bitBufferForReading(tag.bytes.data(), tag.count);
    return bitsToGs1Text(bits, EPC_DIGITAL_LINK_SIZE, back.data(), syntax.decode) == EPC_OK &&
           text == back.data();
}

// A tag URI has its own scheme and filter.
bool encodeTagUri(const Reading& reading, const EncodeOptions& options, TagBits& tag) {
    return tagBitsWrite(
               tag, [&](BitBuffer& bits) { return tagUriToBits(bits, reading.workspace.text); }) ==
               EPC_OK &&
           !options.filter.has_value() &&
           (options.scheme == nullptr || options.scheme == schemeByHeader(tag.bytes[0]));
}

} // namespace

bool encodePlain(const Reading& reading, const EncodeOptions& options, TagBits& tag) {
    if (reading.form == Form::TAG_URI) {
        return encodeTagUri(reading, options, tag);
    }
    if (options.scheme == nullptr || options.scheme->isPlus) {
        return false;
    }
    switch (reading.form) {
    case Form::PURE_IDENTITY:
        return tagBitsWrite(tag, [&](BitBuffer& bits) {
                   return pureIdentityUriToBits(bits, reading.workspace.text,
                                                options.scheme->scheme, options.filter.value_or(0));
               }) == EPC_OK;
    case Form::ELEMENT_STRING:
        return encodeGs1Text(reading, options, ELEMENT_STRING, tag);
    case Form::BARCODE_STRING:
        return encodeGs1Text(reading, options, BARCODE_STRING, tag);
    case Form::DIGITAL_LINK:
        return encodeGs1Text(reading, options, DIGITAL_LINK, tag);
    default:
        return false;
    }
}

} // namespace rosetag
