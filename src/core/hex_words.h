/*
 * The two other forms of a binary value: hexadecimal text, two digits a byte, and 16-bit words, the
 * first byte in the high half.
 */
#ifndef ROSETAG_CORE_HEX_WORDS_H
#define ROSETAG_CORE_HEX_WORDS_H

#include "core/status.h"

#include <cstdint>
#include <string_view>

namespace rosetag {

// The library holds a binary value of up to 62 bytes: 496 bits, 31 words, 124 digits.
constexpr std::int32_t MAX_BINARY_BYTES = EPC_MAX_BINARY_BYTES;
constexpr std::int32_t MAX_BINARY_WORDS = MAX_BINARY_BYTES / 2;

// Converts digits in either case, two to a byte. An odd last digit fills the high half of its byte.
// A character that is not a digit is EPC_ERR_NO_ROOM. bytes takes half as many as there are digits,
// rounded up.
EpcStatus hexToBytes(std::string_view hex, std::uint8_t* bytes);

// Writes two upper-case digits a byte, and returns where they end.
char* hexPutBytes(char* out, const std::uint8_t* bytes, std::int32_t count);

// Above MAX_BINARY_BYTES or MAX_BINARY_WORDS: EPC_ERR_TOO_LONG, nothing written.
EpcStatus bytesToWords(const std::uint8_t* bytes, std::uint32_t count, std::uint16_t* words);
EpcStatus wordsToBytes(const std::uint16_t* words, std::uint32_t count, std::uint8_t* bytes);

} // namespace rosetag

#endif
