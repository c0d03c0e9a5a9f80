#include "contract/cases.h"

#include "support/bits.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace {

constexpr EpcStatus OK = EPC_OK;
constexpr EpcStatus NO_ROOM = EPC_ERR_NO_ROOM;
constexpr EpcStatus TRUNCATED = EPC_ERR_TRUNCATED;
constexpr EpcStatus OUT_OF_RANGE = EPC_ERR_OUT_OF_RANGE;
constexpr EpcStatus TOO_LONG = EPC_ERR_TOO_LONG;
constexpr EpcStatus HEADER = EPC_ERR_UNKNOWN_HEADER;
constexpr EpcStatus PARTITION = EPC_ERR_BAD_PARTITION;
constexpr EpcStatus FORMAT = EPC_ERR_BAD_FORMAT;
constexpr EpcStatus FILTER_FIELD = EPC_ERR_FILTER_FIELD;
constexpr EpcStatus MISMATCH = EPC_ERR_SCHEME_MISMATCH;
constexpr EpcStatus FILTER_LIMIT = EPC_ERR_FILTER_LIMIT;
constexpr EpcStatus SCHEME = EPC_ERR_UNKNOWN_SCHEME;
constexpr EpcStatus NO_KEY_DEFINITION = EPC_ERR_NO_KEY_DEFINITION;
constexpr EpcStatus UNKNOWN_AI = EPC_ERR_UNKNOWN_AI;
constexpr EpcStatus SECOND_KEY = EPC_ERR_SECOND_KEY;
constexpr EpcStatus NO_KEY_AI = EPC_ERR_NO_KEY_AI;
constexpr EpcStatus NO_SECONDARY = EPC_ERR_NO_SECONDARY_AI;
constexpr EpcStatus CHARACTER = EPC_ERR_BAD_CHARACTER;
constexpr EpcStatus NOT_SUPPORTED = EPC_ERR_NOT_SUPPORTED;
constexpr EpcStatus NO_PRIMARY_KEY = EPC_ERR_NO_PRIMARY_KEY;
constexpr EpcStatus TOO_MANY = EPC_ERR_TOO_MANY_AIS;
constexpr EpcStatus CONFLICT = EPC_ERR_KEY_CONFLICT;
constexpr EpcStatus CHECK_DIGIT = EPC_ERR_CHECK_DIGIT;
constexpr EpcStatus TID = EPC_ERR_BAD_TID;

// The storage of the text is left as it was.
constexpr const char* UNTOUCHED = nullptr;

std::string repeat(std::string_view part, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) {
        text += part;
    }
    return text;
}

const std::string flags21 = repeat("(4321)1", 21);
const std::string bareFlags21 = repeat("43211", 21);
const std::string linkFlags21 = repeat("/4321/1", 21);
const std::string longWord = repeat("x", 256);
const std::string value1024 = "/7007/" + repeat("9", 1024);
const std::string values1800 = "/7007/" + repeat("9", 900) + "/7011/" + repeat("9", 900);
const std::string tagOfLongWord = "urn:epc:tag:" + longWord + ":";
const std::string idOfLongWord = "urn:epc:id:" + longWord + ":";
const std::string tagOfLongField = "urn:epc:tag:sgtin-96:3." + longWord + ".1.2";
const std::string digits91 = repeat("1", 91);
const std::string digits92 = repeat("1", 92);
const std::string letters70 = repeat("x/", 35);

// SSCC+ with 12 values of 90 characters, more than the library's working text holds.
std::string longPlusBits() {
    std::string bits = "111110011001" + repeat("0", 72);
    for (int i = 0; i < 12; ++i) {
        bits += "10010001"
                "100"
                "1011010" +
                repeat("1111010", 90);
    }
    return bits;
}

// clang-format off

// ---- Binary values ----

struct BinaryRow {
    const char* name;
    std::string hex;
    std::int32_t bits; // -1: all
    EpcStatus uri, gs1, link, schemeName;
};

