// Element strings and barcode strings into AI rows, and the list that lies between.
#include "gs1/ai_list.h"
#include "gs1/check_digit.h"

#include "support/ai_result.h"
#include "support/status.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct ParseCase {
    std::string text;
    AiResult expected;
};

AiResult elementStringResult(const std::string& text, std::int32_t maxAIs = 20,
                             std::uint32_t valueSize = 91) {
    const auto work = [&](const AiArrays& out) {
        return epc_gs1ElementStringToAIs(text.c_str(), out.maxAIs, out.valueSize, out.aiCodes,
                                         out.aiValues, out.aiCount);
    };
    return aiResult(work, maxAIs, valueSize);
}

AiResult barcodeResult(const std::string& text, std::int32_t separator) {
    return aiResult([&](const AiArrays& out) {
        return epc_barcodeStringToAIs(text.c_str(), separator, out.maxAIs, out.valueSize,
                                      out.aiCodes, out.aiValues, out.aiCount);
    });
}

std::string repeat(const std::string& text, int times) {
    std::string repeated;
    for (int i = 0; i < times; ++i) {
        repeated += text;
    }
    return repeated;
}

TEST(ElementString, BecomesRowsInTheOrderOfTheText) {
    const ParseCase cases[] = {
        {"", {EPC_OK, "#0"}},
        {"(01)09506000134352", {EPC_OK, "01=09506000134352 #1"}},
        {"(21)A/%2F)b(01)09506000134352(10)", {EPC_OK, "21=A/%2F)b 01=09506000134352 10= #3"}},
        {"(10)(21)S", {EPC_OK, "10= 21=S #2"}},
        {"(10)A(10)A", {EPC_OK, "10=A 10=A #2"}},
        {"(10)" + std::string(20, 'X'), {EPC_OK, "10=" + std::string(20, 'X') + " #1"}},
        {"(7007)" + std::string(90, '9'), {EPC_OK, "7007=" + std::string(90, '9') + " #1"}},
        {"(8013)1987654Ad4X4bL5ttr2310cXX", {EPC_OK, "8013=1987654Ad4X4bL5ttr2310cXX #1"}},
        {"(11)ABCDEF(3103)(((((((17)251231", {EPC_OK, "11=ABCDEF 3103=(((((( 17=251231 #3"}},
        // a check digit, behind each number that has one
        {"(00)106141412345678908(02)09506000134352(402)06141411234567890(417)9506000134376",
         {EPC_OK, "00=106141412345678908 02=09506000134352 402=06141411234567890 "
                  "417=9506000134376 #4"}},
        {"(253)9506000134376AB(8003)09506000134352(8006)095060001343520102",
         {EPC_OK, "253=9506000134376AB 8003=09506000134352 8006=095060001343520102 #3"}},
        // two components, the second one variable
        {"(4330)001999", {EPC_OK, "4330=001999 #1"}},
        {"(4330)001999-(255)9506000134376", {EPC_OK, "4330=001999- 255=9506000134376 #2"}},
        {repeat("(10)", 20), {EPC_OK, repeat("10= ", 20) + "#20"}},

        {repeat("(10)", 21), {EPC_ERR_TOO_MANY_AIS, ""}},
        {repeat("(20)05", 20) + "x", {EPC_ERR_TOO_MANY_AIS, ""}},
        {"(", {EPC_ERR_TRUNCATED, ""}},
        {"(1", {EPC_ERR_TRUNCATED, ""}},
        {"(10", {EPC_ERR_TRUNCATED, ""}},
        {"(3106", {EPC_ERR_TRUNCATED, ""}},
        {"10)A", {EPC_ERR_BAD_FORMAT, ""}},
        {" (10)A", {EPC_ERR_BAD_FORMAT, ""}},
        {"(10]A", {EPC_ERR_BAD_FORMAT, ""}},
        {"(3106]A", {EPC_ERR_BAD_FORMAT, ""}},
        {"(01)095060001343520", {EPC_ERR_BAD_FORMAT, ""}},
        {"(10)" + std::string(21, 'X'), {EPC_ERR_BAD_FORMAT, ""}},
        {"(4330)001999--", {EPC_ERR_BAD_FORMAT, ""}},
        {"(1O)A", {EPC_ERR_BAD_CHARACTER, ""}},
        {"(14]", {EPC_ERR_UNKNOWN_AI, ""}},
        {"(3106)000001", {EPC_ERR_UNKNOWN_AI, ""}},
        {"(01)0950600013435", {EPC_ERR_NO_ROOM, ""}},
        {"(3910)97", {EPC_ERR_NO_ROOM, ""}},
        {"(10)A(01)09506000134353", {EPC_ERR_CHECK_DIGIT, ""}},
        {"(01)0950600013435(", {EPC_ERR_CHECK_DIGIT, ""}},
        {"(00)106141412345678909", {EPC_ERR_CHECK_DIGIT, ""}},
        {"(402)06141411234567891", {EPC_ERR_CHECK_DIGIT, ""}},
        {"(255)9506000134377", {EPC_ERR_CHECK_DIGIT, ""}},
        {"(8026)095060001343530102", {EPC_ERR_CHECK_DIGIT, ""}},
    };
    for (const ParseCase& row : cases) {
        EXPECT_EQ(row.expected, elementStringResult(row.text)) << row.text;
    }
}

