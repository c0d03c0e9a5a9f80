// The C++ face: what each function gives, and the texts that never reach the library.
#include "rosetag/rosetag.hpp"
#include "support/bits.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace rosetag;

std::string show(const std::string& text) {
    return text;
}

std::string show(const Bytes& bytes) {
    return hexFromBytes(bytes);
}

std::string show(const Words& words) {
    std::string hex;
    for (const std::uint16_t word : words) {
        const std::uint8_t bytes[] = {static_cast<std::uint8_t>(word >> 8),
                                      static_cast<std::uint8_t>(word & 0xFF)};
        hex += hexFromBytes(bytes, 2);
    }
    return hex;
}

std::string show(const Ai& ai) {
    return "(" + ai.code + ")" + ai.value;
}

std::string show(const std::vector<Ai>& ais) {
    std::string text;
    for (const Ai& ai : ais) {
        text += show(ai);
    }
    return text;
}

template <typename Form>
std::string show(const AiBits<Form>& bits) {
    return show(bits.data) + "/" + std::to_string(bits.bits);
}

std::string show(EpcScheme scheme) {
    return std::to_string(scheme);
}

std::string show(const TidRecord& record) {
    return std::to_string(record.tmid) + " " + record.serial;
}

// The value, or the name of the status; a failure has an empty value.
template <typename Value>
std::string shown(const Result<Value>& result) {
    if (result) {
        return show(*result);
    }
    const bool isEmpty = show(result.value) == show(Value{});
    return std::string(result.name()) + (isEmpty ? "" : " with a value");
}

constexpr char HEX[] = "3074257BF7194E4000001A85";
constexpr char TAG_URI[] = "urn:epc:tag:sgtin-96:3.0614141.812345.6789";
constexpr char URI[] = "urn:epc:id:sgtin:0614141.812345.6789";
constexpr char ELEMENTS[] = "(01)80614141123458(21)6789";
constexpr char BARCODE[] = "0180614141123458216789";
constexpr char LINK[] = "/01/80614141123458/21/6789";
constexpr Target SGTIN = {EPC_SCHEME_SGTIN_96, 3, 7, AI_ENC_AUTO};
constexpr Target SGTIN_PLUS = {EPC_SCHEME_SGTIN_PLUS, 3, 0, AI_ENC_HEX_UPPER};
constexpr char PLUS_HEX[] = "F73806141411234582467890";

