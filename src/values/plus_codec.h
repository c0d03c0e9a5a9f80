/*
 * A list of AIs in the bits of a plus scheme, and back. Behind the header, with no alignment:
 *
 *     toggle   1 bit: a data section follows the key
 *     filter   3 bits
 *     date     the date code and the date, in a scheme that carries one
 *     key      the values of the key's AIs, in the order of the scheme's row
 *     data     each further AI: its code, 4 bits a digit, and its value
 *
 * Source: EPC Tag Data Standard, sections 14.6 and 15.3.
 */
#ifndef ROSETAG_VALUES_PLUS_CODEC_H
#define ROSETAG_VALUES_PLUS_CODEC_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"
#include "gs1/ai_list.h"
#include "values/plus_scheme_table.h"

namespace rosetag {

// Whether the values of a list stand in their base text as they are, or with percent escapes as in
// a Digital Link.
enum class ValueForm : std::uint8_t { PLAIN, PERCENT_ENCODED };

// The values that a read brings out: the base text of its list.
constexpr std::int32_t PLUS_VALUES_SIZE = 1024;

// Writes header and all AIs of the list into out at position 0. Those of the key and the date are
// marked consumed; EPC_ERR_NO_PRIMARY_KEY if one of them is not on the list.
EpcStatus plusEncodeAiList(BitBuffer& out, AiList& list, const char* baseText, ValueForm form,
                           std::int32_t filter, const PlusSchemeRow& row, std::int32_t encoding);

// Reads on behind the header into an empty text and an empty list.
EpcStatus plusDecodeAiList(BitBuffer& bits, TextBuffer& text, AiList& list, EpcScheme scheme);

} // namespace rosetag

#endif
