// The twelve plus schemes: which AIs go where in the bits, where the data section ends, and what
// each failure leaves.
#include "support/ai_result.h"
#include "support/status.h"
#include "values/value_bits.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

const std::string GTIN = "(01)09506000134352";
const std::string GTIN_BITS = " `09506000134352`/4 ";
const std::string SERIAL_XY_BITS = "011 00010 010111 011000 ";
const std::string SSCC = "(00)106141412345678908";
const std::string SSCC_BITS = " `106141412345678908`/4 ";

using TextToBinaryExport = decltype(&epc_gs1ElementStringToBinaryEnc);

BitsResult encode(TextToBinaryExport convert, const std::string& text, EpcScheme scheme,
                  std::int32_t filter = 1, std::int32_t maxBytes = 300,
                  std::int32_t encoding = AI_ENC_AUTO) {
    return bitsResult(
        maxBytes, 8, [&](std::int32_t size, std::uint8_t* out, std::int32_t* outBytes) {
            return convert(text.c_str(), scheme, filter, 0, encoding, size, out, outBytes);
        });
}

using BinaryToTextExport = decltype(&epc_binaryToGs1ElementString);

TextResult decode(BinaryToTextExport convert, const std::string& bits,
                  std::int32_t dstSize = 1200) {
    const std::vector<std::uint8_t> bytes = bytesFromBits(bits);
    return textResult(
        [&](std::int32_t size, char* dst) {
            return convert(static_cast<std::int32_t>(bits.size()), bytes.data(), size, dst);
        },
        dstSize);
}

AiResult decodeRows(const std::string& bits, std::int32_t maxAIs = 20) {
    const std::vector<std::uint8_t> bytes = bytesFromBits(bits);
    return aiResult(
        [&](const AiArrays& out) {
            return epc_binaryToAIs(static_cast<std::int32_t>(bits.size()), bytes.data(), out.maxAIs,
                                   out.valueSize, out.aiCodes, out.aiValues, out.aiCount);
        },
        maxAIs);
}

std::string padded(const std::string& bits) {
    return bits + std::string((16 - bits.size() % 16) % 16, '0');
}

// The worked value: every field in its place.
const std::string GIAI_BITS = "11111010 1 001 "
                              "`0614141`/4 1110 001 00011 1010 1011 1100 "
                              "2/4 1/4 011 00010 010111 011000 "
                              "`3103`/4 189/20 "
                              "1/4 7/4 24/7 2/4 29/5";