const BinaryRow binaryRows[] = {
    // name                hexadecimal                                            bits  URI            GS1 texts      link           name
    {"sgtin-96",           "3074257BF7194E4000001A85",                             -1, OK,            OK,            OK,            OK},
    {"sgtin-198",          "3674257BF7194E60AF8400000000000000000000000000000000", -1, OK,            OK,            OK,            OK},
    {"exact bits",         "3674257BF7194E60AF8400000000000000000000000000000000", 198, OK,           OK,            OK,            OK},
    {"cpi-var",            "3D34257BF418C200000000013400",                         -1, OK,            OK,            OK,            OK},
    {"itip-212",           "4134257BF7194E408282000000000000000000000000000000000000", -1, OK,        OK,            OK,            OK},
    {"gid-96",             "350000001000002000000003",                             -1, OK,            NOT_SUPPORTED, NOT_SUPPORTED, OK},
    {"usdod-96",           "2F3203253313934000003039",                             -1, OK,            NOT_SUPPORTED, NOT_SUPPORTED, OK},
    {"adi-var",            "3B0E0C93C79D008C1000",                                 -1, OK,            NOT_SUPPORTED, NOT_SUPPORTED, OK},
    {"giai+",              "FA80614141E23ABC21625D83103000BD17305D00",             -1, NOT_SUPPORTED, OK,            OK,            OK},
    {"sgtin+",             "F7080614141123458046A140",                             -1, NOT_SUPPORTED, OK,            OK,            OK},
    {"dsgtin+",            "FB04339F80614141123458046A14",                         -1, NOT_SUPPORTED, OK,            OK,            OK},
    {"empty",              "",                                                     -1, TRUNCATED,     TRUNCATED,     TRUNCATED,     TRUNCATED},
    {"7 bits",             "30",                                                    7, TRUNCATED,     TRUNCATED,     TRUNCATED,     TRUNCATED},
    {"no bits",            "30",                                                    0, TRUNCATED,     TRUNCATED,     TRUNCATED,     TRUNCATED},
    {"less than none",     "",                                                     -5, TRUNCATED,     TRUNCATED,     TRUNCATED,     TRUNCATED},
    {"header alone",       "30",                                                   -1, TRUNCATED,     TRUNCATED,     TRUNCATED,     OK},
    {"one bit less",       "3074257BF7194E4000001A85",                             95, TRUNCATED,     TRUNCATED,     TRUNCATED,     OK},
    {"no such header",     "0074257BF7194E4000001A85",                             -1, HEADER,        HEADER,        HEADER,        HEADER},
    {"partition 7",        "307C00000000000000000000",                             -1, PARTITION,     PARTITION,     PARTITION,     OK},
    {"prefix too large",   "307BFFFFC000000000000000",                             -1, OUT_OF_RANGE,  OUT_OF_RANGE,  OUT_OF_RANGE,  OK},
    {"space in a string",  "3674257BF7194E500000000000000000000000000000000000",   -1, CHARACTER,     CHARACTER,     CHARACTER,     OK},
    {"AI digit 15",        "F70F00000000000000000000",                             -1, NOT_SUPPORTED, FORMAT,        FORMAT,        OK},
    {"date code 7",        "FB0700000000000000000000000000",                       -1, NOT_SUPPORTED, FORMAT,        FORMAT,        OK},
    {"year 100",           "FB04C821806141411234580000000000",                     -1, NOT_SUPPORTED, OUT_OF_RANGE,  OUT_OF_RANGE,  OK},
    {"unknown AI",         "F7B8061414112345861005000000000000",                   -1, NOT_SUPPORTED, UNKNOWN_AI,    UNKNOWN_AI,    OK},
    {"space in plus",      "F738061414112345881400",                               83, NOT_SUPPORTED, CHARACTER,     CHARACTER,     OK},
    {"21 AIs",             "F990000000000000000004321A190D0C8686434321A190D0C8686434321A190D0C8686434321A190D0C8686434321A190D0C868643", -1, NOT_SUPPORTED, TOO_MANY, TOO_MANY, OK},
    {"too long values",    hexFromBytes(bytesFromBits(longPlusBits())),            -1, NOT_SUPPORTED, NO_ROOM,       NO_ROOM,       OK},
    // A plain link is made from an element string that is parsed again: brackets in the serial count.
    {"an AI in a serial",  "3674257BF7194E6C2860C54B164CDA356CDDC3960C5933680000", -1, OK,            OK,            CHECK_DIGIT,   OK},
    {"a short AI in one",  "3674257BF7194E6C2860C54B164CC00000000000000000000000", -1, OK,            OK,            NO_ROOM,       OK},
    {"a key in a serial",  "3674257BF7194E543860C1A29820000000000000000000000000", -1, OK,            OK,            CONFLICT,      OK},
};

// What only applies to hexadecimal text and to words.
const struct { const char* name; std::string hex; EpcStatus status; } hexRows[] = {
    {"bad digit",   "3074257BF7194E4000001A8G",  NO_ROOM},
    {"125 digits",  repeat("30303", 25),         TOO_LONG},
};
const struct { const char* name; std::int32_t bits; EpcStatus status; } wordRows[] = {
    {"497 bits",     497,        TOO_LONG},
    {"most bits",    0x7FFFFFFF, TOO_LONG},
    {"least bits",   -0x7FFFFFFF, TOO_LONG},
};

// ---- EPC URIs to binary ----

struct UriRow {
    const char* name;
    std::string text;
    EpcStatus status;
    std::int32_t scheme = 0;
    std::int32_t filter = 3;
};

const UriRow tagUriToBinaryRows[] = {
    {"sgtin-96",         "urn:epc:tag:sgtin-96:3.0614141.812345.6789",       OK},
    {"sgtin-198",        "urn:epc:tag:sgtin-198:3.0614141.812345.A%2FB",     OK},
    {"gdti-113",         "urn:epc:tag:gdti-113:3.0614141.12345.0012",        OK},
    {"cpi-var",          "urn:epc:tag:cpi-var:1.0614141.A%23B.77",           OK},
    {"gid-96",           "urn:epc:tag:gid-96:1.2.3",                         OK},
    {"adi-var",          "urn:epc:tag:adi-var:3.2S194..%23A",                OK},
    {"prefix cut",       "urn:epc:ta",                                       TRUNCATED},
    {"empty",            "",                                                 TRUNCATED},
    {"serial missing",   "urn:epc:tag:sgtin-96:3.0614141.812345",            TRUNCATED},
    {"serial too large", "urn:epc:tag:sgtin-96:3.0614141.812345.274877906944", OUT_OF_RANGE},
    {"word too long",    tagOfLongWord,                                      TOO_LONG},
    {"5 digits",         "urn:epc:tag:sgtin-96:3.06141.81234567.1",          PARTITION},
    {"pure identity",    "urn:epc:id:sgtin:0614141.812345.6789",             FORMAT},
    {"text left over",   "urn:epc:tag:sgtin-96:3.0614141.812345.6789.",      FORMAT},
    {"usdod filter 15",  "urn:epc:tag:usdod-96:15.2S194.1",                  FILTER_FIELD},
    {"filter 8",         "urn:epc:tag:sgtin-96:8.0614141.812345.6789",       FILTER_LIMIT},
    {"unknown scheme",   "urn:epc:tag:sgtin:3.0614141.812345.6789",          SCHEME},
    {"bad escape",       "urn:epc:tag:sgtin-198:3.0614141.812345.A%2",       TRUNCATED},
    {"bad character",    "urn:epc:tag:sgtin-198:3.0614141.812345.A%2G",      CHARACTER},
    {"plus scheme",      "urn:epc:tag:sgtin+:3.0614141.812345.6789",         NOT_SUPPORTED},
};

