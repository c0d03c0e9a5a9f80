/*
 * The plain schemes between binary and the GS1 texts: worked values, what each step of a chain
 * refuses, and a round trip over generated identities of every scheme.
 */
#include "core/char_class.h"
#include "gs1/ai_catalogue.h"
#include "schemes/scheme_model.h"
#include "schemes/tag_scheme.h"
#include "support/ai_result.h"
#include "support/bits.h"
#include "support/status.h"
#include "support/text_result.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

using namespace rosetag;

namespace {

using FromHex = EpcStatus (*)(const char* hex, std::int32_t dstSize, char* dst);
using ToHex = EpcStatus (*)(const char* text, EpcScheme scheme, std::int32_t filter,
                            std::int32_t gcpLength, std::int32_t dstSize, char* dst);

TextResult fromHex(FromHex convert, const std::string& hex, std::int32_t dstSize = 256) {
    return textResult([&](std::int32_t size, char* dst) { return convert(hex.c_str(), size, dst); },
                      dstSize);
}

TextResult toHex(ToHex convert, const std::string& text, EpcScheme scheme, std::int32_t filter,
                 std::int32_t gcpLength) {
    return textResult([&](std::int32_t size, char* dst) {
        return convert(text.c_str(), scheme, filter, gcpLength, size, dst);
    });
}

AiResult hexToAIs(const std::string& hex, std::int32_t maxAIs = 20, std::uint32_t valueSize = 91) {
    return aiResult(
        [&hex](const AiArrays& out) {
            return epc_hexToAIs(hex.c_str(), out.maxAIs, out.valueSize, out.aiCodes, out.aiValues,
                                out.aiCount);
        },
        maxAIs, valueSize);
}

struct ValueRow {
    EpcScheme scheme;
    std::int32_t filter;
    std::int32_t gcpLength;
    const char* hex;
    const char* elementString;
    const char* barcodeString;
    const char* link;
    const char* rows;
};

// clang-format off
constexpr ValueRow valueRows[] = {
    {EPC_SCHEME_SGTIN_96,  3, 7,  "3074257BF7194E4000001A85", "(01)80614141123458(21)6789", "0180614141123458216789", "/01/80614141123458/21/6789", "01=80614141123458 21=6789 #2"},
    {EPC_SCHEME_SGTIN_198, 3, 7,  "3674257BF7194E5B2F6E00000000000000000000000000000000", "(01)80614141123458(21)6/7", "0180614141123458216/7", "/01/80614141123458/21/6%2F7", "01=80614141123458 21=6/7 #2"},
    {EPC_SCHEME_SGLN_96,   1, 12, "3220393243F1640000000190", "(414)0614141123452(254)400", "4140614141123452254400", "/414/0614141123452/254/400", "414=0614141123452 254=400 #2"},
    {EPC_SCHEME_GIAI_202,  0, 7,  "3814257BF70AFC40000000000000000000000000000000000000", "(8004)0614141a/b", "80040614141a/b", "/8004/0614141a%2Fb", "8004=0614141a/b #1"},
    {EPC_SCHEME_GDTI_113,  7, 7,  "3AF4257BF46072000000000001F78000", "(253)0614141123452007", "2530614141123452007", "/253/0614141123452007", "253=0614141123452007 #1"},
    {EPC_SCHEME_CPI_VAR,   2, 7,  "3D54257BF71CAD04000000003DB0", "(8010)061414112-A(8011)987", "8010061414112-A\x1d" "8011987", "/8010/061414112-A/8011/987", "8010=061414112-A 8011=987 #2"},
    {EPC_SCHEME_ITIP_110,  4, 7,  "4094F4E4E40C0E40820000000F6C", "(8006)040123451234560102(21)987", "800604012345123456010221987", "/8006/040123451234560102/21/987", "8006=040123451234560102 21=987 #2"},
};
// clang-format on

TEST(PlainSlots, ConvertWorkedValues) {
    for (const ValueRow& row : valueRows) {
        SCOPED_TRACE(row.hex);
        EXPECT_EQ(TextResult(EPC_OK, row.elementString),
                  fromHex(epc_hexToGs1ElementString, row.hex));
        EXPECT_EQ(TextResult(EPC_OK, row.barcodeString), fromHex(epc_hexToBarcodeString, row.hex));
        EXPECT_EQ(TextResult(EPC_OK, row.link), fromHex(epc_hexToDigitalLink, row.hex));
        EXPECT_EQ(AiResult(EPC_OK, row.rows), hexToAIs(row.hex));
        const TextResult hex(EPC_OK, row.hex);
        EXPECT_EQ(hex, toHex(epc_gs1ElementStringToHex, row.elementString, row.scheme, row.filter,
                             row.gcpLength));
        EXPECT_EQ(hex, toHex(epc_barcodeStringToHex, row.barcodeString, row.scheme, row.filter,
                             row.gcpLength));
        EXPECT_EQ(hex,
                  toHex(epc_digitalLinkToHex, row.link, row.scheme, row.filter, row.gcpLength));
    }
}

constexpr char sgtinHex[] = "3074257BF7194E4000001A85";
constexpr char serialWithBracketHex[] = "3674257BF7194E60A88400000000000000000000000000000000";

TEST(PlainSlots, RefuseBinaryValues) {
    struct Row {
        const char* name;
        FromHex convert;
        const char* hex;
        std::int32_t dstSize;
        TextResult result;
    };
    // clang-format off
    const Row rows[] = {
        {"partition 7", epc_hexToGs1ElementString, "317C00000000000000000000", 256, {EPC_ERR_BAD_PARTITION, ""}},
        {"cut off", epc_hexToBarcodeString, "3074257BF7194E400000", 256, {EPC_ERR_TRUNCATED, ""}},
        {"cut off", epc_hexToDigitalLink, "3074", 256, {EPC_ERR_TRUNCATED, ""}},
        {"no room", epc_hexToGs1ElementString, sgtinHex, 20, {EPC_ERR_NO_ROOM, "(01)80614141123458("}},
        {"no room", epc_hexToBarcodeString, sgtinHex, 12, {EPC_ERR_NO_ROOM, "0180614141"}},
        {"no room", epc_hexToDigitalLink, sgtinHex, 20, {EPC_ERR_NO_ROOM, "/01/80614141123458/"}},
        {"bracket in a serial", epc_hexToGs1ElementString, serialWithBracketHex, 256, {EPC_OK, "(01)80614141123458(21)A(B"}},
        {"bracket in a serial", epc_hexToBarcodeString, serialWithBracketHex, 256, {EPC_OK, "018061414112345821A(B"}},
        {"bracket in a serial", epc_hexToDigitalLink, serialWithBracketHex, 256, {EPC_ERR_BAD_CHARACTER, ""}},
    };
    // clang-format on
    for (const Row& row : rows) {
        EXPECT_EQ(row.result, fromHex(row.convert, row.hex, row.dstSize)) << row.name;
    }
    EXPECT_EQ(AiResult(EPC_ERR_TOO_MANY_AIS, ""), hexToAIs(sgtinHex, 0));
    EXPECT_EQ(AiResult(EPC_ERR_TOO_MANY_AIS, "01=80614141123458 "), hexToAIs(sgtinHex, 1));
    EXPECT_EQ(AiResult(EPC_OK, "01=80614141123458 21=6789 #2"), hexToAIs(sgtinHex, 2, 15));
    EXPECT_EQ(AiResult(EPC_ERR_TRUNCATED, ""), hexToAIs("3074"));
}

// A serial that fills the tag URI up to this many characters: prefix, scheme word, filter and key
// take 39.
std::string sgtin198Of(std::size_t uriLength) {
    return "(01)80614141123458(21)" + std::string(uriLength - 39, 'A');
}

TEST(PlainSlots, RefuseTexts) {
    struct Row {
        const char* name;
        ToHex convert;
        std::string text;
        EpcScheme scheme;
        std::int32_t filter;
        std::int32_t gcpLength;
        EpcStatus status;
    };
    constexpr ToHex element = epc_gs1ElementStringToHex;
    constexpr ToHex barcode = epc_barcodeStringToHex;
    constexpr ToHex link = epc_digitalLinkToHex;
    std::string longLink = "/01/80614141123458/21/6?";
    for (const char* ai : {"91", "92", "93"}) {
        longLink += std::string(ai) + "=" + std::string(80, 'A') + "&";
    }
    longLink.pop_back();
    // clang-format off
    const Row rows[] = {
        {"negative filter", element, "(01)80614141123458(21)6", 0, -1, 7, EPC_ERR_FILTER_LIMIT},
        {"negative filter", link, "/01/80614141123458/21/6", 0, -1, 7, EPC_ERR_FILTER_LIMIT},
        {"gcpLength", barcode, "0180614141123458216", 0, 0, 13, EPC_ERR_FILTER_FIELD},
        {"other family", link, "/00/106141412345678908", 0, 0, 7, EPC_ERR_SCHEME_MISMATCH},
        {"wrong check digit", element, "(01)80614141123450(21)6", 0, 0, 7, EPC_OK},
        {"wrong check digit", barcode, "0180614141123450216", 0, 0, 7, EPC_OK},
        {"wrong check digit", link, "/01/80614141123450/21/6", 0, 0, 7, EPC_ERR_CHECK_DIGIT},
        {"key after its serial", link, "/21/6/01/80614141123458", 0, 0, 7, EPC_ERR_NO_SECONDARY_AI},
        {"link with a host", link, "https://id.gs1.org/01/80614141123458", 0, 0, 7, EPC_ERR_BAD_FORMAT},
        {"letter in the key", element, "(01)8061414112A458(21)6", 0, 0, 7, EPC_ERR_OUT_OF_RANGE},
        {"leading zero", element, "(01)80614141123458(21)06", 0, 0, 7, EPC_ERR_BAD_FORMAT},
        {"leading zero as text", element, "(01)80614141123458(21)06", 1, 0, 7, EPC_OK},
        {"serial of 20", element, sgtin198Of(39 + 20), 1, 0, 7, EPC_OK},
        {"serial of 21", element, sgtin198Of(39 + 21), 1, 0, 7, EPC_ERR_BAD_FORMAT},
        {"tag URI of 255", element, sgtin198Of(255), 1, 0, 7, EPC_ERR_BAD_FORMAT},
        {"tag URI of 256", element, sgtin198Of(256), 1, 0, 7, EPC_ERR_NO_ROOM},
        {"link of 256 as element string", link, longLink, 0, 0, 7, EPC_ERR_NO_ROOM},
    };
    // clang-format on
    for (const Row& row : rows) {
        EXPECT_STATUS(row.status,
                      toHex(row.convert, row.text, row.scheme, row.filter, row.gcpLength).status)
            << row.name << ": " << row.text;
    }
}

TEST(PlainSlots, LeaveTheBitsBeforeAFailure) {
    struct Row {
        const char* name;
        const char* text;
        std::int32_t maxBytes;
        EpcStatus status;
        const char* out;
    };
    // clang-format off
    const Row rows[] = {
        {"before the tag URI is complete", "(01)80614141123458", 12, EPC_ERR_NO_SECONDARY_AI, "000000000000000000000000"},
        {"serial refused", "(01)80614141123458(21)06789", 12, EPC_ERR_BAD_FORMAT, "3074257BF7194E4000000000"},
        {"text left over", "(01)80614141123458(21)6789A", 12, EPC_ERR_BAD_FORMAT, sgtinHex},
        {"serial does not fit", "(01)80614141123458(21)6789", 11, EPC_ERR_NO_ROOM, "3074257BF7194E40000000"},
    };
    // clang-format on
    for (const Row& row : rows) {
        std::vector<std::uint8_t> out(static_cast<std::size_t>(row.maxBytes), 0xEE);
        std::int32_t outBytes = -1;
        EXPECT_STATUS(row.status, epc_gs1ElementStringToBinary(row.text, EPC_SCHEME_SGTIN_96, 3, 7,
                                                               row.maxBytes, out.data(), &outBytes))
            << row.name;
        EXPECT_EQ(row.out, hexFromBytes(out)) << row.name;
        EXPECT_EQ(-1, outBytes) << row.name;
    }
}

// What the AIs of a value say about its texts.
struct ExpectedTexts {
    std::string elementString;
    bool hasBracket;       // in a value: its element string does not read back
    bool valuesFit;        // each value is within the limit of its AI
    bool escapedValuesFit; // in a link the limit is on the escaped value
};

ExpectedTexts expectedTexts(const std::string& rows) {
    ExpectedTexts expected = {"", false, true, true};
    std::istringstream tokens(rows);
    for (std::string token; tokens >> token && token[0] != '#';) {
        const std::string code = token.substr(0, token.find('='));
        const std::string value = token.substr(code.size() + 1);
        std::size_t limit = 0;
        for (const AiComponent& component : aiFind(code)->components) {
            limit += component.digitCount + component.maxLength;
        }
        std::size_t escapedSize = 0;
        for (const char character : value) {
            escapedSize += charIsOfClass(character, CHAR_CLASS_LINK_ESCAPE) ? 3U : 1U;
        }
        expected.elementString += "(" + code + ")" + value;
        expected.hasBracket |= value.find('(') != std::string::npos;
        expected.valuesFit &= value.size() <= limit;
        expected.escapedValuesFit &= escapedSize <= limit;
    }
    return expected;
}

void expectLinkRoundTrip(const ModelValue& value, const std::string& hex, std::int32_t gcpLength,
                         const ExpectedTexts& expected) {
    const TextResult link = fromHex(epc_hexToDigitalLink, hex);
    ASSERT_EQ(TextResult(expected.valuesFit ? EPC_OK : EPC_ERR_BAD_FORMAT,
                         expected.valuesFit ? link.text : ""),
              link);
    if (expected.valuesFit) {
        const TextResult back(expected.escapedValuesFit ? EPC_OK : EPC_ERR_BAD_FORMAT,
                              expected.escapedValuesFit ? hex : "untouched");
        EXPECT_EQ(back, toHex(epc_digitalLinkToHex, link.text, value.scheme,
                              static_cast<std::int32_t>(value.filter), gcpLength));
    }
}

void expectRoundTrip(const ModelValue& value, std::int32_t gcpLength) {
    const auto filter = static_cast<std::int32_t>(value.filter);
    std::string bits = value.bits;
    bits.resize((bits.size() + 15) / 16 * 16, '0');
    const std::string hex = hexFromBytes(bytesFromBits(bits));
    const AiResult ais = hexToAIs(hex);
    ASSERT_STATUS(EPC_OK, ais.status);
    const ExpectedTexts expected = expectedTexts(ais.rows);
    EXPECT_EQ(TextResult(EPC_OK, expected.elementString), fromHex(epc_hexToGs1ElementString, hex));
    const TextResult barcode = fromHex(epc_hexToBarcodeString, hex);
    EXPECT_STATUS(EPC_OK, barcode.status);
    const TextResult back(EPC_OK, hex);
    EXPECT_EQ(back, toHex(epc_barcodeStringToHex, barcode.text, value.scheme, filter, gcpLength));
    if (!expected.hasBracket) {
        EXPECT_EQ(back, toHex(epc_gs1ElementStringToHex, expected.elementString, value.scheme,
                              filter, gcpLength));
        expectLinkRoundTrip(value, hex, gcpLength, expected);
    }
}

// Binary to each of the three texts and back to the same binary, at each company prefix length.
TEST(PlainSlots, RoundTripThroughEachText) {
    constexpr std::size_t valuesOfEach = 40;
    std::size_t schemes = 0;
    for (const SchemeModel& model : schemeModels) {
        if (tagSchemeTable[model.scheme].binaryToElementString == nullptr) {
            continue;
        }
        ++schemes;
        Picker pickers[] = {Picker::lowest(), Picker::largest(), Picker::random(model.header)};
        for (std::size_t partition = 0; partition <= 6; ++partition) {
            const std::int32_t gcpLength = 12 - static_cast<std::int32_t>(partition);
            for (std::size_t i = 0; i < valuesOfEach; ++i) {
                const auto filter = static_cast<std::uint32_t>(i % 8);
                const ModelValue value =
                    modelValue(model, filter, partition, pickers[std::min<std::size_t>(i, 2)]);
                SCOPED_TRACE(value.tagUri);
                expectRoundTrip(value, gcpLength);
            }
        }
    }
    EXPECT_EQ(schemeModels.size() - 3, schemes); // all but gid, usdod and adi
}

} // namespace
