// Every AI of the catalogue, with values of shortest, typical and longest form: into bits and back
// unchanged, alone and in the data section of a plus scheme.
#include "gs1/ai_catalogue.h"
#include "gs1/check_digit.h"
#include "support/ai_result.h"
#include "support/random.h"
#include "support/status.h"
#include "values/value_bits.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace rosetag;

namespace {

enum class Form { SHORTEST, TYPICAL, LONGEST };

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

std::string fixedComponent(Random& random, const AiComponent& component, Form form) {
    const char* const digits = form == Form::SHORTEST  ? "0"
                               : form == Form::LONGEST ? "9"
                                                       : "0123456789";
    std::string value = random.text(component.digitCount, digits);
    if (component.checkKind == AI_CHECK_DIGIT) {
        value.pop_back();
        value += gs1CheckDigit(value);
    }
    return value;
}

std::string component(Random& random, const AiComponent& component, Form form) {
    const auto shortOrLong = [form](std::size_t shortest, std::size_t typical,
                                    std::size_t longest) {
        return form == Form::SHORTEST ? shortest : form == Form::TYPICAL ? typical : longest;
    };
    const std::size_t length = shortOrLong(0, component.maxLength / 2U, component.maxLength);
    switch (component.kind) {
    case AI_KIND_NUMERIC:
    case AI_KIND_DIGITS:
        return fixedComponent(random, component, form);
    case AI_KIND_DIGITS_THEN_TEXT:
    case AI_KIND_TEXT:
        return random.text(length, textAlphabets[random.below(std::size(textAlphabets))]);
    case AI_KIND_FLAG:
        return random.flip() ? "1" : "0";
    case AI_KIND_DATE:
        return date(random);
    case AI_KIND_DATE_TIME:
        return date(random) + time(random, 2);
    case AI_KIND_DATE_RANGE:
        return date(random) + (form == Form::LONGEST ? date(random) : "");
    case AI_KIND_DATE_TIME_VAR:
        return date(random) + time(random, shortOrLong(0, random.below(4), 3));
    case AI_KIND_LETTERS:
        return random.text(2, "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    case AI_KIND_VAR_NUMERIC:
        return random.digits(length);
    case AI_KIND_SIGN:
        return form == Form::SHORTEST ? "" : "-";
    default:
        ADD_FAILURE() << "kind " << component.kind;
        return "";
    }
}

std::string valueOf(Random& random, const AiDefinition& ai, Form form) {
    std::string value;
    for (std::size_t i = 0; i < ai.componentCount; ++i) {
        value += component(random, ai.components[i], form);
    }
    return value;
}

std::vector<std::string> allCodes() {
    std::vector<std::string> codes;
    for (std::size_t length = 2; length <= 4; ++length) {
        for (std::uint64_t number = 0; number < 10000; ++number) {
            std::string code = std::to_string(number);
            if (code.size() <= length) {
                code.insert(0, length - code.size(), '0');
                if (aiFind(code) != nullptr) {
                    codes.push_back(code);
                }
            }
        }
    }
    return codes;
}

void expectAlone(const std::string& ai, const std::string& value) {
    const BitsResult bare = encodeValue(ai, value);
    ASSERT_STATUS(EPC_OK, bare.status);
    EXPECT_EQ(TextResult(EPC_OK, value), decodeValue(ai, bare.bits));

    std::string code;
    for (const char digit : ai) {
        code += bitsFromNumber(static_cast<std::uint64_t>(digit - '0'), 4);
    }
    const BitsResult coded = encodeValue(ai, value, AI_ENC_AUTO, 1);
    EXPECT_EQ(BitsResult(EPC_OK, code + bare.bits), coded);
    const std::vector<std::uint8_t> bytes = bytesFromBits(coded.bits);
    char aiOut[5] = {};
    EXPECT_EQ(TextResult(EPC_OK, value), textResult([&](std::int32_t dstSize, char* dst) {
                  return epc_plusAidcBinaryToAI(static_cast<std::int32_t>(coded.bits.size()),
                                                bytes.data(), aiOut, dstSize, dst);
              }));
    EXPECT_EQ(ai, aiOut);
}

void expectInDataSection(const std::string& ai, const std::string& value) {
    const std::string text = "(8004)95060X(" + ai + ")" + value;
    const BitsResult result =
        bitsResult(200, 8, [&](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) {
            return epc_gs1ElementStringToBinary(text.c_str(), EPC_SCHEME_GIAI_PLUS, 5, 0, maxBytes,
                                                out, outBytes);
        });
    ASSERT_STATUS(EPC_OK, result.status);
    const std::vector<std::uint8_t> bytes = bytesFromBits(result.bits);
    EXPECT_EQ(AiResult(EPC_OK, "8004=95060X " + ai + "=" + value + " #2"),
              aiResult([&](const AiArrays& out) {
                  return epc_binaryToAIs(static_cast<std::int32_t>(result.bits.size()),
                                         bytes.data(), out.maxAIs, out.valueSize, out.aiCodes,
                                         out.aiValues, out.aiCount);
              }));
}

TEST(CatalogueWalk, RoundTripsEveryAi) {
    const std::vector<std::string> codes = allCodes();
    ASSERT_EQ(520U, codes.size());
    Random random(520);
    for (const std::string& ai : codes) {
        for (const Form form : {Form::SHORTEST, Form::TYPICAL, Form::TYPICAL, Form::LONGEST}) {
            const std::string value = valueOf(random, *aiFind(ai), form);
            SCOPED_TRACE("(" + ai + ")" + value);
            expectAlone(ai, value);
            expectInDataSection(ai, value);
        }
    }
}

} // namespace
