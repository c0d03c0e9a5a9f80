#include "bridge/gs1_conversions.h"
#include "core/frames.h"

using namespace rosetag;

// Each syntax is named by the slot that reads it.
static constexpr TextToBinary TagSchemeOps::*BARCODE_STRING = &TagSchemeOps::barcodeStringToBinary;
static constexpr TextToBinary TagSchemeOps::*DIGITAL_LINK = &TagSchemeOps::digitalLinkToBinary;
static constexpr TextToBinary TagSchemeOps::*ELEMENT_STRING = &TagSchemeOps::elementStringToBinary;

template <TextToBinary TagSchemeOps::*slot>
static ShortValue toShortValue(const char* text, EpcScheme scheme, std::int32_t filter,
                               std::int32_t gcpLength, std::int32_t) {
    return gs1TextToShortValue(slot, text, scheme, filter, gcpLength);
}

template <TextToBinary TagSchemeOps::*slot>
static EpcStatus toBits(BitBuffer& bits, const char* text, EpcScheme scheme, std::int32_t filter,
                        std::int32_t gcpLength, std::int32_t encoding) {
    return gs1TextToBits(bits, slot, text, scheme, {filter, gcpLength, encoding});
}

// The arguments are handed on one by one, as those of the shortcut stay in registers then.
template <TextToBinary TagSchemeOps::*slot>
ROSETAG_INLINE static EpcStatus
gs1TextToHex(const char* text, EpcScheme scheme, std::int32_t filter, std::int32_t gcpLength,
             std::int32_t encoding, std::int32_t dstSize, char* dst) {
    return shortHexOutputFrame(dstSize, dst, toShortValue<slot>, toBits<slot>, text, scheme, filter,
                               gcpLength, encoding);
}

EpcStatus epc_barcodeStringToBinary(const char* text, EpcScheme scheme, std::int32_t filter,
                                    std::int32_t gcpLength, std::int32_t maxBytes,
                                    std::uint8_t* out, std::int32_t* outBytes) {
    return binaryOutputFrame(maxBytes, out, outBytes, gs1TextToBits, BARCODE_STRING, text, scheme,
                             EncodeArguments{filter, gcpLength, AI_ENC_AUTO});
}

EpcStatus epc_barcodeStringToBinaryEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                       std::int32_t gcpLength, std::int32_t encoding,
                                       std::int32_t maxBytes, std::uint8_t* out,
                                       std::int32_t* outBytes) {
    return binaryOutputFrame(maxBytes, out, outBytes, gs1TextToBits, BARCODE_STRING, text, scheme,
                             EncodeArguments{filter, gcpLength, encoding});
}

EpcStatus epc_barcodeStringToHex(const char* text, EpcScheme scheme, std::int32_t filter,
                                 std::int32_t gcpLength, std::int32_t dstSize, char* dst) {
    return gs1TextToHex<BARCODE_STRING>(text, scheme, filter, gcpLength, AI_ENC_AUTO, dstSize, dst);
}

EpcStatus epc_barcodeStringToHexEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                    std::int32_t gcpLength, std::int32_t encoding,
                                    std::int32_t dstSize, char* dst) {
    return gs1TextToHex<BARCODE_STRING>(text, scheme, filter, gcpLength, encoding, dstSize, dst);
}

EpcStatus epc_barcodeStringToWords(const char* text, EpcScheme scheme, std::int32_t filter,
                                   std::int32_t gcpLength, std::int32_t maxWords,
                                   std::uint16_t* outWords, std::int32_t* outWordCount) {
    return wordOutputFrame(maxWords, outWords, outWordCount, gs1TextToBits, BARCODE_STRING, text,
                           scheme, EncodeArguments{filter, gcpLength, AI_ENC_AUTO});
}

EpcStatus epc_barcodeStringToWordsEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                      std::int32_t gcpLength, std::int32_t encoding,
                                      std::int32_t maxWords, std::uint16_t* outWords,
                                      std::int32_t* outWordCount) {
    return wordOutputFrame(maxWords, outWords, outWordCount, gs1TextToBits, BARCODE_STRING, text,
                           scheme, EncodeArguments{filter, gcpLength, encoding});
}

EpcStatus epc_digitalLinkToBinary(const char* text, EpcScheme scheme, std::int32_t filter,
                                  std::int32_t gcpLength, std::int32_t maxBytes, std::uint8_t* out,
                                  std::int32_t* outBytes) {
    return binaryOutputFrame(maxBytes, out, outBytes, gs1TextToBits, DIGITAL_LINK, text, scheme,
                             EncodeArguments{filter, gcpLength, AI_ENC_AUTO});
}

