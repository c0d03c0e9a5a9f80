#include "translate/plain_rows.h"

#include "bridge/gs1_conversions.h"
#include "core/hex_words.h"
#include "schemes/epc_uri.h"
#include "schemes/tag_scheme.h"
#include "translate/translate.h"

#include <algorithm>
#include <array>

namespace rosetag {
namespace {

constexpr std::int32_t PLAIN_ROW_BITS = 8 * PLAIN_ROW_BYTES;

constexpr std::array<bool, 256> plainHeadersMake() {
    std::array<bool, 256> headers{};
    for (const SchemeRow& row : schemeRows) {
        headers[row.header] = schemeBits(row) == PLAIN_ROW_BITS;
    }
    return headers;
}

constexpr std::array<bool, 256> plainHeaders = plainHeadersMake();

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

struct FormMaker {
    Form form;
    PlainRowMaker make;
};

constexpr FormMaker formMakers[] = {
    {Form::TAG_URI, putUri<UriForm::TAG>},
    {Form::PURE_IDENTITY, putUri<UriForm::PURE_IDENTITY>},
    {Form::ELEMENT_STRING, putGs1Text<&TagSchemeOps::binaryToElementString>},
    {Form::BARCODE_STRING, putGs1Text<&TagSchemeOps::binaryToBarcodeString>},
    {Form::DIGITAL_LINK, putGs1Text<&TagSchemeOps::binaryToDigitalLink>},
    {Form::GTIN, putNumber<Form::GTIN>},
    {Form::SERIAL, putNumber<Form::SERIAL>},
};

} // namespace

bool mayBePlainRows(const ReadOptions& options) {
    return !options.asBarcode && options.separator == '\0' && options.bank <= Bank::EPC;
}

bool plainRowRead(std::string_view value, bool isBinary, PlainRow& row) {
    if (isBinary) {
        if (value.size() != PLAIN_ROW_BYTES) {
            return false;
        }
        std::copy(value.begin(), value.end(), reinterpret_cast<char*>(row.bytes));
    } else if (value.size() != std::size_t{2} * PLAIN_ROW_BYTES ||
               hexToBytes(value, row.bytes) != EPC_OK) {
        return false;
    }
    return plainHeaders[row.bytes[0]];
}

PlainRowMaker plainRowMakerOf(Form form) {
    const auto* const found =
        std::find_if(std::begin(formMakers), std::end(formMakers),
                     [form](const FormMaker& row) { return row.form == form; });
    return found == std::end(formMakers) ? nullptr : found->make;
}

bool plainRowForm(const PlainRow& row, PlainRowMaker make, char* room, std::size_t& length) {
    BitBuffer bits = bitBufferForReading(row.bytes, PLAIN_ROW_BITS);
    TextBuffer text = textBufferOver(room, PLAIN_ROW_ROOM);
    const EpcStatus status = make(bits, text);
    length = static_cast<std::size_t>(textBufferLength(text));
    return status == EPC_OK;
}

} // namespace rosetag
