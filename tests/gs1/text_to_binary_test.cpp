// The frame of the 18 exports from GS1 text to binary: its order, its forms, what it leaves.
#include "rosetag/rosetag.h"

#include "support/bits.h"
#include "support/text_result.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace {

// The six exports of a syntax.
struct Syntax {
    decltype(&epc_gs1ElementStringToBinary) binary;
    decltype(&epc_gs1ElementStringToBinaryEnc) binaryEnc;
    decltype(&epc_gs1ElementStringToHex) hex;
    decltype(&epc_gs1ElementStringToHexEnc) hexEnc;
    decltype(&epc_gs1ElementStringToWords) words;
    decltype(&epc_gs1ElementStringToWordsEnc) wordsEnc;
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
    std::int32_t encoding = AI_ENC_AUTO;
};

constexpr std::int32_t GCP_LENGTH = 7;

// Runs the export with an encoding and, where that is the library's choice, its plain twin, which
// must leave the same. out holds one element more than it is given, which must stay as it is.
template <typename Element, typename Enc, typename Plain>
EpcStatus runTwins(const Request& request, Enc enc, Plain plain, std::vector<Element>& out,
                   std::int32_t* outCount) {
    const auto& [syntax, text, scheme, filter, encoding] = request;
    const auto size = static_cast<std::int32_t>(out.size()) - 1;
    const std::vector<Element> before = out;
    const EpcStatus status =
        enc(text, scheme, filter, GCP_LENGTH, encoding, size, out.data(), outCount);
    EXPECT_EQ(before.back(), out.back()) << text;
    if (encoding == AI_ENC_AUTO) {
        std::vector<Element> plainOut = before;
        EXPECT_EQ(status, plain(text, scheme, filter, GCP_LENGTH, size, plainOut.data(), nullptr))
            << text;
        EXPECT_EQ(out, plainOut) << text;
    }
    return status;
}

// The storage as hex, and after it the count of bytes if it was written.
TextResult bytesOf(const Request& request, std::size_t maxBytes) {
    std::vector<std::uint8_t> out(maxBytes + 1, 0xEE);
    std::int32_t count = -1;
    const EpcStatus status =
        runTwins(request, request.syntax.binaryEnc, request.syntax.binary, out, &count);
    return {status,
            hexFromBytes(out.data(), maxBytes) + (count == -1 ? "" : " #" + std::to_string(count))};
}

TextResult wordsOf(const Request& request, std::size_t maxWords) {
    std::vector<std::uint16_t> out(maxWords + 1, 0xEEEE);
    std::int32_t count = -1;
    const EpcStatus status =
        runTwins(request, request.syntax.wordsEnc, request.syntax.words, out, &count);
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < maxWords; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(out[i] >> 8));
        bytes.push_back(static_cast<std::uint8_t>(out[i] & 0xFF));
    }
    return {status, hexFromBytes(bytes) + (count == -1 ? "" : " #" + std::to_string(count))};
}

TextResult hexOf(const Request& r, std::int32_t dstSize) {
    const auto work = [&](std::int32_t size, char* dst) {
        return r.syntax.hexEnc(r.text, r.scheme, r.filter, GCP_LENGTH, r.encoding, size, dst);
    };
    const auto plainWork = [&](std::int32_t size, char* dst) {
        return r.syntax.hex(r.text, r.scheme, r.filter, GCP_LENGTH, size, dst);
    };
    const TextResult result = textResult(work, dstSize);
    if (r.encoding == AI_ENC_AUTO) {
        EXPECT_EQ(result, textResult(plainWork, dstSize)) << r.text;
    }
    return result;
}

TEST(TextToBinary, GivesOneValueInAllForms) {
    const std::string hex = "3074257BF7194E4000001A85";
    const Request requests[] = {
        {ELEMENT_STRING, "(01)80614141123458(21)6789", EPC_SCHEME_SGTIN_96, 3},
        {BARCODE_STRING, "0180614141123458216789", EPC_SCHEME_SGTIN_96, 3},
        {BARCODE_STRING, "]C10180614141123458216789", EPC_SCHEME_SGTIN_96, 3},
        {DIGITAL_LINK, "/01/80614141123458/21/6789", EPC_SCHEME_SGTIN_96, 3},
        {DIGITAL_LINK, "/01/80614141123458/21/6789", EPC_SCHEME_SGTIN_96, 3, AI_ENC_CODE40},
    };
    for (const Request& request : requests) {
        EXPECT_EQ(TextResult(EPC_OK, hex + " #12"), bytesOf(request, 12)) << request.text;
        EXPECT_EQ(TextResult(EPC_OK, hex), hexOf(request, 25)) << request.text;
        EXPECT_EQ(TextResult(EPC_ERR_NO_ROOM, hex.substr(0, 7)), hexOf(request, 8)) << request.text;
        EXPECT_EQ(TextResult(EPC_OK, hex + " #6"), wordsOf(request, 6)) << request.text;
        EXPECT_EQ(TextResult(EPC_ERR_NO_ROOM, "EEEEEEEEEEEEEEEEEEEE"), wordsOf(request, 5))
            << request.text;
    }
}

