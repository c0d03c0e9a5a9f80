// Every AI, by a table of what its value looks like: shortest, typical and longest values into the
// bits that the table says and back, alone and in the data section of a plus scheme; and what the
// table does not allow is refused.
#include "support/ai_result.h"
#include "support/random.h"
#include "support/status.h"
#include "values/value_bits.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct FormRow {
    const char* codes; // ranges: every code from the first to the last
    const char* parts;
};

// d  digits, 4 bits each           n  digits as one number     v  up to so many digits as a number
// t  up to so many characters      m  digits, then a text, up to so many characters in all
// !  ends with a check digit
//
// Source: GS1 General Specifications, section 3.2; EPC Tag Data Standard, table F.
// clang-format off
constexpr FormRow formRows[] = {
    // AIs                                                   parts
    {"00 8017 8018",                                         "d18!"},
    {"01 02",                                                "d14!"},
    {"410-417",                                              "d13!"},
    {"402",                                                  "n17!"},
    {"253",                                                  "d13! t17"},
    {"255",                                                  "d13! v12"},
    {"8003",                                                 "d14! t16"},
    {"8006 8026",                                            "d14! d4"},
    {"8004 8010 7023",                                       "m30"},
    {"11-13 15-17 4326 7006",                                "date"},
    {"4324 4325 7003",                                       "minute"},
    {"7007",                                                 "range"},
    {"7011 8008",                                            "precise"},
    {"4321-4323",                                            "flag"},
    {"4307 4317",                                            "letters"},
    {"4330-4333",                                            "n6 sign"},
    {"7241",                                                 "d2"},
    {"20",                                                   "n2"},
    {"422 424 426",                                          "n3"},
    {"3940-3943 8111",                                       "n4"},
    {"8005 3950-3953",                                       "n6"},
    {"3100-3105 3110-3115 3120-3125 3130-3135 3140-3145",    "n6"},
    {"3150-3155 3160-3165",                                  "n6"},
    {"3200-3205 3210-3215 3220-3225 3230-3235 3240-3245",    "n6"},
    {"3250-3255 3260-3265 3270-3275 3280-3285 3290-3295",    "n6"},
    {"3300-3305 3310-3315 3320-3325 3330-3335 3340-3345",    "n6"},
    {"3350-3355 3360-3365 3370-3375",                        "n6"},
    {"3400-3405 3410-3415 3420-3425 3430-3435 3440-3445",    "n6"},
    {"3450-3455 3460-3465 3470-3475 3480-3485 3490-3495",    "n6"},
    {"3500-3505 3510-3515 3520-3525 3530-3535 3540-3545",    "n6"},
    {"3550-3555 3560-3565 3570-3575",                        "n6"},
    {"3600-3605 3610-3615 3620-3625 3630-3635 3640-3645",    "n6"},
    {"3650-3655 3660-3665 3670-3675 3680-3685 3690-3695",    "n6"},
    {"7001",                                                 "n13"},
    {"8001",                                                 "n14"},
    {"4309",                                                 "n20"},
    {"7004",                                                 "v4"},
    {"242",                                                  "v6"},
    {"30 37",                                                "v8"},
    {"8019",                                                 "v10"},
    {"8011",                                                 "v12"},
    {"3900-3909 3920-3929 423 425",                          "v15"},
    {"3910-3919 3930-3939",                                  "n3 v15"},
    {"421",                                                  "n3 t9"},
    {"7030-7039",                                            "n3 t27"},
    {"7010",                                                 "t2"},
    {"427 7008",                                             "t3"},
    {"7040",                                                 "t4"},
    {"7009",                                                 "t10"},
    {"7005",                                                 "t12"},
    {"10 21 22 243 254 420 4318 710-715 7020-7022 7240",     "t20"},
    {"8002 8012",                                            "t20"},
    {"8007",                                                 "t24"},
    {"7242 8013 8020",                                       "t25"},
    {"235",                                                  "t28"},
    {"240 241 250 251 400 401 403 4308 4319 7002 7230-7239", "t30"},
    {"90",                                                   "t30"},
    {"4300 4301 4310 4311 4320",                             "t35"},
    {"8009",                                                 "t50"},
    {"4302-4306 4312-4316 8110 8112 8200",                   "t70"},
    {"8030 91-99",                                           "t90"},
};
// clang-format on

