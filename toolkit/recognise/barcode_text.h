/*
 * Barcode strings as scanners send and people type them: symbology identifiers, and the character
 * 29, GS, in its many spellings.
 */
#ifndef ROSETAG_TOOLKIT_RECOGNISE_BARCODE_TEXT_H
#define ROSETAG_TOOLKIT_RECOGNISE_BARCODE_TEXT_H

#include "gs1/barcode_string.h"
#include "recognise/reading.h"

namespace rosetag {

// Characters that some programs write in place of GS.
inline constexpr std::string_view LIKELY_SEPARATORS = "^~|";

// The length of the separator that a text begins with, 0 if it begins with none.
std::size_t separatorLength(std::string_view text, const ReadOptions& options);

// What the identifier at the beginning of a text says of its symbol, null if it is not one of GS1
// data.
const SymbologyIdentifier* symbologyOf(std::string_view text);

// "]E0 ]E4 ..."
std::string knownIdentifiers();

// True if a text holds GS or a spelling of it.
bool holdsSeparator(std::string_view text, const ReadOptions& options);

// False if no character of a text can be a separator or begin the spelling of one, or stand for
// one.
bool mayHoldSeparator(std::string_view text, const ReadOptions& options);

// Takes the symbology identifier off what a plain 2D code holds, which can be of any form. False if
// the failure is set: the symbol holds nothing that is known here.
bool takeOffIdentifier(Reading& reading, std::string_view& value);

// Keeps the run of AIs and values, with GS between them and without an identifier.
bool prepareBarcode(Reading& reading, std::string_view value);

} // namespace rosetag

#endif