const UriRow uriToBinaryRows[] = {
    {"sgtin-96",         "urn:epc:id:sgtin:0614141.812345.6789",             OK},
    {"sgtin-198",        "urn:epc:id:sgtin:0614141.812345.A%2FB",            OK, EPC_SCHEME_SGTIN_198},
    {"gid-96",           "urn:epc:id:gid:1.2.3",                             OK, EPC_SCHEME_GID_96, -1},
    {"adi-var",          "urn:epc:id:adi:2S194..%23A",                       OK, EPC_SCHEME_ADI_VAR},
    {"prefix cut",       "urn:epc:i",                                        TRUNCATED},
    {"serial too large", "urn:epc:id:sgtin:0614141.812345.274877906944",     OUT_OF_RANGE},
    {"word too long",    idOfLongWord,                                       TOO_LONG},
    {"5 digits",         "urn:epc:id:sgtin:06141.81234567.1",                PARTITION},
    {"tag URI",          "urn:epc:tag:sgtin-96:3.0614141.812345.6789",       FORMAT},
    {"filter 8",         "urn:epc:id:sgtin:0614141.812345.6789",             FILTER_FIELD, 0, 8},
    {"filter -1",        "urn:epc:id:sgtin:0614141.812345.6789",             FILTER_FIELD, 0, -1},
    {"other family",     "urn:epc:id:sgln:0614141.12345.6789",               MISMATCH},
    {"no such scheme",   "urn:epc:id:sgtin:0614141.812345.6789",             SCHEME, EPC_SCHEME_COUNT},
    {"scheme -1",        "urn:epc:id:sgtin:0614141.812345.6789",             SCHEME, -1},
    {"bad character",    "urn:epc:id:sgtin:0614141.812345.A%2G",             CHARACTER, EPC_SCHEME_SGTIN_198},
    {"plus scheme",      "urn:epc:id:sgtin:0614141.812345.6789",             NOT_SUPPORTED, EPC_SCHEME_SGTIN_PLUS},
};

// ---- GS1 texts to binary ----

struct Gs1Row {
    const char* name;
    std::string element, barcode, link; // the same in the three syntaxes; empty if there is no such form
    EpcStatus status;
    std::int32_t scheme;
    std::int32_t filter = 3;
    std::int32_t gcpLength = 7;
    std::int32_t encoding = AI_ENC_AUTO;
};

