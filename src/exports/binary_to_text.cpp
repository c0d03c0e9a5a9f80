/*
 * From a binary value to everything else: the header finds the scheme, the scheme's slot does the
 * rest. An export names how its value crosses the boundary and the slot.
 */
#include "core/frames.h"
#include "gs1/ai_list.h"
#include "schemes/epc_uri.h"

namespace rosetag {
namespace {

// The work of an export: EpcStatus(BitBuffer& bits, TextBuffer& text), both at their beginning.

EpcStatus toUri(BitBuffer& bits, TextBuffer& text, UriForm form) {
    const bool isTagUri = form == UriForm::TAG;
    EPC_TRY(textBufferPutString(text, isTagUri ? TAG_URI_PREFIX : PURE_IDENTITY_URI_PREFIX));
    const TagSchemeOps* row = nullptr;
    EPC_TRY(tagSchemeReadHeader(bits, row));
    if (row->binaryToUriBody == nullptr) {
        return EPC_ERR_NOT_SUPPORTED;
    }
    EPC_TRY(textBufferPutString(text, isTagUri ? row->info.name : row->info.familyWord));
    EPC_TRY(textBufferPutChar(text, ':'));
    return row->binaryToUriBody(bits, text, form);
}

EpcStatus throughSlot(BitBuffer& bits, TextBuffer& text, BinaryToText TagSchemeOps::*slot) {
    const TagSchemeOps* row = nullptr;
    EPC_TRY(tagSchemeReadHeader(bits, row));
    const BinaryToText operation = row->*slot;
    return operation != nullptr ? operation(bits, text, row->info.scheme) : EPC_ERR_NOT_SUPPORTED;
}

auto uriWork(UriForm form) {
    return [form](BitBuffer& bits, TextBuffer& text) { return toUri(bits, text, form); };
}

auto slotWork(BinaryToText TagSchemeOps::*slot) {
    return [slot](BitBuffer& bits, TextBuffer& text) { return throughSlot(bits, text, slot); };
}

template <typename Work>
EpcStatus binaryToText(std::int32_t bits, const std::uint8_t* binary, std::int32_t dstSize,
                       char* dst, Work work) {
    BitBuffer buffer = bitBufferForReading(binary, bits);
    TextBuffer text = textBufferOver(dst, dstSize);
    return work(buffer, text);
}

template <typename Work>
EpcStatus hexToText(const char* hex, std::int32_t dstSize, char* dst, Work work) {
    return hexInputFrame(hex, [=](std::int32_t bits, const std::uint8_t* binary) {
        return binaryToText(bits, binary, dstSize, dst, work);
    });
}

template <typename Work>
EpcStatus wordsToText(std::int32_t bits, const std::uint16_t* words, std::int32_t dstSize,
                      char* dst, Work work) {
    return wordInputFrame(bits, words, [=](std::int32_t bitCount, const std::uint8_t* binary) {
        return binaryToText(bitCount, binary, dstSize, dst, work);
    });
}

EpcStatus binaryToAIs(std::int32_t bits, const std::uint8_t* binary, const AiRows& rows) {
    BitBuffer buffer = bitBufferForReading(binary, bits);
    const TagSchemeOps* row = nullptr;
    EPC_TRY(tagSchemeReadHeader(buffer, row));
    if (row->binaryToAIs == nullptr) {
        return EPC_ERR_NOT_SUPPORTED;
    }
    return row->binaryToAIs(buffer, rows, row->info.scheme);
}

} // namespace
} // namespace rosetag

using namespace rosetag;

EpcStatus epc_binaryToEpcTagUri(int32_t bits, const uint8_t* binary, int32_t dstSize, char* dst) {
    return binaryToText(bits, binary, dstSize, dst, uriWork(UriForm::TAG));
}

EpcStatus epc_binaryToEpcUri(int32_t bits, const uint8_t* binary, int32_t dstSize, char* dst) {
    return binaryToText(bits, binary, dstSize, dst, uriWork(UriForm::PURE_IDENTITY));
}

