// The URI readers and writers where the text or the bits are not a clean value of a scheme.
#include "rosetag/rosetag.h"
#include "support/bits_notation.h"
#include "support/status.h"
#include "support/text_result.h"

#include <gtest/gtest.h>

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::int32_t UNTOUCHED = -7;

// A reader that stops leaves what it has written so far, which is compared bit by bit.
struct Written {
    EpcStatus status;
    std::string bits; // of all of out
    std::int32_t outBytes = UNTOUCHED;
};

template <typename Export>
Written writtenBy(Export run) {
    std::uint8_t out[EPC_MAX_BINARY_BYTES];
    std::fill(std::begin(out), std::end(out), std::uint8_t{0xA5});
    Written written;
    written.status = run(EPC_MAX_BINARY_BYTES, out, &written.outBytes);
    written.bits = bitsFromBytes(out, EPC_MAX_BINARY_BYTES * 8);
    return written;
}

Written tagUriToBinary(const std::string& uri) {
    return writtenBy([&](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) {
        return epc_epcTagUriToBinary(uri.c_str(), maxBytes, out, outBytes);
    });
}

void expectRefused(EpcStatus status, const std::string& leftover, const Written& written) {
    std::string bits = bitsOf(leftover);
    bits.resize(written.bits.size(), '0');
    EXPECT_STATUS(status, written.status);
    EXPECT_EQ(bits, written.bits);
    EXPECT_EQ(UNTOUCHED, written.outBytes);
}

// clang-format off
#define SGTIN     "urn:epc:tag:sgtin-96:3.0614141.812345."
#define SGTIN_198 "urn:epc:tag:sgtin-198:3.0614141.812345."
#define SGTIN_KEY "3/3 5/3 614141/24 812345/20 "
#define GDTI_KEY  "3/3 5/3 4012345/24 98765/17 "
#define A20       "AAAAAAAAAAAAAAAAAAAA"
#define DIGITS_20 "11111111111111111111"

struct RefusedUri {
    const char* uri; // after "urn:epc:tag:" unless it begins with "="
    EpcStatus status;
    const char* written;
};

