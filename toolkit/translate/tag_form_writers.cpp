#include "translate/tag_form_writers.h"

#include "bridge/gs1_conversions.h"
#include "schemes/epc_uri.h"
#include "schemes/tag_scheme.h"
#include "translate/translate.h"

#include <algorithm>
#include <array>

namespace rosetag {
namespace {

template <UriForm form>
EpcStatus putUri(BitBuffer& bits, TextBuffer& text) {
    return bitsPutEpcUri(bits, text, form);
}

template <BinaryToText TagSchemeOps::*slot>
EpcStatus putGs1Text(BitBuffer& bits, TextBuffer& text) {
    return bitsPutGs1Text(bits, text, slot);
}

template <Form number>
EpcStatus putNumber(BitBuffer& bits, TextBuffer& text) {
    return numberOfBits(bits, number, text);
}

EpcStatus putHex(BitBuffer& bits, TextBuffer& text) {
    EPC_TRY(readTagBits(bits));
    return textBufferPutHex(text, bits.bytes, bits.capacity / 8);
}

struct FormWriter {
    Form form;
    TagFormWriter write;
};

constexpr FormWriter formWriters[] = {
    {Form::HEX, putHex},
    {Form::TAG_URI, putUri<UriForm::TAG>},
    {Form::PURE_IDENTITY, putUri<UriForm::PURE_IDENTITY>},
    {Form::ELEMENT_STRING, putGs1Text<&TagSchemeOps::binaryToElementString>},
    {Form::BARCODE_STRING, putGs1Text<&TagSchemeOps::binaryToBarcodeString>},
    {Form::DIGITAL_LINK, putGs1Text<&TagSchemeOps::binaryToDigitalLink>},
    {Form::GTIN, putNumber<Form::GTIN>},
    {Form::SERIAL, putNumber<Form::SERIAL>},
    {Form::AIS, aisOfBits},
};

constexpr std::size_t indexOf(Form form) {
    return static_cast<std::size_t>(form);
}

using WriterTable = std::array<TagFormWriter, indexOf(Form::UNKNOWN) + 1>;

constexpr WriterTable writersMake() {
    WriterTable writers{};
    for (const FormWriter& row : formWriters) {
        writers[indexOf(row.form)] = row.write;
    }
    return writers;
}

constexpr WriterTable writers = writersMake();

} // namespace

TagFormWriter tagFormWriterOf(Form form) {
    return writers[indexOf(form)];
}

} // namespace rosetag