TEST(PlusScheme, StandsInItsBitsAndComesBack) {
    const struct {
        EpcScheme scheme;
        std::string text;
        std::string bits; // without the padding
    } cases[] = {
        {EPC_SCHEME_GIAI_PLUS, "(8004)0614141ABC(21)XY(3103)000189(17)240229", GIAI_BITS},
        {EPC_SCHEME_CPI_PLUS, "(8010)95060A(8011)12",
         "240/8 0 1/3 `95060`/4 14/4 001 1/5 10/4 2/4 12/7"},
        {EPC_SCHEME_GRAI_PLUS, "(8003)09506000134352X", "241/8 0 1/3" + GTIN_BITS + "011 1/5 23/6"},
        {EPC_SCHEME_SGLN_PLUS, "(414)9506000134376(254)7",
         "242/8 0 1/3 `9506000134376`/4 000 1/5 7/4"},
        {EPC_SCHEME_ITIP_PLUS, "(8006)095060001343520102(21)XY",
         "243/8 0 1/3" + GTIN_BITS + "`0102`/4 " + SERIAL_XY_BITS},
        {EPC_SCHEME_GSRN_PLUS, "(8018)106141412345678908", "244/8 0 1/3" + SSCC_BITS},
        {EPC_SCHEME_GSRNP_PLUS, "(8017)106141412345678908", "245/8 0 1/3" + SSCC_BITS},
        {EPC_SCHEME_GDTI_PLUS, "(253)9506000134376", "246/8 0 1/3 `9506000134376`/4 100 0/5"},
        {EPC_SCHEME_SGTIN_PLUS, GTIN + "(21)XY", "247/8 0 1/3" + GTIN_BITS + SERIAL_XY_BITS},
        {EPC_SCHEME_SGTIN_PLUS, GTIN + "(21)XY(17)240229(10)A",
         "247/8 1 1/3" + GTIN_BITS + SERIAL_XY_BITS + "1/4 7/4 24/7 2/4 29/5 1/4 0/4 001 1/5 10/4"},
        {EPC_SCHEME_SGTIN_PLUS, GTIN + "(21)XY(01)19506000134359",
         "247/8 1 1/3" + GTIN_BITS + SERIAL_XY_BITS + "`0119506000134359`/4"},
        {EPC_SCHEME_SGCN_PLUS, "(255)950600013437612", "248/8 0 1/3 `95060001343762`/4 12/7"},
        {EPC_SCHEME_SSCC_PLUS, SSCC, "249/8 0 1/3" + SSCC_BITS},
        {EPC_SCHEME_SSCC_PLUS, SSCC + "(4330)000123(4330)000123-",
         "249/8 1 1/3" + SSCC_BITS + "`4330`/4 123/20 0 `4330`/4 123/20 1"},
        {EPC_SCHEME_DSGTIN_PLUS, GTIN + "(21)XY(17)240229",
         "251/8 0 1/3 4/4 24/7 2/4 29/5" + GTIN_BITS + SERIAL_XY_BITS},
        {EPC_SCHEME_DSGTIN_PLUS, GTIN + "(21)XY(7007)240229",
         "251/8 0 1/3 6/4 24/7 2/4 29/5" + GTIN_BITS + SERIAL_XY_BITS},
        {EPC_SCHEME_DSGTIN_PLUS, GTIN + "(21)XY(15)240201(17)240229",
         "251/8 1 1/3 2/4 24/7 2/4 1/5" + GTIN_BITS + SERIAL_XY_BITS + "1/4 7/4 24/7 2/4 29/5"},
        {EPC_SCHEME_DSGTIN_PLUS, GTIN + "(21)XY(11)240201(11)240202",
         "251/8 1 1/3 0/4 24/7 2/4 1/5" + GTIN_BITS + SERIAL_XY_BITS + "1/4 1/4 24/7 2/4 2/5"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.text);
        const std::string bits = padded(bitsOf(row.bits));
        EXPECT_EQ(BitsResult(EPC_OK, bits),
                  encode(epc_gs1ElementStringToBinaryEnc, row.text, row.scheme));
        EXPECT_EQ(TextResult(EPC_OK, row.text), decode(epc_binaryToGs1ElementString, bits));
        // As a link, which has an order of its own, and as a barcode string.
        const TextResult link = decode(epc_binaryToDigitalLink, bits);
        EXPECT_STATUS(EPC_OK, link.status);
        const BitsResult ofLink = encode(epc_digitalLinkToBinaryEnc, link.text, row.scheme);
        EXPECT_EQ(bits.size(), ofLink.bits.size());
        EXPECT_EQ(link, decode(epc_binaryToDigitalLink, ofLink.bits));
        const TextResult barcode = decode(epc_binaryToBarcodeString, bits);
        EXPECT_EQ(BitsResult(EPC_OK, bits),
                  encode(epc_barcodeStringToBinaryEnc, barcode.text, row.scheme));
        // With too little room the fields before stay.
        const std::string fields =
            row.bits + " " + std::string(bits.size() - bitsOf(row.bits).size(), '0');
        for (std::size_t room = 8; room < bits.size(); room += 8) {
            EXPECT_EQ(BitsResult(EPC_ERR_NO_ROOM, wholeFieldsOf(fields, room)),
                      encode(epc_gs1ElementStringToBinaryEnc, row.text, row.scheme, 1,
                             static_cast<std::int32_t>(room / 8)));
        }
    }
}