constexpr RefusedUri refusedUris[] = {
    // the head
    {"=",                                       EPC_ERR_TRUNCATED,      ""},
    {"=urn:epc:ta",                             EPC_ERR_TRUNCATED,      ""},
    {"=urn:epc:id:sgtin:0614141.812345.6789",   EPC_ERR_BAD_FORMAT,     ""},
    {"=URN:epc:tag:sgtin-96:3.0614141.812345.6789", EPC_ERR_BAD_FORMAT, ""},
    {"",                                        EPC_ERR_TRUNCATED,      ""},
    {"sgtin-96",                                EPC_ERR_TRUNCATED,      ""},
    {":",                                       EPC_ERR_UNKNOWN_SCHEME, ""},
    {"sgtin:3.0614141.812345.6789",             EPC_ERR_UNKNOWN_SCHEME, ""},
    {"SGTIN-96:3.0614141.812345.6789",          EPC_ERR_UNKNOWN_SCHEME, ""},
    {"sgtin-96 :3.0614141.812345.6789",         EPC_ERR_UNKNOWN_SCHEME, ""},
    // the filter
    {"sgtin-96:8.0614141.812345.6789",          EPC_ERR_FILTER_LIMIT,   ""},
    {"sgtin-96:4294967299.0614141.812345.6789", EPC_ERR_FILTER_LIMIT,   ""},
    {"sgtin-96:1111111111111111111.",           EPC_ERR_FILTER_LIMIT,   ""},
    {"sgtin-96:" DIGITS_20 ".",                 EPC_ERR_OUT_OF_RANGE,   ""},
    {"sgtin-96:07.0614141.812345.6789",         EPC_ERR_BAD_FORMAT,     ""},
    {"sgtin-96:-1.0614141.812345.6789",         EPC_ERR_BAD_FORMAT,     ""},
    {"sgtin-96:3",                              EPC_ERR_TRUNCATED,      ""},
    {"sgtin-96:",                               EPC_ERR_TRUNCATED,      ""},
    {"usdod-96:16.CAGEY.1",                     EPC_ERR_FILTER_LIMIT,   ""},
    {"usdod-96:15.CAGEY.1",                     EPC_ERR_FILTER_FIELD,   "0x2F/8"},
    {"adi-var:64.CAGEY..1",                     EPC_ERR_FILTER_LIMIT,   ""},
    {"sgtin+:3.0614141.812345.6789",            EPC_ERR_NOT_SUPPORTED,  ""},
    {"sgtin+:9.0614141.812345.6789",            EPC_ERR_FILTER_LIMIT,   ""},
    {"dsgtin+:3",                               EPC_ERR_TRUNCATED,      ""},
    // company prefix and reference
    {"sgtin-96:3.",                             EPC_ERR_TRUNCATED,      "0x30/8 3/3"},
    {"sgtin-96:3..812345.6789",                 EPC_ERR_BAD_PARTITION,  "0x30/8 3/3"},
    {"sgtin-96:3.06141.81234567.6789",          EPC_ERR_BAD_PARTITION,  "0x30/8 3/3"},
    {"sgtin-96:3.0614141000000.8.6789",         EPC_ERR_BAD_PARTITION,  "0x30/8 3/3"},
    {"sgtin-96:3." DIGITS_20 ".8.6789",         EPC_ERR_OUT_OF_RANGE,   "0x30/8 3/3"},
    {"sgtin-96:3.06141." DIGITS_20 ".6789",     EPC_ERR_OUT_OF_RANGE,   "0x30/8 3/3"},
    {"sgtin-96:3.0614141.81234.6789",           EPC_ERR_OUT_OF_RANGE,   "0x30/8 3/3"},
    {"sgtin-96:3.0614141.8123456.6789",         EPC_ERR_OUT_OF_RANGE,   "0x30/8 3/3"},
    {"sgtin-96:3.0614141",                      EPC_ERR_TRUNCATED,      "0x30/8 3/3"},
    {"sgtin-96:3.0614141-812345.6789",          EPC_ERR_BAD_FORMAT,     "0x30/8 3/3"},
    {"sgtin-96:3.0614141.812345",               EPC_ERR_TRUNCATED,      "0x30/8 " SGTIN_KEY},
    {"sgtin-96:3.0614141.81234%35.6789",        EPC_ERR_OUT_OF_RANGE,   "0x30/8 3/3"},
    {"sgln-96:3.061414100000.0.1",              EPC_ERR_OUT_OF_RANGE,   "0x32/8 3/3"},
    {"sscc-96:3.0614141.1234567890.",           EPC_ERR_BAD_FORMAT,     "0x31/8 3/3 5/3 614141/24 1234567890/34"},
    // numbers
    {"sgtin-96:3.0614141.812345.274877906944",  EPC_ERR_OUT_OF_RANGE,   "0x30/8 " SGTIN_KEY},
    {"sgtin-96:3.0614141.812345." DIGITS_20,    EPC_ERR_OUT_OF_RANGE,   "0x30/8 " SGTIN_KEY},
    {"sgtin-96:3.0614141.812345.06789",         EPC_ERR_BAD_FORMAT,     "0x30/8 " SGTIN_KEY},
    {"sgtin-96:3.0614141.812345.6789x",         EPC_ERR_BAD_FORMAT,     "0x30/8 " SGTIN_KEY "6789/38"},
    {"sgtin-96:3.0614141.812345.67%38",         EPC_ERR_BAD_FORMAT,     "0x30/8 " SGTIN_KEY "67/38"},
    {"gdti-96:3.4012345.98765.2199023255552",   EPC_ERR_OUT_OF_RANGE,   "0x2C/8 " GDTI_KEY},
    {"gdti-113:3.4012345.98765.",               EPC_ERR_BAD_FORMAT,     "0x3A/8 " GDTI_KEY},
    {"gdti-113:3.4012345.98765.000000000000000000",   EPC_ERR_OUT_OF_RANGE, "0x3A/8 " GDTI_KEY},
    {"gdti-113:3.4012345.98765.0000000000000000000",  EPC_ERR_OUT_OF_RANGE, "0x3A/8 " GDTI_KEY},
    {"gdti-113:3.4012345.98765.00000000000000000000", EPC_ERR_OUT_OF_RANGE, "0x3A/8 " GDTI_KEY},
    {"sgcn-96:3.4012345.98765.0000000000000",   EPC_ERR_OUT_OF_RANGE,   "0x3F/8 " GDTI_KEY},
    {"itip-110:3.0614141.812345.007.02.981",    EPC_ERR_OUT_OF_RANGE,   "0x40/8 " SGTIN_KEY},
    {"itip-110:3.0614141.812345." DIGITS_20 ".02.981", EPC_ERR_OUT_OF_RANGE, "0x40/8 " SGTIN_KEY},
    {"itip-110:3.0614141.812345.01.100.981",    EPC_ERR_OUT_OF_RANGE,   "0x40/8 " SGTIN_KEY "1/7"},
    {"itip-110:3.0614141.812345.01.02",         EPC_ERR_TRUNCATED,      "0x40/8 " SGTIN_KEY "1/7 2/7"},
    {"giai-96:3.0614141.0123",                  EPC_ERR_BAD_FORMAT,     "0x34/8 3/3"},
    {"giai-96:3.0614141.288230376151711744",    EPC_ERR_OUT_OF_RANGE,   "0x34/8 3/3"},
    {"giai-96:3.06141.123",                     EPC_ERR_BAD_PARTITION,  "0x34/8 3/3"},
    {"cpi-96:3.0614141.134217728.1",            EPC_ERR_OUT_OF_RANGE,   "0x3C/8 3/3"},
    {"cpi-96:3.0614141.123.2147483648",         EPC_ERR_OUT_OF_RANGE,   "0x3C/8 3/3 5/3 614141/24 123/27"},
    {"cpi-96:3.0614141.5PQ.1",                  EPC_ERR_BAD_FORMAT,     "0x3C/8 3/3 5/3 614141/24 5/27"},
    {"cpi-96:3.0614141.123",                    EPC_ERR_TRUNCATED,      "0x3C/8 3/3 5/3 614141/24 123/27"},
    {"gid-96:268435456.1.1",                    EPC_ERR_OUT_OF_RANGE,   "0x35/8"},
    {"gid-96:1.16777216.1",                     EPC_ERR_OUT_OF_RANGE,   "0x35/8 1/28"},
    {"gid-96:1.1.68719476736",                  EPC_ERR_OUT_OF_RANGE,   "0x35/8 1/28 1/24"},
    {"gid-96:3.31415.271828.1414",              EPC_ERR_BAD_FORMAT,     "0x35/8 3/28 31415/24 271828/36"},
    // 7-bit characters
    {"sgtin-198:3.0614141.812345.",             EPC_ERR_TRUNCATED,      "0x36/8 " SGTIN_KEY},
    {"sgtin-198:3.0614141.812345.A$",           EPC_ERR_BAD_CHARACTER,  "0x36/8 " SGTIN_KEY "`A`/7"},
    {"sgtin-198:3.0614141.812345.A B",          EPC_ERR_BAD_CHARACTER,  "0x36/8 " SGTIN_KEY "`A`/7"},
    {"sgtin-198:3.0614141.812345.A\x80",        EPC_ERR_BAD_CHARACTER,  "0x36/8 " SGTIN_KEY "`A`/7"},
    {"sgtin-198:3.0614141.812345.A%00B",        EPC_ERR_BAD_CHARACTER,  "0x36/8 " SGTIN_KEY "`A`/7"},
    {"sgtin-198:3.0614141.812345.A%4G",         EPC_ERR_BAD_CHARACTER,  "0x36/8 " SGTIN_KEY "`A`/7"},
    {"sgtin-198:3.0614141.812345.A%4",          EPC_ERR_TRUNCATED,      "0x36/8 " SGTIN_KEY "`A`/7"},
    {"sgtin-198:3.0614141.812345." A20 "A",     EPC_ERR_BAD_FORMAT,     "0x36/8 " SGTIN_KEY "`" A20 "`/7"},
    {"giai-202:3.061414100000.",                EPC_ERR_TRUNCATED,      "0x38/8 3/3 0/3 61414100000/40"},
    {"giai-202:3.061414100000.AAAAAAAAAAAAAAAAAAA", EPC_ERR_BAD_FORMAT, "0x38/8 3/3 0/3 61414100000/40 `AAAAAAAAAAAAAAAAAA`/7"},
    {"giai-202:3.06141.A",                      EPC_ERR_BAD_PARTITION,  "0x38/8 3/3"},
    {"giai-202:3." DIGITS_20 ".A",              EPC_ERR_OUT_OF_RANGE,   "0x38/8 3/3"},
    {"giai-202:3.0614141",                      EPC_ERR_TRUNCATED,      "0x38/8 3/3"},
    // 6-bit characters
    {"cpi-var:3.0614141..1",                    EPC_ERR_TRUNCATED,      "0x3D/8 3/3 5/3 614141/24"},
    {"cpi-var:3.0614141.",                      EPC_ERR_TRUNCATED,      "0x3D/8 3/3 5/3 614141/24"},
    {"cpi-var:3.0614141.Aa.1",                  EPC_ERR_BAD_CHARACTER,  "0x3D/8 3/3 5/3 614141/24 `A`/6"},
    {"cpi-var:3.0614141." A20 "AAAA.1",         EPC_ERR_OUT_OF_RANGE,   "0x3D/8 3/3 5/3 614141/24 `" A20 "AAAA`/6"},
    {"cpi-var:3.0614141.A.1099511627776",       EPC_ERR_OUT_OF_RANGE,   "0x3D/8 3/3 5/3 614141/24 `A`/6 0/6"},
    {"cpi-var:3.06141.A.1",                     EPC_ERR_BAD_PARTITION,  "0x3D/8 3/3"},
    {"adi-var:3.CAGEY.#.1",                     EPC_ERR_BAD_CHARACTER,  "0x3B/8 3/6 32/6 `CAGEY`/6"},
    {"adi-var:3.CAGEY." A20 "AAAAAAAAAAAAA.1",  EPC_ERR_OUT_OF_RANGE,   "0x3B/8 3/6 32/6 `CAGEY`/6 `" A20 "AAAAAAAAAAAAA`/6"},
    {"adi-var:3.CAGEY." A20 "AAAAAAAAAAAA#",    EPC_ERR_BAD_CHARACTER,  "0x3B/8 3/6 32/6 `CAGEY`/6 `" A20 "AAAAAAAAAAAA`/6"},
    {"adi-var:3.CAGEY." A20 "AAAAAAAAAAAA%",    EPC_ERR_TRUNCATED,      "0x3B/8 3/6 32/6 `CAGEY`/6 `" A20 "AAAAAAAAAAAA`/6"},
    {"adi-var:3.CAGEY." A20 "AAAAAAAAAAAAA#",   EPC_ERR_OUT_OF_RANGE,   "0x3B/8 3/6 32/6 `CAGEY`/6 `" A20 "AAAAAAAAAAAAA`/6"},
    {"adi-var:3.CAGEY.PN.",                     EPC_ERR_TRUNCATED,      "0x3B/8 3/6 32/6 `CAGEY`/6 `PN`/6 0/6"},
    {"adi-var:3.CAGEY.PN",                      EPC_ERR_TRUNCATED,      "0x3B/8 3/6 32/6 `CAGEY`/6 `PN`/6 0/6"},
    {"adi-var:3.CAGEY.PN.A%23",                 EPC_ERR_BAD_CHARACTER,  "0x3B/8 3/6 32/6 `CAGEY`/6 `PN`/6 0/6 `A`/6"},
    {"adi-var:3.CAGEY.PN.A.B",                  EPC_ERR_BAD_CHARACTER,  "0x3B/8 3/6 32/6 `CAGEY`/6 `PN`/6 0/6 `A`/6"},
    {"adi-var:3.CAGEY.PN.A%",                   EPC_ERR_TRUNCATED,      "0x3B/8 3/6 32/6 `CAGEY`/6 `PN`/6 0/6 `A`/6"},
    {"adi-var:3.CAGEY.PN." A20 "AAAAAAAAAAA",   EPC_ERR_OUT_OF_RANGE,   "0x3B/8 3/6 32/6 `CAGEY`/6 `PN`/6 0/6 `" A20 "AAAAAAAAAAA`/6"},
    // CAGE and DoDAAC codes
    {"usdod-96:3.CAGE.1",                       EPC_ERR_BAD_FORMAT,     "0x2F/8 3/4"},
    {"usdod-96:3..1",                           EPC_ERR_BAD_FORMAT,     "0x2F/8 3/4"},
    {"usdod-96:3.W81X9CC.1",                    EPC_ERR_TOO_LONG,       "0x2F/8 3/4"},
    {"usdod-96:3.W81X9CC",                      EPC_ERR_TOO_LONG,       "0x2F/8 3/4"},
    {"usdod-96:3.W81X9C",                       EPC_ERR_TRUNCATED,      "0x2F/8 3/4"},
    {"usdod-96:3.IAGEYCC.1",                    EPC_ERR_TOO_LONG,       "0x2F/8 3/4"},
    {"usdod-96:3.IAGEY",                        EPC_ERR_TRUNCATED,      "0x2F/8 3/4"},
    {"usdod-96:3.IAG",                          EPC_ERR_TRUNCATED,      "0x2F/8 3/4"},
    {"usdod-96:3.IAG.1",                        EPC_ERR_BAD_FORMAT,     "0x2F/8 3/4"},
    {"usdod-96:3.CAGEI.1",                      EPC_ERR_BAD_FORMAT,     "0x2F/8 3/4 32/8 `CAGE`/8"},
    {"usdod-96:3.W8OX9C.1",                     EPC_ERR_BAD_FORMAT,     "0x2F/8 3/4 `W8`/8"},
    {"usdod-96:3.w81x9c.1",                     EPC_ERR_BAD_FORMAT,     "0x2F/8 3/4"},
    {"usdod-96:3. CAGEY.1",                     EPC_ERR_BAD_FORMAT,     "0x2F/8 3/4"},
    {"usdod-96:3.CA%47Y.1",                     EPC_ERR_BAD_FORMAT,     "0x2F/8 3/4 `CA`/8"},
    {"usdod-96:3.CAGEY.68719476736",            EPC_ERR_OUT_OF_RANGE,   "0x2F/8 3/4 32/8 `CAGEY`/8"},
    {"adi-var:3.CAGE.PN.1",                     EPC_ERR_BAD_FORMAT,     "0x3B/8 3/6"},
    {"adi-var:3.CAGEI.PN.1",                    EPC_ERR_BAD_FORMAT,     "0x3B/8 3/6 32/6 `CAGE`/6"},
    {"adi-var:3.W81X9C",                        EPC_ERR_TRUNCATED,      "0x3B/8 3/6"},
};

