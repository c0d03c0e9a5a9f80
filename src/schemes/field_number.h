/*
 * Fields that hold a number: decimal digits in URI text, a fixed count of bits in binary. A number
 * in text ends at the first character that is no digit; an empty one is 0 where nothing else is
 * said. Every field is a pair of a reader of bits and a writer of bits.
 *
 * Source: EPC Tag Data Standard, sections 14.3 and 14.4 (encoding and decoding methods).
 */
#ifndef ROSETAG_SCHEMES_FIELD_NUMBER_H
#define ROSETAG_SCHEMES_FIELD_NUMBER_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"
#include "core/text_cursor.h"

namespace rosetag {

// Reserved bits, which must be zero and are no text. width is 64 at most.
EpcStatus fieldReadZeros(BitBuffer& bits, std::int32_t width);
EpcStatus fieldWriteZeros(BitBuffer& bits, std::int32_t width);

// A number without leading zeros, which fits the width.
EpcStatus fieldReadDecimal(BitBuffer& bits, TextBuffer& text, std::int32_t width);
EpcStatus fieldWriteDecimal(TextCursor& cursor, BitBuffer& bits, std::int32_t width);

// A number that is filled up with zeros to as many digits as always fit the width: 2 in 7 bits. A
// larger one is read, but not written.
EpcStatus fieldReadSmallNumber(BitBuffer& bits, TextBuffer& text, std::int32_t width);
EpcStatus fieldWriteSmallNumber(TextCursor& cursor, BitBuffer& bits, std::int32_t width);

// Digits whose leading zeros count, which are stored as the number that has a 1 in front of them.
// There is at least one.
EpcStatus fieldReadLeadingOneNumber(BitBuffer& bits, TextBuffer& text, std::int32_t width);
EpcStatus fieldWriteLeadingOneNumber(TextCursor& cursor, BitBuffer& bits, std::int32_t width);

} // namespace rosetag

#endif
