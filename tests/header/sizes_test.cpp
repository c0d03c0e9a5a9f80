// The sizes of the header against the largest results that there are.
#include "rosetag/rosetag.h"
#include "support/bits.h"
#include "support/status.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace {

std::string repeat(const std::string& text, int count) {
    std::string repeated;
    for (int i = 0; i < count; ++i) {
        repeated += text;
    }
    return repeated;
}

// adi-var with filter 63, the code AAAAAA, a part number of 32 and a serial number of some "/".
std::vector<std::uint8_t> longestAdiVar(int serialCharacters) {
    const std::string slash = bitsFromNumber('/', 6);
    return bytesFromBits(bitsFromNumber(0x3B, 8) + "111111" + repeat("000001", 6) +
                         repeat(slash, 32) + "000000" + repeat(slash, serialCharacters) + "000000");
}

EpcStatus tagUriOf(const std::vector<std::uint8_t>& binary, std::int32_t dstSize, char* dst) {
    return epc_binaryToEpcTagUri(static_cast<std::int32_t>(binary.size() * 8), binary.data(),
                                 dstSize, dst);
}

EpcStatus longestLink(std::int32_t dstSize, char* dst) {
    const std::string elements =
        "(8004)" + std::string(30, '/') + repeat("(8030)" + std::string(90, '/'), EPC_MAX_AIS - 1);
    return epc_gs1ElementStringToDigitalLink(elements.c_str(), dstSize, dst);
}

// The values of 20 AIs of four digits with 1023 characters together.
EpcStatus longestElementString(std::int32_t dstSize, char* dst) {
    const std::string link = "?8030=" + std::string(33, 'A') +
                             repeat("&8030=" + std::string(90, 'A'), 11) + repeat("&8030=", 8);
    return epc_digitalLinkToGs1ElementString(link.c_str(), dstSize, dst);
}

EpcStatus longestBarcodeString(std::int32_t dstSize, char* dst) {
    const std::string field = "." + std::string(255, '1');
    const std::string uri = "urn:epc:id:itip:" + repeat(field, 5).substr(1);
    return epc_epcUriToBarcodeString(uri.c_str(), dstSize, dst);
}

// A text of AI 91 as long as its length indicator counts.
EpcStatus longestValue(std::int32_t dstSize, char* dst) {
    const std::vector<std::uint8_t> binary =
        bytesFromBits("001" + bitsFromNumber(127, 7) + repeat("1111", 127));
    return epc_binaryValueToAI(static_cast<std::int32_t>(binary.size() * 8), binary.data(), "91",
                               dstSize, dst);
}

// 494 bits.
EpcStatus longestHex(std::int32_t dstSize, char* dst) {
    return epc_AIToHexEnc("91", std::string(68, 'a').c_str(), 1, AI_ENC_ISO646, dstSize, dst,
                          nullptr);
}

TEST(Sizes, TakeTheLongestTextAndItsNul) {
    const struct {
        const char* name;
        std::int32_t size;
        std::size_t longest; // characters
        std::function<EpcStatus(std::int32_t, char*)> call;
    } rows[] = {
        {"hex", EPC_HEX_SIZE, 124, longestHex},
        {"scheme name", EPC_SCHEME_NAME_SIZE, 9,
         [](std::int32_t size, char* dst) {
             return epc_tagSchemeEnumToName(EPC_SCHEME_SGTIN_198, size, dst);
         }},
        {"URI", EPC_URI_SIZE, 217,
         [](std::int32_t size, char* dst) { return tagUriOf(longestAdiVar(30), size, dst); }},
        {"AI value", EPC_AI_VALUE_SIZE, 127, longestValue},
        {"element string", EPC_ELEMENT_STRING_SIZE, 1143, longestElementString},
        {"barcode string", EPC_BARCODE_STRING_SIZE, 1282, longestBarcodeString},
        {"Digital Link", EPC_DIGITAL_LINK_SIZE, 6 + 90 + 19 * 276, longestLink},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        std::vector<char> dst(static_cast<std::size_t>(row.size));
        EXPECT_STATUS(EPC_OK, row.call(row.size, dst.data()));
        EXPECT_EQ(row.longest, std::string(dst.data()).size());
        EXPECT_STATUS(EPC_ERR_NO_ROOM,
                      row.call(static_cast<std::int32_t>(row.longest), dst.data()));
    }
}

TEST(Sizes, NoSchemeHasALongerName) {
    for (EpcScheme scheme = 0; scheme < EPC_SCHEME_COUNT; ++scheme) {
        char name[EPC_SCHEME_NAME_SIZE];
        EXPECT_STATUS(EPC_OK, epc_tagSchemeEnumToName(scheme, sizeof name, name)) << scheme;
    }
}

TEST(Sizes, OfAUriLetATextThatIsTooLongBeSeenAsSuch) {
    char uri[EPC_URI_SIZE];
    EXPECT_STATUS(EPC_ERR_TRUNCATED, tagUriOf(longestAdiVar(31), sizeof uri, uri));
    EXPECT_EQ(EPC_URI_SIZE - 1U, std::string(uri).size());
}

