// The catalogue, walked over every text that could be a code, its leading digits and the reader of
// codes. What the values look like is held against a table of its own in the tests of the values.
#include "gs1/ai_catalogue.h"
#include "gs1/ai_table.h"

#include "support/status.h"

#include <gtest/gtest.h>

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

TEST(AiCatalogue, HoldsEachCodeOfTheTable) {
    int found = 0;
    for (const std::string& code : allCodes()) {
        const AiDefinition* const definition = aiFind(code);
        const AiTableRow* const row = aiTableFind(code);
        ASSERT_EQ(row == nullptr, definition == nullptr) << code;
        if (definition == nullptr) {
            continue;
        }
        ++found;
        EXPECT_FALSE(row->title.empty()) << code;
        EXPECT_EQ(code, definition->code);
        EXPECT_EQ(code, aiCodeOf(*definition));
        EXPECT_EQ(std::stoi(code, nullptr, 16), definition->packedCode) << code;
    }
    EXPECT_LT(0, found);
}

TEST(AiCatalogue, FindsExactlyTheWholeCode) {
    for (const char* const code : {"00", "10", "235", "3105", "3165", "3275", "7021", "8200"}) {
        EXPECT_NE(nullptr, aiFind(code)) << code;
    }
    for (const char* const code : {"3106", "3166", "3175", "14", "", "1", "012", "100", "0100",
                                   "12345", "31000", "1A", "1\xE1", "310:"}) {
        EXPECT_EQ(nullptr, aiFind(code)) << code;
        EXPECT_EQ(nullptr, aiTableFind(code)) << code;
    }
    EXPECT_EQ(nullptr, aiFind(std::string_view("10\0", 3)));
}

// Source: EPC Tag Data Standard, table K; GS1 General Specifications, figure 7.8.5-2, whose lengths
// include the code.
TEST(AiPrefix, TellsTheLengthsOfCodeAndValue) {
    const struct {
        int first, last;
        int codeDigits;
        int predefinedLength; // of code and value; 0: the value ends at a separator
    } rows[] = {
        {0, 0, 2, 20},  {1, 2, 2, 16},  {10, 10, 2, 0}, {11, 13, 2, 8},  {15, 17, 2, 8},
        {20, 20, 2, 4}, {21, 22, 2, 0}, {23, 25, 3, 0}, {30, 30, 2, 0},  {31, 36, 4, 10},
        {37, 37, 2, 0}, {39, 39, 4, 0}, {40, 40, 3, 0}, {41, 41, 3, 16}, {42, 42, 3, 0},
        {43, 43, 4, 0}, {70, 70, 4, 0}, {71, 71, 3, 0}, {72, 72, 4, 0},  {80, 82, 4, 0},
        {90, 99, 2, 0},
    };
    for (int pair = 0; pair < 100; ++pair) {
        int codeDigits = 0;
        int predefinedLength = 0;
        for (const auto& row : rows) {
            if (row.first <= pair && pair <= row.last) {
                codeDigits = row.codeDigits;
                predefinedLength = row.predefinedLength;
            }
        }
        const auto first = static_cast<char>('0' + pair / 10);
        const auto second = static_cast<char>('0' + pair % 10);
        const AiPrefix prefix = aiPrefixOf(first, second);
        EXPECT_EQ(codeDigits, prefix.codeDigits) << pair;
        EXPECT_EQ(codeDigits, aiPrefixOf(first, second).codeDigits) << pair;
        EXPECT_EQ(predefinedLength == 0 ? 0 : predefinedLength - codeDigits, prefix.valueLength)
            << pair;
    }
    for (const char* const text : {"/0", ":0", "0/", "0:", "1A", "a1", "\xB1\x31", "1\xB1"}) {
        EXPECT_EQ(0, aiPrefixOf(text[0], text[1]).codeDigits) << text;
    }
}

TEST(AiCatalogue, ReadsTheCodeAtTheCursor) {
    const struct {
        const char* text;
        EpcStatus status;
        const char* code;
    } rows[] = {
        {"31031", EPC_OK, "3103"},        {"01123", EPC_OK, "01"},
        {"2409", EPC_OK, "240"},          {"3106", EPC_OK, ""}, // not assigned
        {"", EPC_ERR_TRUNCATED, ""},      {"3", EPC_ERR_TRUNCATED, ""},
        {"310", EPC_ERR_TRUNCATED, ""},   {"3X", EPC_ERR_BAD_CHARACTER, ""},
        {"X", EPC_ERR_BAD_CHARACTER, ""}, {"24X", EPC_ERR_BAD_CHARACTER, ""},
        {"142", EPC_ERR_UNKNOWN_AI, ""},
    };
    for (const auto& row : rows) {
        TextCursor cursor = textCursorOver(row.text);
        const AiDefinition* ai = nullptr;
        EXPECT_STATUS(row.status, aiReadCode(cursor, ai)) << row.text;
        EXPECT_EQ(row.code, ai == nullptr ? "" : std::string(ai->code)) << row.text;
        if (ai != nullptr && ai->componentCount != 0) {
            EXPECT_EQ(ai->codeLength, cursor.current - cursor.begin) << row.text;
        }
    }
    // A span may end before its text does.
    const char* const path = "/31/";
    TextCursor cut = {path, path + 1, 3};
    const AiDefinition* ai = nullptr;
    EXPECT_STATUS(EPC_ERR_TRUNCATED, aiReadCode(cut, ai));
}

} // namespace
