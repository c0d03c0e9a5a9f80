/*
 * GTINs as people have them: without the zeros that fill them up to fourteen digits.
 */
#ifndef ROSETAG_TOOLKIT_RECOGNISE_GTIN_TEXT_H
#define ROSETAG_TOOLKIT_RECOGNISE_GTIN_TEXT_H

#include "gs1/barcode_string.h"
#include "recognise/reading.h"

namespace rosetag {

// The lengths of GTINs that are shorter than the value of an AI.
//
// Source: GS1 General Specifications, section 3.3.2 (GTIN-8, GTIN-12, GTIN-13).
inline constexpr std::size_t shortGtinLengths[] = {8, 12, 13};

bool isShortGtinLength(std::size_t length);

// "8, 12 or 13"
std::string shortGtinLengthsText();

// True for the digits of a GTIN of any length with the right check digit.
bool isGtin(std::string_view text);

// True for a GTIN that lacks zeros in front as the value of an AI.
bool isShortGtinOf(std::string_view ai, std::string_view value);

// Keeps the digits of a GTIN filled up to the value of an AI, with a note if it was short.
void keepGtin(Reading& reading, std::string_view digits);

} // namespace rosetag

#endif
