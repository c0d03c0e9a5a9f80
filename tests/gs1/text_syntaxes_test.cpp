// One list of AIs in the three syntaxes: all of them give the same rows.
#include "gs1/ai_list.h"
#include "gs1/check_digit.h"

#include "gs1/ai_exports.h"
#include "support/random.h"
#include "support/text_result.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace rosetag;

namespace {

struct AiTexts {
    std::string elementString;
    std::string barcodeString;
    std::string link;
    std::string rows;
};

std::vector<std::string> catalogueCodes() {
    std::vector<std::string> codes;
    for (int number = 0; number < 10000; ++number) {
        std::string code = std::to_string(number);
        code.insert(0, 4 - code.size(), '0');
        code.resize(aiPrefixOf(code[0], code[1]).codeDigits);
        if (aiFind(code) != nullptr && (codes.empty() || codes.back() != code)) {
            codes.push_back(code);
        }
    }
    return codes;
}

std::string escaped(const std::string& text) {
    std::string escapedText;
    for (const char character : text) {
        escapedText += std::string("%") + "0123456789ABCDEF"[character / 16] +
                       "0123456789abcdef"[character % 16];
    }
    return escapedText;
}

void addComponent(AiTexts& texts, Random& random, const AiComponent& component) {
    const bool isFixed = component.digitCount != 0;
    const std::size_t maxLength = component.maxLength != 0 ? component.maxLength : 25;
    std::string value =
        random.text(isFixed ? component.digitCount : random.below(maxLength + 1), "09AZaz-. \"/?");
    if (component.checkKind == AI_CHECK_DIGIT) {
        value = random.digits(component.digitCount - 1U);
        value += gs1CheckDigit(value);
    }
    texts.elementString += value;
    texts.barcodeString += value;
    texts.rows += value;
    // The length of a variable value is that of its escaped form.
    texts.link += isFixed && random.flip() ? escaped(value) : value;
}

void addAi(AiTexts& texts, Random& random, const std::string& code) {
    const AiDefinition& definition = *aiFind(code);
    texts.elementString += "(" + code + ")";
    texts.barcodeString += code;
    texts.link += (texts.link.empty() ? "?" : "&") + code + "=";
    texts.rows += code + "=";
    bool isFixed = true;
    for (int i = 0; i < definition.componentCount; ++i) {
        addComponent(texts, random, definition.components[i]);
        isFixed = isFixed && definition.components[i].digitCount != 0;
    }
    texts.barcodeString += isFixed ? "" : "\x1D";
    texts.rows += " ";
}

TEST(TextSyntaxes, GiveTheSameRows) {
    Random random(20);
    const std::vector<std::string> codes = catalogueCodes();
    ASSERT_FALSE(codes.empty());
    for (std::size_t round = 0; round < 2 * codes.size(); ++round) {
        AiTexts texts;
        // Every AI comes first once.
        addAi(texts, random, codes[round % codes.size()]);
        const std::uint64_t further = random.below(10);
        for (std::uint64_t i = 0; i < further; ++i) {
            addAi(texts, random, codes[random.below(codes.size())]);
        }
        const AiResult expected(EPC_OK, texts.rows + "#" + std::to_string(further + 1));
        EXPECT_EQ(expected, elementStringToRows(texts.elementString));
        EXPECT_EQ(expected, barcodeToRows(texts.barcodeString, GROUP_SEPARATOR));
        EXPECT_EQ(expected, linkToRows(texts.link));
        EXPECT_EQ(TextResult(EPC_OK, texts.elementString),
                  textResult([&](std::int32_t dstSize, char* dst) {
                      return epc_digitalLinkToGs1ElementString(texts.link.c_str(), dstSize, dst);
                  }));
    }
}

} // namespace
