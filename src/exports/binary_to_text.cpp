#include "bridge/gs1_conversions.h"
#include "core/frames.h"
#include "gs1/ai_list.h"
#include "schemes/epc_uri.h"

using namespace rosetag;

EpcStatus epc_binaryToEpcTagUri(std::int32_t bits, const std::uint8_t* binary, std::int32_t dstSize,
                                char* dst) {
    return binaryInputFrame(bits, binary, bitsToEpcUri, dstSize, dst, UriForm::TAG);
}

EpcStatus epc_binaryToEpcUri(std::int32_t bits, const std::uint8_t* binary, std::int32_t dstSize,
                             char* dst) {
    return binaryInputFrame(bits, binary, bitsToEpcUri, dstSize, dst, UriForm::PURE_IDENTITY);
}

EpcStatus epc_binaryToGs1ElementString(std::int32_t bits, const std::uint8_t* binary,
                                       std::int32_t dstSize, char* dst) {
    return binaryInputFrame(bits, binary, bitsToGs1Text, dstSize, dst,
                            &TagSchemeOps::binaryToElementString);
}

EpcStatus epc_binaryToBarcodeString(std::int32_t bits, const std::uint8_t* binary,
                                    std::int32_t dstSize, char* dst) {
    return binaryInputFrame(bits, binary, bitsToGs1Text, dstSize, dst,
                            &TagSchemeOps::binaryToBarcodeString);
}

EpcStatus epc_binaryToDigitalLink(std::int32_t bits, const std::uint8_t* binary,
                                  std::int32_t dstSize, char* dst) {
    return binaryInputFrame(bits, binary, bitsToGs1Text, dstSize, dst,
                            &TagSchemeOps::binaryToDigitalLink);
}

EpcStatus epc_binaryToAIs(std::int32_t bits, const std::uint8_t* binary, std::int32_t maxAIs,
                          std::uint32_t valueSize, char* aiCodes, char* aiValues,
                          std::uint32_t* aiCount) {
    return binaryInputFrame(bits, binary, bitsToAIs,
                            AiRows{maxAIs, valueSize, aiCodes, aiValues, aiCount});
}

EpcStatus epc_hexToEpcTagUri(const char* hex, std::int32_t dstSize, char* dst) {
    return hexInputFrame(hex, bitsToEpcUri, dstSize, dst, UriForm::TAG);
}

EpcStatus epc_hexToEpcUri(const char* hex, std::int32_t dstSize, char* dst) {
    return hexInputFrame(hex, bitsToEpcUri, dstSize, dst, UriForm::PURE_IDENTITY);
}

EpcStatus epc_hexToGs1ElementString(const char* hex, std::int32_t dstSize, char* dst) {
    return hexInputFrame(hex, bitsToGs1Text, dstSize, dst, &TagSchemeOps::binaryToElementString);
}

EpcStatus epc_hexToBarcodeString(const char* hex, std::int32_t dstSize, char* dst) {
    return hexInputFrame(hex, bitsToGs1Text, dstSize, dst, &TagSchemeOps::binaryToBarcodeString);
}

EpcStatus epc_hexToDigitalLink(const char* hex, std::int32_t dstSize, char* dst) {
    return hexInputFrame(hex, bitsToGs1Text, dstSize, dst, &TagSchemeOps::binaryToDigitalLink);
}

EpcStatus epc_hexToAIs(const char* hex, std::int32_t maxAIs, std::uint32_t valueSize, char* aiCodes,
                       char* aiValues, std::uint32_t* aiCount) {
    return hexInputFrame(hex, bitsToAIs, AiRows{maxAIs, valueSize, aiCodes, aiValues, aiCount});
}

EpcStatus epc_wordsToEpcTagUri(std::int32_t bits, const std::uint16_t* words, std::int32_t dstSize,
                               char* dst) {
    return wordInputFrame(bits, words, bitsToEpcUri, dstSize, dst, UriForm::TAG);
}

EpcStatus epc_wordsToEpcUri(std::int32_t bits, const std::uint16_t* words, std::int32_t dstSize,
                            char* dst) {
    return wordInputFrame(bits, words, bitsToEpcUri, dstSize, dst, UriForm::PURE_IDENTITY);
}

EpcStatus epc_wordsToGs1ElementString(std::int32_t bits, const std::uint16_t* words,
                                      std::int32_t dstSize, char* dst) {
    return wordInputFrame(bits, words, bitsToGs1Text, dstSize, dst,
                          &TagSchemeOps::binaryToElementString);
}

EpcStatus epc_wordsToBarcodeString(std::int32_t bits, const std::uint16_t* words,
                                   std::int32_t dstSize, char* dst) {
    return wordInputFrame(bits, words, bitsToGs1Text, dstSize, dst,
                          &TagSchemeOps::binaryToBarcodeString);
}

EpcStatus epc_wordsToDigitalLink(std::int32_t bits, const std::uint16_t* words,
                                 std::int32_t dstSize, char* dst) {
    return wordInputFrame(bits, words, bitsToGs1Text, dstSize, dst,
                          &TagSchemeOps::binaryToDigitalLink);
}