TEST(PlusScheme, TakesTheKeyWhereverItStands) {
    const struct {
        const char* name;
        EpcScheme scheme;
        std::string text, same;
    } cases[] = {
        {"key", EPC_SCHEME_SGTIN_PLUS, "(21)XY" + GTIN, GTIN + "(21)XY"},
        {"key after data", EPC_SCHEME_SGTIN_PLUS, "(10)A(21)XY(17)240229" + GTIN,
         GTIN + "(21)XY(10)A(17)240229"},
        {"date by its rank", EPC_SCHEME_DSGTIN_PLUS, "(17)240229" + GTIN + "(11)240201(21)XY",
         GTIN + "(21)XY(11)240201(17)240229"},
        {"the least date", EPC_SCHEME_DSGTIN_PLUS, "(7006)240229(7007)240201(21)XY" + GTIN,
         GTIN + "(21)XY(7006)240229(7007)240201"},
    };
    for (const auto& row : cases) {
        const BitsResult result = encode(epc_gs1ElementStringToBinaryEnc, row.text, row.scheme);
        EXPECT_STATUS(EPC_OK, result.status) << row.name;
        EXPECT_EQ(encode(epc_gs1ElementStringToBinaryEnc, row.same, row.scheme), result)
            << row.name;
    }
}

