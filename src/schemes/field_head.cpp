#include "schemes/field_head.h"

namespace rosetag {

EpcStatus fieldReadFilter(BitBuffer& bits, TextBuffer& text, UriForm form, EpcScheme scheme) {
    std::uint64_t filter = 0;
    EPC_TRY(bitBufferRead(bits, fieldFilterBits(scheme), filter));
    if (form == UriForm::PURE_IDENTITY) {
        return EPC_OK;
    }
    EPC_TRY(textBufferPutDecimal(text, filter));
    return textBufferPutChar(text, '.');
}

} // namespace rosetag
