/*
 * Kinds of AI components of a few bits: a flag, a pair of letters, a sign.
 *
 * Source: EPC Tag Data Standard, sections 14.5.7, 14.5.12 and 14.5.14.
 */
#ifndef ROSETAG_VALUES_SMALL_KINDS_H
#define ROSETAG_VALUES_SMALL_KINDS_H

#include "values/ai_kind.h"

namespace rosetag {

// "0" or "1" in one bit.
EpcStatus aiEncodeFlag(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeFlag(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

// Two letters, as in a country code. A is 0.
constexpr std::int32_t LETTER_COUNT = 2;
constexpr std::int32_t LETTER_BITS = 6;

EpcStatus aiEncodeLetters(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeLetters(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

// "-" or nothing in one bit. There is no sign if the bits end before it.
EpcStatus aiEncodeSign(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeSign(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

} // namespace rosetag

#endif