const Gs1Row gs1ToBinaryRows[] = {
    // name               element string                             barcode string                       Digital Link                           status          scheme
    {"sgtin-96",          "(01)80614141123458(21)6789",              "0180614141123458216789",            "/01/80614141123458/21/6789",          OK,             EPC_SCHEME_SGTIN_96},
    {"sgtin-198",         "(01)80614141123458(21)A/B",               "018061414112345821A/B",             "/01/80614141123458/21/A%2FB",         OK,             EPC_SCHEME_SGTIN_198},
    {"gdti-113",          "(253)06141411234520012",                  "25306141411234520012",              "/253/06141411234520012",              OK,             EPC_SCHEME_GDTI_113},
    {"cpi-var",           "(8010)0614141A#B(8011)77",                "80100614141A#B\x1D" "801177",       "/8010/0614141A%23B/8011/77",          OK,             EPC_SCHEME_CPI_VAR},
    {"sgtin+",            "(01)80614141123458(21)6789",              "0180614141123458216789",            "https://id.example/01/80614141123458/21/6789", OK,    EPC_SCHEME_SGTIN_PLUS},
    {"dsgtin+",           "(01)80614141123458(21)6789(17)251231",    "0180614141123458216789\x1D" "17251231", "/01/80614141123458/21/6789?17=251231", OK,        EPC_SCHEME_DSGTIN_PLUS},
    {"giai+ with data",   "(8004)0614141ABC(21)XY(3103)000189",      "80040614141ABC\x1D" "21XY\x1D" "3103000189", "/8004/0614141ABC?21=XY&3103=000189", OK,  EPC_SCHEME_GIAI_PLUS},
    {"forced ISO 646",    "(8004)0614141ABC",                        "80040614141ABC",                    "/8004/0614141ABC",                    OK,             EPC_SCHEME_GIAI_PLUS, 3, 7, AI_ENC_ISO646},
    {"forced integer",    "(8004)0614141ABC",                        "80040614141ABC",                    "/8004/0614141ABC",                    CHARACTER,      EPC_SCHEME_GIAI_PLUS, 3, 7, AI_ENC_INTEGER},
    {"forced 6",          "(8004)0614141ABC",                        "80040614141ABC",                    "/8004/0614141ABC",                    FORMAT,         EPC_SCHEME_GIAI_PLUS, 3, 7, 6},
    {"fixed value short", "(01)123",                                 "01123",                             "",                                    NO_ROOM,        EPC_SCHEME_SGTIN_PLUS},
    {"long URI",          "(01)80614141123458(21)" + letters70 + letters70 + letters70, "018061414112345821" + letters70 + letters70 + letters70, "", NO_ROOM, EPC_SCHEME_SGTIN_198},
    {"fixed value cut",   "(01)123",                                 "01123",                             "/01/123",                             TRUNCATED,      EPC_SCHEME_SGTIN_96},
    {"serial too large",  "(01)80614141123458(21)274877906944",      "018061414112345821274877906944",    "/01/80614141123458/21/274877906944",  OUT_OF_RANGE,   EPC_SCHEME_SGTIN_96},
    {"range for a date",  "(01)80614141123458(21)6(7007)251231251231", "0180614141123458216\x1D" "7007251231251231", "/01/80614141123458/21/6?7007=251231251231", TOO_LONG, EPC_SCHEME_DSGTIN_PLUS},
    {"dot in the prefix", "(8004)12345.7ABC",                        "800412345.7ABC",                    "/8004/12345.7ABC",                    PARTITION,      EPC_SCHEME_GIAI_202},
    {"leading zero",      "(01)80614141123458(21)06789",             "01806141411234582106789",           "/01/80614141123458/21/06789",         FORMAT,         EPC_SCHEME_SGTIN_96},
    {"no AI at all",      "01",                                      "A1",                                "01",                                  FORMAT,         EPC_SCHEME_SGTIN_96},
    {"gcpLength 5",       "(01)80614141123458(21)6789",              "0180614141123458216789",            "/01/80614141123458/21/6789",          FILTER_FIELD,   EPC_SCHEME_SGTIN_96, 3, 5},
    {"gcpLength 13",      "(01)80614141123458(21)6789",              "0180614141123458216789",            "/01/80614141123458/21/6789",          FILTER_FIELD,   EPC_SCHEME_SGTIN_96, 3, 13},
    {"other family",      "(01)80614141123458(21)6789",              "0180614141123458216789",            "/01/80614141123458/21/6789",          MISMATCH,       EPC_SCHEME_SSCC_96},
    {"filter 8",          "(01)80614141123458(21)6789",              "0180614141123458216789",            "/01/80614141123458/21/6789",          FILTER_LIMIT,   EPC_SCHEME_SGTIN_96, 8},
    {"filter -1",         "(01)80614141123458(21)6789",              "0180614141123458216789",            "/01/80614141123458/21/6789",          FILTER_LIMIT,   EPC_SCHEME_SGTIN_96, -1},
    {"filter -1, plus",   "(01)80614141123458(21)6789",              "0180614141123458216789",            "/01/80614141123458/21/6789",          FILTER_LIMIT,   EPC_SCHEME_SGTIN_PLUS, -1},
    {"no such scheme",    "(01)80614141123458(21)6789",              "0180614141123458216789",            "/01/80614141123458/21/6789",          SCHEME,         EPC_SCHEME_COUNT},
    {"scheme -1",         "",                                        "",                                  "x",                                   SCHEME,         -1},
    {"unknown AI",        "(14)1",                                   "141",                               "/14/1",                               UNKNOWN_AI,     EPC_SCHEME_SGTIN_96},
    {"two keys",          "(01)80614141123458(21)6789(8004)A",       "0180614141123458216789\x1D" "8004A", "/01/80614141123458/21/6789?8004=A",  SECOND_KEY,     EPC_SCHEME_SGTIN_96},
    {"no key",            "(10)A",                                   "10A",                               "/10/A",                               NO_KEY_AI,      EPC_SCHEME_SGTIN_96},
    {"no serial",         "(01)80614141123458",                      "0180614141123458",                  "/01/80614141123458",                  NO_SECONDARY,   EPC_SCHEME_SGTIN_96},
    {"bad character",     "(01)80614141123458(21)A B",               "018061414112345821A~B",             "/01/80614141123458/21/A%20B",         CHARACTER,      EPC_SCHEME_SGTIN_198},
    {"bad identifier",    "",                                        "]X0123",                            "",                                    CHARACTER,      EPC_SCHEME_COUNT},
    {"gid-96",            "(01)80614141123458(21)6789",              "0180614141123458216789",            "/01/80614141123458/21/6789",          NOT_SUPPORTED,  EPC_SCHEME_GID_96},
    {"no key, plus",      "(10)A",                                   "10A",                               "/10/A",                               NO_PRIMARY_KEY, EPC_SCHEME_SGTIN_PLUS},
    {"21 AIs",            flags21,                                   bareFlags21,                         linkFlags21,                           TOO_MANY,       EPC_SCHEME_SGTIN_PLUS},
    {"check digit",       "(01)80614141123459(21)6789",              "0180614141123459216789",            "/01/80614141123459/21/6789",          CHECK_DIGIT,    EPC_SCHEME_SGTIN_PLUS},
};

