/*
 * Binary values as text, and back: the slow and obvious reference that the fast bit code is held
 * against. Bits are a text of '0' and '1', the first bit first.
 *
 *     bitsFromBytes(bytesFromHex("30A"))   "001100001010" and, the last byte filled up, "0000"
 *     bitsFromNumber(5, 4)                 "0101"
 */
#ifndef ROSETAG_TESTS_SUPPORT_BITS_H
#define ROSETAG_TESTS_SUPPORT_BITS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Digits of either case; spaces are skipped. An odd last digit fills the high half of its byte.
inline std::vector<std::uint8_t> bytesFromHex(std::string_view hex) {
    std::string digits;
    for (const char digit : hex) {
        if (digit != ' ') {
            digits += digit;
        }
    }
    if (digits.size() % 2 != 0) {
        digits += '0';
    }
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoi(digits.substr(i, 2), nullptr, 16)));
    }
    return bytes;
}

inline std::string hexFromBytes(const std::uint8_t* bytes, std::size_t count) {
    std::string hex;
    for (std::size_t i = 0; i < count; ++i) {
        hex += "0123456789ABCDEF"[bytes[i] / 16];
        hex += "0123456789ABCDEF"[bytes[i] % 16];
    }
    return hex;
}

inline std::string hexFromBytes(const std::vector<std::uint8_t>& bytes) {
    return hexFromBytes(bytes.data(), bytes.size());
}

// The low width bits. Above 64 the leading ones are '0'.
inline std::string bitsFromNumber(std::uint64_t value, std::size_t width) {
    std::string bits(width, '0');
    for (auto bit = bits.rbegin(); bit != bits.rend(); ++bit, value /= 2) {
        *bit = value % 2 != 0 ? '1' : '0';
    }
    return bits;
}

// The last 64 bits as a number.
inline std::uint64_t numberFromBits(std::string_view bits) {
    std::uint64_t value = 0;
    for (const char bit : bits) {
        value = value * 2 + (bit == '1' ? 1 : 0);
    }
    return value;
}

inline std::string bitsFromBytes(const std::uint8_t* bytes, std::size_t bitCount) {
    std::string bits;
    for (std::size_t i = 0; i < bitCount; ++i) {
        bits += (bytes[i / 8] >> (7 - i % 8)) % 2 != 0 ? '1' : '0';
    }
    return bits;
}

inline std::string bitsFromBytes(const std::vector<std::uint8_t>& bytes) {
    return bitsFromBytes(bytes.data(), bytes.size() * 8);
}

// The last byte is filled up with zero bits.
inline std::vector<std::uint8_t> bytesFromBits(std::string_view bits) {
    std::vector<std::uint8_t> bytes((bits.size() + 7) / 8);
    for (std::size_t i = 0; i < bits.size(); ++i) {
        bytes[i / 8] = static_cast<std::uint8_t>(bytes[i / 8] | (bits[i] == '1') << (7 - i % 8));
    }
    return bytes;
}

// The last word is filled up with zero bits.
inline std::vector<std::uint16_t> wordsFromBytes(const std::vector<std::uint8_t>& bytes) {
    std::vector<std::uint16_t> words((bytes.size() + 1) / 2);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        words[i / 2] = static_cast<std::uint16_t>(words[i / 2] | bytes[i] << (i % 2 == 0 ? 8 : 0));
    }
    return words;
}

#endif
