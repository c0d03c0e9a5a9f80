/*
 * The six encodings of text, of which each field of text names its own in an indicator of 3 bits,
 * and the choice among them. The choice depends on the characters alone: the same text is encoded
 * alike in every AI.
 *
 * Source: EPC Tag Data Standard, section 14.5.6 (variable-length alphanumeric).
 */
#ifndef ROSETAG_VALUES_TEXT_ENCODING_H
#define ROSETAG_VALUES_TEXT_ENCODING_H

#include "core/bit_buffer.h"
#include "core/char_class.h"
#include "core/text_buffer.h"
#include "core/text_cursor.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace rosetag {

constexpr std::int32_t ENCODING_INDICATOR_BITS = 3;

// The sets of characters among which the choice decides. A character is in one of them at most.
enum AiCharFlag : std::uint8_t {
    AI_CHAR_DIGIT = 0x01,
    AI_CHAR_HEX_UPPER = 0x02,
    AI_CHAR_HEX_LOWER = 0x04,
    AI_CHAR_UPPER = 0x08,      // those that are no hexadecimal digits
    AI_CHAR_DOT_COLON = 0x10,  // in code-40, not in base64url
    AI_CHAR_HYPHEN = 0x20,     // in both
    AI_CHAR_LOWER = 0x40,      // those that are no hexadecimal digits
    AI_CHAR_UNDERSCORE = 0x80, // in base64url, not in code-40
};

// Seen in a text beside the flags: a character that has none.
constexpr std::uint32_t AI_CHAR_OTHER = 0x100;

// The characters by the value that stands for them in the bits.
inline constexpr std::string_view base64UrlAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
inline constexpr std::string_view code40Alphabet = " ABCDEFGHIJKLMNOPQRSTUVWXYZ-.:0123456789";

// Value 0 of code-40 fills up a group and stands for no character, nor for the blank in its place.
constexpr std::size_t CODE40_FIRST_VALUE = 1;

using CharValues = std::array<std::int8_t, 128>;

// The inverse of an alphabet, -1 for a character that it does not hold.
constexpr CharValues charValuesOf(std::string_view alphabet, std::size_t firstValue = 0) {
    CharValues values{};
    values.fill(-1);
    for (std::size_t value = firstValue; value < alphabet.size(); ++value) {
        values[static_cast<unsigned char>(alphabet[value])] = static_cast<std::int8_t>(value);
    }
    return values;
}

inline constexpr CharValues base64UrlValues = charValuesOf(base64UrlAlphabet);
inline constexpr CharValues code40Values = charValuesOf(code40Alphabet, CODE40_FIRST_VALUE);
static_assert(base64UrlAlphabet.size() == 64 && code40Alphabet.size() == 40);

// A flag of AiCharFlag for each character, or 0.
extern const std::array<std::uint8_t, 128> aiCharFlags;

// Looks at all characters up to the end and gathers their flags. A character that stands in no AI
// is EPC_ERR_BAD_CHARACTER.
EpcStatus aiScanText(TextCursor cursor, std::uint32_t& seenFlags);

// The encoding for count characters with these flags.
std::int32_t aiChooseEncoding(std::uint32_t seenFlags, std::ptrdiff_t count);

// The bits that count characters take in code-40.
constexpr std::ptrdiff_t aiCode40Bits(std::ptrdiff_t count) {
    return (count + 2) / 3 * 16;
}

// Writes the characters up to the end. EPC_ERR_BAD_CHARACTER at one that the encoding does not
// hold, EPC_ERR_BAD_FORMAT for an encoding that does not exist.
EpcStatus aiEncodePayload(TextCursor& cursor, BitBuffer& out, std::int32_t encoding);

// Reads count characters.
EpcStatus aiDecodePayload(BitBuffer& bits, TextBuffer& text, std::int32_t encoding,
                          std::int32_t count);

} // namespace rosetag

#endif