// ---- GS1 texts to GS1 texts ----

const Gs1Row gs1ToAIsRows[] = {
    // name               element string                             barcode string                       Digital Link                           status
    {"two AIs",           "(01)80614141123458(21)6789",              "0180614141123458216789",            "/01/80614141123458/21/6789",          OK, 0},
    {"escaped",           "(01)80614141123458(10)A/B(15)991231",     "018061414112345810A/B\x1D" "15991231", "/01/80614141123458/10/A%2fB?15=991231", OK, 0},
    {"identifier",        "",                                        "]E00614141123452",                  "",                                    OK, 0},
    {"empty value",       "(8004)(10)",                              "8004\x1D" "10",                     "/8004//10/",                          OK, 0},
    {"fixed value short", "(01)123",                                 "01123",                             values1800,                            NO_ROOM, 0},
    {"code cut",          "(01",                                     "31",                                "/01",                                 TRUNCATED, 0},
    {"value too long",    "(01)806141411234580",                     "10" "123456789012345678901",         "/01/806141411234580",                 FORMAT, 0},
    {"unknown AI",        "(14)1",                                   "141",                               "/14/1",                               UNKNOWN_AI, 0},
    {"letter in a code",  "(1A)1",                                   "1A1",                               "/1A/1",                               CHARACTER, 0},
    {"21 AIs",            flags21,                                   bareFlags21,                         linkFlags21,                           TOO_MANY, 0},
    {"check digit",       "(01)80614141123459",                      "0180614141123459",                  "/01/80614141123459",                  CHECK_DIGIT, 0},
    {"value of 1024",     "",                                        "",                                  value1024,                             TOO_LONG, 0},
};

const struct { const char* name; std::string text; EpcStatus status; } elementToLinkRows[] = {
    {"no key",            "(10)A",                                   NO_PRIMARY_KEY},
    {"two keys",          "(01)80614141123458(8004)A",               CONFLICT},
};

// ---- Between EPC URIs and GS1 texts ----

// What a failure leaves in the barcode string, which is written while the URI is read.
const struct { const char* name; std::string text; EpcStatus status; const char* left; } tagUriToGs1Rows[] = {
    {"sgtin",            "urn:epc:tag:sgtin-96:3.0614141.812345.67%2F",       OK,                ""},
    {"cpi",              "urn:epc:tag:cpi-var:1.0614141.A%23B.77",            OK,                ""},
    {"itip+",            "urn:epc:tag:itip+:1.0614141.812345.01.02.A",        OK,                ""},
    {"prefix cut",       "urn:epc:tag",                                       TRUNCATED,         ""},
    {"tail missing",     "urn:epc:tag:sgtin-96:3.0614141.812345",             TRUNCATED,         ""},
    {"escape cut",       "urn:epc:tag:sgtin-96:3.0614141.812345.6%2",         TRUNCATED,         "0180614141123458"},
    {"filter of 20",     "urn:epc:tag:sgtin-96:00000000000000000000.",        FORMAT,            ""},
    {"large filter",     "urn:epc:tag:sgtin-96:12345678901234567890.",        OUT_OF_RANGE,      ""},
    {"word too long",    tagOfLongWord,                                       TOO_LONG,              ""},
    {"field too long",   tagOfLongField,                                      TOO_LONG,              ""},
    {"empty reference",  "urn:epc:tag:sgtin-96:3.0614141..6",                 FORMAT,            "01"},
    {"filter 8",         "urn:epc:tag:sgtin-96:8.0614141.812345.6",           FILTER_LIMIT,      ""},
    {"unknown scheme",   "urn:epc:tag:sgtin:3.0614141.812345.6",              SCHEME,            ""},
    {"gid-96",           "urn:epc:tag:gid-96:1.2.3",                          NO_KEY_DEFINITION, ""},
    {"bad escape",       "urn:epc:tag:sgtin-96:3.0614141.812345.%G0",         CHARACTER,         "0180614141123458"},
    {"values too long",  "urn:epc:tag:itip-212:3." + repeat("1", 255) + "." + repeat("2", 255) + "." + repeat("3", 255) + "." + repeat("4", 255) + "." + repeat("5", 5), NO_ROOM, nullptr},
};

const struct { const char* name; std::string text; EpcStatus status; const char* left; } uriToGs1Rows[] = {
    {"sgtin",            "urn:epc:id:sgtin:0614141.812345.67%2F",             OK,                ""},
    {"pgln",             "urn:epc:id:pgln:0614141.12345",                     OK,                ""},
    {"upui",             "urn:epc:id:upui:0614141.812345.A",                  OK,                ""},
    {"prefix cut",       "urn:epc:id",                                        TRUNCATED,         ""},
    {"word too long",    idOfLongWord,                                        TOO_LONG,              ""},
    {"empty reference",  "urn:epc:id:sgtin:0614141..6",                       FORMAT,            "01"},
    {"gid",              "urn:epc:id:gid:1.2.3",                              NO_KEY_DEFINITION, ""},
    {"bad escape",       "urn:epc:id:sgtin:0614141.812345.%G0",               CHARACTER,         "0180614141123458"},
};

struct Gs1ToUriRow {
    const char* name;
    std::string element, barcode;
    EpcStatus status;
    const char* body = UNTOUCHED; // what a failure leaves after the head of the URI
    std::int32_t scheme = EPC_SCHEME_SGTIN_96;
    std::int32_t filter = 3;
    std::int32_t gcpLength = 7;
};