EpcStatus epc_binaryToGs1ElementString(int32_t bits, const uint8_t* binary, int32_t dstSize,
                                       char* dst) {
    return binaryToText(bits, binary, dstSize, dst, slotWork(&TagSchemeOps::binaryToElementString));
}

EpcStatus epc_binaryToBarcodeString(int32_t bits, const uint8_t* binary, int32_t dstSize,
                                    char* dst) {
    return binaryToText(bits, binary, dstSize, dst, slotWork(&TagSchemeOps::binaryToBarcodeString));
}

EpcStatus epc_binaryToDigitalLink(int32_t bits, const uint8_t* binary, int32_t dstSize, char* dst) {
    return binaryToText(bits, binary, dstSize, dst, slotWork(&TagSchemeOps::binaryToDigitalLink));
}

EpcStatus epc_binaryToAIs(int32_t bits, const uint8_t* binary, int32_t maxAIs, uint32_t valueSize,
                          char* aiCodes, char* aiValues, uint32_t* aiCount) {
    return binaryToAIs(bits, binary, {maxAIs, valueSize, aiCodes, aiValues, aiCount});
}

EpcStatus epc_hexToEpcTagUri(const char* hex, int32_t dstSize, char* dst) {
    return hexToText(hex, dstSize, dst, uriWork(UriForm::TAG));
}

EpcStatus epc_hexToEpcUri(const char* hex, int32_t dstSize, char* dst) {
    return hexToText(hex, dstSize, dst, uriWork(UriForm::PURE_IDENTITY));
}

EpcStatus epc_hexToGs1ElementString(const char* hex, int32_t dstSize, char* dst) {
    return hexToText(hex, dstSize, dst, slotWork(&TagSchemeOps::binaryToElementString));
}

EpcStatus epc_hexToBarcodeString(const char* hex, int32_t dstSize, char* dst) {
    return hexToText(hex, dstSize, dst, slotWork(&TagSchemeOps::binaryToBarcodeString));
}

EpcStatus epc_hexToDigitalLink(const char* hex, int32_t dstSize, char* dst) {
    return hexToText(hex, dstSize, dst, slotWork(&TagSchemeOps::binaryToDigitalLink));
}

EpcStatus epc_hexToAIs(const char* hex, int32_t maxAIs, uint32_t valueSize, char* aiCodes,
                       char* aiValues, uint32_t* aiCount) {
    return hexInputFrame(hex, [&](std::int32_t bits, const std::uint8_t* binary) {
        return binaryToAIs(bits, binary, {maxAIs, valueSize, aiCodes, aiValues, aiCount});
    });
}

EpcStatus epc_wordsToEpcTagUri(int32_t bits, const uint16_t* words, int32_t dstSize, char* dst) {
    return wordsToText(bits, words, dstSize, dst, uriWork(UriForm::TAG));
}

EpcStatus epc_wordsToEpcUri(int32_t bits, const uint16_t* words, int32_t dstSize, char* dst) {
    return wordsToText(bits, words, dstSize, dst, uriWork(UriForm::PURE_IDENTITY));
}

EpcStatus epc_wordsToGs1ElementString(int32_t bits, const uint16_t* words, int32_t dstSize,
                                      char* dst) {
    return wordsToText(bits, words, dstSize, dst, slotWork(&TagSchemeOps::binaryToElementString));
}

EpcStatus epc_wordsToBarcodeString(int32_t bits, const uint16_t* words, int32_t dstSize,
                                   char* dst) {
    return wordsToText(bits, words, dstSize, dst, slotWork(&TagSchemeOps::binaryToBarcodeString));
}

EpcStatus epc_wordsToDigitalLink(int32_t bits, const uint16_t* words, int32_t dstSize, char* dst) {
    return wordsToText(bits, words, dstSize, dst, slotWork(&TagSchemeOps::binaryToDigitalLink));
}