TEST(CppFace, GivesWhatItsCTwinGives) {
    const Bytes binary = bytesFromHex(HEX);
    const Words words = wordsFromBytes(binary);
    const Bytes value = bytesFromHex("000BD0");
    const Words valueWords = wordsFromBytes(value);
    const Bytes aidc = bytesFromHex("3103000BD0");
    const Words aidcWords = wordsFromBytes(aidc);
    const Bytes tid = bytesFromHex("E280110520000123456789AB");
    const Words tidWords = wordsFromBytes(tid);
    const Words noWords;
    const std::string longText(MAX_TEXT_LENGTH, 'A');
    const std::string longElements = ELEMENTS + ("(91)" + std::string(90, '/'));
    const auto longBinary =
        gs1ElementStringToBinary(longElements, {.scheme = EPC_SCHEME_SGTIN_PLUS});
    const struct {
        const char* name;
        std::string expected;
        std::string given;
    } rows[] = {
        {"enum to name", "sgtin-96", shown(tagSchemeEnumToName(EPC_SCHEME_SGTIN_96))},
        {"enum out of range", "EPC_ERR_UNKNOWN_SCHEME",
         shown(tagSchemeEnumToName(EPC_SCHEME_COUNT))},
        {"name to enum", "33", shown(tagSchemeNameToEnum("dsgtin+"))},
        {"binary to name", "sgtin-96", shown(binaryToTagSchemeName(binary))},
        {"hex to name", "sgtin-96", shown(hexToTagSchemeName(HEX))},
        {"binary to tag URI", TAG_URI, shown(binaryToEpcTagUri(binary))},
        {"binary to URI", URI, shown(binaryToEpcUri(binary))},
        {"binary to element string", ELEMENTS, shown(binaryToGs1ElementString(binary))},
        {"binary to barcode string", BARCODE, shown(binaryToBarcodeString(binary))},
        {"binary to link", LINK, shown(binaryToDigitalLink(binary))},
        {"binary to AIs", ELEMENTS, shown(binaryToAIs(binary))},
        {"hex to tag URI", TAG_URI, shown(hexToEpcTagUri(HEX))},
        {"hex to URI", URI, shown(hexToEpcUri(HEX))},
        {"hex to element string", ELEMENTS, shown(hexToGs1ElementString(HEX))},
        {"hex to barcode string", BARCODE, shown(hexToBarcodeString(HEX))},
        {"hex to link", LINK, shown(hexToDigitalLink(HEX))},
        {"hex to AIs", ELEMENTS, shown(hexToAIs(HEX))},
        {"words to tag URI", TAG_URI, shown(wordsToEpcTagUri(words))},
        {"words to URI", URI, shown(wordsToEpcUri(words))},
        {"words to element string", ELEMENTS, shown(wordsToGs1ElementString(words))},
        {"words to barcode string", BARCODE, shown(wordsToBarcodeString(words))},
        {"words to link", LINK, shown(wordsToDigitalLink(words))},
        {"no words", "EPC_ERR_TRUNCATED", shown(wordsToEpcUri(noWords))},
        {"too many words", "EPC_ERR_TOO_LONG", shown(wordsToEpcUri(Words(32)))},
        {"tag URI to binary", HEX, shown(epcTagUriToBinary(TAG_URI))},
        {"tag URI to hex", HEX, shown(epcTagUriToHex(TAG_URI))},
        {"tag URI to words", HEX, shown(epcTagUriToWords(TAG_URI))},
        {"URI to binary", HEX, shown(epcUriToBinary(URI, EPC_SCHEME_SGTIN_96, 3))},
        {"URI to hex", HEX, shown(epcUriToHex(URI, EPC_SCHEME_SGTIN_96, 3))},
        {"URI to words", HEX, shown(epcUriToWords(URI, EPC_SCHEME_SGTIN_96, 3))},
        {"barcode string to binary", HEX, shown(barcodeStringToBinary(BARCODE, SGTIN))},
        {"barcode string to hex", HEX, shown(barcodeStringToHex(BARCODE, SGTIN))},
        {"barcode string to words", HEX, shown(barcodeStringToWords(BARCODE, SGTIN))},
        {"link to binary", HEX, shown(digitalLinkToBinary(LINK, SGTIN))},
        {"link to hex", HEX, shown(digitalLinkToHex(LINK, SGTIN))},
        {"link to words", HEX, shown(digitalLinkToWords(LINK, SGTIN))},
        {"element string to binary", HEX, shown(gs1ElementStringToBinary(ELEMENTS, SGTIN))},
        {"element string to hex", HEX, shown(gs1ElementStringToHex(ELEMENTS, SGTIN))},
        {"element string to words", HEX, shown(gs1ElementStringToWords(ELEMENTS, SGTIN))},
        {"encoding", PLUS_HEX, shown(gs1ElementStringToHex(ELEMENTS, SGTIN_PLUS))},
        {"more than 62 bytes", longElements, shown(binaryToGs1ElementString(*longBinary))},
        {"barcode string to AIs", "(10)A(21)B", shown(barcodeStringToAIs("10A|21B", '|'))},
        {"separator above 127", "(10)A(21)B",
         shown(barcodeStringToAIs("10A\x9D"
                                  "21B",
                                  '\x9D'))},
        {"barcode string to tag URI", TAG_URI, shown(barcodeStringToEpcTagUri(BARCODE, SGTIN))},
        {"link to AIs", ELEMENTS, shown(digitalLinkToAIs(LINK))},
        {"link to element string", ELEMENTS, shown(digitalLinkToGs1ElementString(LINK))},
        {"tag URI to barcode string", BARCODE, shown(epcTagUriToBarcodeString(TAG_URI))},
        {"tag URI to link", LINK, shown(epcTagUriToDigitalLink(TAG_URI))},
        {"tag URI to element string", ELEMENTS, shown(epcTagUriToGs1ElementString(TAG_URI))},
        {"URI to barcode string", BARCODE, shown(epcUriToBarcodeString(URI))},
        {"URI to element string", ELEMENTS, shown(epcUriToGs1ElementString(URI))},
        {"element string to AIs", ELEMENTS, shown(gs1ElementStringToAIs(ELEMENTS))},
        {"element string to link", LINK, shown(gs1ElementStringToDigitalLink(ELEMENTS))},
        {"element string to tag URI", TAG_URI, shown(gs1ElementStringToEpcTagUri(ELEMENTS, SGTIN))},
        {"element string to URI", URI, shown(gs1ElementStringToEpcUri(ELEMENTS, 7))},
        {"text before a failure", "EPC_ERR_NO_SECONDARY_AI",
         shown(gs1ElementStringToEpcUri("(01)80614141123458", 7))},
        {"AI to binary", "3103000BD0/36", shown(AIToBinary("3103", "000189", AiCode::WITH))},
        {"AI to hex", "000BD0/20", shown(AIToHex("3103", "000189", AiCode::WITHOUT))},
        {"AI to words", "3103000BD000/36", shown(AIToWords("3103", "000189", AiCode::WITH))},
        {"encoding of an AI", "231230/20",
         shown(AIToHex("10", "123", AiCode::WITHOUT, AI_ENC_HEX_UPPER))},
        {"unknown AI", "EPC_ERR_UNKNOWN_AI", shown(AIToBinary("14", "1", AiCode::WITH))},
        {"binary value", "000189", shown(binaryValueToAI(value, "3103"))},
        {"hex value", "000189", shown(hexValueToAI("000BD0", "3103"))},
        {"words value", "000189", shown(wordsValueToAI(valueWords, "3103"))},
        {"+AIDC binary", "(3103)000189", shown(plusAidcBinaryToAI(aidc))},
        {"+AIDC hex", "(3103)000189", shown(plusAidcHexToAI("3103000BD0"))},
        {"+AIDC words", "(3103)000189", shown(plusAidcWordsToAI(aidcWords))},
        {"TID", "261 0123456789AB", shown(tidDecode(BytesView(tid)))},
        {"TID words", "261 0123456789AB", shown(tidDecode(WordsView(tidWords)))},
        {"longest text", "EPC_ERR_BAD_FORMAT", shown(epcTagUriToHex(longText))},
        {"one more", "EPC_ERR_TOO_LONG", shown(epcTagUriToHex(longText + "A"))},
        {"NUL in the text", "EPC_ERR_BAD_CHARACTER",
         shown(hexToTagSchemeName(std::string_view("30\0"
                                                   "30",
                                                   5)))},
        {"part of a longer text", "sgtin-96",
         shown(hexToTagSchemeName(std::string_view(HEX).substr(0, 2)))},
        {"NUL in the second text", "EPC_ERR_BAD_CHARACTER",
         shown(AIToHex("21", std::string_view("A\0", 2), AiCode::WITH))},
        {"no text", "EPC_ERR_TRUNCATED", shown(hexToEpcUri({}))},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.expected, row.given) << row.name;
    }
}

TEST(CppFace, PutsAFailureIntoWords) {
    const auto uri = hexToEpcUri("00");
    EXPECT_FALSE(uri);
    EXPECT_EQ(EPC_ERR_UNKNOWN_HEADER, uri.status);
    EXPECT_EQ("EPC_ERR_UNKNOWN_HEADER", uri.name());
    EXPECT_EQ(epc_statusText(EPC_ERR_UNKNOWN_HEADER), uri.message());
}

} // namespace
