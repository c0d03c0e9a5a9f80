// Hexadecimal text, words and long decimals against schoolbook arithmetic.
#include "core/hex_words.h"
#include "core/long_decimal.h"

#include "core/hex_digits.h"
#include "core/text_cursor.h"
#include "support/bits.h"
#include "support/guarded_area.h"
#include "support/random.h"
#include "support/status.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace rosetag;

namespace {

// Schoolbook: one digit after the other, in a text of digits. No leading zeros; zero is empty.
std::string convertBase(const std::string& digits, int from, int to) {
    std::string number;
    for (const char digit : digits) {
        int carry = hexDigitValue(digit);
        for (auto place = number.rbegin(); place != number.rend(); ++place) {
            const int x = hexDigitValue(*place) * from + carry;
            *place = "0123456789ABCDEF"[x % to];
            carry = x / to;
        }
        for (; carry > 0; carry /= to) {
            number.insert(number.begin(), "0123456789ABCDEF"[carry % to]);
        }
    }
    return number;
}

std::string decimalOfBits(const std::string& bits, std::size_t width) {
    std::string digits = convertBase(bits, 2, 10);
    digits.insert(0, digits.size() < width ? width - digits.size() : 0, '0');
    return digits;
}

// Every count of digits, in as many bits as it takes and in more, after bits that stay as they are.
TEST(LongDecimal, IsWrittenAndReadInEveryWidth) {
    Random random(6);
    constexpr std::int32_t offset = 5;
    for (std::size_t n = 0; n <= MAX_LONG_DIGITS; ++n) {
        for (const std::string& digits :
             {std::string(n, '9'), std::string(n, '0'), (std::string(n, '0') + "1").substr(1),
              random.digits(n), random.digits(n)}) {
            const std::int32_t bitCount =
                aiDigitBits(static_cast<std::int32_t>(n)) + (n > 70 ? 0 : random.between(0, 70));
            SCOPED_TRACE(testing::Message() << digits << " in " << bitCount << " bits");
            const auto width = static_cast<std::size_t>(bitCount);
            std::string bits = convertBase(digits, 10, 2);
            bits.insert(0, width - bits.size(), '0');
            std::vector<std::uint8_t> bytes(50);
            bytes[0] = 0xF8;
            BitBuffer out{bytes.data(), 400, offset};
            ASSERT_STATUS(EPC_OK, bitBufferPutLongDecimal(out, digits, bitCount));
            ASSERT_EQ(std::string(offset, '1') + bits + std::string(395 - width, '0'),
                      bitsFromBytes(bytes));
            ASSERT_EQ(offset + bitCount, out.position);

            BitBuffer in{bytes.data(), offset + bitCount, offset};
            char storage[MAX_LONG_DIGITS + 1];
            TextBuffer text = textBufferOver(storage, static_cast<std::int32_t>(n + 1));
            const auto digitCount = static_cast<std::int32_t>(n);
            ASSERT_STATUS(EPC_OK, bitBufferGetLongDecimal(text, in, bitCount, digitCount));
            ASSERT_EQ(digits, storage);
            ASSERT_EQ(out.position, in.position);
        }
    }
}

// Zeros in front are one block; the rest, in whole hexadecimal digits, is blocks of 64 bits.
TEST(LongDecimal, LeavesTheBlocksThatFit) {
    const std::string digits = "12345678901234567890123456789012345678901234567890"; // 164 bits
    const std::string bits = convertBase(digits, 10, 2);
    ASSERT_EQ(164U, bits.size());
    const struct {
        std::int32_t capacity;
        std::size_t written;
    } rows[] = {{0, 0}, {2, 0}, {3, 3}, {66, 3}, {67, 67}, {130, 67}, {131, 131}, {166, 131}};
    for (const auto& row : rows) {
        std::vector<std::uint8_t> bytes(22);
        BitBuffer out{bytes.data(), row.capacity, 0};
        EXPECT_STATUS(EPC_ERR_NO_ROOM, bitBufferPutLongDecimal(out, digits, 167)) << row.capacity;
        const std::string whole = "000" + bits;
        EXPECT_EQ(whole.substr(0, row.written) + std::string(176 - row.written, '0'),
                  bitsFromBytes(bytes))
            << row.capacity;
    }
}

TEST(LongDecimal, IsPaddedAndNotCut) {
    const struct {
        const char* name;
        std::string bits;
        std::int32_t width, capacity;
        EpcStatus status;
        std::string text;
    } rows[] = {
        {"zero is its padding", "0000000", 3, 20, EPC_OK, ">000"},
        {"zero of width 0", "0000000", 0, 20, EPC_OK, ">"},
        {"wider", "11111111", 5, 20, EPC_OK, ">00255"},
        {"narrower", "11111111", 2, 20, EPC_OK, ">255"},
        {"fits exactly", "11111111", 3, 5, EPC_OK, ">255"},
        {"padding without room", "11111111", 5, 3, EPC_ERR_NO_ROOM, ">"},
        {"digits without room", "11111111", 5, 6, EPC_ERR_NO_ROOM, ">00"},
        {"the widest of 90 digits", std::string(298, '1'), 0, 100, EPC_OK,
         '>' + decimalOfBits(std::string(298, '1'), 0)},
        {"91 digits", std::string(299, '1'), 0, 100, EPC_ERR_NO_ROOM, ">"},
    };
    for (const auto& row : rows) {
        const std::vector<std::uint8_t> bytes = bytesFromBits(row.bits);
        const auto bitCount = static_cast<std::int32_t>(row.bits.size());
        GuardedArea area;
        char* storage = area.place<char>(static_cast<std::size_t>(row.capacity),
                                         GuardedArea::Side::BEFORE_PAGE);
        TextBuffer text = textBufferOver(storage, row.capacity);
        EXPECT_STATUS(EPC_OK, textBufferPutChar(text, '>'));
        BitBuffer buffer = bitBufferForReading(bytes.data(), bitCount);
        EXPECT_STATUS(row.status, bitBufferGetLongDecimal(text, buffer, bitCount, row.width))
            << row.name;
        EXPECT_EQ(row.text, storage) << row.name;
        EXPECT_STATUS(EPC_ERR_TRUNCATED, bitBufferGetLongDecimal(text, buffer, 1, row.width))
            << row.name;
    }
}

TEST(LongDecimal, DigitBitsAreTheLengthOfTheLargestNumber) {
    for (std::int32_t n = 1; n <= MAX_LONG_DIGITS; ++n) {
        const std::string nines(static_cast<std::size_t>(n), '9');
        const std::string bits = convertBase(nines, 10, 2);
        EXPECT_EQ(static_cast<std::int32_t>(bits.size()), aiDigitBits(n)) << n;
    }
    EXPECT_EQ(0, aiDigitBits(0));
}

TEST(HexWords, HexToBytes) {
    struct {
        const char *name, *hex;
        EpcStatus status;
        const char* bytes; // what is written, as hexadecimal digits
    } const rows[] = {
        {"odd count", "ABC", EPC_OK, "ABC0"},
        {"lower case", "abcdef", EPC_OK, "ABCDEF"},
        {"both cases and digits", "0123456789aBcDeF", EPC_OK, "0123456789ABCDEF"},
        {"empty", "", EPC_OK, ""},
        {"single digit", "3", EPC_OK, "30"},
        {"bad second digit", "1G", EPC_ERR_NO_ROOM, ""},
        {"bad first digit", "12G", EPC_ERR_NO_ROOM, "12"},
        {"codes beside the digits", "AB1/", EPC_ERR_NO_ROOM, "AB"},
        {"codes beside the digits, above", "AB:1", EPC_ERR_NO_ROOM, "AB"},
        {"codes beside the letters", "ABCD@0", EPC_ERR_NO_ROOM, "ABCD"},
        {"codes beside the small letters", "g0", EPC_ERR_NO_ROOM, ""},
        {"backquote", "0`", EPC_ERR_NO_ROOM, ""},
        {"a byte above 0x80", "0\xC1", EPC_ERR_NO_ROOM, ""},
        {"space", "00 00", EPC_ERR_NO_ROOM, "00"},
    };
    GuardedArea input;
    GuardedArea output;
    for (const auto& row : rows) {
        output.clear();
        const char* hex =
            input.placeCopy(row.hex, std::strlen(row.hex) + 1, GuardedArea::Side::BEFORE_PAGE);
        const std::size_t count = std::strlen(row.bytes) / 2;
        auto* bytes = output.place<std::uint8_t>(count, GuardedArea::Side::BEFORE_PAGE);
        EXPECT_STATUS(row.status, hexToBytes(hex, bytes)) << row.name;
        EXPECT_EQ(row.bytes, hexFromBytes(bytes, count)) << row.name;
        EXPECT_TRUE(output.isUntouchedAround(bytes, count)) << row.name;
    }
}

TEST(HexWords, BytesAndWords) {
    Random random(7);
    GuardedArea input;
    GuardedArea output;
    const auto before = GuardedArea::Side::BEFORE_PAGE;
    for (std::uint32_t count = 0; count <= 62; ++count) {
        const std::vector<std::uint8_t> bytes = random.bytes(count);
        const std::vector<std::uint16_t> expected = wordsFromBytes(bytes);
        auto* words = output.place<std::uint16_t>(expected.size(), before);
        EXPECT_STATUS(EPC_OK,
                      bytesToWords(input.placeCopy(bytes.data(), count, before), count, words));
        EXPECT_EQ(expected, std::vector<std::uint16_t>(words, words + expected.size())) << count;

        std::vector<std::uint8_t> padded = bytes;
        padded.resize(expected.size() * 2);
        auto* back = output.place<std::uint8_t>(padded.size(), before);
        const std::uint16_t* source = input.placeCopy(expected.data(), expected.size(), before);
        const auto wordCount = static_cast<std::uint32_t>(expected.size());
        EXPECT_STATUS(EPC_OK, wordsToBytes(source, wordCount, back));
        EXPECT_EQ(padded, std::vector<std::uint8_t>(back, back + padded.size())) << count;
    }
    for (const std::uint32_t count : {63U, 64U, 0xFFFFFFFFU}) {
        EXPECT_STATUS(EPC_ERR_TOO_LONG, bytesToWords(nullptr, count, nullptr));
    }
    for (const std::uint32_t count : {32U, 33U, 0xFFFFFFFFU}) {
        EXPECT_STATUS(EPC_ERR_TOO_LONG, wordsToBytes(nullptr, count, nullptr));
    }
}

} // namespace
