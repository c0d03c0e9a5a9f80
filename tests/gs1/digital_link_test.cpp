// Digital Links read: into slices of the raw text, into rows of decoded values, into an element
// string.
#include "gs1/digital_link_parser.h"

#include "support/ai_result.h"
#include "support/status.h"
#include "support/text_result.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct LinkCase {
    std::string text;
    AiResult expected;
};

AiResult linkResult(const std::string& text, std::int32_t maxAIs = 20) {
    const auto work = [&](const AiArrays& out) {
        return epc_digitalLinkToAIs(text.c_str(), out.maxAIs, out.valueSize, out.aiCodes,
                                    out.aiValues, out.aiCount);
    };
    return aiResult(work, maxAIs, 2000);
}

TextResult elementStringOf(const std::string& text, std::int32_t dstSize = 2000) {
    return textResult(
        [&](std::int32_t size, char* dst) {
            return epc_digitalLinkToGs1ElementString(text.c_str(), size, dst);
        },
        dstSize);
}

TEST(DigitalLink, IsReadByPathAndQuery) {
    const std::string key = "/01/09506000134352";
    const LinkCase cases[] = {
        {"", {EPC_OK, "#0"}},
        {key, {EPC_OK, "01=09506000134352 #1"}},
        {key + "/10/L/21/S?17=251231&3103=000123&22=V",
         {EPC_OK, "01=09506000134352 10=L 21=S 17=251231 3103=000123 22=V #6"}},
        {"?01=09506000134352&10=L", {EPC_OK, "01=09506000134352 10=L #2"}},
        {"/10//21/S", {EPC_OK, "10= 21=S #2"}},
        {"/10/?21=&22=", {EPC_OK, "10= 21= 22= #3"}},
        // escapes: any character, of either case, counted as one in a value of fixed length
        {"/10/A%2FB%2fC%26+%20?21=%3F%3d", {EPC_OK, "10=A/B/C&+  21=?= #2"}},
        {"/01/%30950600013435%32/10/%80%FF", {EPC_OK, "01=09506000134352 10=\x80\xFF #2"}},
        {"/17/25%31231", {EPC_OK, "17=251231 #1"}},
        // %00 ends a value
        {"/10/A%00B/21/%00?22=V", {EPC_OK, "10=A 21= 22=V #3"}},
        {"/01/%300%00%00%00%00%00%00%00%00%00%00%00%00", {EPC_OK, "01=00 #1"}},
        {"/01/%00%00%00%00%00%00%00%00%00%00%00%00%00%00", {EPC_ERR_CHECK_DIGIT, ""}},
        // delimiters of the other half are data
        {"/10/A&B=C", {EPC_OK, "10=A&B=C #1"}},
        {"/10/A?21=B/C?D=E#F", {EPC_OK, "10=A 21=B/C?D=E#F #2"}},
        {"?17=251231?15=251230&10=L", {EPC_OK, "17=251231 15=251230 10=L #3"}},
        {"/7007/" + std::string(1023, '1'), {EPC_OK, "7007=" + std::string(1023, '1') + " #1"}},

        {"https://example.org" + key, {EPC_ERR_BAD_FORMAT, ""}},
        {"01/09506000134352", {EPC_ERR_BAD_FORMAT, ""}},
        {key + "&10=L", {EPC_ERR_BAD_FORMAT, ""}},
        {key + "0", {EPC_ERR_BAD_FORMAT, ""}},
        {"/10=L", {EPC_ERR_BAD_FORMAT, ""}},
        {"?10/L", {EPC_ERR_BAD_FORMAT, ""}},
        // the raw length counts in a value of variable length
        {"/427/A%42", {EPC_ERR_BAD_FORMAT, ""}},
        {"/4330/001999%2D", {EPC_ERR_BAD_FORMAT, ""}},
        {"/", {EPC_ERR_TRUNCATED, ""}},
        {key + "/", {EPC_ERR_TRUNCATED, ""}},
        {key + "?", {EPC_ERR_TRUNCATED, ""}},
        {key + "?10=L&", {EPC_ERR_TRUNCATED, ""}},
        {"/10", {EPC_ERR_TRUNCATED, ""}},
        {"/01/0950600013435", {EPC_ERR_TRUNCATED, ""}},
        {"/01/0950600013435%3", {EPC_ERR_TRUNCATED, ""}},
        {"/10/A%2/21/S", {EPC_ERR_TRUNCATED, ""}},
        {"/10/A%", {EPC_ERR_TRUNCATED, ""}},
        {"/10/A%2?21=S", {EPC_ERR_TRUNCATED, ""}},
        {"/10/A%G1", {EPC_ERR_BAD_CHARACTER, ""}},
        {"/10/A%1G", {EPC_ERR_BAD_CHARACTER, ""}},
        {"/01/0950600013435%G", {EPC_ERR_BAD_CHARACTER, ""}},
        {"/01/0950600013435%3G", {EPC_ERR_BAD_CHARACTER, ""}},
        {"/%301/09506000134352", {EPC_ERR_BAD_CHARACTER, ""}},
        {"//10/L", {EPC_ERR_BAD_CHARACTER, ""}},
        {key + "?linkType=all", {EPC_ERR_BAD_CHARACTER, ""}},
        {key + "?10=L&&21=S", {EPC_ERR_BAD_CHARACTER, ""}},
        {"/3106/000001", {EPC_ERR_UNKNOWN_AI, ""}},
        {"/14/000001", {EPC_ERR_UNKNOWN_AI, ""}},
        {"/01/09506000134353", {EPC_ERR_CHECK_DIGIT, ""}},
        {"?01=0950600013435%33", {EPC_ERR_CHECK_DIGIT, ""}},
        // the path is read before the query, and all of it before a value of variable length
        {"/10/A%G1/01/09506000134353", {EPC_ERR_CHECK_DIGIT, ""}},
        {"/10/A%G1?11", {EPC_ERR_TRUNCATED, ""}},
        {"/7007/" + std::string(1024, '1'), {EPC_ERR_TOO_LONG, ""}},
        {"/7007/" + std::string(1024, '1') + "%G1", {EPC_ERR_TOO_LONG, ""}},
        {"/7007/%31" + std::string(1023, '1'), {EPC_ERR_TOO_LONG, ""}},
    };
    for (const LinkCase& row : cases) {
        EXPECT_EQ(row.expected, linkResult(row.text)) << row.text;
    }
}

TEST(DigitalLink, HoldsTwentyAIsInAll) {
    std::string text;
    std::string rows;
    for (int i = 0; i < 20; ++i) {
        text += (i < 10 ? "/10/" : i == 10 ? "?10=" : "&10=") + std::to_string(i);
        rows += "10=" + std::to_string(i) + " ";
    }
    EXPECT_EQ(AiResult(EPC_OK, rows + "#20"), linkResult(text));
    EXPECT_EQ(AiResult(EPC_ERR_TOO_MANY_AIS, ""), linkResult(text + "&10=20"));
    EXPECT_EQ(AiResult(EPC_ERR_TOO_MANY_AIS, "10=0 "), linkResult(text, 1));
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
        EXPECT_EQ(std::string(expected[i].code), list.elements[i].code);
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
    EXPECT_EQ(EPC_OK, linkResult(linkOf(1000, 799)).status);
    EXPECT_EQ(AiResult(EPC_ERR_NO_ROOM, ""), linkResult(linkOf(1000, 800)));
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
