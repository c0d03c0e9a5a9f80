#include "schemes/field_head.h"

namespace rosetag {

EpcStatus fieldReadFilter(BitBuffer& bits, TextBuffer& text, UriForm form, std::int32_t width) {
    std::uint64_t filter = 0;
    EPC_TRY(bitBufferRead(bits, width, filter));
    if (form == UriForm::PURE_IDENTITY) {
        return EPC_OK;
    }
    EPC_TRY(textBufferPutDecimal(text, filter));
    return textBufferPutChar(text, '.');
}

} // namespace rosetag
