/*
 * GS1 texts to EPC URIs: what the walk refuses, what it accepts, and what dst holds afterwards.
 * Each text ends at a page that cannot be read.
 */
#include "bridge/gs1_key_table.h"
#include "gs1/ai_catalogue.h"
#include "support/guarded_area.h"
#include "support/status.h"
#include "support/text_result.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

using namespace rosetag;

namespace {

using Export = EpcStatus (*)(const char* text, EpcScheme scheme, std::int32_t filter,
                             std::int32_t gcpLength, std::int32_t dstSize, char* dst);

EpcStatus pureIdentity(const char* text, EpcScheme, std::int32_t, std::int32_t gcpLength,
                       std::int32_t dstSize, char* dst) {
    return epc_gs1ElementStringToEpcUri(text, gcpLength, dstSize, dst);
}

constexpr Export element = epc_gs1ElementStringToEpcTagUri;
constexpr Export barcode = epc_barcodeStringToEpcTagUri;

struct WalkRow {
    const char* name;
    Export convert;
    const char* text;
    EpcScheme scheme;
    std::int32_t filter;
    std::int32_t gcpLength;
    EpcStatus status;
    const char* uri;
};

constexpr char untouched[] = "untouched";

constexpr EpcScheme sgtin96 = EPC_SCHEME_SGTIN_96;
constexpr EpcScheme sscc96 = EPC_SCHEME_SSCC_96;
constexpr EpcScheme giai96 = EPC_SCHEME_GIAI_96;
constexpr EpcScheme gsrn96 = EPC_SCHEME_GSRN_96;
constexpr EpcScheme grai96 = EPC_SCHEME_GRAI_96;
constexpr EpcScheme itip110 = EPC_SCHEME_ITIP_110;
constexpr EpcScheme cpi96 = EPC_SCHEME_CPI_96;

// clang-format off

// The order of the checks: company prefix length, text, scheme, family, filter.
constexpr WalkRow argumentRows[] = {
    {"gcpLength 5",            element, "x", 99, 9, 5, EPC_ERR_FILTER_FIELD, untouched},
    {"gcpLength 13",           barcode, "x", 99, 9, 13, EPC_ERR_FILTER_FIELD, untouched},
    {"gcpLength 5, pure",      pureIdentity, "", 0, 0, 5, EPC_ERR_FILTER_FIELD, untouched},
    {"gcpLength 13, pure",     pureIdentity, "", 0, 0, 13, EPC_ERR_FILTER_FIELD, untouched},
    {"text before scheme",     element, "(01)", 99, 9, 7, EPC_ERR_TRUNCATED, untouched},
    {"scheme -1",              element, "(00)106141412345678908", -1, 9, 7, EPC_ERR_UNKNOWN_SCHEME, untouched},
    {"no such scheme",         barcode, "00106141412345678908", EPC_SCHEME_COUNT, 9, 7, EPC_ERR_UNKNOWN_SCHEME, untouched},
    {"other family",           element, "(01)80614141123458", sscc96, 9, 7, EPC_ERR_SCHEME_MISMATCH, untouched},
    {"family without a key",   element, "(01)80614141123458", EPC_SCHEME_GID_96, 0, 7, EPC_ERR_SCHEME_MISMATCH, untouched},
    {"dsgtin+ has no key",     element, "(01)80614141123458", EPC_SCHEME_DSGTIN_PLUS, 0, 7, EPC_ERR_SCHEME_MISMATCH, untouched},
    {"filter -1",              element, "(00)106141412345678908", sscc96, -1, 7, EPC_ERR_FILTER_LIMIT, untouched},
    {"filter 8",               barcode, "00106141412345678908", sscc96, 8, 7, EPC_ERR_FILTER_LIMIT, untouched},
    {"filter 7",               barcode, "00106141412345678908", sscc96, 7, 7, EPC_OK, "urn:epc:tag:sscc-96:7.0614141.1234567890"},
};

// Every element of the text is walked before anything is written.
constexpr WalkRow walkRows[] = {
    {"empty",                  element, "", sgtin96, 3, 7, EPC_ERR_NO_KEY_AI, untouched},
    {"empty, bare",            barcode, "", sgtin96, 3, 7, EPC_ERR_NO_KEY_AI, untouched},
    {"empty, pure",            pureIdentity, "", 0, 0, 7, EPC_ERR_NO_KEY_AI, untouched},
    {"no key",                 element, "(17)251231(21)6", sgtin96, 3, 7, EPC_ERR_NO_KEY_AI, untouched},
    {"no open",                element, "01)80614141123458", sgtin96, 3, 7, EPC_ERR_BAD_FORMAT, untouched},
    {"open alone",             element, "(", sgtin96, 3, 7, EPC_ERR_BAD_FORMAT, untouched},
    {"one digit",              element, "(0", sgtin96, 3, 7, EPC_ERR_BAD_FORMAT, untouched},
    {"one digit, bare",        barcode, "0", sgtin96, 3, 7, EPC_ERR_BAD_FORMAT, untouched},
    {"letter in the code",     element, "(0A)80614141123458", sgtin96, 3, 7, EPC_ERR_BAD_FORMAT, untouched},
    {"high byte in the code",  barcode, "\xC1" "1", sgtin96, 3, 7, EPC_ERR_BAD_FORMAT, untouched},
    {"symbology identifier",   barcode, "]C10180614141123458216", sgtin96, 3, 7, EPC_ERR_BAD_FORMAT, untouched},
    {"brackets in a barcode",  barcode, "(01)80614141123458(21)6", sgtin96, 3, 7, EPC_ERR_BAD_FORMAT, untouched},
    {"prefix 14",              element, "(14)251231", sgtin96, 3, 7, EPC_ERR_UNKNOWN_AI, untouched},
    {"prefix 03",              barcode, "03", sgtin96, 3, 7, EPC_ERR_UNKNOWN_AI, untouched},
    {"prefix 38 after a key" , element, "(01)80614141123458(21)6(38)1", sgtin96, 3, 7, EPC_ERR_UNKNOWN_AI, untouched},
    {"fixed code alone",       element, "(01", sgtin96, 3, 7, EPC_ERR_TRUNCATED, untouched},
    {"fixed, one short",       element, "(01)8061414112345", sgtin96, 3, 7, EPC_ERR_TRUNCATED, untouched},
    {"fixed, one short, bare", barcode, "018061414112345", sgtin96, 3, 7, EPC_ERR_TRUNCATED, untouched},
    {"fixed without close",    element, "(01]80614141123458", sgtin96, 3, 7, EPC_ERR_BAD_FORMAT, untouched},
    {"fixed, one too many",    element, "(01)806141411234589(21)6", sgtin96, 3, 7, EPC_ERR_BAD_FORMAT, untouched},
    {"separator after fixed" , barcode, "0180614141123458\x1d" "216", sgtin96, 3, 7, EPC_ERR_BAD_FORMAT, untouched},
    {"two separators",         barcode, "0180614141123458216\x1d\x1d" "10A", sgtin96, 3, 7, EPC_ERR_BAD_FORMAT, untouched},
    {"malformed at the end",   element, "(01)80614141123458(21)6(1", sgtin96, 3, 7, EPC_ERR_BAD_FORMAT, untouched},
    {"two keys",               element, "(01)80614141123458(21)6(00)106141412345678908", sgtin96, 3, 7, EPC_ERR_SECOND_KEY, untouched},
    {"the same key twice",     barcode, "01806141411234580180614141123458216", sgtin96, 3, 7, EPC_ERR_SECOND_KEY, untouched},
    {"second key before junk", element, "(01)80614141123458(8004)(38", sgtin96, 3, 7, EPC_ERR_SECOND_KEY, untouched},
    {"code cut off",           element, "(80", sgtin96, 3, 7, EPC_ERR_NO_KEY_AI, untouched},
    {"code cut off, bare",     barcode, "800", sgtin96, 3, 7, EPC_ERR_NO_KEY_AI, untouched},
    {"separator in a code",    barcode, "80\x1d" "0180614141123458216", sgtin96, 3, 7, EPC_OK, "urn:epc:tag:sgtin-96:3.0614141.812345.6"},
    {"separator at the end",   barcode, "0180614141123458216\x1d", sgtin96, 3, 7, EPC_OK, "urn:epc:tag:sgtin-96:3.0614141.812345.6"},
    {"other AIs dropped",      element, "(17)251231(01)80614141123458(10)A(21)6(8200)x", sgtin96, 3, 7, EPC_OK, "urn:epc:tag:sgtin-96:3.0614141.812345.6"},
    {"other AIs, bare",        barcode, "1725123110A\x1d" "018061414112345811251231216\x1d" "93", sgtin96, 3, 7, EPC_OK, "urn:epc:tag:sgtin-96:3.0614141.812345.6"},
    {"first of two serials",   element, "(01)80614141123458(21)6(21)7", sgtin96, 3, 7, EPC_OK, "urn:epc:tag:sgtin-96:3.0614141.812345.6"},
    {"separator in brackets",  element, "(01)80614141123458(21)6\x1d" "7", sgtin96, 3, 7, EPC_OK, "urn:epc:tag:sgtin-96:3.0614141.812345.6\x1d" "7"},
    {"any character as close", element, "(01)80614141123458(21*6", sgtin96, 3, 7, EPC_OK, "urn:epc:tag:sgtin-96:3.0614141.812345.6"},
    {"open as close",          element, "(01)80614141123458(21(10)6", sgtin96, 3, 7, EPC_OK, "urn:epc:tag:sgtin-96:3.0614141.812345.10%296"},
    {"end as close",           element, "(01)80614141123458(21", sgtin96, 3, 7, EPC_OK, "urn:epc:tag:sgtin-96:3.0614141.812345."},
    {"plus scheme",            element, "(01)80614141123458(21)6", EPC_SCHEME_SGTIN_PLUS, 3, 7, EPC_OK, "urn:epc:tag:sgtin+:3.0614141.812345.6"},
};

// Where the key's value is cut, and the search for its secondary AI.
constexpr WalkRow cutRows[] = {
    {"wrong check digit",      element, "(01)80614141123450(21)6", sgtin96, 3, 7, EPC_OK, "urn:epc:tag:sgtin-96:3.0614141.812345.6"},
    {"prefix stays unescaped", element, "(01)/06/414112/458(21)6", sgtin96, 3, 7, EPC_OK, "urn:epc:tag:sgtin-96:3.06/4141./12%2F45.6"},
    {"no serial",              element, "(01)80614141123458", sgtin96, 3, 7, EPC_ERR_NO_SECONDARY_AI, "urn:epc:tag:sgtin-96:3.0614141.812345."},
    {"no serial, pure",        pureIdentity, "(01)80614141123458", 0, 0, 7, EPC_ERR_NO_SECONDARY_AI, "urn:epc:id:sgtin:0614141.812345."},
    {"serial before the key",  element, "(21)6(01)80614141123458", sgtin96, 3, 7, EPC_ERR_NO_SECONDARY_AI, "urn:epc:tag:sgtin-96:3.0614141.812345."},
    {"serial of the key upui", element, "(01)91234567987654(235)A", sgtin96, 3, 7, EPC_ERR_NO_SECONDARY_AI, "urn:epc:tag:sgtin-96:3.1234567.998765."},
    {"empty serial",           element, "(01)80614141123458(21)", sgtin96, 3, 7, EPC_OK, "urn:epc:tag:sgtin-96:3.0614141.812345."},
    {"cpi, serial first",      element, "(8011)9(8010)0614141AB", cpi96, 3, 7, EPC_OK, "urn:epc:tag:cpi-96:3.0614141.AB.9"},
    {"cpi, serial first",      barcode, "80119\x1d" "80100614141AB", cpi96, 3, 7, EPC_OK, "urn:epc:tag:cpi-96:3.0614141.AB.9"},
    {"cpi without a serial",   barcode, "80100614141AB", cpi96, 3, 7, EPC_ERR_NO_SECONDARY_AI, "urn:epc:tag:cpi-96:3.0614141.AB."},
    {"value of gcpLength",     element, "(8004)0614141", giai96, 3, 7, EPC_OK, "urn:epc:tag:giai-96:3.0614141."},
    {"value below gcpLength",  element, "(8004)061414", giai96, 3, 7, EPC_ERR_OUT_OF_RANGE, "urn:epc:tag:giai-96:3."},
    {"not cut from the next",  element, "(8004)061414(10)ABC", giai96, 3, 7, EPC_ERR_OUT_OF_RANGE, "urn:epc:tag:giai-96:3."},
    {"not cut from the next",  barcode, "8004061414\x1d" "10ABC", giai96, 3, 7, EPC_ERR_OUT_OF_RANGE, "urn:epc:tag:giai-96:3."},
    {"no value",               element, "(8004", giai96, 3, 6, EPC_ERR_OUT_OF_RANGE, "urn:epc:tag:giai-96:3."},
    {"no value, bare",         barcode, "8004", giai96, 3, 6, EPC_ERR_OUT_OF_RANGE, "urn:epc:tag:giai-96:3."},
    {"fill digit counts",      element, "(8003)0061414", grai96, 3, 7, EPC_ERR_OUT_OF_RANGE, "urn:epc:tag:grai-96:3."},
    {"fill digit is anything", element, "(8003)x0614141123452400", grai96, 3, 7, EPC_OK, "urn:epc:tag:grai-96:3.0614141.12345.400"},
    {"check digit missing",    element, "(8003)0061414112345", grai96, 3, 7, EPC_OK, "urn:epc:tag:grai-96:3.0614141.12345."},
    {"reference too short",    element, "(8003)006141411234", grai96, 3, 7, EPC_ERR_TRUNCATED, "urn:epc:tag:grai-96:3.0614141."},
    {"check digit missing",    element, "(8018)06141411234567890", gsrn96, 3, 7, EPC_OK, "urn:epc:tag:gsrn-96:3.0614141.1234567890"},
    {"reference too short",    element, "(8018)0614141123456789", gsrn96, 3, 7, EPC_ERR_TRUNCATED, "urn:epc:tag:gsrn-96:3.0614141."},
    {"reference runs on",      element, "(8018)0614141123456789(10)A", gsrn96, 3, 7, EPC_OK, "urn:epc:tag:gsrn-96:3.0614141.123456789%28"},
    {"rest of a key dropped",  element, "(8018)061414112345678902XYZ", gsrn96, 3, 7, EPC_OK, "urn:epc:tag:gsrn-96:3.0614141.1234567890"},
    {"gsin, prefix alone",     pureIdentity, "(402)0614141", 0, 0, 7, EPC_OK, "urn:epc:id:gsin:0614141."},
    {"piece cut off",          element, "(8006)804012345123450", itip110, 3, 7, EPC_ERR_TRUNCATED, "urn:epc:tag:itip-110:3.0401234.851234."},
    {"total cut off",          element, "(8006)80401234512345010", itip110, 3, 7, EPC_ERR_TRUNCATED, "urn:epc:tag:itip-110:3.0401234.851234.01."},
    {"itip without a serial",  element, "(8006)040123451234560102", itip110, 3, 7, EPC_ERR_NO_SECONDARY_AI, "urn:epc:tag:itip-110:3.4012345.012345.01.02."},
    {"after the total" ,       element, "(8006)040123451234560102X(21)9", itip110, 3, 7, EPC_ERR_BAD_FORMAT, "urn:epc:tag:itip-110:3.4012345.012345.01.02."},
    {"itip with a separator",  barcode, "8006040123451234560102\x1d" "219", itip110, 3, 7, EPC_ERR_BAD_FORMAT, "urn:epc:tag:itip-110:3.4012345.012345.01.02."},
    {"itip without",           barcode, "8006040123451234560102219", itip110, 3, 7, EPC_OK, "urn:epc:tag:itip-110:3.4012345.012345.01.02.9"},
};
// clang-format on

template <std::size_t rowCount>
void expectRows(const WalkRow (&rows)[rowCount]) {
    GuardedArea area;
    for (const WalkRow& row : rows) {
        const char* const text =
            area.placeCopy(row.text, std::strlen(row.text) + 1, GuardedArea::Side::BEFORE_PAGE);
        EXPECT_EQ(TextResult(row.status, row.uri),
                  textResult([&row, text](std::int32_t dstSize, char* dst) {
                      return row.convert(text, row.scheme, row.filter, row.gcpLength, dstSize, dst);
                  }))
            << row.name << ": " << row.text;
    }
}

TEST(AisToIdentity, TestsItsArgumentsInOrder) {
    expectRows(argumentRows);
}

TEST(AisToIdentity, WalksTheWholeText) {
    expectRows(walkRows);
}

TEST(AisToIdentity, CutsTheKey) {
    expectRows(cutRows);
}

EpcStatus tagUriStatus(Export convert, const std::string& text) {
    char dst[128];
    return convert(text.c_str(), sgtin96, 3, 7, sizeof dst, dst);
}

// The walk steps over the AI, with its shortest value, to reach the key. In the bare form the value
// needs a separator after it or must not have one: which of the two depends on the prefix.
void expectStep(const std::string& code, const AiDefinition& ai) {
    const int digits = ai.components[0].digitCount + ai.components[1].digitCount;
    const std::string value(static_cast<std::size_t>(digits), '0');
    const std::string key = "0180614141123458216";
    EXPECT_STATUS(gs1KeyFindByAi(code) != nullptr ? EPC_ERR_SECOND_KEY : EPC_OK,
                  tagUriStatus(element, "(" + code + ")" + value + "(01)80614141123458(21)6"))
        << code;
    const EpcStatus endsByItself = tagUriStatus(barcode, code + value + key);
    const EpcStatus endsBySeparator = tagUriStatus(barcode, code + value + "\x1D" + key);
    if (gs1KeyFindByAi(code) == nullptr) {
        EXPECT_NE(endsByItself == EPC_OK, endsBySeparator == EPC_OK) << code;
    }
}

TEST(AisToIdentity, StepsOverEveryAi) {
    int steps = 0;
    for (const int span : {100, 1000, 10000}) {
        for (int number = span; number < 2 * span; ++number) {
            const std::string code = std::to_string(number).substr(1);
            if (const AiDefinition* ai = aiFind(code); ai != nullptr) {
                expectStep(code, *ai);
                ++steps;
            }
        }
    }
    EXPECT_LT(0, steps);
}

// When dst is full, a part is written whole or not at all, an escaped value character by character.
TEST(AisToIdentity, LeavesWhatFittedInAFullText) {
    struct Row {
        Export convert;
        const char* text;
        EpcScheme scheme;
        std::vector<std::string> parts;
    };
    const Row rows[] = {
        {element,
         "(01)80614141123458(21)6/",
         sgtin96,
         {"urn:epc:tag:", "sgtin-96", ":", "3", ".", "0614141", ".", "8", "1", "2", "3", "4", "5",
          ".", "6", "%", "2", "F"}},
        {pureIdentity,
         "(8003)0061414112345240",
         grai96,
         {"urn:epc:id:", "grai", ":", "0614141", ".", "1", "2", "3", "4", "5", ".", "4", "0"}},
    };
    for (const Row& row : rows) {
        const auto convertInto = [&row](std::size_t room) {
            return textResult(
                [&row](std::int32_t dstSize, char* dst) {
                    return row.convert(row.text, row.scheme, 3, 7, dstSize, dst);
                },
                static_cast<std::int32_t>(room + 1));
        };
        std::string uri;
        for (const std::string& part : row.parts) {
            for (std::size_t room = uri.size(); room < uri.size() + part.size(); ++room) {
                EXPECT_EQ(TextResult(EPC_ERR_NO_ROOM, uri), convertInto(room)) << room;
            }
            uri += part;
        }
        EXPECT_EQ(TextResult(EPC_OK, uri), convertInto(uri.size()));
    }
}

} // namespace
