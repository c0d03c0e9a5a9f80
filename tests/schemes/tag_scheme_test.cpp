// Names, numbers and headers of the schemes, and how a header leads to a slot.
#include "schemes/tag_scheme.h"

#include "schemes/scheme_model.h"
#include "schemes/text_exports.h"
#include "support/bits.h"
#include "support/status.h"

#include <gtest/gtest.h>

#include <iterator>

using namespace rosetag;

namespace {

using Bytes = std::vector<std::uint8_t>;

TextResult nameOf(EpcScheme scheme, std::int32_t dstSize = 64) {
    return textResult([scheme](std::int32_t size,
                               char* dst) { return epc_tagSchemeEnumToName(scheme, size, dst); },
                      dstSize);
}

TextResult nameOfBinary(std::int32_t bits, std::uint8_t header, std::int32_t dstSize = 64) {
    return textResult(
        [=](std::int32_t size, char* dst) {
            return epc_binaryToTagSchemeName(bits, &header, size, dst);
        },
        dstSize);
}

TextResult nameOfHex(const std::string& hex, std::int32_t dstSize = 64) {
    return textResult([&hex](std::int32_t size,
                             char* dst) { return epc_hexToTagSchemeName(hex.c_str(), size, dst); },
                      dstSize);
}

TEST(TagScheme, GoesFromNumberToNameAndBack) {
    for (EpcScheme scheme = 0; scheme < EPC_SCHEME_COUNT; ++scheme) {
        const TextResult name = nameOf(scheme);
        EXPECT_STATUS(EPC_OK, name.status) << scheme;
        EpcScheme back = -7;
        EXPECT_STATUS(EPC_OK, epc_tagSchemeNameToEnum(name.text.c_str(), &back)) << name;
        EXPECT_EQ(scheme, back) << name;
        EXPECT_STATUS(EPC_OK, epc_tagSchemeNameToEnum(name.text.c_str(), nullptr)) << name;
        const auto size = static_cast<std::int32_t>(name.text.size()) + 1;
        EXPECT_EQ(name, nameOf(scheme, size));
        EXPECT_EQ(TextResult(EPC_ERR_NO_ROOM, "untouched"), nameOf(scheme, size - 1));
    }
    for (const SchemeModel& model : schemeModels) {
        EXPECT_EQ(TextResult(EPC_OK, std::string(model.name)), nameOf(model.scheme));
    }
    EXPECT_EQ(TextResult(EPC_OK, "dsgtin+"), nameOf(EPC_SCHEME_DSGTIN_PLUS));
}

TEST(TagScheme, RefusesUnknownNamesAndNumbers) {
    for (const char* name : {"", "sgtin", "SGTIN-96", "sgtin-9", "sgtin-961", " sgtin-96",
                             "sgtin-96:", "dsgtin", "sgtin-97"}) {
        EpcScheme scheme = -7;
        EXPECT_STATUS(EPC_ERR_UNKNOWN_SCHEME, epc_tagSchemeNameToEnum(name, &scheme)) << name;
        EXPECT_STATUS(EPC_ERR_UNKNOWN_SCHEME, epc_tagSchemeNameToEnum(name, nullptr)) << name;
        EXPECT_EQ(-7, scheme) << name;
    }
    for (const EpcScheme scheme : {-1, EPC_SCHEME_COUNT, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(TextResult(EPC_ERR_UNKNOWN_SCHEME, "untouched"), nameOf(scheme, 0)) << scheme;
    }
}

// Headers of the plain schemes begin at 0x2C, those of the plus schemes at 0xF0.
TEST(TagScheme, KnowsTheHeaders) {
    constexpr const char* plusNames[] = {"cpi+",  "grai+",  "sgln+", "itip+", "gsrn+", "gsrnp+",
                                         "gdti+", "sgtin+", "sgcn+", "sscc+", "giai+", "dsgtin+"};
    std::vector<std::string> names(256);
    for (const SchemeModel& model : schemeModels) {
        names[model.header] = model.name;
    }
    std::copy(std::begin(plusNames), std::end(plusNames), names.begin() + 0xF0);
    for (unsigned header = 0; header < 256; ++header) {
        const auto byte = static_cast<std::uint8_t>(header);
        const TextResult expected = names[header].empty()
                                        ? TextResult(EPC_ERR_UNKNOWN_HEADER, "untouched")
                                        : TextResult(EPC_OK, names[header]);
        EXPECT_EQ(expected, nameOfBinary(8, byte)) << header;
        EXPECT_EQ(expected, nameOfHex(hexFromBytes(&byte, 1))) << header;
    }
}

TEST(TagScheme, NamesABinaryValue) {
    EXPECT_EQ(TextResult(EPC_ERR_TRUNCATED, "untouched"), nameOfBinary(7, 0x30));
    EXPECT_EQ(TextResult(EPC_ERR_TRUNCATED, "untouched"), nameOfBinary(0, 0x30));
    EXPECT_EQ(TextResult(EPC_ERR_TRUNCATED, "untouched"), nameOfBinary(-8, 0x30));
    EXPECT_EQ(TextResult(EPC_OK, "sgtin-96"), nameOfBinary(8, 0x30, 9));
    EXPECT_EQ(TextResult(EPC_ERR_NO_ROOM, "untouched"), nameOfBinary(8, 0x30, 8));
    EXPECT_STATUS(EPC_ERR_NO_ROOM, epc_tagSchemeEnumToName(0, INT32_MIN, nullptr));
    EXPECT_EQ(TextResult(EPC_OK, "sgtin-96"), nameOfHex("3"));
    EXPECT_EQ(TextResult(EPC_ERR_TRUNCATED, "untouched"), nameOfHex(""));
    EXPECT_EQ(TextResult(EPC_ERR_NO_ROOM, "untouched"), nameOfHex("3x"));
    EXPECT_EQ(TextResult(EPC_OK, "sgtin-96"), nameOfHex("30" + std::string(122, 'F')));
    EXPECT_EQ(TextResult(EPC_ERR_TOO_LONG, "untouched"), nameOfHex("30" + std::string(123, 'F')));
}

// From a header to a slot, in the three forms of a binary value.

struct TextExportRow {
    const char* text;   // of 3074257BF7194E4000001A85
    const char* prefix; // what is written before the header is read
    const char* withoutSlot;
    TextExport run;
};

#define SGTIN_PLUS "F70000000000000000000000"
#define GID "350007AB70425D4000000586"

// clang-format off
constexpr TextExportRow textExports[] = {
    {"urn:epc:tag:sgtin-96:3.0614141.812345.6789", "urn:epc:tag:", SGTIN_PLUS, tagUriExport},
    {"urn:epc:id:sgtin:0614141.812345.6789",       "urn:epc:id:",  SGTIN_PLUS, uriExport},
    {"(01)80614141123458(21)6789",                 "",             GID,        {epc_binaryToGs1ElementString, epc_hexToGs1ElementString, epc_wordsToGs1ElementString}},
    {"0180614141123458216789",                     "",             GID,        {epc_binaryToBarcodeString, epc_hexToBarcodeString, epc_wordsToBarcodeString}},
    {"/01/80614141123458/21/6789",                 "",             GID,        {epc_binaryToDigitalLink, epc_hexToDigitalLink, epc_wordsToDigitalLink}},
};
// clang-format on

TEST(TagScheme, LeadsFromTheHeaderToTheSlot) {
    for (const TextExportRow& row : textExports) {
        SCOPED_TRACE(row.text);
        expectInAllForms({EPC_OK, row.text}, row.run, 96, "3074257BF7194E4000001A85");
        expectInAllForms({EPC_ERR_TRUNCATED, row.prefix}, row.run, 0, "");
        expectInAllForms({EPC_ERR_UNKNOWN_HEADER, row.prefix}, row.run, 16, "0000");
        expectInAllForms({EPC_ERR_NOT_SUPPORTED, row.prefix}, row.run, 96, row.withoutSlot);
    }
}

struct AiOutput {
    char codes[2][5] = {};
    char values[2][32] = {};
    std::uint32_t count = 77;

    EpcStatus of(const std::string& hex) {
        const Bytes bytes = bytesFromHex(hex);
        AiOutput fromHex;
        const EpcStatus status = epc_binaryToAIs(static_cast<std::int32_t>(bytes.size() * 8),
                                                 bytes.data(), 2, 32, codes[0], values[0], &count);
        EXPECT_STATUS(status, epc_hexToAIs(hex.c_str(), 2, 32, fromHex.codes[0], fromHex.values[0],
                                           &fromHex.count));
        EXPECT_STREQ(values[1], fromHex.values[1]);
        EXPECT_EQ(count, fromHex.count);
        return status;
    }
};

TEST(TagScheme, LeadsToTheAis) {
    AiOutput output;
    EXPECT_STATUS(EPC_OK, output.of("3074257BF7194E4000001A85"));
    EXPECT_EQ(2U, output.count);
    EXPECT_STREQ("01", output.codes[0]);
    EXPECT_STREQ("80614141123458", output.values[0]);
    EXPECT_STREQ("21", output.codes[1]);
    EXPECT_STREQ("6789", output.values[1]);
}

TEST(TagScheme, LeadsToNoAis) {
    struct Row {
        const char* hex;
        EpcStatus status;
    };
    constexpr Row rows[] = {
        {"", EPC_ERR_TRUNCATED},
        {"00", EPC_ERR_UNKNOWN_HEADER},
        {"350007AB70425D4000000586", EPC_ERR_NOT_SUPPORTED},
        {"2F320434147455900000162E", EPC_ERR_NOT_SUPPORTED},
        {"3B", EPC_ERR_NOT_SUPPORTED},
        {"30", EPC_ERR_TRUNCATED},
    };
    for (const Row& row : rows) {
        AiOutput output;
        EXPECT_STATUS(row.status, output.of(row.hex)) << row.hex;
        EXPECT_EQ(77U, output.count) << row.hex;
        EXPECT_STREQ("", output.values[0]) << row.hex;
    }
    AiOutput output;
    EXPECT_STATUS(EPC_ERR_NO_ROOM,
                  epc_hexToAIs("3G", 2, 32, output.codes[0], output.values[0], &output.count));
}

} // namespace