struct RefusedIdentity {
    const char* uri;
    EpcScheme scheme;
    std::int32_t filter;
    EpcStatus status;
    const char* written;
};

constexpr RefusedIdentity refusedIdentities[] = {
    {"urn:epc:tag:sgtin-96:3.0614141.812345.6789", EPC_SCHEME_SGTIN_96,   3,  EPC_ERR_BAD_FORMAT,      ""},
    {"urn:epc:tag:",                               -1,                    3,  EPC_ERR_BAD_FORMAT,      ""},
    {"urn:epc:id:",                                -1,                    3,  EPC_ERR_UNKNOWN_SCHEME,  ""},
    {"urn:epc:id:sgtin:0614141.812345.6789",       EPC_SCHEME_COUNT,      3,  EPC_ERR_UNKNOWN_SCHEME,  ""},
    {"urn:epc:id:",                                EPC_SCHEME_SGTIN_96,   3,  EPC_ERR_TRUNCATED,       ""},
    {"urn:epc:id:sgtin",                           EPC_SCHEME_SGTIN_96,   3,  EPC_ERR_TRUNCATED,       ""},
    {"urn:epc:id:sgln:0614141.81234.6789",         EPC_SCHEME_SGTIN_198,  3,  EPC_ERR_SCHEME_MISMATCH, ""},
    {"urn:epc:id:sgtin-96:0614141.812345.6789",    EPC_SCHEME_SGTIN_96,   3,  EPC_ERR_SCHEME_MISMATCH, ""},
    {"urn:epc:id:gsrnp:0614141.1234567890",        EPC_SCHEME_GSRN_96,    3,  EPC_ERR_SCHEME_MISMATCH, ""},
    {"urn:epc:id:sgtin:0614141.812345.6789",       EPC_SCHEME_SGTIN_PLUS, 8,  EPC_ERR_NOT_SUPPORTED,   ""},
    {"urn:epc:id:sgtin:0614141.812345.6789",       EPC_SCHEME_SGTIN_96,   8,  EPC_ERR_FILTER_FIELD,    "0x30/8"},
    {"urn:epc:id:sgtin:0614141.812345.6789",       EPC_SCHEME_SGTIN_96,   -1, EPC_ERR_FILTER_FIELD,    "0x30/8"},
    {"urn:epc:id:giai:0614141.1",                  EPC_SCHEME_GIAI_96,    8,  EPC_ERR_FILTER_FIELD,    "0x34/8"},
    {"urn:epc:id:giai:0614141.1",                  EPC_SCHEME_GIAI_202,   8,  EPC_ERR_FILTER_FIELD,    "0x38/8"},
    {"urn:epc:id:cpi:0614141.1.1",                 EPC_SCHEME_CPI_96,     8,  EPC_ERR_FILTER_FIELD,    "0x3C/8"},
    {"urn:epc:id:cpi:0614141.1.1",                 EPC_SCHEME_CPI_VAR,    8,  EPC_ERR_FILTER_FIELD,    "0x3D/8"},
    {"urn:epc:id:usdod:CAGEY.5678",                EPC_SCHEME_USDOD_96,   15, EPC_ERR_FILTER_FIELD,    "0x2F/8"},
    {"urn:epc:id:adi:CAGEY.PN.1",                  EPC_SCHEME_ADI_VAR,    64, EPC_ERR_FILTER_FIELD,    "0x3B/8"},
    {"urn:epc:id:sgtin:3.0614141.812345.6789",     EPC_SCHEME_SGTIN_96,   3,  EPC_ERR_BAD_PARTITION,   "0x30/8 3/3"},
    {"urn:epc:id:sscc:0614141.1234567890 ",        EPC_SCHEME_SSCC_96,    3,  EPC_ERR_BAD_FORMAT,      "0x31/8 3/3 5/3 614141/24 1234567890/34"},
};

