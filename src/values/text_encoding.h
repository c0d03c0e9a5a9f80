/*
 * The six encodings of text, and the choice among them. A field of text names its encoding in 3
 * bits. The choice depends on the characters alone: the same text is encoded alike in every AI.
 *
 * Source: EPC Tag Data Standard, section 14.5.6 (variable-length alphanumeric).
 */
#ifndef ROSETAG_VALUES_TEXT_ENCODING_H
#define ROSETAG_VALUES_TEXT_ENCODING_H

#include "core/bit_buffer.h"
#include "core/char_class.h"
#include "core/hex_digits.h"
#include "core/long_decimal.h"
#include "core/text_buffer.h"
#include "core/text_cursor.h"

#include <array>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace rosetag {

constexpr std::int32_t ENCODING_INDICATOR_BITS = 3;

struct TextEncoding {
    std::string_view name;
    std::int32_t groupSize; // characters encoded together; 0: all of them
    std::int32_t groupBits;
    std::string_view alphabet; // by value; NUL for a value that is not a character
};

// The characters that AI values may contain, by their code.
inline constexpr std::array<char, 128> iso646Alphabet = []() {
    std::array<char, 128> alphabet{};
    for (std::size_t code = 0; code < alphabet.size(); ++code) {
        const auto character = static_cast<char>(code);
        const bool isOfAis = charIsOfClass(character, CHAR_CLASS_AI82 | CHAR_CLASS_AI39);
        alphabet[code] = isOfAis ? character : '\0';
    }
    return alphabet;
}();

// By the indicator: AI_ENC_INTEGER to AI_ENC_CODE40.
// clang-format off
inline constexpr TextEncoding textEncodings[] = {
    //            group
    // name       size  bits  alphabet
    {"integer",   0,    0,    "0123456789"}, // as wide as a number of that many digits: aiDigitBits
    {"hex-upper", 1,    4,    HEX_DIGITS},
    {"hex-lower", 1,    4,    HEX_DIGITS_LOWER},
    {"base64url", 1,    6,    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_"},
    {"iso646",    1,    7,    {iso646Alphabet.data(), iso646Alphabet.size()}},
    {"code40",    3,    16,   {"\0ABCDEFGHIJKLMNOPQRSTUVWXYZ-.:0123456789", 40}}, // 0 pads a group
};
// clang-format on
static_assert(std::size(textEncodings) == AI_ENC_CODE40 + 1);

// The bits of count characters.
constexpr std::ptrdiff_t textPayloadBits(std::int32_t encoding, std::ptrdiff_t count) {
    const TextEncoding& row = textEncodings[encoding];
    return row.groupSize == 0 ? aiDigitBits(static_cast<std::int32_t>(count))
                              : (count + row.groupSize - 1) / row.groupSize * row.groupBits;
}

// The encoding for all characters up to the end. EPC_ERR_BAD_CHARACTER at one that no AI value may
// contain.
EpcStatus aiChooseEncoding(const TextCursor& cursor, std::int32_t& encoding);

// Writes the characters up to the end. EPC_ERR_BAD_CHARACTER at one outside the alphabet,
// EPC_ERR_BAD_FORMAT for an encoding that does not exist.
EpcStatus aiEncodePayload(TextCursor& cursor, BitBuffer& out, std::int32_t encoding);

// Reads count characters.
EpcStatus aiDecodePayload(BitBuffer& bits, TextBuffer& text, std::int32_t encoding,
                          std::int32_t count);

} // namespace rosetag

#endif
