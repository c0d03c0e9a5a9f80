/*
 * EPC URIs to GS1 texts: what is refused, what is accepted, and what dst holds afterwards.
 */
#include "support/text_result.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Export = EpcStatus (*)(const char* text, std::int32_t dstSize, char* dst);

struct UriRow {
    const char* name;
    Export convert;
    std::string uri;
    EpcStatus status;
    std::string text;
};

std::string digits(std::size_t count) {
    return std::string(count, '7');
}

constexpr Export tagToBarcode = epc_epcTagUriToBarcodeString;
constexpr Export tagToElement = epc_epcTagUriToGs1ElementString;
constexpr Export tagToLink = epc_epcTagUriToDigitalLink;
constexpr Export idToBarcode = epc_epcUriToBarcodeString;
constexpr Export idToElement = epc_epcUriToGs1ElementString;

// clang-format off
const std::vector<UriRow> headRows = {
    {"empty text",            tagToElement, "", EPC_ERR_TRUNCATED, ""},
    {"prefix cut off",        idToElement,  "urn:epc:i", EPC_ERR_TRUNCATED, ""},
    {"pure prefix for tag",   tagToElement, "urn:epc:id:sgtin:0614141.812345.6", EPC_ERR_BAD_FORMAT, ""},
    {"tag prefix for pure",   idToBarcode,  "urn:epc:tag:sgtin-96:3.0614141.812345.6", EPC_ERR_BAD_FORMAT, ""},
    {"word without colon",    tagToElement, "urn:epc:tag:sgtin-96", EPC_ERR_TRUNCATED, ""},
    {"pure without colon",    idToElement,  "urn:epc:id:sgtin", EPC_ERR_TRUNCATED, ""},
    {"tag word of 255",       tagToElement, "urn:epc:tag:" + digits(255) + ":", EPC_ERR_UNKNOWN_SCHEME, ""},
    {"tag word of 256",       tagToElement, "urn:epc:tag:" + digits(256) + ":", EPC_ERR_TOO_LONG, ""},
    {"pure word of 255",      idToElement,  "urn:epc:id:" + digits(255) + ":", EPC_ERR_NO_KEY_DEFINITION, ""},
    {"pure word of 256",      idToElement,  "urn:epc:id:" + digits(256) + ":", EPC_ERR_TOO_LONG, ""},
    {"family as scheme",      tagToElement, "urn:epc:tag:sgtin:3.0614141.812345.6", EPC_ERR_UNKNOWN_SCHEME, ""},
    {"scheme as family",      idToElement,  "urn:epc:id:sgtin-96:0614141.812345.6", EPC_ERR_NO_KEY_DEFINITION, ""},
    {"no key: gid-96",        tagToLink,    "urn:epc:tag:gid-96:1.2.3", EPC_ERR_NO_KEY_DEFINITION, ""},
    {"no key: usdod-96",      tagToBarcode, "urn:epc:tag:usdod-96:99.2S194.1", EPC_ERR_NO_KEY_DEFINITION, ""},
    {"no key: adi-var",       tagToElement, "urn:epc:tag:adi-var:3.2S194..1", EPC_ERR_NO_KEY_DEFINITION, ""},
    {"no key: dsgtin+",       tagToElement, "urn:epc:tag:dsgtin+:99", EPC_ERR_NO_KEY_DEFINITION, ""},
    {"filter 7",              tagToElement, "urn:epc:tag:sscc-96:7.0614141.11", EPC_OK, "(00)1061414119"},
    {"empty filter is 0",     tagToElement, "urn:epc:tag:sscc-96:.0614141.11", EPC_OK, "(00)1061414119"},
    {"filter 8",              tagToElement, "urn:epc:tag:sscc-96:8.0614141.11", EPC_ERR_FILTER_LIMIT, ""},
    {"filter beyond 32 bits", tagToBarcode, "urn:epc:tag:sscc-96:4294967297.0614141.11", EPC_ERR_FILTER_LIMIT, ""},
    {"filter of 20 digits",   tagToLink,    "urn:epc:tag:sscc-96:10000000000000000001.1.1", EPC_ERR_OUT_OF_RANGE, ""},
    {"filter 03",             tagToElement, "urn:epc:tag:sscc-96:03.0614141.11", EPC_ERR_BAD_FORMAT, ""},
    {"filter without dot",    tagToElement, "urn:epc:tag:sscc-96:3-0614141.11", EPC_ERR_BAD_FORMAT, ""},
    {"end after the filter",  tagToElement, "urn:epc:tag:sscc-96:3", EPC_ERR_TRUNCATED, ""},
};