// What is read although it is not what would be written.
constexpr const char* looseUris[][2] = {
    {"urn:epc:tag:sgtin-96:.0614141.812345.6789",     "urn:epc:tag:sgtin-96:0.0614141.812345.6789"},
    {SGTIN "",                                        SGTIN "0"},
    {SGTIN_198 "32a/b",                               SGTIN_198 "32a%2Fb"},
    {SGTIN_198 "32%612fb%2fB",                        SGTIN_198 "32a2fb%2FB"},
    {SGTIN_198 "a\"&()<>?",                           SGTIN_198 "a%22%26%28%29%3C%3E%3F"},
    {"urn:epc:tag:giai-96:3.0614141.",                "urn:epc:tag:giai-96:3.0614141.0"},
    {"urn:epc:tag:itip-110:3.0614141.812345.1..",     "urn:epc:tag:itip-110:3.0614141.812345.01.00.0"},
    {"urn:epc:tag:cpi-96:3.0614141..",                "urn:epc:tag:cpi-96:3.0614141.0.0"},
    {"urn:epc:tag:cpi-var:3.0614141.5PQ7",            "urn:epc:tag:cpi-var:3.0614141.5PQ7.0"},
    {"urn:epc:tag:cpi-var:3.0614141.5PQ7%2E12",       "urn:epc:tag:cpi-var:3.0614141.5PQ7.12"},
    {"urn:epc:tag:cpi-var:3.0614141.##/-Z.12",        "urn:epc:tag:cpi-var:3.0614141.%23%23%2F-Z.12"},
    {"urn:epc:tag:gid-96:..",                         "urn:epc:tag:gid-96:0.0.0"},
    {"urn:epc:tag:usdod-96:3.CAGEY.",                 "urn:epc:tag:usdod-96:3.CAGEY.0"},
    {"urn:epc:tag:adi-var:3.CAGEY.P%2e#S",            "urn:epc:tag:adi-var:3.CAGEY.P.%23S"},
    {"urn:epc:tag:adi-var:3.W81X9C.PN.S%00",          "urn:epc:tag:adi-var:3.W81X9C.PN.S"},
};

