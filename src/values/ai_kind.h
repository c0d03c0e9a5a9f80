/*
 * What the encoders and decoders of all kinds of AI components share. An encoder finds the
 * characters of its component under the cursor, up to the end of the span, and writes the bits; a
 * decoder reads the bits and appends the characters to a text.
 *
 * Source: EPC Tag Data Standard, section 14.5 (encoding methods of the +AIDC fields).
 */
#ifndef ROSETAG_VALUES_AI_KIND_H
#define ROSETAG_VALUES_AI_KIND_H

#include "core/bit_buffer.h"
#include "core/digit_run.h"
#include "core/text_buffer.h"
#include "core/text_cursor.h"
#include "gs1/ai_catalogue.h"

namespace rosetag {

// What an encoder needs besides the characters.
struct AiEncodeField {
    const AiDefinition& ai; // its code decides the date code
    const AiComponent& component;
    std::int32_t encoding; // AI_ENC_AUTO or the one to force in a field of text
};

using AiEncode = EpcStatus (*)(TextCursor& cursor, BitBuffer& out, const AiEncodeField& field);
using AiDecode = EpcStatus (*)(BitBuffer& bits, TextBuffer& text, const AiComponent& component);

} // namespace rosetag

#endif