TEST(ElementString, StopsAtARowThatDoesNotFit) {
    const std::string text = "(10)LOT(21)SERIAL(20)05";
    const struct {
        std::int32_t maxAIs;
        std::uint32_t valueSize;
        AiResult expected;
    } cases[] = {
        {3, 7, {EPC_OK, "10=LOT 21=SERIAL 20=05 #3"}},
        {-1, 7, {EPC_OK, "10=LOT 21=SERIAL 20=05 #3"}},
        {2, 7, {EPC_ERR_TOO_MANY_AIS, "10=LOT 21=SERIAL "}},
        {0, 7, {EPC_ERR_TOO_MANY_AIS, ""}},
        {3, 6, {EPC_ERR_NO_ROOM, "10=LOT "}},
        {3, 3, {EPC_ERR_NO_ROOM, ""}},
        {3, 0, {EPC_ERR_NO_ROOM, ""}},
        {1, 6, {EPC_ERR_TOO_MANY_AIS, "10=LOT "}},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(row.expected, elementStringResult(text, row.maxAIs, row.valueSize))
            << row.maxAIs << " rows of " << row.valueSize;
    }
    EXPECT_EQ(AiResult(EPC_OK, "#0"), elementStringResult("", 0, 0));
    EXPECT_EQ(AiResult(EPC_OK, "10= #1"), elementStringResult("(10)", 1, 1));
}

TEST(BarcodeString, BecomesRowsWithAndWithoutIdentifier) {
    const std::string run = "010950600013435210LOT\x1D"
                            "21S";
    const AiResult runRows = {EPC_OK, "01=09506000134352 10=LOT 21=S #3"};
    const ParseCase cases[] = {
        {run, runRows},
        {"]C1" + run, runRows},
        {"]e0" + run, runRows},
        {"]d2" + run, runRows},
        {"", {EPC_OK, "#0"}},
        {"]E09506000134352", {EPC_OK, "01=09506000134352 #1"}},
        {"]E495060019", {EPC_OK, "01=00000095060019 #1"}},
        {"]I119506000134359", {EPC_OK, "01=19506000134359 #1"}},
        // a separator ends any value, and nothing but a value
        {"0109506000134352\x1D"
         "17251231\x1D"
         "10LOT\x1D",
         {EPC_OK, "01=09506000134352 17=251231 10=LOT #3"}},
        {"0109506000134352"
         "17251231"
         "10LOT",
         {EPC_OK, "01=09506000134352 17=251231 10=LOT #3"}},
        {"10\x1D"
         "21",
         {EPC_OK, "10= 21= #2"}},
        {"10LOT\x1D\x1D"
         "21S",
         {EPC_ERR_BAD_CHARACTER, ""}},
        {"\x1D"
         "10LOT",
         {EPC_ERR_BAD_CHARACTER, ""}},
        {"(10)LOT", {EPC_ERR_BAD_CHARACTER, ""}},
        // an identifier with other data than it tells
        {"]E0950600013435", {EPC_ERR_BAD_FORMAT, ""}},
        {"]E095060001343522", {EPC_ERR_BAD_FORMAT, ""}},
        {"]E4950600199", {EPC_ERR_BAD_FORMAT, ""}},
        {"]E49506001", {EPC_ERR_BAD_FORMAT, ""}},
        {"]I11950600013435", {EPC_ERR_BAD_FORMAT, ""}},
        {"]I1195060001343599", {EPC_ERR_BAD_FORMAT, ""}},
        {"]E09506000134353", {EPC_ERR_CHECK_DIGIT, ""}},
        {"]E0950600013435X", {EPC_ERR_CHECK_DIGIT, ""}},
        // no identifier
        {"]", {EPC_ERR_BAD_CHARACTER, ""}},
        {"]E0", {EPC_ERR_BAD_CHARACTER, ""}},
        {"]C1", {EPC_ERR_BAD_CHARACTER, ""}},
        {"]c1" + run, {EPC_ERR_BAD_CHARACTER, ""}},
        {"]C0" + run, {EPC_ERR_BAD_CHARACTER, ""}},
        {"]E1" + run, {EPC_ERR_BAD_CHARACTER, ""}},
        {"[C1" + run, {EPC_ERR_BAD_CHARACTER, ""}},
    };
    for (const ParseCase& row : cases) {
        EXPECT_EQ(row.expected, barcodeResult(row.text, GROUP_SEPARATOR)) << row.text;
    }
}

