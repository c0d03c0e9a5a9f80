#include "core/frames.h"
#include "gs1/barcode_string.h"
#include "schemes/tag_scheme.h"

namespace rosetag {
namespace {

// A text and what it is to become.
struct EncodeRequest {
    TextToBinary TagSchemeOps::*slot; // the syntax of the text
    const char* text;
    EpcScheme scheme;
    std::int32_t filter;
    std::int32_t gcpLength;
    std::int32_t encoding;
};

constexpr TextToBinary TagSchemeOps::*BARCODE_STRING = &TagSchemeOps::barcodeStringToBinary;
constexpr TextToBinary TagSchemeOps::*DIGITAL_LINK = &TagSchemeOps::digitalLinkToBinary;
constexpr TextToBinary TagSchemeOps::*ELEMENT_STRING = &TagSchemeOps::elementStringToBinary;

EpcStatus textToBits(const EncodeRequest& request, TextCursor& cursor, BitBuffer& bits) {
    if (!tagSchemeIsKnown(request.scheme)) {
        return EPC_ERR_UNKNOWN_SCHEME;
    }
    const TagSchemeOps& row = tagSchemeTable[request.scheme];
    if (row.info.filterLimit > 0 && request.filter >= row.info.filterLimit) {
        return EPC_ERR_FILTER_LIMIT;
    }
    const TextToBinary slot = row.*request.slot;
    if (slot == nullptr) {
        return EPC_ERR_NOT_SUPPORTED;
    }
    EPC_TRY(slot(cursor, bits, {request.filter, request.gcpLength, row.info, request.encoding}));
    EPC_TRY(bitBufferPadToWord(bits));
    return textCursorAtEnd(cursor) ? EPC_OK : EPC_ERR_BAD_FORMAT;
}

EpcStatus textToBinary(const EncodeRequest& request, std::int32_t maxBytes, std::uint8_t* out,
                       std::int32_t* outBytes) {
    BitBuffer bits = bitBufferForWriting(out, maxBytes);
    std::string_view text = request.text;
    char buffer[BARCODE_BUFFER_SIZE];
    if (request.slot == BARCODE_STRING) {
        EPC_TRY(barcodeStringNormalise(text, buffer, text));
    }
    TextCursor cursor = textCursorOver(text);
    EPC_TRY(textToBits(request, cursor, bits));
    if (outBytes != nullptr) {
        *outBytes = bits.position / 8;
    }
    return EPC_OK;
}

EpcStatus textToHex(const EncodeRequest& request, std::int32_t dstSize, char* dst) {
    return hexOutputFrame(dstSize, dst,
                          [&](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) {
                              return textToBinary(request, maxBytes, out, outBytes);
                          });
}

EpcStatus textToWords(const EncodeRequest& request, std::int32_t maxWords, std::uint16_t* outWords,
                      std::int32_t* outWordCount) {
    return wordOutputFrame(maxWords, outWords, outWordCount,
                           [&](std::int32_t maxBytes, std::uint8_t* out, std::int32_t* outBytes) {
                               return textToBinary(request, maxBytes, out, outBytes);
                           });
}

} // namespace
} // namespace rosetag

using namespace rosetag;

EpcStatus epc_barcodeStringToBinary(const char* text, EpcScheme scheme, std::int32_t filter,
                                    std::int32_t gcpLength, std::int32_t maxBytes,
                                    std::uint8_t* out, std::int32_t* outBytes) {
    return textToBinary({BARCODE_STRING, text, scheme, filter, gcpLength, AI_ENC_AUTO}, maxBytes,
                        out, outBytes);
}

EpcStatus epc_barcodeStringToBinaryEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                       std::int32_t gcpLength, std::int32_t encoding,
                                       std::int32_t maxBytes, std::uint8_t* out,
                                       std::int32_t* outBytes) {
    return textToBinary({BARCODE_STRING, text, scheme, filter, gcpLength, encoding}, maxBytes, out,
                        outBytes);
}

EpcStatus epc_barcodeStringToHex(const char* text, EpcScheme scheme, std::int32_t filter,
                                 std::int32_t gcpLength, std::int32_t dstSize, char* dst) {
    return textToHex({BARCODE_STRING, text, scheme, filter, gcpLength, AI_ENC_AUTO}, dstSize, dst);
}

EpcStatus epc_barcodeStringToHexEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                    std::int32_t gcpLength, std::int32_t encoding,
                                    std::int32_t dstSize, char* dst) {
    return textToHex({BARCODE_STRING, text, scheme, filter, gcpLength, encoding}, dstSize, dst);
}

EpcStatus epc_barcodeStringToWords(const char* text, EpcScheme scheme, std::int32_t filter,
                                   std::int32_t gcpLength, std::int32_t maxWords,
                                   std::uint16_t* outWords, std::int32_t* outWordCount) {
    return textToWords({BARCODE_STRING, text, scheme, filter, gcpLength, AI_ENC_AUTO}, maxWords,
                       outWords, outWordCount);
}