const Gs1ToUriRow gs1ToTagUriRows[] = {
    {"sgtin",            "(01)80614141123458(21)67/",     "018061414112345821" "67/",             OK},
    {"sgtin+",           "(01)80614141123458(21)6",       "0180614141123458216",                  OK,           "", EPC_SCHEME_SGTIN_PLUS},
    {"sscc",             "(00)106141412345678908",        "00106141412345678908",                 OK,           "", EPC_SCHEME_SSCC_96},
    {"cpi",              "(8011)77(8010)0614141A#B",      "801177\x1D" "80100614141A#B",          OK,           "", EPC_SCHEME_CPI_96},
    {"fixed value cut",  "(01)123",                       "01123",                                TRUNCATED},
    {"key cut",          "(8004)123",                     "8004123",                              OUT_OF_RANGE, "", EPC_SCHEME_GIAI_96},
    {"key and text cut", "(253)0614141123",               "2530614141123",                        TRUNCATED,    "0614141.", EPC_SCHEME_GDTI_96},
    {"no AI",            "01",                            "]C10180614141123458",                  FORMAT},
    {"gcpLength 5",      "",                              "",                                     FILTER_FIELD, UNTOUCHED, 0, 3, 5},
    {"gcpLength 13",     "",                              "",                                     FILTER_FIELD, UNTOUCHED, 0, 3, 13},
    {"other family",     "(01)80614141123458(21)6",       "0180614141123458216",                  MISMATCH,     UNTOUCHED, EPC_SCHEME_SSCC_96},
    {"filter 8",         "(01)80614141123458(21)6",       "0180614141123458216",                  FILTER_LIMIT, UNTOUCHED, 0, 8},
    {"filter -1",        "(01)80614141123458(21)6",       "0180614141123458216",                  FILTER_LIMIT, UNTOUCHED, 0, -1},
    {"no such scheme",   "(01)80614141123458(21)6",       "0180614141123458216",                  SCHEME,       UNTOUCHED, EPC_SCHEME_COUNT},
    {"scheme -1",        "(01)80614141123458(21)6",       "0180614141123458216",                  SCHEME,       UNTOUCHED, -1},
    {"unknown AI",       "(14)1",                         "141",                                  UNKNOWN_AI},
    {"two keys",         "(01)80614141123458(21)6(8004)A", "0180614141123458216\x1D" "8004A",     SECOND_KEY},
    {"empty",            "",                              "",                                     NO_KEY_AI},
    {"no serial",        "(01)80614141123458",            "0180614141123458",                     NO_SECONDARY, "0614141.812345."},
};

// ---- Single AI values ----

const struct {
    const char* name;
    const char *ai, *value;
    std::int32_t withCode;
    EpcStatus status;
    std::int32_t encoding = AI_ENC_AUTO;
} aiToBitsRows[] = {
    {"text",              "21",    "ABCG",              1, OK},
    {"without code",      "21",    "ABCG",              0, OK},
    {"digits",            "01",    "80614141123458",    1, OK},
    {"two components",    "8006",  "806141411234580102", 1, OK},
    {"long number",       "4309",  "12345678901234567890", 0, OK},
    {"empty text",        "10",    "",                  0, OK},
    {"forced ISO 646",    "21",    "ABCG",              1, OK, AI_ENC_ISO646},
    {"too short",         "01",    "8061414112345",     0, TRUNCATED},
    {"92 digits",         "91",    digits92.c_str(),    0, OUT_OF_RANGE},
    {"91 digits",         "91",    digits91.c_str(),    0, TOO_LONG},
    {"date too long",     "17",    "2512310",           0, TOO_LONG},
    {"month 13",          "17",    "251301",            0, FORMAT},
    {"no such AI",        "99999", "1",                 1, UNKNOWN_AI},
    {"character",         "21",    "A~",                1, CHARACTER},
    {"forced integer",    "21",    "A",                 1, CHARACTER, AI_ENC_INTEGER},
    {"forced 6",          "21",    "A",                 1, FORMAT, 6},
    {"forced -2",         "21",    "A",                 1, FORMAT, -2},
};

struct BitsToAiRow {
    const char* name;
    const char* ai; // for the exports that take one
    const char* hex;
    std::int32_t bits; // -1: all
    EpcStatus status;
    const char* left = "";
};

const BitsToAiRow bitsToAiRows[] = {
    {"text",              "21",   "64001080",           -1, OK},
    {"empty text",        "10",   "80",                 -1, OK},
    {"two components",    "8006", "806141411234580102", -1, OK},
    {"empty",             "21",   "",                   -1, TRUNCATED},
    {"cut",               "17",   "3274",               15, TRUNCATED, "2503"},
    {"year 100",          "17",   "C821",               -1, OUT_OF_RANGE},
    {"month 13",          "17",   "33A1",               -1, FORMAT, "25"},
    {"no such AI",        "1",    "64001080",           -1, UNKNOWN_AI},
    {"space",             "21",   "8140",               -1, CHARACTER},
};

