#include "bridge/gs1_conversions.h"

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

} // namespace rosetag