struct RefusedBits {
    const char* bits;
    EpcStatus status;
    const char* text; // after "urn:epc:tag:"
};

constexpr RefusedBits refusedBits[] = {
    // the head
    {"",                                   EPC_ERR_TRUNCATED,      ""},
    {"0x18/7",                             EPC_ERR_TRUNCATED,      ""},
    {"0x00/8 0/64",                        EPC_ERR_UNKNOWN_HEADER, ""},
    {"0x2B/8 0/64",                        EPC_ERR_UNKNOWN_HEADER, ""},
    {"0xEF/8 0/64",                        EPC_ERR_UNKNOWN_HEADER, ""},
    {"0xEF/8 0/64",                        EPC_ERR_UNKNOWN_HEADER, ""},
    {"0xFC/8 0/64",                        EPC_ERR_UNKNOWN_HEADER, ""},
    {"0xF0/8 0/64",                        EPC_ERR_NOT_SUPPORTED,  ""},
    {"0xFB/8",                             EPC_ERR_NOT_SUPPORTED,  ""},
    {"0x30/8",                             EPC_ERR_TRUNCATED,      "sgtin-96:"},
    {"0x30/8 3/3 0/9",                     EPC_ERR_TRUNCATED,      "sgtin-96:3."},
    // company prefix and reference
    {"0x30/8 3/3 7/3 0/64 0/64",           EPC_ERR_BAD_PARTITION,  "sgtin-96:3."},
    {"0x34/8 3/3 7/3 0/64 0/64",           EPC_ERR_BAD_PARTITION,  "giai-96:3."},
    {"0x38/8 3/3 7/3 0/64 0/64",           EPC_ERR_BAD_PARTITION,  "giai-202:3."},
    {"0x3C/8 3/3 7/3 0/64 0/64",           EPC_ERR_BAD_PARTITION,  "cpi-96:3."},
    {"0x3D/8 3/3 7/3 0/64 0/64",           EPC_ERR_BAD_PARTITION,  "cpi-var:3."},
    {"0x30/8 3/3 7/3",                     EPC_ERR_BAD_PARTITION,  "sgtin-96:3."},
    {"0x30/8 3/3 0/3 1000000000000/40 0/42", EPC_ERR_OUT_OF_RANGE, "sgtin-96:3."},
    {"0x30/8 3/3 6/3 1000000/20 0/62",     EPC_ERR_OUT_OF_RANGE,   "sgtin-96:3."},
    {"0x34/8 3/3 5/3 10000000/24 0/58",    EPC_ERR_OUT_OF_RANGE,   "giai-96:3."},
    {"0x38/8 3/3 5/3 10000000/24 0/64",    EPC_ERR_OUT_OF_RANGE,   "giai-202:3."},
    {"0x3D/8 3/3 5/3 10000000/24",         EPC_ERR_OUT_OF_RANGE,   "cpi-var:3."},
    {"0x30/8 3/3 0/3 1/40 10/4 0/38",      EPC_ERR_OUT_OF_RANGE,   "sgtin-96:3.000000000001."},
    {"0x30/8 3/3 5/3 1/24 1000000/20 0/38", EPC_ERR_OUT_OF_RANGE,  "sgtin-96:3.0000001."},
    {"0x32/8 3/3 0/3 1/40 1/1 0/41",       EPC_ERR_OUT_OF_RANGE,   "sgln-96:3.000000000001."},
    {"0x33/8 3/3 0/3 1/40 1/4 0/38",       EPC_ERR_OUT_OF_RANGE,   "grai-96:3.000000000001."},
    // reserved bits
    {"0x31/8 3/3 5/3 1/24 2/34 1/24",      EPC_ERR_OUT_OF_RANGE,   "sscc-96:3.0000001.0000000002"},
    {"0x2D/8 3/3 5/3 1/24 2/34 0x800000/24", EPC_ERR_OUT_OF_RANGE, "gsrn-96:3.0000001.0000000002"},
    {"0x2E/8 3/3 5/3 1/24 2/34 0/23",      EPC_ERR_TRUNCATED,      "gsrnp-96:3.0000001.0000000002"},
    {"0x38/8 3/3 5/3 1/24 `A`/7 0/64 0/64 0/26 1/3", EPC_ERR_OUT_OF_RANGE, "giai-202:3.0000001.A"},
    {"0x38/8 3/3 0/3 1/40 `A`/7 0/64 0/55 1/22",     EPC_ERR_OUT_OF_RANGE, "giai-202:3.000000000001.A"},
    // digits after a leading 1
    {"0x3A/8 3/3 5/3 1/24 2/17 0/58",      EPC_ERR_OUT_OF_RANGE,   "gdti-113:3.0000001.00002."},
    {"0x3A/8 3/3 5/3 1/24 2/17 1/58",      EPC_ERR_OUT_OF_RANGE,   "gdti-113:3.0000001.00002."},
    {"0x3A/8 3/3 5/3 1/24 2/17 9/58",      EPC_ERR_OUT_OF_RANGE,   "gdti-113:3.0000001.00002."},
    {"0x3A/8 3/3 5/3 1/24 2/17 20/58",     EPC_ERR_OUT_OF_RANGE,   "gdti-113:3.0000001.00002."},
    {"0x3F/8 3/3 5/3 1/24 2/17 2000000000000/41", EPC_ERR_OUT_OF_RANGE, "sgcn-96:3.0000001.00002."},
    // 7-bit characters
    {"0x36/8 " SGTIN_KEY "0/64 0/64 0/12", EPC_ERR_TRUNCATED,      "sgtin-198:3.0614141.812345."},
    {"0x36/8 " SGTIN_KEY "`A$`/7 0/64",    EPC_ERR_BAD_CHARACTER,  "sgtin-198:3.0614141.812345.A"},
    {"0x36/8 " SGTIN_KEY "`A`/7 0/7 `B`/7", EPC_ERR_BAD_CHARACTER, "sgtin-198:3.0614141.812345.A"},
    {"0x36/8 " SGTIN_KEY "`A`/7 0/64 0/60 1/1", EPC_ERR_TRUNCATED, "sgtin-198:3.0614141.812345.A"},
    {"0x36/8 " SGTIN_KEY "`A`/7 0/64 0/61 1/1", EPC_ERR_BAD_CHARACTER, "sgtin-198:3.0614141.812345.A"},
    {"0x36/8 " SGTIN_KEY "`A`/7 0/7 0/7",  EPC_ERR_TRUNCATED,      "sgtin-198:3.0614141.812345.A"},
    // 6-bit characters
    {"0x3D/8 3/3 5/3 1/24 0/6 0/40",       EPC_ERR_TRUNCATED,      "cpi-var:3.0000001."},
    {"0x3D/8 3/3 5/3 1/24 `A`/6 27/6",     EPC_ERR_BAD_CHARACTER,  "cpi-var:3.0000001.A"},
    {"0x3D/8 3/3 5/3 1/24 `A`/6 32/6",     EPC_ERR_BAD_CHARACTER,  "cpi-var:3.0000001.A"},
    {"0x3D/8 3/3 5/3 1/24 `" A20 "AAAA`/6 0/6 0/40", EPC_ERR_TRUNCATED, "cpi-var:3.0000001." A20 "AAAA"},
    {"0x3B/8 3/6 32/6 `CAGEY`/6 `P#`/6",   EPC_ERR_BAD_CHARACTER,  "adi-var:3.CAGEY.P"},
    {"0x3B/8 3/6 32/6 `CAGEY`/6 `" A20 "AAAAAAAAAAAAA`/6 0/6 1/6 0/6", EPC_ERR_TRUNCATED, "adi-var:3.CAGEY." A20 "AAAAAAAAAAAAA"},
    {"0x3B/8 3/6 32/6 `CAGEY`/6 0/6 0/6",  EPC_ERR_TRUNCATED,      "adi-var:3.CAGEY.."},
    {"0x3B/8 3/6 32/6 `CAGEY`/6 0/6 `##`/6", EPC_ERR_BAD_CHARACTER, "adi-var:3.CAGEY..%23"},
    {"0x3B/8 3/6 32/6 `CAGEY`/6 0/6 `" A20 "AAAAAAAAAAA`/6 0/6", EPC_ERR_TRUNCATED, "adi-var:3.CAGEY.." A20 "AAAAAAAAAAA"},
    {"0x3B/8 3/6 32/6 `CAGEY`/6 `" A20 "AAAAAAAAAAAA#`/6", EPC_ERR_BAD_CHARACTER, "adi-var:3.CAGEY." A20 "AAAAAAAAAAAA"},
    {"0x3B/8 3/6 32/6 `CAGEY`/6 `A`/6 27/5", EPC_ERR_TRUNCATED,    "adi-var:3.CAGEY.A"},
    // CAGE and DoDAAC codes
    {"0x2F/8 3/4 0/48 1/36",               EPC_ERR_BAD_CHARACTER,  "usdod-96:3."},
    {"0x2F/8 3/4 `W`/8 32/8 `1X9C`/8 1/36", EPC_ERR_BAD_CHARACTER, "usdod-96:3.W"},
    {"0x2F/8 3/4 `W8IX9C`/8 1/36",         EPC_ERR_BAD_CHARACTER,  "usdod-96:3.W8"},
    {"0x2F/8 3/4 `W8`/8 0xC1/8 `X9C`/8 1/36", EPC_ERR_BAD_CHARACTER, "usdod-96:3.W8"},
    {"0x2F/8 3/4 `W8I`/8",                 EPC_ERR_BAD_CHARACTER,  "usdod-96:3.W8"},
    {"0x2F/8 3/4 `W8`/8 0/7",              EPC_ERR_TRUNCATED,      "usdod-96:3.W8"},
    {"0x3B/8 3/6 `W8`/6 0/5",              EPC_ERR_TRUNCATED,      "adi-var:3.W8"},
    {"0x3B/8 3/6 `W8O`/6 0/64",            EPC_ERR_BAD_CHARACTER,  "adi-var:3.W8"},
    {"0x3B/8 3/6 32/6 32/6 0/64",          EPC_ERR_BAD_CHARACTER,  "adi-var:3."},
    {"0x3B/8 3/6 0/6 0/64",                EPC_ERR_BAD_CHARACTER,  "adi-var:3."},
};

