/*
 * A list of AIs in the bits of a plus scheme, and back. The fields of the scheme's row follow the
 * header without any alignment:
 *
 *     toggle   1 if a data section follows the key
 *     filter
 *     date     the date code and the date, in a scheme that has one
 *     key      the values of the key's AIs
 *     data     each further AI: its code, digit by digit, and its value
 *
 * Source: EPC Tag Data Standard, sections 14.6 and 15.3.
 */
#ifndef ROSETAG_VALUES_PLUS_CODEC_H
#define ROSETAG_VALUES_PLUS_CODEC_H

#include "core/bit_buffer.h"
#include "gs1/ai_list.h"
#include "schemes/tag_scheme.h"

namespace rosetag {

// Whether the base text of a list holds the values as they are, or percent-encoded as in a Digital
// Link.
enum class ValueForm : std::uint8_t { PLAIN, PERCENT_ENCODED };

// Writes header and all AIs of the list into out at position 0, and marks those of the key and the
// date as consumed. EPC_ERR_NO_PRIMARY_KEY if one of these is not on the list.
EpcStatus plusEncodeAiList(const TagSchemeOps& row, BitBuffer& out, AiList& list,
                           const char* baseText, ValueForm form, const EncodeArguments& arguments);

// A list and its base text.
struct PlusValues {
    AiList list;
    char baseText[AI_VALUES_SIZE];
};

// Reads the fields after the header.
EpcStatus plusDecodeAiList(const TagSchemeOps& row, BitBuffer& bits, PlusValues& out);

} // namespace rosetag

#endif
