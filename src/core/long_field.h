/*
 * Fields of more than 64 bits, which go through hexadecimal text.
 */
#ifndef ROSETAG_CORE_LONG_FIELD_H
#define ROSETAG_CORE_LONG_FIELD_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"

namespace rosetag {

// The widest field that can be read.
constexpr std::int32_t MAX_LONG_FIELD_BITS = 368;

// Reads bitCount bits as (bitCount + 3) / 4 upper-case digits: the number, right-aligned. dst needs
// room for an even count of digits and a NUL.
EpcStatus bitBufferGetHex(BitBuffer& buffer, std::int32_t bitCount, std::int32_t dstSize,
                          char* dst);

// Reads bitCount bits, 360 at most, and appends them as hexadecimal or as decimal digits,
// zero-padded on the left to width; a longer text is not cut.
EpcStatus bitBufferGetPaddedHex(TextBuffer& text, BitBuffer& buffer, std::int32_t bitCount,
                                std::int32_t width);
EpcStatus bitBufferGetPaddedDecimal(TextBuffer& text, BitBuffer& buffer, std::int32_t bitCount,
                                    std::int32_t width);

// Writes a number that is held as hexDigits digits, two a byte from the first byte on, in exactly
// bitCount bits: zero bits in front, or its high bits dropped. 0, or -1 if there is no room.
std::int32_t bitBufferPutHexBytes(BitBuffer& buffer, std::int32_t hexDigits,
                                  const std::uint8_t* digitBytes, std::int32_t bitCount);

} // namespace rosetag

#endif