// The values of the AIs take 1023 characters: a key of 1021 and the serial.
const std::string keyOf1021 = "urn:epc:id:itip:" + digits(255) + "." + digits(255) + "." + digits(255) + "." + digits(255) + ".";

const std::vector<UriRow> bodyRows = {
    {"upui has no way back",    idToElement, "urn:epc:id:upui:1234567.998765.A%2FB", EPC_OK, "(01)91234567987654(235)A/B"},
    {"no fields",               idToBarcode, "urn:epc:id:sgtin:", EPC_ERR_TRUNCATED, ""},
    {"one field",               idToBarcode, "urn:epc:id:giai:0614141", EPC_ERR_TRUNCATED, ""},
    {"two fields of three",     idToBarcode, "urn:epc:id:sgtin:0614141.812345", EPC_ERR_TRUNCATED, ""},
    {"extra field without dot", idToBarcode, "urn:epc:id:itip:0614141.812345.01.02", EPC_ERR_TRUNCATED, "80068061414112345801"},
    {"serial missing",          idToBarcode, "urn:epc:id:itip:0614141.812345.01", EPC_ERR_TRUNCATED, "800680614141123458"},
    {"empty tail",              idToElement, "urn:epc:id:sgtin:0614141.812345.", EPC_OK, "(01)80614141123458(21)"},
    {"empty tail in the key",   idToElement, "urn:epc:id:grai:0614141.12345.", EPC_OK, "(8003)00614141123452"},
    {"empty fields",            idToBarcode, "urn:epc:id:cpi:..", EPC_OK, "8010\x1d" "8011"},
    {"empty second, moving",    idToBarcode, "urn:epc:id:sgtin:0614141..6", EPC_ERR_BAD_FORMAT, "01"},
    {"empty second, moving",    idToElement, "urn:epc:id:sscc:0614141.", EPC_ERR_BAD_FORMAT, ""},
    {"filter in a pure URI",    idToElement, "urn:epc:id:sgtin:3.0614141.812345.6", EPC_OK, "(01)036141418(21)812345.6"},
    {"letters in check digit",  idToElement, "urn:epc:id:pgln:1234567.8901A", EPC_OK, "(417)12345678901A3"},
    {"dot in the last field",   idToElement, "urn:epc:id:giai:0614141.12.45", EPC_OK, "(8004)061414112.45"},
    {"escaped dot",             idToElement, "urn:epc:id:giai:06%2E141.1", EPC_OK, "(8004)06.1411"},
    {"escapes of both cases",   idToBarcode, "urn:epc:id:giai:0614141.a%2f%2Fb", EPC_OK, "80040614141a//b"},
    {"escape to a link",        tagToLink,   "urn:epc:tag:giai-202:0.0614141.a%2fb%20", EPC_OK, "/8004/0614141a%2Fb "},
    {"bad escape",              idToBarcode, "urn:epc:id:giai:0614141.%4G", EPC_ERR_BAD_CHARACTER, ""},
    {"bad escape in the tail",  idToBarcode, "urn:epc:id:sgtin:0614141.812345.%G4", EPC_ERR_BAD_CHARACTER, "0180614141123458"},
    {"escape cut off",          idToElement, "urn:epc:id:sgtin:0614141.812345.6%4", EPC_ERR_TRUNCATED, ""},
    {"NUL ends a field",        idToBarcode, "urn:epc:id:giai:0614%00XX.12%00YY", EPC_OK, "8004061412"},
    {"NUL empties a field",     idToBarcode, "urn:epc:id:sscc:0614141.%0012", EPC_ERR_BAD_FORMAT, "00"},
    {"NUL ends a tail",         idToElement, "urn:epc:id:sgtin:0614141.812345.6%007", EPC_OK, "(01)80614141123458(21)6"},
    {"after a NUL counts",      idToElement, "urn:epc:id:giai:1.2%00" + digits(253), EPC_OK, "(8004)12"},
    {"after a NUL is counted",  idToElement, "urn:epc:id:giai:1.2%00" + digits(254), EPC_ERR_TOO_LONG, ""},
    {"first field of 255",      idToElement, "urn:epc:id:giai:" + digits(255) + ".1", EPC_OK, "(8004)" + digits(255) + "1"},
    {"first field of 256",      idToElement, "urn:epc:id:giai:" + digits(256) + ".1", EPC_ERR_TOO_LONG, ""},
    {"too long before the end", idToElement, "urn:epc:id:giai:" + digits(256), EPC_ERR_TOO_LONG, ""},
    {"ends at 255",             idToElement, "urn:epc:id:giai:" + digits(255), EPC_ERR_TOO_LONG, ""},
    {"ends at 254",             idToElement, "urn:epc:id:giai:" + digits(254), EPC_ERR_TRUNCATED, ""},
    {"255 with an escape",      idToElement, "urn:epc:id:giai:1." + digits(254) + "%2F", EPC_OK, "(8004)1" + digits(254) + "/"},
    {"256 with an escape",      idToElement, "urn:epc:id:giai:1." + digits(255) + "%2F", EPC_ERR_TOO_LONG, ""},
    {"serial of 255",           idToElement, "urn:epc:id:sgtin:0614141.812345." + digits(255), EPC_OK, "(01)80614141123458(21)" + digits(255)},
    {"extra field of 256",      idToBarcode, "urn:epc:id:itip:0614141.812345." + digits(256) + ".1.1", EPC_ERR_TOO_LONG, "800680614141123458"},
    {"values of 1023",          idToElement, keyOf1021 + "12", EPC_OK, "(8006)" + digits(510) + "0" + digits(510) + "(21)12"},
    {"values of 1024",          idToElement, keyOf1021 + "123", EPC_ERR_NO_ROOM, ""},
    {"no values in a barcode",  idToBarcode, keyOf1021 + "123", EPC_OK, "8006" + digits(510) + "0" + digits(510) + "21123"},
};
// clang-format on

