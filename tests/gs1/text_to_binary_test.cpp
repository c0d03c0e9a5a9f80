// The frame of the 18 exports from GS1 text to binary: its order, its forms, what it leaves.
#include "rosetag/rosetag.h"

#include "support/bits.h"
#include "support/status.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr std::int32_t UNTOUCHED_COUNT = -7;

using BinaryExport = decltype(&epc_gs1ElementStringToBinary);
using BinaryEncExport = decltype(&epc_gs1ElementStringToBinaryEnc);
using HexExport = decltype(&epc_gs1ElementStringToHex);
using HexEncExport = decltype(&epc_gs1ElementStringToHexEnc);
using WordsExport = decltype(&epc_gs1ElementStringToWords);
using WordsEncExport = decltype(&epc_gs1ElementStringToWordsEnc);

// The six exports of a syntax.
struct Syntax {
    BinaryExport binary;
    BinaryEncExport binaryEnc;
    HexExport hex;
    HexEncExport hexEnc;
    WordsExport words;
    WordsEncExport wordsEnc;
};

constexpr Syntax ELEMENT_STRING = {epc_gs1ElementStringToBinary, epc_gs1ElementStringToBinaryEnc,
                                   epc_gs1ElementStringToHex,    epc_gs1ElementStringToHexEnc,
                                   epc_gs1ElementStringToWords,  epc_gs1ElementStringToWordsEnc};
constexpr Syntax BARCODE_STRING = {epc_barcodeStringToBinary, epc_barcodeStringToBinaryEnc,
                                   epc_barcodeStringToHex,    epc_barcodeStringToHexEnc,
                                   epc_barcodeStringToWords,  epc_barcodeStringToWordsEnc};
constexpr Syntax DIGITAL_LINK = {epc_digitalLinkToBinary, epc_digitalLinkToBinaryEnc,
                                 epc_digitalLinkToHex,    epc_digitalLinkToHexEnc,
                                 epc_digitalLinkToWords,  epc_digitalLinkToWordsEnc};

struct Request {
    const Syntax& syntax;
    const char* text;
    EpcScheme scheme;
    std::int32_t filter;
};

constexpr std::int32_t GCP_LENGTH = 7;

struct BinaryResult {
    EpcStatus status;
    std::string hex; // of all that the storage of maxBytes holds, "EE" where it was not written
    std::int32_t byteCount;
};

BinaryResult binaryOf(const Request& request, std::int32_t encoding, std::int32_t maxBytes) {
    std::vector<std::uint8_t> out(static_cast<std::size_t>(maxBytes) + 1, 0xEE);
    std::int32_t byteCount = UNTOUCHED_COUNT;
    const EpcStatus status =
        request.syntax.binaryEnc(request.text, request.scheme, request.filter, GCP_LENGTH, encoding,
                                 maxBytes, out.data(), &byteCount);
    EXPECT_EQ(0xEE, out.back());
    out.pop_back();
    return {status, hexFromBytes(out), byteCount};
}

