/*
 * Kinds of AI components that hold a field of text: encoding indicator, length indicator, payload.
 *
 * Source: EPC Tag Data Standard, sections 14.5.5 and 14.5.6.
 */
#ifndef ROSETAG_VALUES_TEXT_KINDS_H
#define ROSETAG_VALUES_TEXT_KINDS_H

#include "values/ai_kind.h"

namespace rosetag {

// Both refuse a character that no AI value may contain.
EpcStatus aiEncodeText(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeText(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

// Leading digits, and in place of a further digit a code that says whether a field of text follows.
constexpr std::uint64_t SWITCH_TO_TEXT = 14;
constexpr std::uint64_t END_OF_DIGITS = 15;

EpcStatus aiEncodeDigitsThenText(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeDigitsThenText(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

} // namespace rosetag

#endif
