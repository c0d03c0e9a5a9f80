// Digital Links read: into slices of the raw text, into rows of decoded values, into an element
// string.
#include "gs1/digital_link_parser.h"

#include "gs1/ai_exports.h"
#include "support/status.h"
#include "support/text_result.h"

#include <gtest/gtest.h>

#include <string>

using namespace rosetag;

namespace {

TextResult elementStringOf(const std::string& text, std::int32_t dstSize = 2000) {
    return textResult(
        [&](std::int32_t size, char* dst) {
            return epc_digitalLinkToGs1ElementString(text.c_str(), size, dst);
        },
        dstSize);
}

const auto linkRows = [](const std::string& text) { return linkToRows(text); };

TEST(DigitalLink, IsReadByPathAndQuery) {
    const std::string key = "/01/09506000134352";
    const std::string longest(1023, '1');
    expectRows(
        {
            // clang-format off
            {"", "#0"},
            {key, "01=09506000134352 #1"},
            {key + "/10/L/21/S?17=251231&3103=000123&22=V",
             "01=09506000134352 10=L 21=S 17=251231 3103=000123 22=V #6"},
            {"?01=09506000134352&10=L", "01=09506000134352 10=L #2"},
            {"/10//21/S", "10= 21=S #2"},
            {"/10/?21=&22=", "10= 21= 22= #3"},
            // escapes: any character, counted as one in a value of fixed length
            {"/10/A%2FB%2fC%26+%20?21=%3F%3d", "10=A/B/C&+  21=?= #2"},
            {"/01/%30950600013435%32/10/%80%FF", "01=09506000134352 10=\x80\xFF #2"},
            {"/17/25%31231", "17=251231 #1"},
            // %00 ends a value
            {"/10/A%00B/21/%00?22=V", "10=A 21= 22=V #3"},
            {"/01/%300%00%00%00%00%00%00%00%00%00%00%00%00", "01=00 #1"},
            // delimiters of the other half are data
            {"/10/A&B=C", "10=A&B=C #1"},
            {"/10/A?21=B/C?D=E#F", "10=A 21=B/C?D=E#F #2"},
            {"?17=251231?15=251230&10=L", "17=251231 15=251230 10=L #3"},
            {"/7007/" + longest, "7007=" + longest + " #1"},
            // clang-format on
        },
        linkRows);
    expectRefused(
        {
            // clang-format off
            {EPC_ERR_BAD_FORMAT, {"https://example.org" + key, "01/09506000134352", key + "&10=L",
                                  key + "0", "/10=L", "?10/L"}},
            // the raw length counts in a value of variable length
            {EPC_ERR_BAD_FORMAT, {"/427/A%42", "/4330/001999%2D"}},
            {EPC_ERR_TRUNCATED, {"/", key + "/", key + "?", key + "?10=L&", "/10",
                                 "/01/0950600013435", "/01/0950600013435%3", "/10/A%2/21/S",
                                 "/10/A%", "/10/A%2?21=S"}},
            {EPC_ERR_BAD_CHARACTER, {"/10/A%G1", "/10/A%1G", "/01/0950600013435%G",
                                     "/01/0950600013435%3G", "/%301/09506000134352", "//10/L",
                                     key + "?linkType=all", key + "?10=L&&21=S"}},
            {EPC_ERR_UNKNOWN_AI, {"/3106/000001", "/14/000001"}},
            {EPC_ERR_CHECK_DIGIT, {"/01/09506000134353", "?01=0950600013435%33",
                                   "/01/%00%00%00%00%00%00%00%00%00%00%00%00%00%00"}},
            // path before query, and the escapes of variable values after both
            {EPC_ERR_CHECK_DIGIT, {"/10/A%G1/01/09506000134353", "/01/09506000134353?11"}},
            {EPC_ERR_TRUNCATED, {"/10/A%G1?11"}},
            {EPC_ERR_TOO_LONG, {"/7007/1" + longest, "/7007/1" + longest + "%G1",
                                "/7007/%31" + longest}},
            // clang-format on
        },
        linkRows);
}

TEST(DigitalLink, HoldsTwentyAIsInAll) {
    std::string text;
    std::string rows;
    for (int i = 0; i < 20; ++i) {
        text += (i < 10 ? "/10/" : i == 10 ? "?10=" : "&10=") + std::to_string(i);
        rows += "10=" + std::to_string(i) + " ";
    }
    EXPECT_EQ(AiResult(EPC_OK, rows + "#20"), linkToRows(text));
    EXPECT_EQ(AiResult(EPC_ERR_TOO_MANY_AIS, ""), linkToRows(text + "&10=20"));
    EXPECT_EQ(AiResult(EPC_ERR_TOO_MANY_AIS, "10=0 "), linkToRows(text, 1));
}

TEST(DigitalLink, IsParsedIntoSlicesAndThenDecoded) {
    const std::string text = "/8006/095060001343520001/21/A%2FB?10=X&22=Y";
    const struct {
        const char* code;
        std::uint32_t rawOffset;
        std::uint32_t rawLength;
        std::uint32_t flatOffset;
        std::uint32_t flatLength;
    } expected[] = {
        {"8006", 6, 18, 0, 18}, {"21", 28, 5, 18, 3}, {"10", 37, 1, 21, 1}, {"22", 42, 1, 22, 1}};
    AiList list;
    aiListClear(list);
    TextCursor cursor = textCursorOver(text);
    ASSERT_STATUS(EPC_OK, digitalLinkParse(list, cursor));
    EXPECT_TRUE(textCursorAtEnd(cursor));
    ASSERT_EQ(std::size(expected), list.count);
    for (std::size_t i = 0; i < list.count; ++i) {
        EXPECT_EQ(std::string(expected[i].code), list.elements[i].ai->code);
        EXPECT_EQ(expected[i].rawOffset, list.elements[i].valueOffset);
        EXPECT_EQ(expected[i].rawLength, list.elements[i].valueLength);
    }
    char values[24];
    TextBuffer flat = textBufferOver(values);
    ASSERT_STATUS(EPC_OK, digitalLinkDecodeValues(list, text.data(), flat));
    EXPECT_EQ(std::string("095060001343520001A/BXY"), values);
    for (std::size_t i = 0; i < list.count; ++i) {
        EXPECT_EQ(expected[i].flatOffset, list.elements[i].valueOffset);
        EXPECT_EQ(expected[i].flatLength, list.elements[i].valueLength);
    }
}

// All values together have a limit that each export sets by itself.
TEST(DigitalLink, DecodesIntoALimitedText) {
    const auto linkOf = [](std::size_t firstLength, std::size_t secondLength) {
        return "/7007/" + std::string(firstLength, '1') + "/8008/" + std::string(secondLength, '2');
    };
    EXPECT_EQ(EPC_OK, linkToRows(linkOf(1000, 799)).status);
    EXPECT_EQ(AiResult(EPC_ERR_NO_ROOM, ""), linkToRows(linkOf(1000, 800)));
    EXPECT_EQ(EPC_OK, elementStringOf(linkOf(1000, 23)).status);
    EXPECT_EQ(TextResult(EPC_ERR_NO_ROOM, ""), elementStringOf(linkOf(1000, 24)));
}

TEST(DigitalLink, BecomesAnElementStringInTheOrderOfTheText) {
    const struct {
        std::string text;
        std::int32_t dstSize;
        TextResult expected;
    } cases[] = {
        {"/21/A%2FB?01=09506000134352", 100, {EPC_OK, "(21)A/B(01)09506000134352"}},
        {"/21/A%28B", 100, {EPC_OK, "(21)A(B"}},
        {"", 1, {EPC_OK, ""}},
        {"/21/A%2FB?10=L", 13, {EPC_OK, "(21)A/B(10)L"}},
        // an element goes out by its delimiters, its code and its value
        {"/21/A%2FB?10=L", 12, {EPC_ERR_NO_ROOM, "(21)A/B(10)"}},
        {"/21/A%2FB?10=L", 11, {EPC_ERR_NO_ROOM, "(21)A/B(10"}},
        {"/21/A%2FB?10=L", 10, {EPC_ERR_NO_ROOM, "(21)A/B("}},
        {"/21/A%2FB?10=L", 8, {EPC_ERR_NO_ROOM, "(21)A/B"}},
        {"/21/A%2FB?10=L", 7, {EPC_ERR_NO_ROOM, "(21)"}},
        {"/21/A%2FB?10=L", 1, {EPC_ERR_NO_ROOM, ""}},
        {"/21/S?10=A%G1", 100, {EPC_ERR_BAD_CHARACTER, ""}},
        {"/01/09506000134353", 100, {EPC_ERR_CHECK_DIGIT, ""}},
        {"https://example.org/21/S", 100, {EPC_ERR_BAD_FORMAT, ""}},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(row.expected, elementStringOf(row.text, row.dstSize))
            << row.text << " in " << row.dstSize;
    }
}

} // namespace
