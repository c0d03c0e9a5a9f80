/*
 * AI values in +AIDC bits. The kind of each component determines its bit form.
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

// EPC_ERR_UNKNOWN_AI if no AI has exactly this code.
inline EpcStatus aiDefinitionOf(std::string_view code, const AiDefinition*& ai) {
    ai = aiFind(code);
    return ai != nullptr ? EPC_OK : EPC_ERR_UNKNOWN_AI;
}

// Writes the component whose characters are under the cursor. kindOverride replaces the kind of the
// component unless it is AI_KIND_NONE; encoding is AI_ENC_AUTO or the encoding to force.
EpcStatus aiValueEncode(TextCursor& cursor, BitBuffer& out, const AiDefinition& ai,
                        std::uint8_t componentIndex, AiKind kindOverride, std::int32_t encoding);

// Reads all components and appends them to the text without a gap: the value as an element string
// has it.
EpcStatus aiValueDecode(BitBuffer& bits, TextBuffer& text, const AiDefinition& ai);

} // namespace rosetag

#endif
