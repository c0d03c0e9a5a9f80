/*
 * One component of an AI value in +AIDC bits. The kind of the component says how it stands there.
 *
 * Source: EPC Tag Data Standard, sections 14.5 and 15.3.
 */
#ifndef ROSETAG_VALUES_AI_VALUE_H
#define ROSETAG_VALUES_AI_VALUE_H

#include "core/bit_buffer.h"
#include "core/text_buffer.h"
#include "core/text_cursor.h"
#include "gs1/ai_catalogue.h"

namespace rosetag {

// The definition of exactly this code. EPC_ERR_UNKNOWN_AI if there is none.
inline EpcStatus aiDefinitionOf(std::string_view code, const AiDefinition*& ai) {
    ai = aiFind(code);
    return ai != nullptr ? EPC_OK : EPC_ERR_UNKNOWN_AI;
}

// Writes the component whose characters stand under the cursor. kindOverride takes the place of the
// component's kind unless it is AI_KIND_NONE; encoding is AI_ENC_AUTO or an indicator to force.
EpcStatus aiValueEncode(TextCursor& cursor, BitBuffer& out, const AiDefinition& ai,
                        std::uint8_t componentIndex, AiKind kindOverride, std::int32_t encoding);

// Reads a component and appends it to the text.
EpcStatus aiValueDecode(BitBuffer& bits, TextBuffer& text, const AiDefinition& ai,
                        std::uint8_t componentIndex);

// Reads all components, back to back: the value as it stands in an element string.
EpcStatus aiValueDecodeAll(BitBuffer& bits, TextBuffer& text, const AiDefinition& ai);

} // namespace rosetag

#endif
