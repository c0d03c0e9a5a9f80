#include "gs1/barcode_string.h"

#include <algorithm>

namespace rosetag {

namespace {

constexpr std::size_t IDENTIFIER_LENGTH = 3;

// A whole GTIN-14 behind the two digits of AI 01.
constexpr std::size_t GTIN_TEXT_LENGTH = 16;
static_assert(GTIN_TEXT_LENGTH < BARCODE_BUFFER_SIZE);

struct SymbologyIdentifier {
    char identifier[IDENTIFIER_LENGTH + 1];
    std::uint8_t dataLength; // of a bare GTIN; 0: the data is a run of AIs
    char gtinPrefix[9];      // AI 01 and the zeros that make up a GTIN-14
};

constexpr SymbologyIdentifier symbologyIdentifiers[] = {
    // clang-format off
    // identifier, characters behind it, prefix
    {"]E0", 13, "010"},      // EAN-13 and UPC-A
    {"]E4",  8, "01000000"}, // EAN-8
    {"]I1", 14, "01"},       // ITF-14
    {"]C1",  0, ""},         // GS1-128
    {"]e0",  0, ""},         // GS1 DataBar
    {"]d2",  0, ""},         // GS1 DataMatrix
    // clang-format on
};
static_assert(std::all_of(std::begin(symbologyIdentifiers), std::end(symbologyIdentifiers),
                          [](const SymbologyIdentifier& row) {
                              const std::size_t length =
                                  std::string_view(row.gtinPrefix).size() + row.dataLength;
                              return length == (row.dataLength != 0 ? GTIN_TEXT_LENGTH : 0);
                          }));

EpcStatus expandGtin(const SymbologyIdentifier& row, std::string_view data,
                     char (&buffer)[BARCODE_BUFFER_SIZE], std::string_view& normalised) {
    if (data.size() != row.dataLength) {
        return EPC_ERR_BAD_FORMAT;
    }
    const std::string_view prefix = row.gtinPrefix;
    char* const behindPrefix = std::copy(prefix.begin(), prefix.end(), buffer);
    char* const end = std::copy(data.begin(), data.end(), behindPrefix);
    *end = '\0';
    normalised = {buffer, end};
    return EPC_OK;
}

} // namespace

EpcStatus barcodeStringNormalise(std::string_view text, char (&buffer)[BARCODE_BUFFER_SIZE],
                                 std::string_view& normalised) {
    normalised = text;
    if (text.size() <= IDENTIFIER_LENGTH || text.front() != ']') {
        return EPC_OK;
    }
    const std::string_view identifier(text.data(), IDENTIFIER_LENGTH);
    const auto row = std::find_if(
        std::begin(symbologyIdentifiers), std::end(symbologyIdentifiers),
        [&](const SymbologyIdentifier& entry) { return entry.identifier == identifier; });
    if (row == std::end(symbologyIdentifiers)) {
        return EPC_ERR_BAD_CHARACTER;
    }
    normalised.remove_prefix(IDENTIFIER_LENGTH);
    return row->dataLength == 0 ? EPC_OK : expandGtin(*row, normalised, buffer, normalised);
}

} // namespace rosetag
