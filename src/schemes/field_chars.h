/*
 * Fields that hold a string: 7-bit characters of character set 82 in a field of fixed length,
 * padded with zeros, and 6-bit characters of character set 39 with a zero after the last. URI text
 * has percent escapes for some of them.
 *
 * Source: EPC Tag Data Standard, sections 14.3 and 14.4 (encoding and decoding methods) and
 * appendix G (6-bit characters).
 */
#ifndef ROSETAG_SCHEMES_FIELD_CHARS_H
#define ROSETAG_SCHEMES_FIELD_CHARS_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"
#include "core/text_cursor.h"

namespace rosetag {

constexpr std::int32_t CHAR7_BITS = 7;
constexpr std::int32_t CHAR6_BITS = 6;

// Where "#" is allowed in a string of 6-bit characters.
enum class HashRule : std::uint8_t { HASH_ANYWHERE, HASH_NEVER, HASH_FIRST_ONLY };

// What a field of 6-bit characters accepts.
struct Chars6Rule {
    std::int32_t maxChars;
    bool allowEmpty;
    HashRule hashRule;
};

// The character of a 6-bit value: its code without the two high bits.
constexpr char char6FromBits(std::uint64_t value) {
    return static_cast<char>(static_cast<unsigned char>(value < 32 ? value + 64 : value));
}
constexpr std::uint64_t char6ToBits(char character) {
    return static_cast<unsigned char>(character) & 0x3F;
}

// 1 to maxChars characters in a field of maxChars positions. The writer leaves what does not fit
// unread.
EpcStatus fieldReadChars7(BitBuffer& bits, TextBuffer& text, std::int32_t maxChars);
EpcStatus fieldWriteChars7(TextCursor& cursor, BitBuffer& bits, std::int32_t maxChars);

// The writer ends at the end of the text or after the terminator, which may be escaped.
EpcStatus fieldReadChars6(BitBuffer& bits, TextBuffer& text, const Chars6Rule& rule);
EpcStatus fieldWriteChars6(TextCursor& cursor, BitBuffer& bits, const Chars6Rule& rule,
                           char terminator);

} // namespace rosetag

#endif
