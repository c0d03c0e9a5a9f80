#include "translate/plain_rows.h"

#include "core/hex_words.h"
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

template <Form number>
EpcStatus numberOfRow(std::int32_t bits, const std::uint8_t* binary, std::int32_t /*dstSize*/,
                      char* dst) {
    static_assert(PLAIN_ROW_ROOM >= EPC_AI_VALUE_SIZE);
    return numberOfBits(bitBufferForReading(binary, bits), number, dst);
}

struct FormExport {
    Form form;
    PlainRowExport convert;
};

constexpr FormExport formExports[] = {
    {Form::TAG_URI, epc_binaryToEpcTagUri},
    {Form::PURE_IDENTITY, epc_binaryToEpcUri},
    {Form::ELEMENT_STRING, epc_binaryToGs1ElementString},
    {Form::BARCODE_STRING, epc_binaryToBarcodeString},
    {Form::DIGITAL_LINK, epc_binaryToDigitalLink},
    {Form::GTIN, numberOfRow<Form::GTIN>},
    {Form::SERIAL, numberOfRow<Form::SERIAL>},
};

} // namespace

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

PlainRowExport plainRowExportOf(Form form) {
    const auto* const found =
        std::find_if(std::begin(formExports), std::end(formExports),
                     [form](const FormExport& row) { return row.form == form; });
    return found == std::end(formExports) ? nullptr : found->convert;
}

bool plainRowForm(const PlainRow& row, PlainRowExport convert, char* room) {
    return convert(PLAIN_ROW_BITS, row.bytes, PLAIN_ROW_ROOM, room) == EPC_OK;
}

} // namespace rosetag
