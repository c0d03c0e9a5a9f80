/*
 * Between binary and the GS1 texts: the header or the caller names the scheme, and the slot of its
 * row does the rest.
 */
#ifndef ROSETAG_BRIDGE_GS1_CONVERSIONS_H
#define ROSETAG_BRIDGE_GS1_CONVERSIONS_H

#include "gs1/barcode_string.h"
#include "schemes/tag_scheme.h"

#include <string_view>

namespace rosetag {

// A binary value to the text of the slot. What was written before a failure stays there.
EpcStatus bitsPutGs1Text(BitBuffer& bits, TextBuffer& text, BinaryToText TagSchemeOps::*slot);
EpcStatus bitsToGs1Text(BitBuffer& bits, std::int32_t dstSize, char* dst,
                        BinaryToText TagSchemeOps::*slot);

EpcStatus bitsToAIs(BitBuffer& bits, const AiRows& rows);

// A usual text of a numeric scheme; the length of any other is not asked for.
template <typename Text>
ROSETAG_INLINE ShortValue gs1TextToShortValue(TextToBinary TagSchemeOps::*slot, Text text,
                                              EpcScheme scheme, std::int32_t filter,
                                              std::int32_t gcpLength) {
    if (!tagSchemeIsKnown(scheme)) {
        return {};
    }
    const TagSchemeOps& row = tagSchemeTable[scheme];
    const NumericTextToValue operation = (row.*slot).numeric;
    if (operation == nullptr) {
        return {};
    }
    return {operation(text, filter, gcpLength), row.numericBytes};
}

// The text of the slot to a binary value, padded to a word.
inline EpcStatus gs1TextToBits(BitBuffer& bits, TextToBinary TagSchemeOps::*slot,
                               std::string_view text, EpcScheme scheme,
                               const EncodeArguments& arguments) {
    char buffer[BARCODE_BUFFER_SIZE];
    if (slot == &TagSchemeOps::barcodeStringToBinary) {
        EPC_TRY(barcodeStringNormalise(text, buffer, text));
    }
    if (!tagSchemeIsKnown(scheme)) {
        return EPC_ERR_UNKNOWN_SCHEME;
    }
    const TagSchemeOps& row = tagSchemeTable[scheme];
    if (row.info.filterLimit > 0 && arguments.filter >= row.info.filterLimit) {
        return EPC_ERR_FILTER_LIMIT;
    }
    const GeneralTextToBinary operation = (row.*slot).general;
    if (operation == nullptr) {
        return EPC_ERR_NOT_SUPPORTED;
    }
    if (shortValueToBits(
            gs1TextToShortValue(slot, text, scheme, arguments.filter, arguments.gcpLength), bits)) {
        return EPC_OK;
    }
    TextCursor cursor = textCursorOver(text);
    EPC_TRY(operation(row, cursor, bits, arguments));
    EPC_TRY(bitBufferPadToWord(bits));
    return textCursorAtEnd(cursor) ? EPC_OK : EPC_ERR_BAD_FORMAT;
}

} // namespace rosetag

#endif