TEST(Sizes, OfBinaryTakeTheLargestValue) {
    std::uint8_t bytes[EPC_AI_VALUE_BYTES];
    std::uint16_t words[EPC_MAX_BINARY_WORDS];
    std::int32_t bits = 0;
    const std::string value(127, 'a');
    EXPECT_STATUS(EPC_OK, epc_AIToBinaryEnc("8030", value.c_str(), 1, AI_ENC_ISO646, sizeof bytes,
                                            bytes, &bits));
    EXPECT_EQ(915, bits);
    EXPECT_STATUS(EPC_ERR_NO_ROOM, epc_AIToBinaryEnc("8030", value.c_str(), 1, AI_ENC_ISO646,
                                                     sizeof bytes - 1, bytes, &bits));
    EXPECT_STATUS(EPC_OK, epc_AIToWordsEnc("91", std::string(68, 'a').c_str(), 1, AI_ENC_ISO646,
                                           EPC_MAX_BINARY_WORDS, words, &bits));
    EXPECT_LE(bits, EPC_MAX_BINARY_BITS);
    EXPECT_STATUS(EPC_ERR_NO_ROOM,
                  epc_AIToWordsEnc("91", std::string(69, 'a').c_str(), 1, AI_ENC_ISO646,
                                   EPC_MAX_BINARY_WORDS, words, &bits));
    static_assert(EPC_MAX_BINARY_BYTES % 2 == 0);
}

TEST(Sizes, OfRowsTakeTheTwentyAisThatATextMayHold) {
    char codes[EPC_MAX_AIS + 1][EPC_AI_CODE_SIZE];
    char values[EPC_MAX_AIS + 1][EPC_AI_VALUE_SIZE];
    std::uint32_t count = 0;
    const std::string most = repeat("(8030)" + std::string(90, 'A'), EPC_MAX_AIS);
    EXPECT_STATUS(EPC_OK, epc_gs1ElementStringToAIs(most.c_str(), EPC_MAX_AIS, EPC_AI_VALUE_SIZE,
                                                    codes[0], values[0], &count));
    EXPECT_EQ(EPC_MAX_AIS, static_cast<int>(count));
    EXPECT_STATUS(EPC_ERR_TOO_MANY_AIS,
                  epc_gs1ElementStringToAIs((most + "(10)").c_str(), EPC_MAX_AIS + 1,
                                            EPC_AI_VALUE_SIZE, codes[0], values[0], &count));
}

#define STATUS_ROW(status)                                                                         \
    { status, #status }

TEST(StatusInWords, HasTheNameOfEachValueAndATextOfItsOwn) {
    const struct {
        EpcStatus status;
        const char* name;
    } rows[] = {
        STATUS_ROW(EPC_OK),
        STATUS_ROW(EPC_ERR_NO_ROOM),
        STATUS_ROW(EPC_ERR_TRUNCATED),
        STATUS_ROW(EPC_ERR_OUT_OF_RANGE),
        STATUS_ROW(EPC_ERR_TOO_LONG),
        STATUS_ROW(EPC_ERR_UNKNOWN_HEADER),
        STATUS_ROW(EPC_ERR_BAD_PARTITION),
        STATUS_ROW(EPC_ERR_BAD_FORMAT),
        STATUS_ROW(EPC_ERR_FILTER_FIELD),
        STATUS_ROW(EPC_ERR_SCHEME_MISMATCH),
        STATUS_ROW(EPC_ERR_FILTER_LIMIT),
        STATUS_ROW(EPC_ERR_UNKNOWN_SCHEME),
        STATUS_ROW(EPC_ERR_NO_KEY_DEFINITION),
        STATUS_ROW(EPC_ERR_UNKNOWN_AI),
        STATUS_ROW(EPC_ERR_SECOND_KEY),
        STATUS_ROW(EPC_ERR_NO_KEY_AI),
        STATUS_ROW(EPC_ERR_NO_SECONDARY_AI),
        STATUS_ROW(EPC_ERR_BAD_CHARACTER),
        STATUS_ROW(EPC_ERR_NOT_SUPPORTED),
        STATUS_ROW(EPC_ERR_NO_KEY_FOR_SCHEME),
        STATUS_ROW(EPC_ERR_NO_PRIMARY_KEY),
        STATUS_ROW(EPC_ERR_TOO_MANY_AIS),
        STATUS_ROW(EPC_ERR_KEY_CONFLICT),
        STATUS_ROW(EPC_ERR_CHECK_DIGIT),
        STATUS_ROW(EPC_ERR_BAD_TID),
    };
    std::set<std::string> texts = {epc_statusText(EPC_ERR_BAD_TID + 1)};
    for (const auto& row : rows) {
        EXPECT_STREQ(row.name, epc_statusName(row.status));
        EXPECT_TRUE(texts.insert(epc_statusText(row.status)).second) << row.name;
    }
    for (const EpcStatus unknown : {-1, EPC_ERR_BAD_TID + 1}) {
        EXPECT_STREQ("unknown", epc_statusName(unknown));
        EXPECT_STREQ("unknown status", epc_statusText(unknown));
    }
}

} // namespace
