/*
 * A CAGE code (five characters) or DoDAAC code (six characters) in six characters of equal width: a
 * code of five follows a space. The space does not appear in text.
 *
 * Source: EPC Tag Data Standard, sections 14.3 and 14.4 ("CAGE code or DoDAAC" methods).
 */
#ifndef ROSETAG_SCHEMES_FIELD_CAGE_CODE_H
#define ROSETAG_SCHEMES_FIELD_CAGE_CODE_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"
#include "core/text_cursor.h"

namespace rosetag {

constexpr std::int32_t CAGE_CODE_CHARS = 6;

// Upper-case letters without I and O, and digits.
constexpr bool cageCodeHas(char character) {
    return charIsDigit(character) ||
           (character >= 'A' && character <= 'Z' && character != 'I' && character != 'O');
}

// charBits is 8 or CHAR6_BITS.
EpcStatus fieldReadCageCode(BitBuffer& bits, TextBuffer& text, std::int32_t charBits);

// Up to the ".", which stays unread.
EpcStatus fieldWriteCageCode(TextCursor& cursor, BitBuffer& bits, std::int32_t charBits);

} // namespace rosetag

#endif