EpcStatus epc_barcodeStringToWordsEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                      std::int32_t gcpLength, std::int32_t encoding,
                                      std::int32_t maxWords, std::uint16_t* outWords,
                                      std::int32_t* outWordCount) {
    return textToWords({BARCODE_STRING, text, scheme, filter, gcpLength, encoding}, maxWords,
                       outWords, outWordCount);
}

EpcStatus epc_digitalLinkToBinary(const char* text, EpcScheme scheme, std::int32_t filter,
                                  std::int32_t gcpLength, std::int32_t maxBytes, std::uint8_t* out,
                                  std::int32_t* outBytes) {
    return textToBinary({DIGITAL_LINK, text, scheme, filter, gcpLength, AI_ENC_AUTO}, maxBytes, out,
                        outBytes);
}

EpcStatus epc_digitalLinkToBinaryEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                     std::int32_t gcpLength, std::int32_t encoding,
                                     std::int32_t maxBytes, std::uint8_t* out,
                                     std::int32_t* outBytes) {
    return textToBinary({DIGITAL_LINK, text, scheme, filter, gcpLength, encoding}, maxBytes, out,
                        outBytes);
}

EpcStatus epc_digitalLinkToHex(const char* text, EpcScheme scheme, std::int32_t filter,
                               std::int32_t gcpLength, std::int32_t dstSize, char* dst) {
    return textToHex({DIGITAL_LINK, text, scheme, filter, gcpLength, AI_ENC_AUTO}, dstSize, dst);
}

EpcStatus epc_digitalLinkToHexEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                  std::int32_t gcpLength, std::int32_t encoding,
                                  std::int32_t dstSize, char* dst) {
    return textToHex({DIGITAL_LINK, text, scheme, filter, gcpLength, encoding}, dstSize, dst);
}

EpcStatus epc_digitalLinkToWords(const char* text, EpcScheme scheme, std::int32_t filter,
                                 std::int32_t gcpLength, std::int32_t maxWords,
                                 std::uint16_t* outWords, std::int32_t* outWordCount) {
    return textToWords({DIGITAL_LINK, text, scheme, filter, gcpLength, AI_ENC_AUTO}, maxWords,
                       outWords, outWordCount);
}

EpcStatus epc_digitalLinkToWordsEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                    std::int32_t gcpLength, std::int32_t encoding,
                                    std::int32_t maxWords, std::uint16_t* outWords,
                                    std::int32_t* outWordCount) {
    return textToWords({DIGITAL_LINK, text, scheme, filter, gcpLength, encoding}, maxWords,
                       outWords, outWordCount);
}

EpcStatus epc_gs1ElementStringToBinary(const char* text, EpcScheme scheme, std::int32_t filter,
                                       std::int32_t gcpLength, std::int32_t maxBytes,
                                       std::uint8_t* out, std::int32_t* outBytes) {
    return textToBinary({ELEMENT_STRING, text, scheme, filter, gcpLength, AI_ENC_AUTO}, maxBytes,
                        out, outBytes);
}

EpcStatus epc_gs1ElementStringToBinaryEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                          std::int32_t gcpLength, std::int32_t encoding,
                                          std::int32_t maxBytes, std::uint8_t* out,
                                          std::int32_t* outBytes) {
    return textToBinary({ELEMENT_STRING, text, scheme, filter, gcpLength, encoding}, maxBytes, out,
                        outBytes);
}

EpcStatus epc_gs1ElementStringToHex(const char* text, EpcScheme scheme, std::int32_t filter,
                                    std::int32_t gcpLength, std::int32_t dstSize, char* dst) {
    return textToHex({ELEMENT_STRING, text, scheme, filter, gcpLength, AI_ENC_AUTO}, dstSize, dst);
}

EpcStatus epc_gs1ElementStringToHexEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                       std::int32_t gcpLength, std::int32_t encoding,
                                       std::int32_t dstSize, char* dst) {
    return textToHex({ELEMENT_STRING, text, scheme, filter, gcpLength, encoding}, dstSize, dst);
}

EpcStatus epc_gs1ElementStringToWords(const char* text, EpcScheme scheme, std::int32_t filter,
                                      std::int32_t gcpLength, std::int32_t maxWords,
                                      std::uint16_t* outWords, std::int32_t* outWordCount) {
    return textToWords({ELEMENT_STRING, text, scheme, filter, gcpLength, AI_ENC_AUTO}, maxWords,
                       outWords, outWordCount);
}

EpcStatus epc_gs1ElementStringToWordsEnc(const char* text, EpcScheme scheme, std::int32_t filter,
                                         std::int32_t gcpLength, std::int32_t encoding,
                                         std::int32_t maxWords, std::uint16_t* outWords,
                                         std::int32_t* outWordCount) {
    return textToWords({ELEMENT_STRING, text, scheme, filter, gcpLength, encoding}, maxWords,
                       outWords, outWordCount);
}