TEST(IdentityToAis, ReadsWhatStandsBeforeTheBody) {
    for (const UriRow& row : headRows) {
        EXPECT_EQ(TextResult(row.status, row.text),
                  textResult([&row](std::int32_t dstSize, char* dst) {
                      return row.convert(row.uri.c_str(), dstSize, dst);
                  }))
            << row.name;
    }
}

TEST(IdentityToAis, ReadsBodies) {
    for (const UriRow& row : bodyRows) {
        EXPECT_EQ(TextResult(row.status, row.text),
                  textResult([&row](std::int32_t dstSize, char* dst) {
                      return row.convert(row.uri.c_str(), dstSize, dst);
                  }))
            << row.name;
    }
}

// When dst is full, each part is written whole or not at all.
TEST(IdentityToAis, LeavesWholePartsInAFullText) {
    struct Row {
        Export convert;
        const char* uri;
        std::vector<std::string> parts;
    };
    const Row rows[] = {
        {tagToBarcode,
         "urn:epc:tag:sgtin-96:3.0614141.812345.6789",
         {"01", "8", "0614141", "12345", "8", "21", "6789"}},
        {idToBarcode,
         "urn:epc:id:grai:0614141.12345.678",
         {"8003", "0", "0614141", "12345", "2", "678"}},
        {idToBarcode,
         "urn:epc:id:cpi:0614141.AB.9",
         {"8010", "0614141", "AB", "\x1d", "8011", "9"}},
        {idToElement, "urn:epc:id:giai:0614141.AB", {"(", "8004", ")", "0614141AB"}},
    };
    for (const Row& row : rows) {
        std::string text;
        for (const std::string& part : row.parts) {
            for (std::size_t room = text.size(); room < text.size() + part.size(); ++room) {
                EXPECT_EQ(
                    TextResult(EPC_ERR_NO_ROOM, text),
                    textResult([&row](std::int32_t dstSize,
                                      char* dst) { return row.convert(row.uri, dstSize, dst); },
                               static_cast<std::int32_t>(room + 1)))
                    << row.uri << " with room for " << room;
            }
            text += part;
        }
        EXPECT_EQ(TextResult(EPC_OK, text),
                  textResult([&row](std::int32_t dstSize,
                                    char* dst) { return row.convert(row.uri, dstSize, dst); },
                             static_cast<std::int32_t>(text.size() + 1)));
    }
}

} // namespace
