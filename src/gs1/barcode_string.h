/*
 * What a scanner delivers: an optional symbology identifier, then the data of the symbol.
 *
 * Source: GS1 General Specifications, section 5.1.2 (symbology identifiers).
 */
#ifndef ROSETAG_GS1_BARCODE_STRING_H
#define ROSETAG_GS1_BARCODE_STRING_H

#include "core/status.h"
#include "gs1/ai_prefix.h"

#include <cstdint>
#include <string_view>

namespace rosetag {

constexpr std::size_t SYMBOLOGY_IDENTIFIER_LENGTH = 3;

struct SymbologyIdentifier {
    char identifier[SYMBOLOGY_IDENTIFIER_LENGTH + 1];
    std::uint8_t gtinDigits; // of a GTIN alone; 0: the data is a run of AIs
};

inline constexpr SymbologyIdentifier symbologyIdentifiers[] = {
    // clang-format off
    {"]E0", 13}, // EAN-13 and UPC-A
    {"]E4",  8}, // EAN-8
    {"]I1", 14}, // ITF-14
    {"]C1",  0}, // GS1-128
    {"]e0",  0}, // GS1 DataBar
    {"]d2",  0}, // GS1 DataMatrix
    // clang-format on
};

// AI 01 and its value: the GTIN with leading zeros.
constexpr std::string_view GTIN_AI = "01";
constexpr std::size_t GTIN_LENGTH = aiPrefixOf(GTIN_AI[0], GTIN_AI[1]).valueLength;

// A GTIN after its AI, and a NUL.
constexpr std::size_t BARCODE_BUFFER_SIZE = GTIN_AI.size() + GTIN_LENGTH + 1;

// Gives the run of AI codes and values that the text stands for, NUL-terminated: a part of the
// text, or a GTIN of full length with its AI in buffer. A text without an identifier is unchanged.
EpcStatus barcodeStringNormalise(std::string_view text, char (&buffer)[BARCODE_BUFFER_SIZE],
                                 std::string_view& normalised);

} // namespace rosetag

#endif
