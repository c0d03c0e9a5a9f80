#include "translate/encode_plain.h"

#include "bridge/gs1_conversions.h"
#include "schemes/epc_uri.h"
#include "translate/translate.h"
#include "words/scheme_words.h"

namespace rosetag {

namespace {

// A GS1 text that its bits give back has a right check digit and no AI that the scheme leaves out.
bool encodeGs1Text(const Reading& reading, const EncodeOptions& options,
                   TextToBinary TagSchemeOps::*encode, BinaryToText TagSchemeOps::*decode,
                   TagBits& tag) {
    const std::string_view text = reading.workspace.text;
    const EncodeArguments arguments = {options.filter.value_or(0),
                                       options.read.gcpLength.value_or(0), options.encoding};
    const EpcStatus status = tagBitsWrite(tag, [&](BitBuffer& bits) {
        return gs1TextToBits(bits, encode, text, options.scheme->scheme, arguments);
    });
    std::array<char, EPC_DIGITAL_LINK_SIZE> back;
    BitBuffer bits = bitBufferForReading(tag.bytes.data(), tag.count);
    return status == EPC_OK &&
           bitsToGs1Text(bits, EPC_DIGITAL_LINK_SIZE, back.data(), decode) == EPC_OK &&
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
        return encodeGs1Text(reading, options, &TagSchemeOps::elementStringToBinary,
                             &TagSchemeOps::binaryToElementString, tag);
    case Form::BARCODE_STRING:
        return encodeGs1Text(reading, options, &TagSchemeOps::barcodeStringToBinary,
                             &TagSchemeOps::binaryToBarcodeString, tag);
    case Form::DIGITAL_LINK:
        return encodeGs1Text(reading, options, &TagSchemeOps::digitalLinkToBinary,
                             &TagSchemeOps::binaryToDigitalLink, tag);
    default:
        return false;
    }
}

} // namespace rosetag
