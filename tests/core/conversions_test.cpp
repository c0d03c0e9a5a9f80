// Hexadecimal text, words and long decimals against schoolbook arithmetic.
#include "core/hex_words.h"
#include "core/long_decimal.h"

#include "core/text_cursor.h"
#include "support/bits.h"
#include "support/guarded_area.h"
#include "support/random.h"
#include "support/status.h"

#include <gtest/gtest.h>

#include <set>
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

using Conversion = EpcStatus (*)(std::string_view, std::int32_t, char*, std::int32_t&);

struct Direction {
    const char* name;
    Conversion convert;
    int from, to;
    std::size_t mostDigits;
    std::string_view alphabet;
    std::set<std::size_t> roomier; // counts of digits for which one more than needed is asked for
};

const Direction directions[] = {
    {"hexToDecimal",
     hexToDecimal,
     16,
     10,
     75,
     "0123456789ABCDEF",
     {19, 24, 29, 34, 39, 44, 48, 53, 58, 63, 68, 73}},
    {"decimalToHex", decimalToHex, 10, 16, 90, "0123456789", {}},
};

// Converts into exactly capacity bytes before an unreadable page.
void expectConversion(const Direction& way, const std::string& digits, std::size_t capacity,
                      EpcStatus status) {
    SCOPED_TRACE(testing::Message() << way.name << " " << digits << " capacity " << capacity);
    GuardedArea area;
    char* out = area.place<char>(capacity, GuardedArea::Side::BEFORE_PAGE);
    std::int32_t count = -7;
    ASSERT_STATUS(status, way.convert(digits, static_cast<std::int32_t>(capacity), out, count));
    if (status != EPC_OK) {
        ASSERT_EQ(-7, count);
        ASSERT_TRUE(area.isUntouchedAround(out, 0));
        return;
    }
    const std::string expected = convertBase(digits, way.from, way.to);
    ASSERT_STREQ(expected.c_str(), out);
    ASSERT_EQ(static_cast<std::int32_t>(expected.size()), count);
    ASSERT_TRUE(area.isUntouchedAround(out, capacity));
}

TEST(LongDecimal, EveryCountOfDigitsInTheRoomThatItAsksFor) {
    Random random(6);
    for (const Direction& way : directions) {
        for (std::size_t n = 0; n <= way.mostDigits; ++n) {
            const std::string largest(n, way.alphabet.back());
            std::size_t room = convertBase(largest, way.from, way.to).size() + 1;
            room += way.roomier.count(n);
            // 75 hexadecimal digits may be a number of 90 or 91 decimal digits: its value tells.
            const bool roomByValue = way.from == 16 && n == 75;
            for (const std::string& digits :
                 {largest, std::string(n, '0'), (std::string(n, '0') + "1").substr(1),
                  random.text(n, way.alphabet), random.text(n, way.alphabet)}) {
                ASSERT_NO_FATAL_FAILURE(expectConversion(way, digits, room, EPC_OK));
                ASSERT_NO_FATAL_FAILURE(expectConversion(way, digits, room + 5, EPC_OK));
                if (!roomByValue) {
                    ASSERT_NO_FATAL_FAILURE(
                        expectConversion(way, digits, room - 1, EPC_ERR_NO_ROOM));
                }
            }
        }
        for (const std::size_t n : {way.mostDigits + 1, std::size_t{200}}) {
            expectConversion(way, std::string(n, '0'), 100, EPC_ERR_TOO_LONG);
        }
    }
}

TEST(LongDecimal, SeventyFiveHexadecimalDigits) {
    const std::string ninetyNines = convertBase(std::string(90, '9'), 10, 16);
    ASSERT_EQ(75U, ninetyNines.size());
    const std::string tenToTheNinety = convertBase("1" + std::string(90, '0'), 10, 16);
    expectConversion(directions[0], ninetyNines, 91, EPC_OK);
    expectConversion(directions[0], ninetyNines, 90, EPC_ERR_NO_ROOM);
    expectConversion(directions[0], tenToTheNinety, 91, EPC_ERR_NO_ROOM);
    expectConversion(directions[0], tenToTheNinety, 92, EPC_OK);
    expectConversion(directions[0], std::string(74, '0') + "A", 3, EPC_OK);
    expectConversion(directions[0], std::string(74, '0') + "A", 2, EPC_ERR_NO_ROOM);
    expectConversion(directions[0], "ff", 4, EPC_OK);
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
