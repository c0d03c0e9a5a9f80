// Element strings and barcode strings into AI rows, and the list that lies between.
#include "gs1/ai_list.h"
#include "gs1/check_digit.h"

#include "gs1/ai_exports.h"
#include "support/random.h"
#include "support/status.h"

#include <gtest/gtest.h>

#include <string>

using namespace rosetag;

namespace {

std::string repeat(const std::string& text, int times) {
    std::string repeated;
    for (int i = 0; i < times; ++i) {
        repeated += text;
    }
    return repeated;
}

const auto elementStringRows = [](const std::string& text) { return elementStringToRows(text); };
const auto gsBarcodeRows = [](const std::string& text) { return barcodeToRows(text, 29); };

TEST(ElementString, BecomesRowsInTheOrderOfTheText) {
    expectRows(
        {
            // clang-format off
            {"", "#0"},
            {"(01)09506000134352", "01=09506000134352 #1"},
            {"(21)A/%2F)b(01)09506000134352(10)", "21=A/%2F)b 01=09506000134352 10= #3"},
            {"(10)(21)S", "10= 21=S #2"},
            {"(10)A(10)A", "10=A 10=A #2"},
            {repeat("(10)", 20), repeat("10= ", 20) + "#20"},
            {"(10)" + repeat("X", 20), "10=" + repeat("X", 20) + " #1"},
            {"(7007)" + repeat("9", 90), "7007=" + repeat("9", 90) + " #1"},
            {"(8013)1987654Ad4X4bL5ttr2310cXX", "8013=1987654Ad4X4bL5ttr2310cXX #1"},
            {"(11)ABCDEF(3103)(((((((17)251231", "11=ABCDEF 3103=(((((( 17=251231 #3"},
            // check digits: of the whole value, of its first component
            {"(00)106141412345678908(02)09506000134352", "00=106141412345678908 02=09506000134352 #2"},
            {"(402)06141411234567890(417)9506000134376", "402=06141411234567890 417=9506000134376 #2"},
            {"(253)9506000134376AB(8003)09506000134352", "253=9506000134376AB 8003=09506000134352 #2"},
            {"(8006)095060001343520102", "8006=095060001343520102 #1"},
            // a second component that may be empty
            {"(4330)001999", "4330=001999 #1"},
            {"(4330)001999-(255)9506000134376", "4330=001999- 255=9506000134376 #2"},
            // clang-format on
        },
        elementStringRows);
}

TEST(ElementString, IsRefusedWithTheRowsUntouched) {
    expectRefused(
        {
            // clang-format off
            {EPC_ERR_TOO_MANY_AIS, {repeat("(10)", 21), repeat("(20)05", 20) + "x"}},
            {EPC_ERR_TRUNCATED, {"(", "(1", "(10", "(3106"}},
            {EPC_ERR_BAD_FORMAT, {"10)A", " (10)A", "(10]A", "(3106]A", "(01)095060001343520",
                                  "(10)" + repeat("X", 21), "(4330)001999--"}},
            {EPC_ERR_BAD_CHARACTER, {"(1O)A", "(A1)A", "(31X3)000001"}},
            {EPC_ERR_UNKNOWN_AI, {"(14]", "(3106)000001"}},
            {EPC_ERR_NO_ROOM, {"(01)0950600013435", "(3910)97", "(8006)09506000134352010"}},
            {EPC_ERR_CHECK_DIGIT, {"(10)A(01)09506000134353", "(01)0950600013435(",
                                   "(00)106141412345678909", "(402)06141411234567891",
                                   "(255)9506000134377", "(8026)095060001343530102"}},
            // clang-format on
        },
        elementStringRows);
}

TEST(ElementString, StopsAtARowThatDoesNotFit) {
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
        {3, 0, {EPC_ERR_NO_ROOM, ""}},
        {1, 6, {EPC_ERR_TOO_MANY_AIS, "10=LOT "}},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(row.expected,
                  elementStringToRows("(10)LOT(21)SERIAL(20)05", row.maxAIs, row.valueSize))
            << row.maxAIs << " rows of " << row.valueSize;
    }
    EXPECT_EQ(AiResult(EPC_OK, "#0"), elementStringToRows("", 0, 0));
    EXPECT_EQ(AiResult(EPC_OK, "10= #1"), elementStringToRows("(10)", 1, 1));
}

TEST(BarcodeString, BecomesRowsWithAndWithoutIdentifier) {
    const std::string run = "010950600013435210LOT\03521S";
    const std::string runRows = "01=09506000134352 10=LOT 21=S #3";
    expectRows(
        {
            // clang-format off
            {"", "#0"},
            {run, runRows}, {"]C1" + run, runRows}, {"]e0" + run, runRows}, {"]d2" + run, runRows},
            {"]E09506000134352", "01=09506000134352 #1"},
            {"]E495060019", "01=00000095060019 #1"},
            {"]I119506000134359", "01=19506000134359 #1"},
            // a separator may follow any value
            {"0109506000134352\0351725123110LOT\035", "01=09506000134352 17=251231 10=LOT #3"},
            {"01095060001343521725123110LOT", "01=09506000134352 17=251231 10=LOT #3"},
            {"10\03521", "10= 21= #2"},
            // clang-format on
        },
        gsBarcodeRows);
    expectRefused(
        {
            // clang-format off
            {EPC_ERR_BAD_CHARACTER, {"10LOT\035\03521S", "\03510LOT", "(10)LOT"}},
            // an identifier in front of other data than it says
            {EPC_ERR_BAD_FORMAT, {"]E0950600013435", "]E095060001343522", "]E49506001",
                                  "]E4950600199", "]I11950600013435", "]I1195060001343599"}},
            {EPC_ERR_CHECK_DIGIT, {"]E09506000134353", "]E0950600013435X"}},
            // no identifier
            {EPC_ERR_BAD_CHARACTER, {"]", "]E0", "]C1", "]c1" + run, "]C0" + run, "]E1" + run,
                                     "[C1" + run}},
            // clang-format on
        },
        gsBarcodeRows);
}