EpcStatus epc_digitalLinkToBinaryEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                     std::int32_t gcpLength, std::int32_t encoding,
                                     std::int32_t maxBytes, std::uint8_t* out,
                                     std::int32_t* outBytes) {
    return binaryOutputFrame(maxBytes, out, outBytes, gs1TextToBits, DIGITAL_LINK, text, scheme,
                             EncodeArguments{filter, gcpLength, encoding});
}

EpcStatus epc_digitalLinkToHex(const char* text, EpcScheme scheme, std::int32_t filter,
                               std::int32_t gcpLength, std::int32_t dstSize, char* dst) {
    return gs1TextToHex<DIGITAL_LINK>(text, scheme, filter, gcpLength, AI_ENC_AUTO, dstSize, dst);
}

EpcStatus epc_digitalLinkToHexEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                  std::int32_t gcpLength, std::int32_t encoding,
                                  std::int32_t dstSize, char* dst) {
    return gs1TextToHex<DIGITAL_LINK>(text, scheme, filter, gcpLength, encoding, dstSize, dst);
}

EpcStatus epc_digitalLinkToWords(const char* text, EpcScheme scheme, std::int32_t filter,
                                 std::int32_t gcpLength, std::int32_t maxWords,
                                 std::uint16_t* outWords, std::int32_t* outWordCount) {
    return wordOutputFrame(maxWords, outWords, outWordCount, gs1TextToBits, DIGITAL_LINK, text,
                           scheme, EncodeArguments{filter, gcpLength, AI_ENC_AUTO});
}

EpcStatus epc_digitalLinkToWordsEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                    std::int32_t gcpLength, std::int32_t encoding,
                                    std::int32_t maxWords, std::uint16_t* outWords,
                                    std::int32_t* outWordCount) {
    return wordOutputFrame(maxWords, outWords, outWordCount, gs1TextToBits, DIGITAL_LINK, text,
                           scheme, EncodeArguments{filter, gcpLength, encoding});
}

EpcStatus epc_gs1ElementStringToBinary(const char* text, EpcScheme scheme, std::int32_t filter,
                                       std::int32_t gcpLength, std::int32_t maxBytes,
                                       std::uint8_t* out, std::int32_t* outBytes) {
    return binaryOutputFrame(maxBytes, out, outBytes, gs1TextToBits, ELEMENT_STRING, text, scheme,
                             EncodeArguments{filter, gcpLength, AI_ENC_AUTO});
}

EpcStatus epc_gs1ElementStringToBinaryEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                          std::int32_t gcpLength, std::int32_t encoding,
                                          std::int32_t maxBytes, std::uint8_t* out,
                                          std::int32_t* outBytes) {
    return binaryOutputFrame(maxBytes, out, outBytes, gs1TextToBits, ELEMENT_STRING, text, scheme,
                             EncodeArguments{filter, gcpLength, encoding});
}

EpcStatus epc_gs1ElementStringToHex(const char* text, EpcScheme scheme, std::int32_t filter,
                                    std::int32_t gcpLength, std::int32_t dstSize, char* dst) {
    return gs1TextToHex<ELEMENT_STRING>(text, scheme, filter, gcpLength, AI_ENC_AUTO, dstSize, dst);
}

EpcStatus epc_gs1ElementStringToHexEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                       std::int32_t gcpLength, std::int32_t encoding,
                                       std::int32_t dstSize, char* dst) {
    return gs1TextToHex<ELEMENT_STRING>(text, scheme, filter, gcpLength, encoding, dstSize, dst);
}

EpcStatus epc_gs1ElementStringToWords(const char* text, EpcScheme scheme, std::int32_t filter,
                                      std::int32_t gcpLength, std::int32_t maxWords,
                                      std::uint16_t* outWords, std::int32_t* outWordCount) {
    return wordOutputFrame(maxWords, outWords, outWordCount, gs1TextToBits, ELEMENT_STRING, text,
                           scheme, EncodeArguments{filter, gcpLength, AI_ENC_AUTO});
}

EpcStatus epc_gs1ElementStringToWordsEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                         std::int32_t gcpLength, std::int32_t encoding,
                                         std::int32_t maxWords, std::uint16_t* outWords,
                                         std::int32_t* outWordCount) {
    return wordOutputFrame(maxWords, outWords, outWordCount, gs1TextToBits, ELEMENT_STRING, text,
                           scheme, EncodeArguments{filter, gcpLength, encoding});
}