// Of several faults the first in the order of the frame is reported. The storage of the bytes is
// cleared whatever it is, that of the other forms left alone.
TEST(TextToBinary, RefusesInItsOrder) {
    const char* const good = "(01)80614141123458(21)6789";
    const struct {
        Request request;
        EpcStatus status;
    } rows[] = {
        // clang-format off
        {{BARCODE_STRING, "]E0950600013435", 99, 99}, EPC_ERR_BAD_FORMAT},
        {{BARCODE_STRING, "]X0950600013435", 99, 99}, EPC_ERR_BAD_CHARACTER},
        {{DIGITAL_LINK, "]E0950600013435", EPC_SCHEME_COUNT, 99}, EPC_ERR_UNKNOWN_SCHEME},
        {{ELEMENT_STRING, good, -1, 99}, EPC_ERR_UNKNOWN_SCHEME},
        {{ELEMENT_STRING, "bad", EPC_SCHEME_SGTIN_96, 8}, EPC_ERR_FILTER_LIMIT},
        {{DIGITAL_LINK, "bad", EPC_SCHEME_SGTIN_PLUS, 8}, EPC_ERR_FILTER_LIMIT},
        {{ELEMENT_STRING, good, EPC_SCHEME_SGTIN_96, -1}, EPC_ERR_FILTER_LIMIT},
        {{ELEMENT_STRING, "bad", EPC_SCHEME_SGTIN_PLUS, -1}, EPC_ERR_FILTER_LIMIT},
        {{ELEMENT_STRING, "bad", EPC_SCHEME_SGTIN_PLUS, 7}, EPC_ERR_BAD_FORMAT},
        {{ELEMENT_STRING, "bad", EPC_SCHEME_GID_96, 99}, EPC_ERR_NOT_SUPPORTED},
        {{BARCODE_STRING, "bad", EPC_SCHEME_ADI_VAR, 0}, EPC_ERR_NOT_SUPPORTED},
        {{DIGITAL_LINK, "bad", EPC_SCHEME_USDOD_96, 0}, EPC_ERR_NOT_SUPPORTED},
        {{DIGITAL_LINK, "/01/80614141123459/21/1", EPC_SCHEME_SGTIN_96, 3}, EPC_ERR_CHECK_DIGIT},
        // clang-format on
    };
    for (const auto& [request, status] : rows) {
        EXPECT_EQ(TextResult(status, "0000000000"), bytesOf(request, 5)) << request.text;
        EXPECT_EQ(TextResult(status, "untouched"), hexOf(request, 10)) << request.text;
        EXPECT_EQ(TextResult(status, "EEEE"), wordsOf(request, 1)) << request.text;
    }
}

// 152 bits, to which the frame adds a byte.
TEST(TextToBinary, FillsTheLastWordWithZeros) {
    const Request request = {ELEMENT_STRING, "(8004)0614141ABC(21)XY(3103)000189(17)240229",
                             EPC_SCHEME_GIAI_PLUS, 1};
    const std::string hex = "FA90614141E23ABC21625D83103000BD17305D";
    EXPECT_EQ(TextResult(EPC_OK, hex + "0000 #20"), bytesOf(request, 21));
    EXPECT_EQ(TextResult(EPC_ERR_NO_ROOM, hex), bytesOf(request, 19));
    EXPECT_EQ(TextResult(EPC_ERR_NO_ROOM, ""), bytesOf(request, 0));
    EXPECT_EQ(TextResult(EPC_OK, hex + "00 #10"), wordsOf(request, 10));
}

TEST(TextToBinary, HandsTheEncodingOn) {
    Request request = {DIGITAL_LINK, "/8004/9506000?10=1", EPC_SCHEME_GIAI_PLUS, 0};
    std::set<std::string> values;
    for (request.encoding = AI_ENC_INTEGER; request.encoding <= AI_ENC_CODE40; ++request.encoding) {
        const TextResult bytes = bytesOf(request, 20);
        EXPECT_EQ(EPC_OK, bytes.status) << request.encoding;
        const TextResult hex = hexOf(request, 41);
        EXPECT_EQ(hex.text, bytes.text.substr(0, hex.text.size()));
        values.insert(hex.text);
    }
    EXPECT_EQ(6U, values.size());
    EXPECT_EQ(TextResult(EPC_ERR_BAD_FORMAT, "untouched"), hexOf(request, 41));
}

} // namespace