TEST(PlusScheme, IsRefusedAsElementString) {
    std::string many = GTIN + "(21)XY";
    for (int i = 0; i < 18; ++i) {
        many += "(10)A";
    }
    const struct {
        EpcScheme scheme;
        std::int32_t filter;
        std::string text;
        EpcStatus status;
        std::string bits;
    } cases[] = {
        {EPC_SCHEME_SGTIN_PLUS, -1, "", EPC_ERR_FILTER_LIMIT, ""},
        {EPC_SCHEME_SGTIN_PLUS, 8, "", EPC_ERR_FILTER_LIMIT, ""},
        {EPC_SCHEME_SGTIN_PLUS, 7, "", EPC_ERR_NO_PRIMARY_KEY, "247/8"},
        {EPC_SCHEME_SGTIN_PLUS, 7, GTIN, EPC_ERR_NO_PRIMARY_KEY, "247/8"},
        {EPC_SCHEME_SGTIN_PLUS, 7, "(21)XY(10)A", EPC_ERR_NO_PRIMARY_KEY, "247/8"},
        {EPC_SCHEME_SGLN_PLUS, 7, "(414)9506000134376", EPC_ERR_NO_PRIMARY_KEY, "242/8"},
        {EPC_SCHEME_DSGTIN_PLUS, 7, GTIN + "(21)XY(12)240229", EPC_ERR_NO_PRIMARY_KEY, "251/8"},
        {EPC_SCHEME_DSGTIN_PLUS, 7, GTIN + "(21)XY(7007)240229240301", EPC_ERR_TOO_LONG,
         "251/8 0 7/3"},
        {EPC_SCHEME_DSGTIN_PLUS, 7, GTIN + "(21)XY(17)250229", EPC_ERR_BAD_FORMAT, "251/8 0 7/3"},
        {EPC_SCHEME_SGTIN_PLUS, 7, "(01)09506000134353(21)XY", EPC_ERR_CHECK_DIGIT, ""},
        {EPC_SCHEME_SGTIN_PLUS, 7, GTIN + "(21)XY(20)A1", EPC_ERR_BAD_CHARACTER,
         "247/8 1 7/3" + GTIN_BITS + SERIAL_XY_BITS + "2/4 0/4"},
        {EPC_SCHEME_SGTIN_PLUS, 7, GTIN + "(21)X Y", EPC_ERR_BAD_CHARACTER,
         "247/8 0 7/3" + GTIN_BITS},
        {EPC_SCHEME_SGTIN_PLUS, 7, many + "(10)A", EPC_ERR_TOO_MANY_AIS, ""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(BitsResult(row.status, bitsOf(row.bits)),
                  encode(epc_gs1ElementStringToBinaryEnc, row.text, row.scheme, row.filter))
            << row.text << " filter " << row.filter;
    }
    EXPECT_STATUS(EPC_OK,
                  encode(epc_gs1ElementStringToBinaryEnc, many, EPC_SCHEME_SGTIN_PLUS).status);
    // The encoding reaches every field of text.
    EXPECT_EQ(BitsResult(EPC_OK, padded(bitsOf("247/8 1 1/3" + GTIN_BITS +
                                               "100 2/5 88/7 89/7 1/4 0/4 100 1/5 65/7"))),
              encode(epc_gs1ElementStringToBinaryEnc, GTIN + "(21)XY(10)A", EPC_SCHEME_SGTIN_PLUS,
                     1, 300, AI_ENC_ISO646));
}

TEST(PlusScheme, IsReadFromLinks) {
    const std::string same = GTIN + "(21)1/0(10)A(4330)000123-";
    const struct {
        const char* text;
        EpcStatus status;
        const char* bits; // of a failure
    } cases[] = {
        {"/01/09506000134352/21/1%2F0?10=A&4330=000123-", EPC_OK, ""},
        {"https://id.example.org/01/09506000134352/21/1%2f0?10=A&4330=000123-", EPC_OK, ""},
        {"https:///01/%309506000134352/21/1%2F0/10/%41?4330=%3000123-", EPC_OK, ""},
        {"https://example.org/01/09506000134352/21/1%2F0%00X?10=A&4330=000123-", EPC_OK, ""},
        {"https://example.org", EPC_ERR_TRUNCATED, ""},
        {"https://", EPC_ERR_TRUNCATED, ""},
        {"https:/", EPC_ERR_NO_PRIMARY_KEY, "247/8"}, // an empty link
        {"h", EPC_ERR_NO_PRIMARY_KEY, "247/8"},
        {"", EPC_ERR_NO_PRIMARY_KEY, "247/8"},
        {"http://example.org/01/09506000134352/21/10", EPC_ERR_BAD_FORMAT, ""},
        {"h/01/09506000134352/21/10", EPC_ERR_BAD_FORMAT, ""},
        {"https:/?01=09506000134352&21=10", EPC_ERR_BAD_FORMAT, ""},
        {"HTTPS://example.org/01/09506000134352/21/10", EPC_ERR_BAD_FORMAT, ""},
        {"example.org/01/09506000134352/21/10", EPC_ERR_BAD_FORMAT, ""},
        {"https://example.org/shop/01/09506000134352/21/10", EPC_ERR_BAD_CHARACTER, ""},
        {"/01/09506000134352/21/1%2", EPC_ERR_TRUNCATED, "247/8 0 1/3 `09506000134352`/4"},
        {"/01/09506000134352/21/1%2G", EPC_ERR_BAD_CHARACTER, "247/8 0 1/3 `09506000134352`/4"},
        {"/01/09506000134352/21/A%20B", EPC_ERR_BAD_CHARACTER, "247/8 0 1/3 `09506000134352`/4"},
        {"/01/09506000134352/21/1?20=%007", EPC_ERR_NO_ROOM,
         "247/8 1 1/3 `09506000134352`/4 000 1/5 1/4 2/4 0/4"},
    };
    const BitsResult expected =
        encode(epc_gs1ElementStringToBinaryEnc, same, EPC_SCHEME_SGTIN_PLUS);
    ASSERT_STATUS(EPC_OK, expected.status);
    for (const auto& row : cases) {
        EXPECT_EQ(row.status == EPC_OK ? expected : BitsResult(row.status, bitsOf(row.bits)),
                  encode(epc_digitalLinkToBinaryEnc, row.text, EPC_SCHEME_SGTIN_PLUS))
            << row.text;
    }
    const std::string link = "/01/09506000134352/21/1?7011=";
    EXPECT_STATUS(EPC_ERR_BAD_FORMAT, encode(epc_digitalLinkToBinaryEnc,
                                             link + std::string(1023, '1'), EPC_SCHEME_SGTIN_PLUS)
                                          .status);
    EXPECT_STATUS(EPC_ERR_TOO_LONG, encode(epc_digitalLinkToBinaryEnc,
                                           link + std::string(1024, '1'), EPC_SCHEME_SGTIN_PLUS)
                                        .status);
}

TEST(PlusScheme, ReadsTheDataSectionToItsEnd) {
    const std::string sscc = "249/8 1 0/3" + SSCC_BITS;
    const std::string zeros(72, '0');
    std::string nineteen = sscc;
    for (int i = 0; i < 19; ++i) {
        nineteen += "`4321`/4 1 ";
    }
    std::string twenty = SSCC;
    for (int i = 0; i < 19; ++i) {
        twenty += "(4321)1";
    }
    const std::string zeroSscc = "(00)000000000000000000";
    const struct {
        const char* name;
        std::string bits;
        TextResult expected;
    } cases[] = {
        {"no toggle, bits after it", "249/8 0 0/3" + SSCC_BITS + "15/4 15/4 15/4", {EPC_OK, SSCC}},
        {"nothing after the key", sscc, {EPC_OK, SSCC}},
        {"8 bits are not read", sscc + "255/8", {EPC_OK, SSCC}},
        {"9 zeros", sscc + "0/9", {EPC_OK, SSCC}},
        {"15 zeros", sscc + "0/15", {EPC_OK, SSCC}},
        {"00 and less than an SSCC", sscc + "0/8 " + std::string(71, '1'), {EPC_OK, SSCC}},
        {"79 zeros", sscc + "0/79", {EPC_OK, SSCC}},
        {"80 zeros", sscc + "0/80", {EPC_OK, SSCC + zeroSscc}},
        {"96 zeros", sscc + "0/96", {EPC_OK, SSCC + zeroSscc}},
        {"an unknown prefix", sscc + "1/4 4/4 0/8", {EPC_ERR_UNKNOWN_AI, ""}},
        {"an unknown code", sscc + "`3109`/4 0/20", {EPC_ERR_UNKNOWN_AI, ""}},
        {"a digit above 9", sscc + "15/4 0/5", {EPC_ERR_BAD_FORMAT, ""}},
        {"a second digit above 9", sscc + "0/4 10/4 0/1", {EPC_ERR_BAD_FORMAT, ""}},
        {"a third digit above 9", sscc + "3/4 1/4 10/4 0/24", {EPC_ERR_BAD_FORMAT, ""}},
        {"an end inside the code", sscc + "3/4 1/4 0/4", {EPC_ERR_TRUNCATED, ""}},
        {"an end inside the value", sscc + "2/4 0/4 5/6", {EPC_ERR_TRUNCATED, ""}},
        {"a sign that is missing", sscc + "`4330`/4 123/20", {EPC_OK, SSCC + "(4330)000123"}},
        {"a bad date", sscc + "1/4 7/4 25/7 2/4 29/5", {EPC_ERR_BAD_FORMAT, ""}},
        {"20 AIs", nineteen, {EPC_OK, twenty}},
        {"21 AIs", nineteen + "`4321`/4 1", {EPC_ERR_TOO_MANY_AIS, ""}},
        {"21 AIs, the last not decodable", nineteen + "1/4 7/4 0/16", {EPC_ERR_BAD_FORMAT, ""}},
        {"no toggle", "249/8", {EPC_ERR_TRUNCATED, ""}},
        {"no filter", "249/8 1 0/2", {EPC_ERR_TRUNCATED, ""}},
        {"no date code", "251/8 0 0/3 0/3", {EPC_ERR_TRUNCATED, ""}},
        {"date code 7",
         "251/8 0 0/3 7/4 24/7 2/4 29/5" + GTIN_BITS + SERIAL_XY_BITS,
         {EPC_ERR_BAD_FORMAT, ""}},
        {"an end inside the key",
         "247/8 0 0/3" + GTIN_BITS + "011 2/5 0/6",
         {EPC_ERR_TRUNCATED, ""}},
        {"no check digit is verified",
         "247/8 0 0/3 1/4 0/52 000 0/5",
         {EPC_OK, "(01)10000000000000(21)"}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const std::string bits = bitsOf(row.bits);
        EXPECT_EQ(row.expected, decode(epc_binaryToGs1ElementString, bits));
        if (row.expected.status != EPC_OK) {
            EXPECT_EQ(AiResult(row.expected.status, ""), decodeRows(bits));
            EXPECT_EQ(row.expected, decode(epc_binaryToDigitalLink, bits));
            EXPECT_EQ(row.expected, decode(epc_binaryToBarcodeString, bits));
        }
    }
    // The values of a read hold 1023 characters.
    std::string digits = "250/8 0 0/3 ";
    for (int i = 0; i < 1023; ++i) {
        digits += "7/4 ";
    }
    EXPECT_EQ(TextResult(EPC_OK, "(8004)" + std::string(1023, '7')),
              decode(epc_binaryToGs1ElementString, bitsOf(digits + "15/4")));
    EXPECT_EQ(TextResult(EPC_ERR_NO_ROOM, ""),
              decode(epc_binaryToGs1ElementString, bitsOf(digits + "7/4 15/4")));
}

TEST(PlusScheme, WritesItsTextsInOrder) {
    const std::string bits = bitsOf("251/8 1 0/3 4/4 24/7 2/4 29/5" + GTIN_BITS + SERIAL_XY_BITS +
                                    "2/4 0/4 7/7 `4330`/4 123/20 0 1/4 0/4 001 1/5 10/4");
    const struct {
        BinaryToTextExport convert;
        std::string text;
    } texts[] = {
        {epc_binaryToGs1ElementString, GTIN + "(21)XY(17)240229(20)07(4330)000123(10)A"},
        {epc_binaryToBarcodeString, "010950600013435221XY\x1D"
                                    "172402292007"
                                    "4330000123\x1D"
                                    "10A"},
        {epc_binaryToDigitalLink, "/01/09506000134352/10/A/21/XY?17=240229&20=07&4330=000123"},
    };
    for (const auto& row : texts) {
        EXPECT_EQ(TextResult(EPC_OK, row.text), decode(row.convert, bits));
        const auto length = static_cast<std::int32_t>(row.text.size());
        EXPECT_EQ(TextResult(EPC_OK, row.text), decode(row.convert, bits, length + 1));
        for (std::int32_t room = 0; room < length; ++room) {
            const TextResult cut = decode(row.convert, bits, room + 1);
            EXPECT_STATUS(EPC_ERR_NO_ROOM, cut.status);
            EXPECT_EQ(0U, row.text.find(cut.text)) << cut.text;
        }
    }
    // The rows come in the order of the bits: the date first.
    EXPECT_EQ(AiResult(EPC_OK, "17=240229 01=09506000134352 21=XY 20=07 4330=000123 10=A #6"),
              decodeRows(bits));
    EXPECT_EQ(AiResult(EPC_ERR_TOO_MANY_AIS, "17=240229 01=09506000134352 "), decodeRows(bits, 2));
    // A list with two keys has no link.
    EXPECT_EQ(TextResult(EPC_ERR_KEY_CONFLICT, ""),
              decode(epc_binaryToDigitalLink,
                     bitsOf("247/8 1 0/3" + GTIN_BITS + SERIAL_XY_BITS + "0/4 0/4" + SSCC_BITS)));
}

} // namespace