struct Part {
    std::string kind;
    std::size_t size;
    bool isChecked;
};

using Form = std::vector<Part>;

std::vector<std::string> wordsOf(const char* text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

Form formOf(const char* parts) {
    Form form;
    for (const std::string& word : wordsOf(parts)) {
        const std::size_t digits = word.find_first_of("0123456789");
        const bool hasSize = digits != std::string::npos;
        form.push_back({word.substr(0, digits), hasSize ? std::stoul(word.substr(digits)) : 0,
                        word.back() == '!'});
    }
    return form;
}

std::map<std::string, Form> allForms() {
    std::map<std::string, Form> forms;
    for (const FormRow& row : formRows) {
        for (const std::string& word : wordsOf(row.codes)) {
            const std::size_t dash = word.find('-');
            std::string code = word.substr(0, dash);
            const std::string last = dash == std::string::npos ? code : word.substr(dash + 1);
            for (; code <= last; ++code.back()) {
                forms[code] = formOf(row.parts);
            }
        }
    }
    return forms;
}

// The bits of a number of any length, without leading zeros.
std::string binaryOf(std::string digits) {
    std::string bits;
    while (digits.find_first_not_of('0') != std::string::npos) {
        int carry = 0;
        for (char& digit : digits) {
            const int number = carry * 10 + (digit - '0');
            digit = static_cast<char>('0' + number / 2);
            carry = number % 2;
        }
        bits.insert(bits.begin(), static_cast<char>('0' + carry));
    }
    return bits;
}

// In as many bits as so many nines take.
std::string numberBits(const std::string& digits) {
    const std::string bits = binaryOf(digits);
    return std::string(binaryOf(std::string(digits.size(), '9')).size() - bits.size(), '0') + bits;
}

std::string lengthBits(std::size_t length, std::size_t most) {
    return bitsFromNumber(length, binaryOf(std::to_string(most)).size());
}

std::string digitBits(const std::string& digits) {
    std::string bits;
    for (const char digit : digits) {
        bits += bitsFromNumber(static_cast<std::uint64_t>(digit - '0'), 4);
    }
    return bits;
}

// With all characters in 7 bits.
std::string textBits(const std::string& text, std::size_t most) {
    std::string bits = "100" + lengthBits(text.size(), most);
    for (const char character : text) {
        bits += bitsFromNumber(static_cast<std::uint64_t>(character), 7);
    }
    return bits;
}

std::string digitsThenTextBits(const std::string& value, std::size_t most) {
    const std::size_t digits = std::min(value.find_first_not_of("0123456789"), value.size());
    const std::string bits = digitBits(value.substr(0, digits));
    return digits == value.size() ? bits + "1111"
                                  : bits + "1110" + textBits(value.substr(digits), most);
}

// Year, month, day, hour, minute and second, as many as there are.
std::string dateBits(const std::string& value) {
    constexpr std::size_t widths[] = {7, 4, 5, 5, 6, 6};
    std::string bits;
    for (std::size_t i = 0; 2 * i < value.size(); ++i) {
        bits += bitsFromNumber(std::stoul(value.substr(2 * i, 2)), widths[i]);
    }
    return bits;
}

std::string partBits(const Part& part, const std::string& value) {
    if (part.kind == "d") {
        return digitBits(value);
    }
    if (part.kind == "n") {
        return numberBits(value);
    }
    if (part.kind == "v") {
        return lengthBits(value.size(), part.size) + numberBits(value);
    }
    if (part.kind == "t") {
        return textBits(value, part.size);
    }
    if (part.kind == "m") {
        return digitsThenTextBits(value, part.size);
    }
    if (part.kind == "range") {
        return value.size() == 6 ? "0" + dateBits(value)
                                 : "1" + dateBits(value.substr(0, 6)) + dateBits(value.substr(6));
    }
    if (part.kind == "precise") {
        return bitsFromNumber(value.size() == 6 ? 3 : (value.size() - 8) / 2, 2) + dateBits(value);
    }
    if (part.kind == "letters") {
        return bitsFromNumber(static_cast<std::uint64_t>(value[0] - 'A'), 6) +
               bitsFromNumber(static_cast<std::uint64_t>(value[1] - 'A'), 6);
    }
    if (part.kind == "flag") {
        return value;
    }
    if (part.kind == "sign") {
        return value.empty() ? "0" : "1";
    }
    return dateBits(value);
}

enum class Length { SHORTEST, TYPICAL, LONGEST };

// Every encoding gets its turn. No "(": it would end a value of an element string.
const char* const textAlphabets[] = {
    "0123456789",
    "0123456789ABCDEF",
    "0123456789abcdef",
    "ABCDEFGHIJKLMNOPQRSTUVWXYZ-.:0123456789",
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_",
    "AZaz09!\"#%&')*+,-./:;<=>?_",
};

std::string twoDigits(std::int32_t number) {
    return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

std::string date(Random& random) {
    return twoDigits(random.between(0, 99)) + twoDigits(random.between(1, 12)) +
           twoDigits(random.between(0, 28));
}

std::string time(Random& random, std::size_t fields) {
    return (twoDigits(random.between(0, 23)) + twoDigits(random.between(0, 59)) +
            twoDigits(random.between(0, 59)))
        .substr(0, 2 * fields);
}

char checkDigit(const std::string& digits) {
    int sum = 0;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        sum += (digits[digits.size() - 1 - i] - '0') * (i % 2 == 0 ? 3 : 1);
    }
    return static_cast<char>('0' + (10 - sum % 10) % 10);
}

std::string fixedDigits(Random& random, const Part& part, Length length) {
    const char* const digits = length == Length::SHORTEST  ? "0"
                               : length == Length::LONGEST ? "9"
                                                           : "0123456789";
    std::string value = random.text(part.size, digits);
    if (part.isChecked) {
        value.pop_back();
        value += checkDigit(value);
    }
    return value;
}

std::string partValue(Random& random, const Part& part, Length length) {
    const auto byLength = [length](std::size_t shortest, std::size_t typical, std::size_t longest) {
        return length == Length::SHORTEST  ? shortest
               : length == Length::TYPICAL ? typical
                                           : longest;
    };
    const std::size_t size = byLength(0, part.size / 2, part.size);
    if (part.kind == "d" || part.kind == "n") {
        return fixedDigits(random, part, length);
    }
    if (part.kind == "v") {
        return random.digits(size);
    }
    if (part.kind == "t" || part.kind == "m") {
        return random.text(size, textAlphabets[random.below(std::size(textAlphabets))]);
    }
    if (part.kind == "flag") {
        return random.flip() ? "1" : "0";
    }
    if (part.kind == "letters") {
        return random.text(2, "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    }
    if (part.kind == "sign") {
        return length == Length::SHORTEST ? "" : "-";
    }
    std::string value = date(random);
    if (part.kind == "minute") {
        value += time(random, 2);
    } else if (part.kind == "precise") {
        value += time(random, byLength(0, random.below(4), 3));
    } else if (part.kind == "range" && length == Length::LONGEST) {
        value += date(random);
    }
    return value;
}

void expectAlone(const std::string& ai, const std::string& value, const std::string& bits) {
    EXPECT_EQ(BitsResult(EPC_OK, bits), encodeValue(ai, value, AI_ENC_ISO646));
    EXPECT_EQ(TextResult(EPC_OK, value), decodeValue(ai, bits));

    const BitsResult bare = encodeValue(ai, value);
    ASSERT_STATUS(EPC_OK, bare.status);
    EXPECT_EQ(TextResult(EPC_OK, value), decodeValue(ai, bare.bits));
    const BitsResult coded = encodeValue(ai, value, AI_ENC_AUTO, 1);
    EXPECT_EQ(BitsResult(EPC_OK, digitBits(ai) + bare.bits), coded);
    const std::vector<std::uint8_t> bytes = bytesFromBits(coded.bits);
    char aiOut[5] = {};
    EXPECT_EQ(TextResult(EPC_OK, value), textResult([&](std::int32_t dstSize, char* dst) {
                  return epc_plusAidcBinaryToAI(static_cast<std::int32_t>(coded.bits.size()),
                                                bytes.data(), aiOut, dstSize, dst);
              }));
    EXPECT_EQ(ai, aiOut);
}

BitsResult encodeInDataSection(const std::string& ai, const std::string& value) {
    const std::string text = "(8004)95060X(" + ai + ")" + value;
    return bitsResult(200, 8,
                      [&](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) {
                          return epc_gs1ElementStringToBinary(text.c_str(), EPC_SCHEME_GIAI_PLUS, 5,
                                                              0, maxBytes, out, outBytes);
                      });
}

void expectInDataSection(const std::string& ai, const std::string& value) {
    const BitsResult result = encodeInDataSection(ai, value);
    ASSERT_STATUS(EPC_OK, result.status);
    const std::vector<std::uint8_t> bytes = bytesFromBits(result.bits);
    EXPECT_EQ(AiResult(EPC_OK, "8004=95060X " + ai + "=" + value + " #2"),
              aiResult([&](const AiArrays& out) {
                  return epc_binaryToAIs(static_cast<std::int32_t>(result.bits.size()),
                                         bytes.data(), out.maxAIs, out.valueSize, out.aiCodes,
                                         out.aiValues, out.aiCount);
              }));
}

TEST(CatalogueWalk, GivesEveryAiItsBits) {
    Random random(520);
    for (const auto& [ai, form] : allForms()) {
        for (const Length length :
             {Length::SHORTEST, Length::TYPICAL, Length::TYPICAL, Length::LONGEST}) {
            std::string value;
            std::string bits;
            for (const Part& part : form) {
                const std::string text = partValue(random, part, length);
                value += text;
                bits += partBits(part, text);
            }
            SCOPED_TRACE("(" + ai + ")" + value);
            expectAlone(ai, value, bits);
            expectInDataSection(ai, value);
        }
    }
}

TEST(CatalogueWalk, HoldsAValueToItsLengthAndCheckDigit) {
    Random random(521);
    for (const auto& [ai, form] : allForms()) {
        std::string longest;
        for (const Part& part : form) {
            longest += partValue(random, part, Length::LONGEST);
        }
        SCOPED_TRACE("(" + ai + ")" + longest);
        EXPECT_STATUS(EPC_ERR_BAD_FORMAT, encodeInDataSection(ai, longest + "0").status);
        const Part& first = form.front();
        if (first.kind == "d" || first.kind == "n") {
            EXPECT_STATUS(EPC_ERR_NO_ROOM,
                          encodeInDataSection(ai, longest.substr(0, first.size - 1)).status);
            char& digit = longest[first.size - 1];
            digit = digit == '9' ? '0' : static_cast<char>(digit + 1);
            EXPECT_STATUS(first.isChecked ? EPC_ERR_CHECK_DIGIT : EPC_OK,
                          encodeInDataSection(ai, longest).status);
        }
    }
}

TEST(CatalogueWalk, KnowsNoOtherAi) {
    const auto forms = allForms();
    EXPECT_LE(520U, forms.size());
    for (int length = 1; length <= 4; ++length) {
        for (int number = 0; number < 10000; ++number) {
            std::string code = std::to_string(number);
            if (code.size() <= static_cast<std::size_t>(length)) {
                code.insert(0, static_cast<std::size_t>(length) - code.size(), '0');
                EXPECT_EQ(forms.count(code) == 0,
                          encodeValue(code, "").status == EPC_ERR_UNKNOWN_AI)
                    << code;
            }
        }
    }
}

} // namespace
