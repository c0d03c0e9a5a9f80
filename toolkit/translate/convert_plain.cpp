#include "translate/convert_plain.h"

#include "gs1/text_writers.h"
#include "schemes/epc_uri.h"
#include "translate/numbers.h"
#include "translate/parsed_ais.h"
#include "translate/tag_form_writers.h"
#include "translate/translate.h"
#include "words/scheme_words.h"

#include <array>
#include <functional>

namespace rosetag {

namespace {

bool convertTagUri(std::string_view uri, Form form, TextBuffer& text) {
    TagBits tag;
    if (tagBitsWrite(tag, [&](BitBuffer& bits) { return tagUriToBits(bits, uri); }) != EPC_OK) {
        return false;
    }
    if (form != Form::HEX) {
        return tagFormWrite(tag, tagFormWriterOf(form), text);
    }
    return isNumericScheme(*schemeByHeader(tag.bytes[0])) &&
           textBufferPutHex(text, tag.bytes.data(), tag.count / 8) == EPC_OK;
}

// True if bits are of exactly this identity: readers of numbers take some that writers write
// otherwise.
bool isIdentityOf(const TagBits& tag, std::string_view uri) {
    std::array<char, TAG_FORM_ROOM> room;
    TextBuffer back = textBufferOver(room.data(), TAG_FORM_ROOM);
    return tagFormWrite(tag, tagFormWriterOf(Form::PURE_IDENTITY), back) &&
           textBufferView(back) == uri;
}

// The bits of any scheme that holds an identity of numbers have its forms.
bool convertPureIdentity(std::string_view uri, Form form, TextBuffer& text) {
    constexpr FormSet ofTags = Form::HEX | Form::TAG_URI;
    std::string_view family = uri.substr(PURE_IDENTITY_URI_PREFIX.size());
    family = family.substr(0, family.find(':'));
    TagBits tag;
    for (const SchemeInfo& scheme : schemes()) {
        if (!ofTags.has(form) && isNumericScheme(scheme) && scheme.family == family) {
            return tagBitsWrite(tag,
                                [&](BitBuffer& bits) {
                                    return pureIdentityUriToBits(bits, uri, scheme.scheme, 0);
                                }) == EPC_OK &&
                   isIdentityOf(tag, uri) && tagFormWrite(tag, tagFormWriterOf(form), text);
        }
    }
    return false;
}

bool convertAis(const Reading& reading, Form form, TextBuffer& text) {
    ParsedAis ais;
    if (!plainAisParse(reading, ais)) {
        return false;
    }
    switch (form) {
    case Form::ELEMENT_STRING:
        return elementStringWrite(text, ais.list, ais.base) == EPC_OK;
    case Form::BARCODE_STRING:
        return barcodeStringWrite(text, ais.list, ais.base) == EPC_OK;
    case Form::DIGITAL_LINK:
        return digitalLinkWrite(text, ais.list, ais.base) == EPC_OK;
    case Form::AIS:
        return aisPut(text, ais.list.count, std::cref(ais)) == EPC_OK;
    default:
        return false;
    }
}

} // namespace

bool convertPlain(const Reading& reading, Form form, TextBuffer& text) {
    switch (reading.form) {
    case Form::TAG_URI:
        return convertTagUri(reading.workspace.text, form, text);
    case Form::PURE_IDENTITY:
        return convertPureIdentity(reading.workspace.text, form, text);
    default:
        return convertAis(reading, form, text);
    }
}

} // namespace rosetag