// What is read although it is not written: bits after the last field, and values that no writer
// accepts.
constexpr const char* looseBits[][2] = {
    {"0x30/8 " SGTIN_KEY "6789/38 0xFFFF/16",           SGTIN "6789"},
    {"0x36/8 " SGTIN_KEY "`A`/7 0/64 0/64 0/5 0x3FF/10", SGTIN_198 "A"},
    {"0x2F/8 15/4 `W81X9C`/8 1/36",                      "urn:epc:tag:usdod-96:15.W81X9C.1"},
    {"0x40/8 " SGTIN_KEY "100/7 127/7 1/38",             "urn:epc:tag:itip-110:3.0614141.812345.100.127.1"},
    {"0x3B/8 63/6 32/6 `CAGEY`/6 0/6 `#`/6 0/6 0xFF/8",  "urn:epc:tag:adi-var:63.CAGEY..%23"},
};
// clang-format on

TEST(EpcUri, RefusesTagUris) {
    for (const RefusedUri& row : refusedUris) {
        const std::string uri =
            row.uri[0] == '=' ? row.uri + 1 : std::string("urn:epc:tag:") + row.uri;
        SCOPED_TRACE(uri);
        expectRefused(row.status, row.written, tagUriToBinary(uri));
        EXPECT_EQ(TextResult(row.status, "untouched"),
                  textResult([&](std::int32_t dstSize, char* dst) {
                      return epc_epcTagUriToHex(uri.c_str(), dstSize, dst);
                  }));
    }
}