const BitsToAiRow plusBitsToAiRows[] = {
    {"text",              "", "2164001080",         -1, OK},
    {"AI 00",             "", "00106141412345678908", -1, OK},
    {"four digits",       "", "3103000BD0",         -1, OK},
    {"empty",             "", "",                   -1, TRUNCATED},
    {"one digit",         "", "20",                  7, TRUNCATED},
    {"AI 00 cut",         "", "00106141412345678908", 79, TRUNCATED},
    {"year 100",          "", "17C821",             -1, OUT_OF_RANGE},
    {"digit 10",          "", "1A33A1",             -1, FORMAT},
    {"month 13",          "", "1733A1",             -1, FORMAT, "25"},
    {"no such prefix",    "", "1433A1",             -1, UNKNOWN_AI},
    {"no such AI",        "", "310933A1",           -1, UNKNOWN_AI},
    {"space",             "", "218140",             -1, CHARACTER},
};

// ---- TID ----

const struct { const char* name; const char* hex; std::int32_t bits; EpcStatus status; } tidRows[] = {
    {"short",             "E2003412",                                  -1, OK},
    {"XTID alone",        "E28034120000",                              -1, OK},
    {"serial",            "E28034122000ABCDEF012345",                  -1, OK},
    {"all segments",      "E2803412FC00" "0123456789ABCDEF0123456789ABCDEF0123" "1CE5" "00000108" "06020301" "00080200", -1, OK},
    {"empty",             "",                                          -1, TRUNCATED},
    {"one bit less",      "E2003412",                                  31, TRUNCATED},
    {"serial cut",        "E28034122000ABCDEF01",                      -1, TRUNCATED},
    {"other class",       "E3003412",                                  -1, TID},
    {"extended header",   "E28034120001",                              -1, TID},
    {"reserved command",  "E280341204008000",                          -1, TID},
    {"block of size 0",   "E28034120800" "00000100" "00000000",        -1, TID},
};

// clang-format on

// Collects the cases of one export.
class Cases {
public:
    explicit Cases(const Export& tested) : row(tested), exportName(tested.name) {}

    std::vector<Case> all;

    void addBinaryToText(EpcStatus BinaryRow::*status, const char* left) {
        for (const BinaryRow& binary : binaryRows) {
            addBits(binary.name, binary.hex, binary.bits, binary.*status, {}, left);
        }
        addBadBits({});
    }

    template <std::size_t COUNT>
    void addUriToBinary(const UriRow (&uris)[COUNT]) {
        for (const UriRow& uri : uris) {
            Arguments arguments;
            arguments.text = uri.text;
            arguments.scheme = uri.scheme;
            arguments.filter = uri.filter;
            add(uri.name, arguments, uri.status, UNTOUCHED);
        }
    }

    void addGs1ToBinary() {
        for (const Gs1Row& gs1 : gs1ToBinaryRows) {
            Arguments arguments;
            arguments.scheme = gs1.scheme;
            arguments.filter = gs1.filter;
            arguments.gcpLength = gs1.gcpLength;
            arguments.encoding = gs1.encoding;
            arguments.text = inSyntax(gs1);
            if (!arguments.text.empty() && takesEncoding(gs1.encoding)) {
                add(gs1.name, arguments, gs1.status, UNTOUCHED);
            }
        }
    }

    void addGs1ToGs1() {
        for (const Gs1Row& gs1 : gs1ToAIsRows) {
            addText(gs1.name, inSyntax(gs1), gs1.status);
        }
    }
    void addElementToLink() {
        addGs1ToGs1();
        for (const auto& element : elementToLinkRows) {
            addText(element.name, element.text, element.status);
        }
    }
    // What does not fit an element string may fit a barcode string.
    void addTagUriToGs1() {
        for (const auto& uri : tagUriToGs1Rows) {
            if (exportName.ends_with("BarcodeString")) {
                addText(uri.name, uri.text, uri.left == nullptr ? OK : uri.status, uri.left);
            } else {
                addText(uri.name, uri.text, uri.status);
            }
        }
    }
    void addUriToGs1() {
        for (const auto& uri : uriToGs1Rows) {
            addText(uri.name, uri.text, uri.status,
                    exportName.ends_with("BarcodeString") ? uri.left : "");
        }
    }

    void addGs1ToUri() {
        for (const Gs1ToUriRow& gs1 : gs1ToTagUriRows) {
            Arguments arguments;
            arguments.scheme = gs1.scheme;
            arguments.filter = gs1.filter;
            arguments.gcpLength = gs1.gcpLength;
            arguments.text = isOfBarcode() ? gs1.barcode : gs1.element;
            const bool isOfScheme =
                gs1.status == SCHEME || gs1.status == MISMATCH || gs1.status == FILTER_LIMIT;
            const bool ignoresScheme = row.family == Family::GS1_TO_URI;
            add(gs1.name, arguments, isOfScheme && ignoresScheme ? OK : gs1.status, gs1.body);
        }
    }

    void addAiToBits() {
        for (const auto& value : aiToBitsRows) {
            Arguments arguments;
            arguments.ai = value.ai;
            arguments.text = value.value;
            arguments.withCode = value.withCode;
            arguments.encoding = value.encoding;
            if (takesEncoding(value.encoding)) {
                add(value.name, arguments, value.status, UNTOUCHED);
            }
        }
    }
    template <std::size_t COUNT>
    void addBitsToAi(const BitsToAiRow (&values)[COUNT]) {
        Arguments arguments;
        for (const BitsToAiRow& value : values) {
            arguments.ai = value.ai;
            addBits(value.name, value.hex, value.bits, value.status, arguments, value.left);
        }
        arguments.ai = "21";
        addBadBits(arguments);
    }

