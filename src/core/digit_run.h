/*
 * Decimal digits in the bits, four bits each. They are converted eight at a time; after a failure
 * the output is what it would be had they been converted one by one.
 */
#ifndef ROSETAG_CORE_DIGIT_RUN_H
#define ROSETAG_CORE_DIGIT_RUN_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"

#include <cstdint>
#include <string_view>

namespace rosetag {

constexpr std::int32_t DIGIT_BITS = 4;

// Writes the digits. EPC_ERR_BAD_FORMAT at a character that is not one, even where there is no room
// for it.
EpcStatus digitRunPut(BitBuffer& out, std::string_view digits);

// Reads count digits and appends them. EPC_ERR_BAD_FORMAT at four bits that are not one.
EpcStatus digitRunGet(BitBuffer& bits, TextBuffer& text, std::int32_t count);

} // namespace rosetag

#endif
