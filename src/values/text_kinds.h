/*
 * Kinds of AI components that hold a field of text: encoding indicator, length indicator, payload.
 *
 * Source: EPC Tag Data Standard, sections 14.5.5 and 14.5.6.
 */
#ifndef ROSETAG_VALUES_TEXT_KINDS_H
#define ROSETAG_VALUES_TEXT_KINDS_H

#include "values/ai_kind.h"

namespace rosetag {

// A field of text. Its characters are held against the AI character sets by the encoder always, by
// the decoder where the encoding can hold others.
EpcStatus aiEncodeText(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeText(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

// Leading digits of 4 bits each, and a code that says whether a field of text follows.
EpcStatus aiEncodeDigitsThenText(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
EpcStatus aiDecodeDigitsThenText(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

} // namespace rosetag

#endif
