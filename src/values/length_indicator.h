/*
 * The count of characters in front of a component of variable length.
 */
#ifndef ROSETAG_VALUES_LENGTH_INDICATOR_H
#define ROSETAG_VALUES_LENGTH_INDICATOR_H

#include "core/bit_buffer.h"
#include "gs1/ai_catalogue.h"

namespace rosetag {

// False for a count that overflows the indicator. A count above the component's maxLength that does
// not is none of the bits' business.
inline bool lengthIndicatorHolds(const AiComponent& component, std::ptrdiff_t count) {
    return component.lengthIndicatorBits == 0 ||
           fitsBits(static_cast<std::uint64_t>(count), component.lengthIndicatorBits);
}

// A component of one character at most has no indicator. Its absence elsewhere is
// EPC_ERR_BAD_FORMAT.
inline EpcStatus lengthIndicatorPut(BitBuffer& out, const AiComponent& component,
                                    std::ptrdiff_t count) {
    if (component.maxLength < 2) {
        return EPC_OK;
    }
    if (component.lengthIndicatorBits == 0) {
        return EPC_ERR_BAD_FORMAT;
    }
    return bitBufferWrite(out, static_cast<std::uint64_t>(count), component.lengthIndicatorBits);
}

inline EpcStatus lengthIndicatorGet(BitBuffer& bits, const AiComponent& component,
                                    std::int32_t& count) {
    if (component.maxLength < 2) {
        count = 1;
        return EPC_OK;
    }
    if (component.lengthIndicatorBits == 0) {
        return EPC_ERR_BAD_FORMAT;
    }
    std::uint64_t length = 0;
    EPC_TRY(bitBufferRead(bits, component.lengthIndicatorBits, length));
    count = static_cast<std::int32_t>(length);
    return EPC_OK;
}

} // namespace rosetag

#endif