// The first key of GS1's own examples in a tag, in every form of every syntax.
TEST(TextToBinary, GivesOneValueInAllForms) {
    const std::string hex = "3074257BF7194E4000001A85";
    const std::vector<std::uint16_t> words = wordsFromBytes(bytesFromHex(hex));
    const Request requests[] = {
        {ELEMENT_STRING, "(01)80614141123458(21)6789", EPC_SCHEME_SGTIN_96, 3},
        {BARCODE_STRING, "]C10180614141123458216789", EPC_SCHEME_SGTIN_96, 3},
        {BARCODE_STRING, "0180614141123458216789", EPC_SCHEME_SGTIN_96, 3},
        {DIGITAL_LINK, "/01/80614141123458/21/6789", EPC_SCHEME_SGTIN_96, 3},
    };
    for (const Request& request : requests) {
        const auto [exports, text, scheme, filter] = request;
        std::uint8_t bytes[12];
        std::int32_t byteCount = 0;
        ASSERT_STATUS(EPC_OK,
                      exports.binary(text, scheme, filter, GCP_LENGTH, 12, bytes, &byteCount));
        EXPECT_EQ(12, byteCount) << text;
        EXPECT_EQ(hex, hexFromBytes(bytes, 12)) << text;
        EXPECT_EQ(hex, binaryOf(request, AI_ENC_CODE40, 12).hex) << text;
        ASSERT_STATUS(EPC_OK, exports.binary(text, scheme, filter, GCP_LENGTH, 12, bytes, nullptr));

        char digits[25];
        ASSERT_STATUS(EPC_OK, exports.hex(text, scheme, filter, GCP_LENGTH, 25, digits));
        EXPECT_EQ(hex, digits) << text;
        ASSERT_STATUS(EPC_OK, exports.hexEnc(text, scheme, filter, GCP_LENGTH, 0, 25, digits));
        EXPECT_EQ(hex, digits) << text;
        ASSERT_STATUS(EPC_ERR_NO_ROOM, exports.hex(text, scheme, filter, GCP_LENGTH, 8, digits));
        EXPECT_EQ(hex.substr(0, 7), digits) << text;

        std::vector<std::uint16_t> out(6, 0xEEEE);
        std::int32_t wordCount = UNTOUCHED_COUNT;
        ASSERT_STATUS(EPC_ERR_NO_ROOM,
                      exports.words(text, scheme, filter, GCP_LENGTH, 5, out.data(), &wordCount));
        EXPECT_EQ(std::vector<std::uint16_t>(6, 0xEEEE), out) << text;
        EXPECT_EQ(UNTOUCHED_COUNT, wordCount) << text;
        ASSERT_STATUS(EPC_OK,
                      exports.words(text, scheme, filter, GCP_LENGTH, 6, out.data(), &wordCount));
        EXPECT_EQ(words, out) << text;
        EXPECT_EQ(6, wordCount) << text;
        out.assign(6, 0);
        ASSERT_STATUS(
            EPC_OK, exports.wordsEnc(text, scheme, filter, GCP_LENGTH, 0, 6, out.data(), nullptr));
        EXPECT_EQ(words, out) << text;
    }
}

// Of several faults the first in the order of the frame is told; the storage is cleared whatever it
// is, and the forms of hex and words are left alone.
TEST(TextToBinary, RefusesInItsOrder) {
    const char* const good = "(01)80614141123458(21)6789";
    const struct {
        const char* name;
        Request request;
        EpcStatus status;
    } rows[] = {
        {"identifier before scheme",
         {BARCODE_STRING, "]E0950600013435", 99, 99},
         EPC_ERR_BAD_FORMAT},
        {"identifier unknown", {BARCODE_STRING, "]X0950600013435", 99, 99}, EPC_ERR_BAD_CHARACTER},
        {"scheme before text", {ELEMENT_STRING, "bad", 99, 99}, EPC_ERR_UNKNOWN_SCHEME},
        {"identifier only in barcodes",
         {DIGITAL_LINK, "]E0950600013435", 34, 0},
         EPC_ERR_UNKNOWN_SCHEME},
        {"scheme below 0", {ELEMENT_STRING, good, -1, 0}, EPC_ERR_UNKNOWN_SCHEME},
        {"filter before text",
         {ELEMENT_STRING, "bad", EPC_SCHEME_SGTIN_96, 8},
         EPC_ERR_FILTER_LIMIT},
        {"filter of a plus scheme",
         {DIGITAL_LINK, "bad", EPC_SCHEME_SGTIN_PLUS, 8},
         EPC_ERR_FILTER_LIMIT},
        {"filter below 0, plain",
         {ELEMENT_STRING, good, EPC_SCHEME_SGTIN_96, -1},
         EPC_ERR_FILTER_LIMIT},
        {"filter below 0, plus",
         {ELEMENT_STRING, good, EPC_SCHEME_SGTIN_PLUS, -1},
         EPC_ERR_FILTER_LIMIT},
        {"filter below the limit",
         {ELEMENT_STRING, "bad", EPC_SCHEME_SGTIN_PLUS, 7},
         EPC_ERR_BAD_FORMAT},
        {"no slot, gid", {ELEMENT_STRING, "bad", EPC_SCHEME_GID_96, 99}, EPC_ERR_NOT_SUPPORTED},
        {"no slot, adi", {BARCODE_STRING, "bad", EPC_SCHEME_ADI_VAR, 0}, EPC_ERR_NOT_SUPPORTED},
        {"no slot, usdod", {DIGITAL_LINK, "bad", EPC_SCHEME_USDOD_96, 0}, EPC_ERR_NOT_SUPPORTED},
        {"check digit of a plain link",
         {DIGITAL_LINK, "/01/80614141123459/21/6789", EPC_SCHEME_SGTIN_96, 3},
         EPC_ERR_CHECK_DIGIT},
    };
    for (const auto& row : rows) {
        const auto [exports, text, scheme, filter] = row.request;
        const BinaryResult result = binaryOf(row.request, AI_ENC_AUTO, 20);
        EXPECT_STATUS(row.status, result.status) << row.name;
        EXPECT_EQ(std::string(40, '0'), result.hex) << row.name;
        EXPECT_EQ(UNTOUCHED_COUNT, result.byteCount) << row.name;
        char digits[] = "untouched";
        EXPECT_STATUS(row.status, exports.hex(text, scheme, filter, GCP_LENGTH, 10, digits))
            << row.name;
        EXPECT_STREQ("untouched", digits) << row.name;
        std::uint16_t word = 0xEEEE;
        std::int32_t wordCount = UNTOUCHED_COUNT;
        EXPECT_STATUS(row.status,
                      exports.words(text, scheme, filter, GCP_LENGTH, 1, &word, &wordCount))
            << row.name;
        EXPECT_EQ(0xEEEE, word) << row.name;
        EXPECT_EQ(UNTOUCHED_COUNT, wordCount) << row.name;
    }
}

