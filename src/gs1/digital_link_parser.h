/*
 * Reads path and query of a Digital Link, from the first "/" on. First the AIs are found, their
 * values left percent-encoded in the raw text; then the values are decoded into one flat text.
 *
 * Source: GS1 Digital Link Standard, URI syntax.
 */
#ifndef ROSETAG_GS1_DIGITAL_LINK_PARSER_H
#define ROSETAG_GS1_DIGITAL_LINK_PARSER_H

#include "core/text_buffer.h"
#include "gs1/ai_list.h"

namespace rosetag {

// Fills an empty list with slices of the raw text, which is all that lies under the cursor: it
// stands at its begin.
EpcStatus digitalLinkParse(AiList& list, TextCursor& cursor);

// Decodes the values back to back into flat, which is empty, and moves the list over to it.
EpcStatus digitalLinkDecodeValues(AiList& list, const char* rawText, TextBuffer& flat);

} // namespace rosetag

#endif
