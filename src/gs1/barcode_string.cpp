#include "gs1/barcode_string.h"

#include <algorithm>
#include <iterator>

namespace rosetag {

namespace {

EpcStatus expandGtin(const SymbologyIdentifier& row, std::string_view data,
                     char (&buffer)[BARCODE_BUFFER_SIZE], std::string_view& normalised) {
    if (data.size() != row.gtinDigits) {
        return EPC_ERR_BAD_FORMAT;
    }
    char* const value = std::copy(GTIN_AI.begin(), GTIN_AI.end(), buffer);
    char* const digits = std::fill_n(value, GTIN_LENGTH - data.size(), '0');
    char* const end = std::copy(data.begin(), data.end(), digits);
    *end = '\0';
    normalised = {buffer, end};
    return EPC_OK;
}

} // namespace

EpcStatus barcodeStringNormalise(std::string_view text, char (&buffer)[BARCODE_BUFFER_SIZE],
                                 std::string_view& normalised) {
    normalised = text;
    if (text.size() <= SYMBOLOGY_IDENTIFIER_LENGTH || text.front() != ']') {
        return EPC_OK;
    }
    const std::string_view identifier(text.data(), SYMBOLOGY_IDENTIFIER_LENGTH);
    const auto row = std::find_if(
        std::begin(symbologyIdentifiers), std::end(symbologyIdentifiers),
        [&](const SymbologyIdentifier& entry) { return entry.identifier == identifier; });
    if (row == std::end(symbologyIdentifiers)) {
        return EPC_ERR_BAD_CHARACTER;
    }
    normalised.remove_prefix(SYMBOLOGY_IDENTIFIER_LENGTH);
    return row->gtinDigits == 0 ? EPC_OK : expandGtin(*row, normalised, buffer, normalised);
}

} // namespace rosetag