TEST(EpcUri, RefusesPureIdentityUris) {
    for (const RefusedIdentity& row : refusedIdentities) {
        SCOPED_TRACE(row.uri);
        expectRefused(
            row.status, row.written,
            writtenBy([&](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) {
                return epc_epcUriToBinary(row.uri, row.scheme, row.filter, maxBytes, out, outBytes);
            }));
        EXPECT_EQ(TextResult(row.status, "untouched"),
                  textResult([&](std::int32_t dstSize, char* dst) {
                      return epc_epcUriToHex(row.uri, row.scheme, row.filter, dstSize, dst);
                  }));
    }
}

// A word has at most 255 characters; whichever end comes first decides.
TEST(EpcUri, BoundsTheSchemeWord) {
    struct Row {
        std::size_t length;
        const char* behind;
        EpcStatus tagUri;
        EpcStatus uri;
    };
    constexpr Row rows[] = {
        {255, ":3.1", EPC_ERR_UNKNOWN_SCHEME, EPC_ERR_SCHEME_MISMATCH},
        {256, ":3.1", EPC_ERR_TOO_LONG, EPC_ERR_TOO_LONG},
        {255, "", EPC_ERR_TRUNCATED, EPC_ERR_TRUNCATED},
        {256, "", EPC_ERR_TOO_LONG, EPC_ERR_TOO_LONG},
    };
    for (const Row& row : rows) {
        const std::string word = std::string(row.length, 's') + row.behind;
        std::uint8_t out[1];
        EXPECT_STATUS(row.tagUri,
                      epc_epcTagUriToBinary(("urn:epc:tag:" + word).c_str(), 1, out, nullptr))
            << row.length;
        EXPECT_STATUS(row.uri,
                      epc_epcUriToBinary(("urn:epc:id:" + word).c_str(), 0, 0, 1, out, nullptr))
            << row.length;
    }
}

TEST(EpcUri, ReadsLooseTagUris) {
    for (const auto& [loose, exact] : looseUris) {
        const Written written = tagUriToBinary(loose);
        EXPECT_STATUS(EPC_OK, written.status) << loose;
        EXPECT_EQ(tagUriToBinary(exact).bits, written.bits) << loose;
        EXPECT_EQ(TextResult(EPC_OK, exact), textResult([&](std::int32_t dstSize, char* dst) {
                      const Bytes bytes = bytesFromBits(written.bits);
                      return epc_binaryToEpcTagUri(written.outBytes * 8, bytes.data(), dstSize,
                                                   dst);
                  }));
    }
}

TEST(EpcUri, IgnoresTheFilterOfAGid) {
    for (const std::int32_t filter : {0, 1, 4096, -1}) {
        EXPECT_EQ(TextResult(EPC_OK, "350007AB70425D4000000586"),
                  textResult([filter](std::int32_t dstSize, char* dst) {
                      return epc_epcUriToHex("urn:epc:id:gid:31415.271828.1414", EPC_SCHEME_GID_96,
                                             filter, dstSize, dst);
                  }));
    }
}

// A dst that is too small receives the digits that fit; an array of words receives none.
TEST(EpcUri, CutsHexButNotWords) {
    const char* const uri = SGTIN "6789";
    const std::string hex = "3074257BF7194E4000001A85";
    for (std::int32_t dstSize = 1; dstSize <= 24; ++dstSize) {
        EXPECT_EQ(TextResult(EPC_ERR_NO_ROOM, hex.substr(0, static_cast<std::size_t>(dstSize - 1))),
                  textResult([uri](std::int32_t size,
                                   char* dst) { return epc_epcTagUriToHex(uri, size, dst); },
                             dstSize));
    }
    std::uint16_t words[6] = {7, 7, 7, 7, 7, 7};
    std::int32_t wordCount = UNTOUCHED;
    EXPECT_STATUS(EPC_ERR_NO_ROOM, epc_epcTagUriToWords(uri, 5, words, &wordCount));
    EXPECT_STATUS(EPC_ERR_NO_ROOM, epc_epcUriToWords("urn:epc:id:sgtin:0614141.812345.6789", 0, 3,
                                                     5, words, &wordCount));
    EXPECT_EQ(UNTOUCHED, wordCount);
    EXPECT_EQ(std::vector<std::uint16_t>(6, 7),
              std::vector<std::uint16_t>(std::begin(words), std::end(words)));
}

