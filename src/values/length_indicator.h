/*
 * The count of characters before a component of variable length.
 */
#ifndef ROSETAG_VALUES_LENGTH_INDICATOR_H
#define ROSETAG_VALUES_LENGTH_INDICATOR_H

#include "core/bit_buffer.h"
#include "gs1/ai_catalogue.h"

namespace rosetag {

// The indicator is the limit here, not the component's maxLength: the bits can say more.
inline bool lengthIndicatorHolds(const AiComponent& component, std::ptrdiff_t count) {
    return component.lengthIndicatorBits == 0 ||
           fitsBits(static_cast<std::uint64_t>(count), component.lengthIndicatorBits);
}

// A component of at most one character has no indicator; where another one has none, its bit form
// is unknown: EPC_ERR_BAD_FORMAT.
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
