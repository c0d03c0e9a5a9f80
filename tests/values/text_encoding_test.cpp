// The choice among the six encodings of text, their alphabets, and fields at their limits.
#include "values/text_encoding.h"

#include "support/random.h"
#include "support/status.h"
#include "values/value_bits.h"

#include <gtest/gtest.h>

#include <string>

using namespace rosetag;

namespace {

const char* const encodingNames[] = {"integer",   "hex upper", "hex lower",
                                     "base64url", "iso646",    "code-40"};

// The bits that a payload takes, by the rules of each encoding.
std::size_t payloadBits(std::int32_t encoding, std::size_t count) {
    switch (encoding) {
    case AI_ENC_INTEGER:
        // The smallest width for so many nines: 10 to the power of count, in bits.
        return count == 0 ? 0
                          : static_cast<std::size_t>(static_cast<double>(count) * 3.3219280949) + 1;
    case AI_ENC_BASE64URL:
        return 6 * count;
    case AI_ENC_ISO646:
        return 7 * count;
    case AI_ENC_CODE40:
        return (count + 2) / 3 * 16;
    default:
        return 4 * count;
    }
}

// AI 91 takes up to 90 characters, and its length 7 bits.
std::string headerBits(std::int32_t encoding, std::size_t count) {
    return bitsFromNumber(static_cast<std::uint64_t>(encoding), 3) + bitsFromNumber(count, 7);
}

void expectEncoding(const std::string& text, std::int32_t expected, std::int32_t forced) {
    SCOPED_TRACE(text + " as " + encodingNames[expected]);
    const BitsResult result = encodeValue("91", text, forced);
    ASSERT_STATUS(EPC_OK, result.status);
    EXPECT_EQ(headerBits(expected, text.size()), result.bits.substr(0, 10));
    EXPECT_EQ(10 + payloadBits(expected, text.size()), result.bits.size());
    EXPECT_EQ(TextResult(EPC_OK, text), decodeValue("91", result.bits));
}

TEST(TextEncoding, IsChosenByTheCharacters) {
    const struct {
        const char* text;
        std::int32_t encoding;
        std::size_t payload;
    } cases[] = {
        {"", AI_ENC_ISO646, 0},           {"12345", AI_ENC_INTEGER, 17},
        {"0012", AI_ENC_INTEGER, 14},     {"12AB", AI_ENC_HEX_UPPER, 16},
        {"ABCDEF", AI_ENC_HEX_UPPER, 24}, {"ab12", AI_ENC_HEX_LOWER, 16},
        {"abcdef", AI_ENC_HEX_LOWER, 24}, {"G", AI_ENC_BASE64URL, 6},
        {"ABCG", AI_ENC_BASE64URL, 24},   {"12-34", AI_ENC_BASE64URL, 30},
        {"AB-", AI_ENC_CODE40, 16},       {"ABCGHI", AI_ENC_CODE40, 32},
        {"GHIJKLMN", AI_ENC_CODE40, 48},  {"A.B", AI_ENC_CODE40, 16},
        {".", AI_ENC_CODE40, 16},         {":1", AI_ENC_CODE40, 16},
        {"-", AI_ENC_BASE64URL, 6},       {"abcXYZ", AI_ENC_BASE64URL, 36},
        {"Ab", AI_ENC_BASE64URL, 12},     {"12_34-A", AI_ENC_BASE64URL, 42},
        {"_", AI_ENC_BASE64URL, 6},       {"ab.c", AI_ENC_ISO646, 28},
        {"_:", AI_ENC_ISO646, 14},        {"AB/1", AI_ENC_ISO646, 28},
        {"12#", AI_ENC_ISO646, 21},       {"+%!", AI_ENC_ISO646, 21},
    };
    for (const auto& row : cases) {
        expectEncoding(row.text, row.encoding, AI_ENC_AUTO);
        EXPECT_EQ(row.payload, payloadBits(row.encoding, std::strlen(row.text))) << row.text;
    }
    // Of letters base64url is the shorter one at these counts only; at 8 and 16 they are equal.
    for (std::size_t count = 1; count <= 90; ++count) {
        const bool isShorter = count == 1 || count == 2 || count == 4 || count == 5 || count == 7 ||
                               count == 10 || count == 13;
        expectEncoding(std::string(count, 'X'), isShorter ? AI_ENC_BASE64URL : AI_ENC_CODE40,
                       AI_ENC_AUTO);
        expectEncoding(std::string(count - 1, 'X') + ".", AI_ENC_CODE40, AI_ENC_AUTO);
    }
}

// Every character through every encoding: exactly those of its alphabet pass, by their values.
TEST(TextEncoding, TakesItsAlphabetAndNoMore) {
    const std::string upper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const std::string lower = "abcdefghijklmnopqrstuvwxyz";
    const std::string digits = "0123456789";
    const std::string ofAis = "!\"#%&'()*+,-./:;<=>?_" + digits + upper + lower;
    const std::string alphabets[] = {
        digits,
        digits + "ABCDEF",
        digits + "abcdef",
        upper + lower + digits + "-_",
        ofAis,
        "?" + upper + "-.:" + digits, // nothing has the value 0
    };
    for (std::int32_t encoding = 0; encoding <= AI_ENC_CODE40; ++encoding) {
        const std::string& alphabet = alphabets[encoding];
        for (int code = 1; code < 256; ++code) {
            const auto character = static_cast<char>(code);
            const std::size_t place = alphabet.find(character);
            const bool isFill = encoding == AI_ENC_CODE40 && place == 0;
            std::uint64_t value =
                encoding == AI_ENC_ISO646 ? static_cast<std::uint64_t>(code) : place;
            value = encoding == AI_ENC_CODE40 ? value * 1600 + 1 : value;
            const std::size_t width = payloadBits(encoding, 1);
            BitsResult expected = {EPC_OK, headerBits(encoding, 1) + bitsFromNumber(value, width)};
            if (ofAis.find(character) == std::string::npos) {
                expected = {EPC_ERR_BAD_CHARACTER, ""};
            } else if (place == std::string::npos || isFill) {
                expected = {EPC_ERR_BAD_CHARACTER, headerBits(encoding, 1)};
            }
            EXPECT_EQ(expected, encodeValue("91", std::string(1, character), encoding))
                << encodingNames[encoding] << " of character " << code;
        }
    }
    for (std::uint64_t code = 0; code < 128; ++code) {
        const auto character = static_cast<char>(code);
        const bool isOfAis = ofAis.find(character) != std::string::npos;
        EXPECT_EQ(TextResult(isOfAis ? EPC_OK : EPC_ERR_BAD_CHARACTER,
                             isOfAis ? std::string(1, character) : ""),
                  decodeValue("91", headerBits(AI_ENC_ISO646, 1) + bitsFromNumber(code, 7)))
            << code;
    }
}

TEST(TextEncoding, RoundTripsWhateverFitsIt) {
    const char* const alphabets[] = {
        "0123456789",
        "0123456789ABCDEF",
        "0123456789abcdef",
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_",
        "!\"#%&'()*+,-./0123456789:;<=>?ABCXYZ_abcxyz",
        "ABCDEFGHIJKLMNOPQRSTUVWXYZ-.:0123456789",
    };
    Random random(51);
    for (std::int32_t encoding = 0; encoding <= AI_ENC_CODE40; ++encoding) {
        for (std::size_t count = 0; count <= 90; ++count) {
            expectEncoding(random.text(count, alphabets[encoding]), encoding, encoding);
        }
        expectEncoding(std::string(90, alphabets[encoding][0]), encoding, encoding);
    }
    for (const std::size_t count : {1U, 19U, 20U, 38U, 39U, 89U, 90U}) {
        expectEncoding(std::string(count, '9'), AI_ENC_INTEGER, AI_ENC_AUTO);
        expectEncoding(std::string(count - 1, '0') + "1", AI_ENC_INTEGER, AI_ENC_AUTO);
    }
}

TEST(TextEncoding, RefusesWhenForced) {
    const std::string digits90(90, '7');
    const struct {
        std::string text;
        std::int32_t encoding;
        EpcStatus status;
        std::string bits;
    } cases[] = {
        {"12A", AI_ENC_INTEGER, EPC_ERR_BAD_CHARACTER, "0/3 3/7"},
        {"A123456789012345678901", AI_ENC_INTEGER, EPC_ERR_BAD_CHARACTER, "0/3 22/7"},
        {"12ab", AI_ENC_HEX_UPPER, EPC_ERR_BAD_CHARACTER, "1/3 4/7 1/4 2/4"},
        {"CDEF0123456789ABCg", AI_ENC_HEX_UPPER, EPC_ERR_BAD_CHARACTER,
         "1/3 18/7 12/4 13/4 14/4 15/4 19088743/32 35243/16 12/4"},
        {"aB", AI_ENC_HEX_LOWER, EPC_ERR_BAD_CHARACTER, "2/3 2/7 10/4"},
        {"ab:", AI_ENC_BASE64URL, EPC_ERR_BAD_CHARACTER, "3/3 3/7 26/6 27/6"},
        {"ABCa_b", AI_ENC_CODE40, EPC_ERR_BAD_CHARACTER, "5/3 6/7 1684/16"},
        {"a_b", AI_ENC_CODE40, EPC_ERR_BAD_CHARACTER, "5/3 3/7"},
        {"AB", 6, EPC_ERR_BAD_FORMAT, "6/3 2/7"},
        {"AB", 13, EPC_ERR_BAD_FORMAT, "5/3 2/7"},
        {"AB", -2, EPC_ERR_BAD_FORMAT, "6/3 2/7"},
        {"A B", 6, EPC_ERR_BAD_CHARACTER, ""},
        // Numbers end at 90 digits, and are read up to 91.
        {digits90 + "7", AI_ENC_AUTO, EPC_ERR_TOO_LONG, "0/3 91/7"},
        {digits90 + "7A", AI_ENC_INTEGER, EPC_ERR_BAD_CHARACTER, "0/3 92/7"},
        {digits90 + "77", AI_ENC_AUTO, EPC_ERR_OUT_OF_RANGE, "0/3 92/7"},
        {digits90 + "77A", AI_ENC_INTEGER, EPC_ERR_OUT_OF_RANGE, "0/3 93/7"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(BitsResult(row.status, bitsOf(row.bits)),
                  encodeValue("91", row.text, row.encoding))
            << row.text << " as " << row.encoding;
    }
    // Other kinds pay no attention to it.
    EXPECT_EQ(BitsResult(EPC_OK, bitsOf("24/7 2/4 29/5")), encodeValue("17", "240229", 6));
}

// A length indicator takes what its bits hold, whatever the AI allows, and no character more.
TEST(TextEncoding, EndsWhereItsLengthIsFull) {
    const struct {
        const char* ai;
        const char* before; // what precedes the characters that are counted
        std::size_t most;
        const char* left;
    } cases[] = {
        {"7008", "", 3, ""},
        {"7040", "", 7, ""},
        {"7005", "", 15, ""},
        {"10", "", 31, ""},
        {"4300", "", 63, ""},
        {"91", "", 127, ""},
        {"8004", "12", 31, "1/4 2/4 14/4"},
        {"421", "528", 15, "528/10"},
        {"30", "", 15, ""},
        {"242", "", 7, ""},
    };
    for (const auto& row : cases) {
        const std::string ai = row.ai;
        const bool isNumber = ai == "30" || ai == "242";
        const std::string full = row.before + std::string(row.most, isNumber ? '7' : 'x');
        const BitsResult result = encodeValue(ai, full);
        ASSERT_STATUS(EPC_OK, result.status) << ai;
        EXPECT_EQ(TextResult(EPC_OK, full), decodeValue(ai, result.bits)) << ai;
        EXPECT_EQ(BitsResult(EPC_ERR_TOO_LONG, bitsOf(row.left)), encodeValue(ai, full + "7"))
            << ai;
    }
    EXPECT_EQ(BitsResult(EPC_ERR_BAD_CHARACTER, ""), encodeValue("7008", "xxx~"));
}

TEST(TextEncoding, RefusesBitsThatItDoesNotWrite) {
    const struct {
        const char* ai;
        std::string bits;
        EpcStatus status;
        std::string text;
    } cases[] = {
        {"10", "6/3 1/5 0/9", EPC_ERR_BAD_FORMAT, ""},
        {"10", "7/3 0/5", EPC_ERR_BAD_FORMAT, ""},
        {"10", "7/3 0/4", EPC_ERR_TRUNCATED, ""}, // the length comes first
        {"10", "0/3 3/5 7/10", EPC_OK, "007"},
        {"10", "0/3 3/5 1000/10", EPC_ERR_OUT_OF_RANGE, ""},
        {"10", "0/3 19/5 9999999999999999999/64", EPC_OK, "9999999999999999999"},
        {"10", "0/3 19/5 10000000000000000000/64", EPC_ERR_OUT_OF_RANGE, ""},
        {"10", "0/3 20/5 0/60", EPC_ERR_TRUNCATED, ""},
        {"10", "0/3 20/5 7/3 18446744073709551615/64", EPC_OK, "147573952589676412927"},
        {"91", "0/3 90/7 0/299", EPC_OK, std::string(90, '0')},
        {"91", "0/3 90/7 " + std::string(299, '1'), EPC_ERR_NO_ROOM, ""},
        {"91", "0/3 91/7 0/320", EPC_ERR_BAD_FORMAT, ""},
        {"91", "0/3 127/7 0/480", EPC_ERR_BAD_FORMAT, ""},
        {"10", "4/3 2/5 95/7 32/7", EPC_ERR_BAD_CHARACTER, "_"},
        {"10", "5/3 4/5 1601/16 1681/16", EPC_OK, "AAB"},
        {"10", "5/3 2/5 41/16", EPC_OK, "A"},
        {"10", "5/3 3/5 1/16", EPC_OK, ""},
        {"10", "5/3 3/5 64000/16", EPC_OK, "999"},
        {"10", "5/3 6/5 1684/16 0/16", EPC_ERR_BAD_FORMAT, "ABC"},
        {"10", "5/3 6/5 1684/16 64001/16", EPC_ERR_BAD_FORMAT, "ABC"},
        {"10", "5/3 6/5 1684/16 0/15", EPC_ERR_TRUNCATED, "ABC"},
        {"10", "3/3 3/5 0/6 63/6 62/5", EPC_ERR_TRUNCATED, "A_"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(TextResult(row.status, row.text), decodeValue(row.ai, bitsOf(row.bits)))
            << row.ai << " " << row.bits;
    }
    for (std::uint64_t encoding = 0; encoding <= 5; ++encoding) {
        EXPECT_EQ(TextResult(EPC_OK, ""), decodeValue("10", bitsFromNumber(encoding, 3) + "00000"));
    }
}

} // namespace
