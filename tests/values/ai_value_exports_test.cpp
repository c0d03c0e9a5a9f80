// The exports of single values: their forms of bits, and what they leave in the caller's storage.
#include "support/status.h"
#include "values/value_bits.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace {

constexpr std::int32_t UNTOUCHED = 4711;

struct FormRow {
    std::string ai, value;
    std::int32_t withCode, encoding;
    EpcStatus status;
    std::int32_t bits;
    std::string hex; // all digits
};

const FormRow formRows[] = {
    {"21", "ABCG", 1, AI_ENC_AUTO, EPC_OK, 40, "2164001086"},
    {"21", "ABCG", 0, AI_ENC_AUTO, EPC_OK, 32, "64001086"},
    {"21", "ABCG", -1, AI_ENC_HEX_UPPER, EPC_ERR_BAD_CHARACTER, UNTOUCHED, ""},
    {"3103", "000189", 0, AI_ENC_AUTO, EPC_OK, 20, "000BD0"},
    {"4321", "1", 0, AI_ENC_AUTO, EPC_OK, 1, "80"},
    {"8200", "", 1, AI_ENC_ISO646, EPC_OK, 26, "82008000"},
    {"91", std::string(69, 'x'), 1, AI_ENC_ISO646, EPC_ERR_NO_ROOM, UNTOUCHED, ""},
    {"1", "1", 0, AI_ENC_AUTO, EPC_ERR_UNKNOWN_AI, UNTOUCHED, ""},
    {"99999", "1", 0, AI_ENC_AUTO, EPC_ERR_UNKNOWN_AI, UNTOUCHED, ""},
    {"", "1", 0, AI_ENC_AUTO, EPC_ERR_UNKNOWN_AI, UNTOUCHED, ""},
    {"3106", "000001", 0, AI_ENC_AUTO, EPC_ERR_UNKNOWN_AI, UNTOUCHED, ""},
};

void expectHexForm(const FormRow& row) {
    const auto whole = static_cast<std::int32_t>(row.hex.size());
    for (std::int32_t dstSize = 1; dstSize <= whole + 1; ++dstSize) {
        std::int32_t outBits = UNTOUCHED;
        const TextResult result = textResult(
            [&](std::int32_t size, char* dst) {
                return epc_AIToHexEnc(row.ai.c_str(), row.value.c_str(), row.withCode, row.encoding,
                                      size, dst, &outBits);
            },
            dstSize);
        const EpcStatus status = row.status != EPC_OK   ? row.status
                                 : dstSize == whole + 1 ? EPC_OK
                                                        : EPC_ERR_NO_ROOM;
        const auto fitted = static_cast<std::size_t>(dstSize - 1);
        EXPECT_EQ(
            TextResult(status, row.status == EPC_OK ? row.hex.substr(0, fitted) : "untouched"),
            result);
        EXPECT_EQ(row.bits, outBits) << "room " << fitted;
    }
}

void expectWordForm(const FormRow& row) {
    const std::vector<std::uint16_t> expected = wordsFromBytes(bytesFromHex(row.hex));
    const auto whole = static_cast<std::int32_t>(expected.size());
    for (std::int32_t maxWords = -1; maxWords <= 32; ++maxWords) {
        std::array<std::uint16_t, 32> words;
        words.fill(0xA5A5);
        std::int32_t outBits = UNTOUCHED;
        const EpcStatus status = epc_AIToWordsEnc(row.ai.c_str(), row.value.c_str(), row.withCode,
                                                  row.encoding, maxWords, words.data(), &outBits);
        const bool isLimit = maxWords < 0 || maxWords > 31;
        const bool fits = row.status == EPC_OK && !isLimit && maxWords >= whole;
        EXPECT_STATUS(isLimit                ? EPC_ERR_TOO_LONG
                      : row.status != EPC_OK ? row.status
                      : fits                 ? EPC_OK
                                             : EPC_ERR_NO_ROOM,
                      status)
            << maxWords << " words";
        EXPECT_EQ(fits ? row.bits : UNTOUCHED, outBits) << maxWords << " words";
        const std::vector<std::uint16_t> written(words.begin(), words.begin() + (fits ? whole : 0));
        EXPECT_EQ(fits ? expected : std::vector<std::uint16_t>(), written) << maxWords << " words";
        EXPECT_TRUE(std::all_of(words.begin() + (fits ? whole : 0), words.end(),
                                [](std::uint16_t word) { return word == 0xA5A5; }))
            << maxWords << " words";
    }
}