// The header is written before the filter is tested; the fields fit 25 bytes, the padding does not.
TEST(EpcUri, NeedsRoomForHeaderAndPadding) {
    EXPECT_STATUS(EPC_ERR_NO_ROOM, epc_epcUriToBinary("urn:epc:id:giai:0614141.1",
                                                      EPC_SCHEME_GIAI_96, 8, 0, nullptr, nullptr));
    std::uint8_t out[25];
    std::int32_t outBytes = UNTOUCHED;
    const char* const uri = SGTIN_198 A20;
    EXPECT_STATUS(EPC_ERR_NO_ROOM, epc_epcTagUriToBinary(uri, 25, out, &outBytes));
    EXPECT_EQ(UNTOUCHED, outBytes);
    EXPECT_EQ(bitsOf("0x36/8 " SGTIN_KEY "`" A20 "`/7 0/2"), bitsFromBytes(out, 25 * 8));
}

// A character is looked at before its room is, the room of a leading space before all characters.
TEST(EpcUri, LooksAtACharacterBeforeItsRoom) {
    const struct {
        const char* uri;
        std::int32_t bytes;
        EpcStatus status;
        const char* written;
    } written[] = {
        {"urn:epc:tag:usdod-96:3.W81X9C.1", 4, EPC_ERR_NO_ROOM, "0x2F/8 3/4 `W8`/8 0/4"},
        {"urn:epc:tag:usdod-96:3.W8IX9C.1", 4, EPC_ERR_BAD_FORMAT, "0x2F/8 3/4 `W8`/8 0/4"},
        {"urn:epc:tag:usdod-96:3.I8IX9C.1", 2, EPC_ERR_BAD_FORMAT, "0x2F/8 3/4 0/4"},
        {"urn:epc:tag:usdod-96:3.IAGEY.1", 2, EPC_ERR_NO_ROOM, "0x2F/8 3/4 0/4"},
        {"urn:epc:tag:usdod-96:3.IAGEY", 2, EPC_ERR_TRUNCATED, "0x2F/8 3/4 0/4"},
        {"urn:epc:tag:adi-var:3.CAGEY.PN", 7, EPC_ERR_NO_ROOM, "0x3B/8 3/6 32/6 `CAGEYP`/6"},
        {"urn:epc:tag:adi-var:3.CAGEY.P#", 7, EPC_ERR_BAD_CHARACTER, "0x3B/8 3/6 32/6 `CAGEYP`/6"},
        {"urn:epc:tag:adi-var:3.CAGEY." A20 "AAAAAAAAAAAAAA", 30, EPC_ERR_NO_ROOM,
         "0x3B/8 3/6 32/6 `CAGEY`/6 `" A20 "AAAAAAAAAAA`/6 0/4"},
    };
    for (const auto& row : written) {
        Bytes out(static_cast<std::size_t>(row.bytes), 0xFF);
        EXPECT_STATUS(row.status, epc_epcTagUriToBinary(row.uri, row.bytes, out.data(), nullptr))
            << row.uri;
        EXPECT_EQ(bitsOf(row.written), bitsFromBytes(out)) << row.uri;
    }
    const struct {
        const char* bits;
        const char* text; // all that has room
        EpcStatus status;
    } read[] = {
        {"0x2F/8 3/4 `W81X9C`/8 1/36", "urn:epc:tag:usdod-96:3.W8", EPC_ERR_NO_ROOM},
        {"0x2F/8 3/4 `W8IX9C`/8 1/36", "urn:epc:tag:usdod-96:3.W8", EPC_ERR_BAD_CHARACTER},
        {"0x2F/8 3/4 `W8`/8", "urn:epc:tag:usdod-96:3.W8", EPC_ERR_TRUNCATED},
        {"0x3B/8 3/6 32/6 `CAGEYPN`/6", "urn:epc:tag:adi-var:3.CAGEY.P", EPC_ERR_NO_ROOM},
        {"0x3B/8 3/6 32/6 `CAGEYP#`/6", "urn:epc:tag:adi-var:3.CAGEY.P", EPC_ERR_BAD_CHARACTER},
        {"0x3B/8 3/6 32/6 `CAGEYP`/6", "urn:epc:tag:adi-var:3.CAGEY.P", EPC_ERR_TRUNCATED},
    };
    for (const auto& row : read) {
        const std::string bits = bitsOf(row.bits);
        const Bytes bytes = bytesFromBits(bits);
        EXPECT_EQ(TextResult(row.status, row.text),
                  textResult(
                      [&](std::int32_t dstSize, char* dst) {
                          return epc_binaryToEpcTagUri(static_cast<std::int32_t>(bits.size()),
                                                       bytes.data(), dstSize, dst);
                      },
                      static_cast<std::int32_t>(std::string_view(row.text).size() + 1)))
            << row.bits;
    }
}

TextResult bitsToTagUri(const std::string& bits) {
    Bytes bytes = bytesFromBits(bits);
    bytes.push_back(0); // never an empty area
    return textResult([&](std::int32_t dstSize, char* dst) {
        return epc_binaryToEpcTagUri(static_cast<std::int32_t>(bits.size()), bytes.data(), dstSize,
                                     dst);
    });
}

TEST(EpcUri, RefusesBits) {
    for (const RefusedBits& row : refusedBits) {
        EXPECT_EQ(TextResult(row.status, std::string("urn:epc:tag:") + row.text),
                  bitsToTagUri(bitsOf(row.bits)))
            << row.bits;
    }
}

TEST(EpcUri, ReadsLooseBits) {
    for (const auto& [bits, uri] : looseBits) {
        EXPECT_EQ(TextResult(EPC_OK, uri), bitsToTagUri(bitsOf(bits))) << bits;
    }
}

} // namespace
