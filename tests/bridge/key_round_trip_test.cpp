/*
 * Each key in both directions, cut at each length of a company prefix.
 *
 * Source of the keys: EPC Tag Data Standard, section 7.
 */
#include "schemes/tag_scheme_info.h"
#include "support/text_result.h"

#include <gtest/gtest.h>

using namespace rosetag;

namespace {

struct KeyRow {
    const char* family;
    const char* digits; // of the first two fields, without the character that moves
    const char* moved;  // from the start of the second field to the start of the key's value
    const char* tail;   // of the URI body
    const char* elementString;
    const char* barcodeString;
    const char* link; // null for a key without a tag scheme
};

// clang-format off
constexpr KeyRow keyRows[] = {
    {"sgtin", "061414112345",     "8", ".6%2F7",  "(01)80614141123458(21)6/7", "0180614141123458216/7", "/01/80614141123458/21/6%2F7"},
    {"sscc",  "0614141234567890", "1", "",        "(00)106141412345678908", "00106141412345678908", "/00/106141412345678908"},
    {"sgln",  "061414112345",     "",  ".4%2600", "(414)0614141123452(254)4&00", "41406141411234522544&00", "/414/0614141123452/254/4%2600"},
    {"grai",  "061414112345",     "",  ".4%3F0",  "(8003)006141411234524?0", "8003006141411234524?0", "/8003/006141411234524%3F0"},
    {"giai",  "061414112345%2FC", "",  "",        "(8004)061414112345/C", "8004061414112345/C", "/8004/061414112345%2FC"},
    {"gsrn",  "06141411234567890", "", "",        "(8018)061414112345678902", "8018061414112345678902", "/8018/061414112345678902"},
    {"gsrnp", "06141411234567890", "", "",        "(8017)061414112345678902", "8017061414112345678902", "/8017/061414112345678902"},
    {"gdti",  "061414112345",     "",  ".4-0",    "(253)06141411234524-0", "25306141411234524-0", "/253/06141411234524-0"},
    {"cpi",   "061414112345%2FC", "",  ".987",    "(8010)061414112345/C(8011)987", "8010061414112345/C\x1d" "8011987", "/8010/061414112345%2FC/8011/987"},
    {"sgcn",  "401234567890",     "",  ".04711",  "(255)401234567890104711", "255401234567890104711", "/255/401234567890104711"},
    {"ginc",  "061414112345%3Cy", "",  "",        "(401)061414112345<y", "401061414112345<y", nullptr},
    {"gsin",  "0614141123456789", "",  "",        "(402)06141411234567890", "40206141411234567890", nullptr},
    {"itip",  "401234512345",     "0", ".01.02.9%2587", "(8006)040123451234560102(21)9%87", "8006040123451234560102219%87", "/8006/040123451234560102/21/9%2587"},
    {"pgln",  "123456789012",     "",  "",        "(417)1234567890128", "4171234567890128", nullptr},
};
// clang-format on

std::string uriBody(const KeyRow& row, std::int32_t gcpLength) {
    const std::string digits = row.digits;
    const auto cut = static_cast<std::size_t>(gcpLength);
    return digits.substr(0, cut) + "." + row.moved + digits.substr(cut) + row.tail;
}

template <typename Convert>
TextResult converted(Convert convert, const std::string& text) {
    return textResult(
        [&](std::int32_t dstSize, char* dst) { return convert(text.c_str(), dstSize, dst); });
}

TEST(KeyRoundTrip, ThroughPureIdentityUris) {
    for (const KeyRow& row : keyRows) {
        for (std::int32_t gcpLength = 6; gcpLength <= 12; ++gcpLength) {
            const std::string uri =
                "urn:epc:id:" + std::string(row.family) + ":" + uriBody(row, gcpLength);
            EXPECT_EQ(TextResult(EPC_OK, uri), textResult([&](std::int32_t dstSize, char* dst) {
                          return epc_gs1ElementStringToEpcUri(row.elementString, gcpLength, dstSize,
                                                              dst);
                      }));
            EXPECT_EQ(TextResult(EPC_OK, row.elementString),
                      converted(epc_epcUriToGs1ElementString, uri))
                << uri;
            EXPECT_EQ(TextResult(EPC_OK, row.barcodeString),
                      converted(epc_epcUriToBarcodeString, uri))
                << uri;
        }
    }
}

void expectTagUriRoundTrip(const KeyRow& row, const TagSchemeInfo& info, std::int32_t gcpLength) {
    const std::int32_t filter = gcpLength % info.filterLimit;
    const std::string uri = "urn:epc:tag:" + std::string(info.name) + ":" + std::to_string(filter) +
                            "." + uriBody(row, gcpLength);
    EXPECT_EQ(TextResult(EPC_OK, uri), textResult([&](std::int32_t dstSize, char* dst) {
                  return epc_gs1ElementStringToEpcTagUri(row.elementString, info.scheme, filter,
                                                         gcpLength, dstSize, dst);
              }));
    EXPECT_EQ(TextResult(EPC_OK, uri), textResult([&](std::int32_t dstSize, char* dst) {
                  return epc_barcodeStringToEpcTagUri(row.barcodeString, info.scheme, filter,
                                                      gcpLength, dstSize, dst);
              }));
    EXPECT_EQ(TextResult(EPC_OK, row.elementString),
              converted(epc_epcTagUriToGs1ElementString, uri));
    EXPECT_EQ(TextResult(EPC_OK, row.barcodeString), converted(epc_epcTagUriToBarcodeString, uri));
    EXPECT_EQ(TextResult(EPC_OK, row.link), converted(epc_epcTagUriToDigitalLink, uri));
}

TEST(KeyRoundTrip, ThroughTagUrisOfEachSchemeOfTheFamily) {
    std::int32_t schemes = 0;
    for (const KeyRow& row : keyRows) {
        for (const TagSchemeInfo& info : tagSchemeInfos) {
            if (info.familyWord != row.family) {
                continue;
            }
            SCOPED_TRACE(info.name);
            ++schemes;
            for (std::int32_t gcpLength = 6; gcpLength <= 12; ++gcpLength) {
                expectTagUriRoundTrip(row, info, gcpLength);
            }
        }
    }
    EXPECT_EQ(EPC_SCHEME_COUNT - 4, schemes); // all but gid, usdod, adi and dsgtin
}

} // namespace