TEST(AiValueExports, WriteHexAndWords) {
    for (const FormRow& row : formRows) {
        SCOPED_TRACE(row.ai + " " + row.value);
        expectHexForm(row);
        expectWordForm(row);
    }
}

TEST(AiValueExports, WriteBytes) {
    EXPECT_EQ(BitsResult(EPC_OK, bitsOf("2/4 1/4 011 4/5 0/6 1/6 2/6 6/6")),
              encodeValue("21", "ABCG", AI_ENC_AUTO, 1, 8));
    EXPECT_EQ(BitsResult(EPC_ERR_UNKNOWN_AI, "untouched"), encodeValue("1", "A"));
    EXPECT_EQ(BitsResult(EPC_ERR_NO_ROOM, bitsOf("3/4 1/4")),
              encodeValue("3103", "000189", AI_ENC_AUTO, 1, 1));
    EXPECT_EQ(BitsResult(EPC_ERR_NO_ROOM, "untouched"),
              encodeValue("3103", "000189", AI_ENC_AUTO, 1, 0));
    EXPECT_EQ(640U, encodeValue("91", std::string(90, 'x'), AI_ENC_ISO646, 0, 80).bits.size());
    // The plain twins let the library choose, and no count need be asked for.
    std::uint8_t out[8] = {};
    std::uint16_t words[4] = {};
    char hex[16] = {};
    EXPECT_STATUS(EPC_OK, epc_AIToBinary("21", "ABCG", 1, sizeof out, out, nullptr));
    EXPECT_EQ("2164001086", hexFromBytes(out, 5));
    EXPECT_STATUS(EPC_OK, epc_AIToHex("21", "ABCG", 1, sizeof hex, hex, nullptr));
    EXPECT_STREQ("2164001086", hex);
    EXPECT_STATUS(EPC_OK, epc_AIToWords("21", "ABCG", 1, 4, words, nullptr));
    EXPECT_EQ(0x2164, words[0]);
    EXPECT_EQ(0x8600, words[2]);
}

TEST(AiValueExports, ReadValuesOfANamedAi) {
    const auto hexValue = [](const std::string& hex, const char* ai) {
        return textResult([&](std::int32_t size, char* dst) {
            return epc_hexValueToAI(hex.c_str(), ai, size, dst);
        });
    };
    const auto wordsValue = [](std::int32_t bits, const char* ai) {
        const std::vector<std::uint16_t> words = {0x000B, 0xDFFF};
        return textResult([&](std::int32_t size, char* dst) {
            return epc_wordsValueToAI(bits, words.data(), ai, size, dst);
        });
    };
    const std::string digits62(124, '8');
    const struct {
        const char* name;
        TextResult expected, actual;
    } cases[] = {
        {"hex", {EPC_OK, "ABCG"}, hexValue("64001086", "21")},
        {"hex, lower case, bits after it", {EPC_OK, "000189"}, hexValue("000bdfff", "3103")},
        {"an odd digit counts as a byte", {EPC_OK, "0"}, hexValue("3", "4321")},
        {"no bits", {EPC_ERR_TRUNCATED, ""}, hexValue("", "4330")},
        {"no digit", {EPC_ERR_NO_ROOM, "untouched"}, hexValue("64001G86", "21")},
        {"124 digits", {EPC_OK, "88888888888888"}, hexValue(digits62, "01")},
        {"125 digits", {EPC_ERR_TOO_LONG, "untouched"}, hexValue(digits62 + "8", "01")},
        {"unknown AI", {EPC_ERR_UNKNOWN_AI, ""}, hexValue("00", "14")},
        {"AI with a zero too many", {EPC_ERR_UNKNOWN_AI, ""}, hexValue("00", "100")},
        {"words", {EPC_OK, "000189"}, wordsValue(20, "3103")},
        {"words, a bit too few", {EPC_ERR_TRUNCATED, ""}, wordsValue(19, "3103")},
        {"words, the sign seen", {EPC_OK, "000189-"}, wordsValue(21, "4330")},
        {"words, the sign not seen", {EPC_OK, "000189"}, wordsValue(20, "4330")},
        {"no words", {EPC_ERR_TRUNCATED, ""}, wordsValue(0, "4330")},
        {"497 bits of words", {EPC_ERR_TOO_LONG, "untouched"}, wordsValue(497, "3103")},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(row.expected, row.actual) << row.name;
    }
}

