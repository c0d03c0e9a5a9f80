#include "bridge/gs1_conversions.h"

#include "gs1/barcode_string.h"

namespace rosetag {

EpcStatus bitsPutGs1Text(BitBuffer& bits, TextBuffer& text, BinaryToText TagSchemeOps::*slot) {
    const TagSchemeOps* row = nullptr;
    EPC_TRY(tagSchemeReadHeader(bits, row));
    const BinaryToText operation = row->*slot;
    return operation != nullptr ? operation(*row, bits, text) : EPC_ERR_NOT_SUPPORTED;
}

EpcStatus bitsToGs1Text(BitBuffer& bits, std::int32_t dstSize, char* dst,
                        BinaryToText TagSchemeOps::*slot) {
    TextBuffer text = textBufferOver(dst, dstSize);
    return bitsPutGs1Text(bits, text, slot);
}

EpcStatus bitsToAIs(BitBuffer& bits, const AiRows& rows) {
    const TagSchemeOps* row = nullptr;
    EPC_TRY(tagSchemeReadHeader(bits, row));
    return row->binaryToAIs != nullptr ? row->binaryToAIs(*row, bits, rows) : EPC_ERR_NOT_SUPPORTED;
}

EpcStatus gs1TextToBits(BitBuffer& bits, TextToBinary TagSchemeOps::*slot, std::string_view text,
                        EpcScheme scheme, const EncodeArguments& arguments) {
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
    const TextToBinary operation = row.*slot;
    if (operation == nullptr) {
        return EPC_ERR_NOT_SUPPORTED;
    }
    TextCursor cursor = textCursorOver(text);
    EPC_TRY(operation(row, cursor, bits, arguments));
    EPC_TRY(bitBufferPadToWord(bits));
    return textCursorAtEnd(cursor) ? EPC_OK : EPC_ERR_BAD_FORMAT;
}

} // namespace rosetag
