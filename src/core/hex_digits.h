/*
 * Hexadecimal digits: two to a byte.
 */
#ifndef ROSETAG_CORE_HEX_DIGITS_H
#define ROSETAG_CORE_HEX_DIGITS_H

#include "core/byte_vector.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace rosetag {

inline constexpr std::string_view HEX_DIGITS = "0123456789ABCDEF";
inline constexpr std::string_view HEX_DIGITS_LOWER = "0123456789abcdef";

// The two digits of each number below base * base, one pair after the other.
template <std::size_t base>
constexpr std::array<char, 2 * base * base> digitPairsMake() {
    std::array<char, 2 * base * base> pairs{};
    for (std::size_t i = 0; i < base * base; ++i) {
        pairs[2 * i] = HEX_DIGITS[i / base];
        pairs[2 * i + 1] = HEX_DIGITS[i % base];
    }
    return pairs;
}

inline constexpr auto hexPairs = digitPairsMake<HEX_DIGITS.size()>();

// The two digits of a byte, upper case.
constexpr std::string_view hexPairOf(std::uint8_t byte) {
    return {hexPairs.data() + 2 * std::size_t{byte}, 2};
}

// Writes them, and returns where they end.
inline char* hexPutPair(char* out, std::uint8_t byte) {
    std::memcpy(out, hexPairs.data() + 2 * std::size_t{byte}, 2);
    return out + 2;
}

constexpr std::int32_t HEX_WORD_BYTES = 8;

// Writes the sixteen digits of eight bytes, as they are in memory.
ROSETAG_INLINE void hexPutWord(char* out, std::uint64_t bytes) {
    constexpr std::uint8_t afterNine = 'A' - '0' - 10;
    const ByteVector digits =
        byteVectorMerge(byteVectorOf(bytes >> 4, 0), byteVectorOf(bytes, 0)) & 15;
    const auto isLetter =
        reinterpret_cast<ByteVector>(reinterpret_cast<SignedByteVector>(digits) > 9);
    byteVectorStore(out, digits + '0' + (isLetter & afterNine));
}

// -1 for a character that is not a digit.
inline constexpr std::array<std::int8_t, 256> hexDigitValues = []() {
    std::array<std::int8_t, 256> values{};
    values.fill(-1);
    for (std::size_t digit = 0; digit < HEX_DIGITS.size(); ++digit) {
        for (const char character : {HEX_DIGITS[digit], HEX_DIGITS_LOWER[digit]}) {
            values[static_cast<unsigned char>(character)] = static_cast<std::int8_t>(digit);
        }
    }
    return values;
}();

// The value of a digit in either case, or -1.
constexpr std::int32_t hexDigitValue(char character) {
    return hexDigitValues[static_cast<unsigned char>(character)];
}

// The byte of two digits, below 0 if one of them is not a digit.
constexpr std::int32_t hexPairValue(char high, char low) {
    return hexDigitValue(high) * 16 | hexDigitValue(low);
}

} // namespace rosetag

#endif
