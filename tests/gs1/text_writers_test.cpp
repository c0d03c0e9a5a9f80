// The two writers: which AI goes where, and what a full text holds.
#include "gs1/text_writers.h"

#include "gs1/digital_link_keys.h"
#include "support/status.h"
#include "support/text_result.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace rosetag;

namespace {

TextResult linkOf(const std::string& text, std::int32_t dstSize = 1200) {
    return textResult(
        [&](std::int32_t size, char* dst) {
            return epc_gs1ElementStringToDigitalLink(text.c_str(), size, dst);
        },
        dstSize);
}

TEST(DigitalLinkWriter, PutsKeyAndQualifiersIntoThePath) {
    const std::string gtin = "(01)09506000134352";
    const std::string gln = "(414)9506000134376";
    const std::string party = "(417)9506000134376";
    const struct {
        std::string text;
        TextResult expected;
    } cases[] = {
        {"(8006)095060001343520001(10)B(22)C(21)D(15)991231(3103)000123",
         {EPC_OK, "/8006/095060001343520001/22/C/10/B/21/D?15=991231&3103=000123"}},
        {"(21)S" + gtin + "(10)L", {EPC_OK, "/01/09506000134352/10/L/21/S"}},
        {gtin + "(3103)000001(15)991231", {EPC_OK, "/01/09506000134352?3103=000001&15=991231"}},
        {gtin, {EPC_OK, "/01/09506000134352"}},
        {gtin + "(10)A(21)S(10)B", {EPC_OK, "/01/09506000134352/10/A/10/B/21/S"}},
        {gtin + "(01)19506000134359", {EPC_OK, "/01/09506000134352/01/19506000134359"}},
        // a qualifier that a row requires decides for the row
        {gtin + "(21)S(235)T(10)L(22)V", {EPC_OK, "/01/09506000134352/235/T?21=S&10=L&22=V"}},
        {gln + "(254)X", {EPC_OK, "/414/9506000134376/254/X"}},
        {gln + "(235)T", {EPC_OK, "/414/9506000134376/235/T"}},
        {gln + "(254)X(235)T", {EPC_OK, "/414/9506000134376/235/T?254=X"}},
        {"(7040)1ABC" + party, {EPC_OK, "/417/9506000134376/7040/1ABC"}},
        {party + "(254)X", {EPC_OK, "/417/9506000134376?254=X"}},
        // keys with other qualifiers, or none
        {"(00)106141412345678908(10)L", {EPC_OK, "/00/106141412345678908?10=L"}},
        {"(253)9506000134376X(21)S", {EPC_OK, "/253/9506000134376X?21=S"}},
        {"(255)9506000134376", {EPC_OK, "/255/9506000134376"}},
        {"(401)C(8011)1", {EPC_OK, "/401/C?8011=1"}},
        {"(402)06141411234567890", {EPC_OK, "/402/06141411234567890"}},
        {"(415)9506000134376(8020)R", {EPC_OK, "/415/9506000134376?8020=R"}},
        {"(8003)09506000134352X(10)L", {EPC_OK, "/8003/09506000134352X?10=L"}},
        {"(8004)9506000(235)T", {EPC_OK, "/8004/9506000?235=T"}},
        {"(8011)12(8010)9506000P", {EPC_OK, "/8010/9506000P/8011/12"}},
        {"(8013)M(10)L", {EPC_OK, "/8013/M?10=L"}},
        {"(8017)106141412345678908(8019)7", {EPC_OK, "/8017/106141412345678908/8019/7"}},
        {"(8018)106141412345678908(8019)7", {EPC_OK, "/8018/106141412345678908/8019/7"}},
        // escapes: these characters and no others
        {gtin + "(21)(", {EPC_ERR_TRUNCATED, ""}}, // begins an AI
        {gtin + "(21)!#%&')*+,/:;<=>?",
         {EPC_OK, "/01/09506000134352/21/%21%23%25%26%27%29%2A%2B%2C%2F%3A%3B%3C%3D%3E%3F"}},
        {gtin + "(91) \"$-.@A_a[]^`{|}~\x7F\x80",
         {EPC_OK, "/01/09506000134352?91= \"$-.@A_a[]^`{|}~\x7F\x80"}},

        {"", {EPC_ERR_NO_PRIMARY_KEY, ""}},
        {"(10)L(21)S", {EPC_ERR_NO_PRIMARY_KEY, ""}},
        {"(02)09506000134352(8011)1", {EPC_ERR_NO_PRIMARY_KEY, ""}},
        {"(00)106141412345678908" + gtin, {EPC_ERR_KEY_CONFLICT, ""}},
        {gtin + "(10)L(8004)9506000", {EPC_ERR_KEY_CONFLICT, ""}},
        {gln + party, {EPC_ERR_KEY_CONFLICT, ""}},
        {"(8018)106141412345678908(8017)106141412345678908", {EPC_ERR_KEY_CONFLICT, ""}},
        {"(01)09506000134353", {EPC_ERR_CHECK_DIGIT, ""}},
        {gtin + "(3106)000001", {EPC_ERR_UNKNOWN_AI, ""}},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(row.expected, linkOf(row.text)) << row.text;
    }
}

// A value is cut anywhere, within an escape as well; a code is written as a whole.
TEST(DigitalLinkWriter, LeavesWhatFitted) {
    const std::string text = "(01)09506000134352(240)A/(17)251231";
    const std::string whole = "/01/09506000134352?240=A%2F&17=251231";
    const std::string cut = "/_1/09506000134352?__0=A%2F&_7=251231"; // no code ends at a "_"
    ASSERT_EQ(whole.size(), cut.size());
    EXPECT_EQ(TextResult(EPC_OK, whole), linkOf(text, static_cast<std::int32_t>(whole.size() + 1)));
    for (std::size_t room = 0; room < whole.size(); ++room) {
        const std::size_t written = cut.find_last_not_of('_', room - 1) + 1;
        EXPECT_EQ(TextResult(EPC_ERR_NO_ROOM, whole.substr(0, room == 0 ? 0 : written)),
                  linkOf(text, static_cast<std::int32_t>(room + 1)));
    }
}

TEST(DigitalLinkWriter, MarksWhatItHasWritten) {
    const std::string base = "09506000134352LS";
    AiList list;
    aiListClear(list);
    aiListAdd(list, *aiFind("01"), 0, 14, KEY_PASS);
    aiListAdd(list, *aiFind("10"), 14, 1, DATA_PASS);
    aiListAdd(list, *aiFind("91"), 15, 1, DATE_PASS);
    const auto write = [&](std::int32_t size, char* dst) {
        TextBuffer buffer = textBufferOver(dst, size);
        return digitalLinkWrite(buffer, list, base.data());
    };
    EXPECT_EQ(TextResult(EPC_ERR_NO_ROOM, "/01/09506000134352/10/L?91="), textResult(write, 28));
    EXPECT_TRUE(list.elements[0].isConsumed);
    EXPECT_TRUE(list.elements[1].isConsumed);
    EXPECT_FALSE(list.elements[2].isConsumed);
    EXPECT_EQ(TextResult(EPC_OK, "/01/09506000134352/10/L?91=S"), textResult(write));
    EXPECT_TRUE(list.elements[2].isConsumed);
}

TEST(DigitalLinkWriter, ChoosesNoRowWithoutOneKey) {
    AiList list;
    aiListClear(list);
    const DigitalLinkKeyChain* row = nullptr;
    EXPECT_STATUS(EPC_ERR_NO_PRIMARY_KEY, digitalLinkChooseKey(list, row));
    aiListAdd(list, *aiFind("417"), 0, 0, KEY_PASS);
    EXPECT_STATUS(EPC_OK, digitalLinkChooseKey(list, row));
    const DigitalLinkKeyChain* const without = row;
    EXPECT_TRUE(qualifiersOf(*row).empty());
    aiListAdd(list, *aiFind("7040"), 0, 0, KEY_PASS);
    EXPECT_STATUS(EPC_OK, digitalLinkChooseKey(list, row));
    EXPECT_EQ(without + 1, row);
    aiListAdd(list, *aiFind("01"), 0, 0, KEY_PASS);
    EXPECT_STATUS(EPC_ERR_KEY_CONFLICT, digitalLinkChooseKey(list, row));
    EXPECT_EQ(without + 1, row);
}

// A separator follows a value of variable length, unless it is the last.
TEST(BarcodeStringWriter, SeparatesWhatVaries) {
    const struct {
        const char* codes[3];
        const char* expected; // each value is "V"
    } cases[] = {
        {{"01", "21", "10"}, "01V21V~10V"},
        {{"10", "21"}, "10V~21V"},
        {{"8006", "21"}, "8006V21V"},
        {{"8026", "10"}, "8026V10V"},
        {{"402", "7001", "422"}, "402V7001V422V"},
        {{"253", "255", "00"}, "253V~255V~00V"},
        {{"8003", "3910", "20"}, "8003V~3910V~20V"},
        {{"4330", "7007", "8008"}, "4330V~7007V~8008V"},
        {{"4307", "4321", "7003"}, "4307V4321V7003V"},
        {{"8004", "7030", "99"}, "8004V~7030V~99V"},
    };
    for (const auto& row : cases) {
        AiList list;
        aiListClear(list);
        for (const char* const code : row.codes) {
            if (code != nullptr) {
                aiListAdd(list, *aiFind(code), 0, 1, KEY_PASS);
            }
        }
        const TextResult result = textResult([&](std::int32_t size, char* dst) {
            TextBuffer buffer = textBufferOver(dst, size);
            return barcodeStringWrite(buffer, list, "V");
        });
        std::string expected = row.expected;
        std::replace(expected.begin(), expected.end(), '~', GROUP_SEPARATOR);
        EXPECT_EQ(TextResult(EPC_OK, expected), result) << row.expected;
    }
}

TEST(ElementStringWriter, WritesPassByPass) {
    const std::string base = "abc()d";
    AiList list;
    aiListClear(list);
    const struct {
        const char* code;
        std::uint32_t offset;
        std::uint32_t length;
        AiPass pass;
    } elements[] = {{"91", 0, 1, DATA_PASS},
                    {"3103", 1, 1, KEY_PASS},
                    {"01", 2, 1, DATE_PASS},
                    {"240", 3, 2, KEY_PASS},
                    {"10", 5, 0, DATA_PASS}};
    for (const auto& element : elements) {
        aiListAdd(list, *aiFind(element.code), element.offset, element.length, element.pass);
    }
    const auto write = [&](std::int32_t size, char* dst) {
        TextBuffer buffer = textBufferOver(dst, size);
        return elementStringWrite(buffer, list, base.data());
    };
    EXPECT_EQ(TextResult(EPC_OK, "(3103)b(240)()(01)c(91)a(10)"), textResult(write));
    EXPECT_EQ(TextResult(EPC_ERR_NO_ROOM, "(3103)b(240)"), textResult(write, 14));
    aiListClear(list);
    EXPECT_EQ(TextResult(EPC_OK, ""), textResult(write));
}

} // namespace