TEST(BarcodeString, TakesAnySeparator) {
    const struct {
        std::string text;
        std::int32_t separator;
        AiResult expected;
    } cases[] = {
        {"10LOT^21S", '^', {EPC_OK, "10=LOT 21=S #2"}},
        {"10LOT\xE8"
         "21S",
         0xE8,
         {EPC_OK, "10=LOT 21=S #2"}},
        {"10LOT\x1D"
         "21S",
         '^',
         {EPC_OK, "10=LOT\x1D"
                  "21S #1"}},
        {"10LOT\x1D"
         "21S",
         0,
         {EPC_OK, "10=LOT\x1D"
                  "21S #1"}},
        {"2005"
         "2"
         "21199",
         '2',
         {EPC_OK, "20=05 21=199 #2"}},
        {"2005"
         "2199",
         '2',
         {EPC_ERR_UNKNOWN_AI, ""}},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(row.expected, barcodeResult(row.text, row.separator)) << row.text;
    }
}

TEST(AiList, TakesTwentyElementsOfAnyCode) {
    AiList list;
    aiListClear(list);
    for (std::uint32_t i = 0; i < MAX_AI_ELEMENTS; ++i) {
        ASSERT_STATUS(EPC_OK, aiListAdd(list, i % 2 == 0 ? "99" : "7777", i, i + 1, i % 3));
    }
    EXPECT_STATUS(EPC_ERR_TOO_MANY_AIS, aiListAdd(list, "01", 0, 0, 0));
    EXPECT_EQ(MAX_AI_ELEMENTS, list.count);
    for (std::uint32_t i = 0; i < MAX_AI_ELEMENTS; ++i) {
        const AiElement& element = list.elements[i];
        EXPECT_EQ(i % 2 == 0 ? "99" : "7777", std::string(element.code));
        EXPECT_EQ(i, element.valueOffset);
        EXPECT_EQ(i + 1, element.valueLength);
        EXPECT_EQ(i % 3, element.pass);
        EXPECT_EQ(0, element.consumed);
    }
}

// The fields that an earlier use of the storage has left do not show.
TEST(AiList, IsParsedIntoWithEveryFieldSet) {
    AiList list;
    std::memset(&list, 0xFF, sizeof list);
    aiListClear(list);
    ASSERT_STATUS(EPC_OK, aiListAdd(list, "00", 7, 8, 2));
    const std::string text = "(01)09506000134352(10)A";
    TextCursor cursor = textCursorOver(text);
    ASSERT_STATUS(EPC_OK, aiTextParse(list, cursor, ELEMENT_STRING_SYNTAX, 100));
    EXPECT_TRUE(textCursorAtEnd(cursor));
    ASSERT_EQ(3, list.count);
    EXPECT_EQ(104U, list.elements[1].valueOffset);
    EXPECT_EQ(14U, list.elements[1].valueLength);
    EXPECT_EQ(122U, list.elements[2].valueOffset);
    EXPECT_EQ(1U, list.elements[2].valueLength);
    for (int i = 1; i < 3; ++i) {
        EXPECT_EQ(0U, list.elements[i].pass);
        EXPECT_EQ(0, list.elements[i].consumed);
    }
}

TEST(CheckDigit, FollowsModuloTen) {
    const struct {
        std::string_view digits;
        char expected;
    } rows[] = {
        {"0950600013435", '2'},
        {"10614141234567890", '8'},
        {"9506001", '9'},
        {"", '0'},
        {"0", '0'},
        {"1", '7'},
        {"01", '7'},
        {"10", '9'},
        // no digits: code less 48, a sum below 0 among them
        {"A", '9'},
        {"\xFF", '9'},
        {"!", '5'},
        {"!!!", '5'},
        // the length tells the first weight, a NUL ends the sum
        {{"12\0"
          "45",
          5},
         '5'},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.expected, gs1CheckDigit(row.digits)) << row.digits;
    }
}

} // namespace
