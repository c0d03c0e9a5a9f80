/*
 * The header and the filter value, with which a plain layout begins. The width of the filter goes
 * with the limit of the scheme: 3 bits for 8 values, 4 for 16, 6 for 64.
 *
 * Source: EPC Tag Data Standard, sections 10 (filter values) and 14 (EPC binary encoding).
 */
#ifndef ROSETAG_SCHEMES_FIELD_HEAD_H
#define ROSETAG_SCHEMES_FIELD_HEAD_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"
#include "schemes/tag_scheme.h"

#include <bit>

namespace rosetag {

// 0 for a scheme without a filter.
constexpr std::int32_t fieldFilterBits(EpcScheme scheme) {
    const std::int32_t limit = tagSchemeInfos[scheme].filterLimit;
    return limit == 0 ? 0 : std::countr_zero(static_cast<std::uint32_t>(limit));
}

constexpr std::int32_t fieldHeadBits(EpcScheme scheme) {
    return TAG_HEADER_BITS + fieldFilterBits(scheme);
}

// The header is read by the frame that looks for the scheme.
inline EpcStatus fieldWriteHeader(BitBuffer& bits, EpcScheme scheme) {
    return bitBufferWrite(bits, tagSchemeInfos[scheme].header, TAG_HEADER_BITS);
}

// Appends filter and "." in a tag URI. Any value of the field is read.
EpcStatus fieldReadFilter(BitBuffer& bits, TextBuffer& text, UriForm form, EpcScheme scheme);

// Header and filter. EPC_ERR_FILTER_FIELD if the filter does not fit its field, with the header
// written.
inline EpcStatus fieldWriteHead(std::uint32_t filter, BitBuffer& bits, EpcScheme scheme) {
    const std::int32_t width = fieldFilterBits(scheme);
    if (!fitsBits(filter, width)) {
        EPC_TRY(fieldWriteHeader(bits, scheme));
        return EPC_ERR_FILTER_FIELD;
    }
    return bitBufferWriteFields(
        bits, {{tagSchemeInfos[scheme].header, TAG_HEADER_BITS}, {filter, width}});
}

} // namespace rosetag

#endif
