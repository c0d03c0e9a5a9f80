/*
 * What a scanner delivers: an optional symbology identifier, then the data of the symbol.
 *
 * Source: GS1 General Specifications, section 5.1.2 (symbology identifiers).
 */
#ifndef ROSETAG_GS1_BARCODE_STRING_H
#define ROSETAG_GS1_BARCODE_STRING_H

#include "core/status.h"

#include <string_view>

namespace rosetag {

// A GTIN with its AI, and a NUL, with some room left.
constexpr std::size_t BARCODE_BUFFER_SIZE = 20;

// Yields the run of AI codes and values that the text stands for, NUL-terminated: a part of the
// text, or a GTIN of full length with its AI in buffer. A text without identifier stays as it is.
EpcStatus barcodeStringNormalise(std::string_view text, char (&buffer)[BARCODE_BUFFER_SIZE],
                                 std::string_view& normalised);

} // namespace rosetag

#endif