TEST(BarcodeString, TakesAnySeparator) {
    const AiResult twoRows = {EPC_OK, "10=LOT 21=S #2"};
    EXPECT_EQ(twoRows, barcodeToRows("10LOT^21S", '^'));
    EXPECT_EQ(twoRows, barcodeToRows("10LOT\35021S", 0xE8));
    EXPECT_EQ(AiResult(EPC_OK, "10=LOT\03521S #1"), barcodeToRows("10LOT\03521S", '^'));
    EXPECT_EQ(AiResult(EPC_OK, "10=LOT\03521S #1"), barcodeToRows("10LOT\03521S", 0));
    EXPECT_EQ(AiResult(EPC_OK, "20=05 21=199 #2"), barcodeToRows("2005221199", '2'));
    EXPECT_EQ(AiResult(EPC_ERR_UNKNOWN_AI, ""), barcodeToRows("20052199", '2'));
}

// An element has every field set, whatever its storage held before.
TEST(AiList, TakesTwentyElements) {
    AiList list;
    std::memset(&list, 0xFF, sizeof list);
    aiListClear(list);
    const AiDefinition& ai = *aiFind("99");
    for (std::uint32_t i = 0; i < MAX_AI_ELEMENTS; ++i) {
        ASSERT_STATUS(EPC_OK, aiListAdd(list, ai, i, i + 1, DATE_PASS));
        const AiElement& element = list.elements[i];
        EXPECT_EQ(&ai, element.ai);
        EXPECT_EQ(i, element.valueOffset);
        EXPECT_EQ(i + 1, element.valueLength);
        EXPECT_EQ(DATE_PASS, element.pass);
        EXPECT_FALSE(element.isConsumed);
    }
    EXPECT_STATUS(EPC_ERR_TOO_MANY_AIS, aiListAdd(list, ai, 0, 0, KEY_PASS));
    EXPECT_EQ(MAX_AI_ELEMENTS, list.count);
}

TEST(AiList, IsParsedIntoAfterItsElements) {
    AiList list;
    std::memset(&list, 0xFF, sizeof list);
    aiListClear(list);
    ASSERT_STATUS(EPC_OK, aiListAdd(list, *aiFind("00"), 7, 8, DATA_PASS));
    TextCursor cursor = textCursorOver("(01)09506000134352(10)A");
    ASSERT_STATUS(EPC_OK, aiTextParse(list, cursor, ELEMENT_STRING_SYNTAX, 100));
    EXPECT_TRUE(textCursorAtEnd(cursor));
    ASSERT_EQ(3, list.count);
    EXPECT_EQ(104U, list.elements[1].valueOffset);
    EXPECT_EQ(14U, list.elements[1].valueLength);
    EXPECT_EQ(122U, list.elements[2].valueOffset);
    EXPECT_EQ(1U, list.elements[2].valueLength);
    EXPECT_EQ(KEY_PASS, list.elements[2].pass);
    EXPECT_FALSE(list.elements[2].isConsumed);
}

TEST(CheckDigit, FollowsModuloTen) {
    const struct {
        std::string_view digits;
        char expected;
    } rows[] = {
        // clang-format off
        {"0950600013435", '2'}, {"10614141234567890", '8'}, {"9506001", '9'}, {"", '0'},
        {"0", '0'}, {"1", '7'}, {"01", '7'}, {"10", '9'},
        // no digits: the code less 48, which may be below 0
        {"A", '9'}, {"\xFF", '9'}, {"!", '5'}, {"!!!", '5'},
        // the length decides the first weight, a NUL ends the sum
        {{"12\00045", 5}, '5'},
        // clang-format on
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.expected, gs1CheckDigit(row.digits)) << row.digits;
    }
    // Many at a time and one by one: the characters of a longer text in two parts.
    Random random(14);
    for (int i = 0; i < 2000; ++i) {
        std::string text = random.digits(random.below(30));
        text.resize(text.size() + random.below(2), '!');
        const std::size_t cut = random.below(text.size() + 1);
        const std::string zeros(text.size() - cut, '0');
        const int whole = gs1CheckDigit(text) - '0';
        const int first = gs1CheckDigit(text.substr(0, cut) + zeros) - '0';
        const int second = gs1CheckDigit(text.substr(cut)) - '0';
        EXPECT_EQ(whole, (first + second) % 10) << text;
    }
}

} // namespace