TEST(AiValueExports, ReadValuesAfterTheirAi) {
    const struct {
        const char* bits;
        TextResult expected;
        const char* aiOut; // "~" where a character is not written, "." for a NUL
    } cases[] = {
        {"1/4 0/4 001 1/5 10/4", {EPC_OK, "A"}, "10..."},
        {"`3103`/4 189/20 0/40", {EPC_OK, "000189"}, "3103."},
        {"`4149506000134376`/4", {EPC_OK, "9506000134376"}, "414.."},
        {"1/4 7/4 25/7 2/4 29/5", {EPC_ERR_BAD_FORMAT, "250229"}, "17..."},
        {"1/4 4/4 0/40", {EPC_ERR_UNKNOWN_AI, ""}, "14..."},
        {"`3109`/4 0/40", {EPC_ERR_UNKNOWN_AI, ""}, "3109."},
        {"10/4 1/4", {EPC_ERR_BAD_FORMAT, ""}, "~~..."},
        {"1/4 15/4", {EPC_ERR_BAD_FORMAT, ""}, "1~..."},
        {"3/4 1/4 0/4 10/4", {EPC_ERR_BAD_FORMAT, ""}, "310.."},
        {"3/4 1/4 10/4", {EPC_ERR_BAD_FORMAT, ""}, "31..."},
        {"3/3", {EPC_ERR_TRUNCATED, ""}, "~~..."},
        {"3/4 1/3", {EPC_ERR_TRUNCATED, ""}, "3~..."},
        {"3/4 1/4 0/4", {EPC_ERR_TRUNCATED, ""}, "310.."},
        {"2/4 0/4 5/6", {EPC_ERR_TRUNCATED, ""}, "20..."},
        {"0/8 1/71", {EPC_ERR_TRUNCATED, ""}, "00..."},
        {"0/8 1/72", {EPC_OK, "000000000000000001"}, "00..."},
    };
    for (const auto& row : cases) {
        const std::string bits = bitsOf(row.bits);
        const std::vector<std::uint8_t> bytes = bytesFromBits(bits);
        const auto bitCount = static_cast<std::int32_t>(bits.size());
        std::string aiOut(5, '~');
        EXPECT_EQ(row.expected, textResult([&](std::int32_t size, char* dst) {
                      return epc_plusAidcBinaryToAI(bitCount, bytes.data(), aiOut.data(), size,
                                                    dst);
                  }))
            << row.bits;
        std::replace(aiOut.begin(), aiOut.end(), '\0', '.');
        EXPECT_EQ(row.aiOut, aiOut) << row.bits;

        std::string aiOfWords(5, '~');
        EXPECT_EQ(row.expected, textResult([&](std::int32_t size, char* dst) {
                      return epc_plusAidcWordsToAI(bitCount, wordsFromBytes(bytes).data(),
                                                   aiOfWords.data(), size, dst);
                  }))
            << row.bits;
        std::replace(aiOfWords.begin(), aiOfWords.end(), '\0', '.');
        EXPECT_EQ(aiOut, aiOfWords) << row.bits;
    }
    const struct {
        std::string hex;
        TextResult expected;
        const char* aiOut;
    } hexCases[] = {
        {"2164001086", {EPC_OK, "ABCG"}, "21..."},
        {"", {EPC_ERR_TRUNCATED, ""}, "~~..."},
        {"1", {EPC_ERR_TRUNCATED, ""}, "10..."}, // 10, and no bits after it
        {"21640010X6", {EPC_ERR_NO_ROOM, "untouched"}, "~~~~~"},
        {std::string(125, '1'), {EPC_ERR_TOO_LONG, "untouched"}, "~~~~~"},
    };
    for (const auto& row : hexCases) {
        std::string aiOut(5, '~');
        EXPECT_EQ(row.expected, textResult([&](std::int32_t size, char* dst) {
                      return epc_plusAidcHexToAI(row.hex.c_str(), aiOut.data(), size, dst);
                  }))
            << row.hex;
        std::replace(aiOut.begin(), aiOut.end(), '\0', '.');
        EXPECT_EQ(row.aiOut, aiOut) << row.hex;
    }
}

} // namespace
