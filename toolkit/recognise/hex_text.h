/*
 * Hex as people have it: with 0x, with blanks, dashes, colons or commas between bytes or words, and
 * with the words that a reader prints before the EPC.
 */
#ifndef ROSETAG_TOOLKIT_RECOGNISE_HEX_TEXT_H
#define ROSETAG_TOOLKIT_RECOGNISE_HEX_TEXT_H

#include "core/hex_digits.h"
#include "recognise/reading.h"

namespace rosetag {

inline bool isHexDigit(char character) {
    return hexDigitValue(character) >= 0;
}

// A character that has no place in hex.
constexpr bool isHexGap(char character) {
    return character == ' ' || character == '-' || character == ':' || character == ',' ||
           character == '\t';
}

inline bool isHexOrGap(char character) {
    return isHexDigit(character) || isHexGap(character);
}

// True for hex of a tag's TID memory, which begins with its class.
bool hexIsTid(std::string_view value);

inline constexpr std::size_t MOST_HEX_DIGITS = std::size_t{2} * EPC_MAX_BINARY_BYTES;

// Keeps the digits of a value, however many.
bool keepHex(Reading& reading, std::string_view value);

// False if more digits were kept than a tag value has.
bool hexFits(Reading& reading);

inline bool prepareHex(Reading& reading, std::string_view value) {
    return keepHex(reading, value) && hexFits(reading);
}

// Writes the bytes of digits and gives their count; an odd last digit fills the high half of its
// byte.
std::size_t bytesOfHex(std::string_view digits, std::uint8_t* room);

// The first bit that is 1 at or after the given one; the count of bits if there is none.
std::size_t hexFindBit(std::string_view digits, std::size_t bit);

} // namespace rosetag

#endif
