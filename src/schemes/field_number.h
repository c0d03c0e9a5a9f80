/*
 * Fields that hold a number: decimal digits in URI text, a fixed number of bits in binary. A number
 * in text ends at the first character that is not a digit; an empty one is 0 unless noted.
 *
 * Source: EPC Tag Data Standard, sections 14.3 and 14.4 (encoding and decoding methods).
 */
#ifndef ROSETAG_SCHEMES_FIELD_NUMBER_H
#define ROSETAG_SCHEMES_FIELD_NUMBER_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"
#include "core/text_cursor.h"

namespace rosetag {

// Reserved bits, which must be zero and have no text. width is 64 at most.
EpcStatus fieldReadZeros(BitBuffer& bits, std::int32_t width);
EpcStatus fieldWriteZeros(BitBuffer& bits, std::int32_t width);

// A number without leading zeros that fits the width.
EpcStatus fieldReadDecimal(BitBuffer& bits, TextBuffer& text, std::int32_t width);
EpcStatus fieldWriteDecimal(TextCursor& cursor, BitBuffer& bits, std::int32_t width);

// A number that is padded with zeros to that many digits. A longer one is read but not written.
EpcStatus fieldReadPaddedNumber(BitBuffer& bits, TextBuffer& text, std::int32_t width,
                                std::int32_t digits);
EpcStatus fieldWritePaddedNumber(TextCursor& cursor, BitBuffer& bits, std::int32_t width,
                                 std::int32_t digits);

// At least one digit; leading zeros count: stored as the number with a 1 before the digits.
EpcStatus fieldReadNumberAfterOne(BitBuffer& bits, TextBuffer& text, std::int32_t width);
EpcStatus fieldWriteNumberAfterOne(TextCursor& cursor, BitBuffer& bits, std::int32_t width);

} // namespace rosetag

#endif
