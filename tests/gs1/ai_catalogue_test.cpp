// The catalogue, walked over every text that could be a code, and the reader of codes.
#include "gs1/ai_catalogue.h"

#include "support/status.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

using namespace rosetag;

namespace {

// Every text of two to four digits.
std::vector<std::string> allCodes() {
    std::vector<std::string> codes;
    for (int length = 2, count = 100; length <= 4; ++length, count *= 10) {
        for (int number = 0; number < count; ++number) {
            std::string code = std::to_string(number);
            code.insert(0, static_cast<std::size_t>(length) - code.size(), '0');
            codes.push_back(code);
        }
    }
    return codes;
}

// Kind, characters ("6", "..20"), bits of the length indicator ("l5") and kind of check ("c1").
std::string describe(const AiComponent& component) {
    const auto number = [](const char* letter, int value) {
        return value == 0 ? "" : letter + std::to_string(value);
    };
    return std::to_string(component.kind) + ":" + number("", component.digitCount) +
           number("..", component.maxLength) + number(" l", component.lengthIndicatorBits) +
           number(" c", static_cast<int>(component.checkKind));
}

std::string describe(std::string_view code) {
    const AiDefinition* const definition = aiFind(code);
    if (definition == nullptr) {
        return "none";
    }
    const std::string first = describe(definition->components[0]);
    return definition->componentCount == 1 ? first
                                           : first + " + " + describe(definition->components[1]);
}

// What the kind and the count of characters say about all other fields.
void expectConsistent(const AiComponent& component, const std::string& code) {
    const int digits = component.digitCount;
    const bool isText =
        component.kind == AI_KIND_TEXT || component.kind == AI_KIND_DIGITS_THEN_TEXT;
    const bool hasLength = isText || component.kind == AI_KIND_VAR_NUMERIC;
    EXPECT_EQ(hasLength, component.lengthIndicatorBits != 0) << code;
    EXPECT_TRUE(digits == 0 || component.maxLength == 0) << code;
    if (hasLength) {
        EXPECT_LT(component.maxLength, 1 << component.lengthIndicatorBits) << code;
        EXPECT_GE(component.maxLength, 1 << (component.lengthIndicatorBits - 1)) << code;
    }
}

TEST(AiCatalogue, HoldsItsRowsInOneConsistentForm) {
    int found = 0;
    std::set<std::string> shapes;
    std::string withCheckDigit;
    for (const std::string& code : allCodes()) {
        const AiDefinition* const definition = aiFind(code);
        if (definition == nullptr) {
            continue;
        }
        ++found;
        shapes.insert(describe(code));
        EXPECT_EQ(code, definition->code);
        EXPECT_EQ(code, aiCodeOf(*definition));
        EXPECT_EQ(code.size(), static_cast<std::size_t>(aiCodeLength(code[0], code[1]))) << code;
        EXPECT_EQ(definition->componentCount == 2, definition->components[1].kind != AI_KIND_NONE)
            << code;
        EXPECT_NE(AI_KIND_NONE, definition->components[0].kind) << code;
        EXPECT_EQ(AI_CHECK_NONE, definition->components[1].checkKind) << code;
        for (int i = 0; i < definition->componentCount; ++i) {
            expectConsistent(definition->components[i], code);
        }
        if (definition->components[0].checkKind == AI_CHECK_DIGIT) {
            EXPECT_NE(0, definition->components[0].digitCount) << code;
            withCheckDigit += code + " ";
        }
    }
    EXPECT_EQ(520, found);
    EXPECT_EQ(48U, shapes.size());
    EXPECT_EQ("00 01 02 253 255 402 410 411 412 413 414 415 416 417 8003 8006 8017 8018 8026 ",
              withCheckDigit);
}

TEST(AiCatalogue, FindsExactlyTheWholeCode) {
    const struct {
        const char* code;
        const char* shape;
    } rows[] = {
        // clang-format off
        {"00", "4:18 c1"}, {"01", "4:14 c1"}, {"402", "2:17 c1"},
        {"20", "2:2"}, {"3105", "2:6"}, {"3165", "2:6"}, {"3275", "2:6"},
        {"4309", "2:20"}, {"17", "8:6"}, {"7003", "9:10"}, {"4307", "12:2"},
        {"4321", "7:1"}, {"10", "6:..20 l5"}, {"99", "6:..90 l7"},
        {"8013", "6:..25 l5 c2"}, {"8004", "5:..30 l5"}, {"242", "13:..6 l3"},
        {"7007", "10:"}, {"7011", "11:"}, {"8008", "11:"},
        {"253", "4:13 c1 + 6:..17 l5"}, {"255", "4:13 c1 + 13:..12 l4"},
        {"3933", "2:3 + 13:..15 l4"}, {"4333", "2:6 + 14:..1"},
        // clang-format on
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.shape, describe(row.code)) << row.code;
    }
    for (const char* const code : {"3106", "3166", "3175", "14", "", "1", "012", "100", "0100",
                                   "12345", "31000", "1A", "1\xE1", "310:"}) {
        EXPECT_EQ("none", describe(code)) << code;
    }
    EXPECT_EQ("none", describe(std::string_view("10\0", 3)));
}

TEST(AiCatalogue, KnowsTheLengthOfACode) {
    int known = 0;
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            known += aiCodeLength(static_cast<char>(first), static_cast<char>(second)) != 0;
        }
    }
    EXPECT_EQ(45, known);
    EXPECT_EQ(4, aiCodeLength('8', '2'));
    EXPECT_EQ(0, aiCodeLength('1', '4'));
}

TEST(AiCatalogue, ReadsTheCodeAtTheCursor) {
    const struct {
        const char* text;
        EpcStatus status;
        const char* code;
        int consumed;
    } rows[] = {
        {"31031", EPC_OK, "3103", 4},
        {"01123", EPC_OK, "01", 2},
        {"2409", EPC_OK, "240", 3},
        {"3106", EPC_OK, "", 4}, // not assigned
        {"", EPC_ERR_TRUNCATED, "", 0},
        {"3", EPC_ERR_TRUNCATED, "", 0},
        {"310", EPC_ERR_TRUNCATED, "", 0},
        {"3X", EPC_ERR_BAD_CHARACTER, "", 0},
        {"X", EPC_ERR_BAD_CHARACTER, "", 0},
        {"XX", EPC_ERR_BAD_CHARACTER, "", 0},
        {"24X", EPC_ERR_BAD_CHARACTER, "", 0},
        {"142", EPC_ERR_UNKNOWN_AI, "", 0},
    };
    for (const auto& row : rows) {
        TextCursor cursor = textCursorOver(row.text);
        const AiDefinition* ai = nullptr;
        EXPECT_STATUS(row.status, aiReadCode(cursor, ai)) << row.text;
        if (row.status == EPC_OK) {
            EXPECT_EQ(row.consumed, cursor.current - cursor.begin) << row.text;
            EXPECT_EQ(row.code, ai == nullptr ? "" : std::string(ai->code)) << row.text;
        }
    }
}

} // namespace
