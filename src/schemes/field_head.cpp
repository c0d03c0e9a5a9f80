#include "schemes/field_head.h"

EpcStatus fieldReadFilter(BitBuffer& bits, TextBuffer& text, UriForm form, EpcScheme scheme) {
    std::uint64_t filter = 0;
    EPC_TRY(bitBufferRead(bits, fieldFilterBits(scheme), filter));
    if (form == UriForm::PURE_IDENTITY) {
        return EPC_OK;
    }
    EPC_TRY(textBufferPutDecimal(text, filter));
    return textBufferPutChar(text, '.');
}

EpcStatus fieldWriteFilter(std::uint32_t filter, BitBuffer& bits, EpcScheme scheme) {
    const std::int32_t width = fieldFilterBits(scheme);
    return fitsBits(filter, width) ? bitBufferWrite(bits, filter, width) : EPC_ERR_FILTER_FIELD;
}