// 152 bits, to which the frame adds a byte.
TEST(TextToBinary, FillsTheLastWordWithZeros) {
    const Request request = {ELEMENT_STRING, "(8004)0614141ABC(21)XY(3103)000189(17)240229",
                             EPC_SCHEME_GIAI_PLUS, 1};
    const std::string whole =
        hexFromBytes(bytesFromBits("1111101010010000011000010100000101000001111000100011"
                                   "101010111100001000010110001001011101100000110001"
                                   "0000001100000000000010111101000101110011000001011101"));
    ASSERT_EQ(38U, whole.size());
    const BinaryResult fits = binaryOf(request, AI_ENC_AUTO, 21);
    EXPECT_STATUS(EPC_OK, fits.status);
    EXPECT_EQ(whole + "0000", fits.hex);
    EXPECT_EQ(20, fits.byteCount);
    const BinaryResult noPadding = binaryOf(request, AI_ENC_AUTO, 19);
    EXPECT_STATUS(EPC_ERR_NO_ROOM, noPadding.status);
    EXPECT_EQ(whole, noPadding.hex);
    EXPECT_EQ(UNTOUCHED_COUNT, noPadding.byteCount);
    const BinaryResult cut = binaryOf(request, AI_ENC_AUTO, 5);
    EXPECT_STATUS(EPC_ERR_NO_ROOM, cut.status);
    EXPECT_EQ(whole.substr(0, 10), cut.hex);
    EXPECT_STATUS(EPC_ERR_NO_ROOM, binaryOf(request, AI_ENC_AUTO, 0).status);
}

TEST(TextToBinary, HandsTheEncodingOn) {
    const Request request = {DIGITAL_LINK, "/8004/9506000?10=1", EPC_SCHEME_GIAI_PLUS, 0};
    std::set<std::string> values;
    for (std::int32_t encoding = AI_ENC_INTEGER; encoding <= AI_ENC_CODE40; ++encoding) {
        const BinaryResult result = binaryOf(request, encoding, 20);
        EXPECT_STATUS(EPC_OK, result.status) << encoding;
        values.insert(result.hex);
    }
    EXPECT_EQ(6U, values.size());
    EXPECT_STATUS(EPC_ERR_BAD_FORMAT, binaryOf(request, 6, 20).status);
    char digits[41];
    EXPECT_STATUS(EPC_OK, request.syntax.hex(request.text, request.scheme, 0, 0, 41, digits));
    EXPECT_EQ(binaryOf(request, AI_ENC_AUTO, 20).hex.substr(0, std::strlen(digits)), digits);
}

} // namespace
