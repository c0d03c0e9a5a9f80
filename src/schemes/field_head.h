/*
 * The header and the filter value that begin a plain scheme.
 *
 * Source: EPC Tag Data Standard, sections 10 (filter values) and 14 (EPC binary encoding).
 */
#ifndef ROSETAG_SCHEMES_FIELD_HEAD_H
#define ROSETAG_SCHEMES_FIELD_HEAD_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"
#include "schemes/tag_scheme.h"

namespace rosetag {

// Appends the filter and "." in a tag URI; a pure identity URI has neither. Reads any value.
EpcStatus fieldReadFilter(BitBuffer& bits, TextBuffer& text, UriForm form, std::int32_t width);

// Writes header and filter. A filter above the largest is EPC_ERR_FILTER_FIELD, with the header
// written.
inline EpcStatus fieldWriteHead(BitBuffer& bits, std::uint8_t header, std::uint32_t filter,
                                std::int32_t width, std::uint32_t largest) {
    if (filter > largest) {
        EPC_TRY(bitBufferWrite(bits, header, TAG_HEADER_BITS));
        return EPC_ERR_FILTER_FIELD;
    }
    return bitBufferWriteFields(bits, {{header, TAG_HEADER_BITS}, {filter, width}});
}

} // namespace rosetag

#endif