    void addTid() {
        for (const auto& tid : tidRows) {
            addBits(tid.name, tid.hex, tid.bits, tid.status, {}, UNTOUCHED);
        }
        addBadBits({});
    }

    void addSchemeToName() {
        for (const auto& [scheme, status] :
             {std::pair(0, OK), std::pair(EPC_SCHEME_COUNT - 1, OK),
              std::pair(EPC_SCHEME_COUNT, SCHEME), std::pair(-1, SCHEME)}) {
            Arguments arguments;
            arguments.scheme = scheme;
            add(std::to_string(scheme), arguments, status, UNTOUCHED);
        }
    }
    void addNameToScheme() {
        for (const auto& [name, status] : {std::pair("sgtin-96", OK), std::pair("dsgtin+", OK),
                                           std::pair("sgtin", SCHEME), std::pair("", SCHEME)}) {
            Arguments arguments;
            arguments.text = name;
            add(name, arguments, status);
        }
    }

private:
    const Export& row;
    std::string_view exportName;

    void add(std::string_view name, Arguments arguments, EpcStatus status, const char* left = "") {
        all.push_back({&row, std::string(name), std::move(arguments), status, left});
    }

    void addText(std::string_view name, const std::string& text, EpcStatus status,
                 const char* left = "") {
        Arguments arguments;
        arguments.text = text;
        if (!text.empty()) {
            add(name, arguments, status, left);
        }
    }

    // Digits and words are always whole, and no more than the library copies.
    void addBits(std::string_view name, const std::string& digits, std::int32_t bits,
                 EpcStatus status, Arguments arguments, const char* left) {
        const auto allBits = static_cast<std::int32_t>(digits.size()) * 4;
        const bool isHex = row.input == Input::HEX;
        if ((row.input != Input::BINARY && allBits > 8 * EPC_MAX_BINARY_BYTES) ||
            (isHex && bits != -1)) {
            return;
        }
        arguments.binary = bytesFromHex(digits);
        arguments.bits = bits == -1 ? allBits : bits;
        arguments.text = isHex ? digits : "";
        add(name, arguments, status, left);
    }
    void addBadBits(Arguments arguments) {
        if (row.input == Input::HEX) {
            for (const auto& bad : hexRows) {
                arguments.text = bad.hex;
                add(bad.name, arguments, bad.status, UNTOUCHED);
            }
        } else if (row.input == Input::WORDS) {
            for (const auto& bad : wordRows) {
                arguments.bits = bad.bits;
                add(bad.name, arguments, bad.status, UNTOUCHED);
            }
        }
    }

    bool isOfBarcode() const {
        return exportName.starts_with("epc_barcodeString");
    }
    // Empty if the row does not apply to the syntax.
    const std::string& inSyntax(const Gs1Row& gs1) const {
        return isOfBarcode()                               ? gs1.barcode
               : exportName.starts_with("epc_digitalLink") ? gs1.link
                                                           : gs1.element;
    }
    bool takesEncoding(std::int32_t encoding) const {
        return encoding == AI_ENC_AUTO || exportName.ends_with("Enc");
    }
};

void addCases(Cases& cases, const Export& row) {
    switch (row.family) {
    case Family::SCHEME_TO_NAME:
        return cases.addSchemeToName();
    case Family::NAME_TO_SCHEME:
        return cases.addNameToScheme();
    case Family::BINARY_TO_NAME:
        return cases.addBinaryToText(&BinaryRow::schemeName, UNTOUCHED);
    case Family::BINARY_TO_URI:
        return cases.addBinaryToText(&BinaryRow::uri, "");
    case Family::BINARY_TO_GS1:
        return cases.addBinaryToText(&BinaryRow::gs1, "");
    case Family::BINARY_TO_LINK:
        return cases.addBinaryToText(&BinaryRow::link, "");
    case Family::TAG_URI_TO_BINARY:
        return cases.addUriToBinary(tagUriToBinaryRows);
    case Family::URI_TO_BINARY:
        return cases.addUriToBinary(uriToBinaryRows);
    case Family::GS1_TO_BINARY:
        return cases.addGs1ToBinary();
    case Family::GS1_TO_AIS:
    case Family::LINK_TO_GS1:
        return cases.addGs1ToGs1();
    case Family::TAG_URI_TO_GS1:
        return cases.addTagUriToGs1();
    case Family::URI_TO_GS1:
        return cases.addUriToGs1();
    case Family::GS1_TO_LINK:
        return cases.addElementToLink();
    case Family::GS1_TO_TAG_URI:
    case Family::GS1_TO_URI:
        return cases.addGs1ToUri();
    case Family::AI_TO_BITS:
        return cases.addAiToBits();
    case Family::BITS_TO_AI:
        return row.output == Output::TEXT_AND_AI ? cases.addBitsToAi(plusBitsToAiRows)
                                                 : cases.addBitsToAi(bitsToAiRows);
    case Family::TID:
        return cases.addTid();
    }
}

} // namespace

std::vector<Case> allCases() {
    std::vector<Case> all;
    for (const Export& row : allExports) {
        Cases cases(row);
        addCases(cases, row);
        std::move(cases.all.begin(), cases.all.end(), std::back_inserter(all));
    }
    return all;
}
