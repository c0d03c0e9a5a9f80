/*
 * Decimal digits in the bits, four bits each. They pass eight at a time; after a failure the output
 * holds what it would hold if they had passed one by one.
 */
#ifndef ROSETAG_CORE_DIGIT_RUN_H
#define ROSETAG_CORE_DIGIT_RUN_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"

#include <cstdint>
#include <string_view>

namespace rosetag {

constexpr std::int32_t DIGIT_BITS = 4;

// Writes the digits. EPC_ERR_BAD_FORMAT at a character that is not one, which is looked at before
// its room is.
EpcStatus digitRunPut(BitBuffer& out, std::string_view digits);

// Reads count digits and appends them. EPC_ERR_BAD_FORMAT at four bits that are not one.
EpcStatus digitRunGet(BitBuffer& bits, TextBuffer& text, std::int32_t count);

} // namespace rosetag

#endif
