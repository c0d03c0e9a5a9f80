/*
 * Reads a Digital Link: scheme and host are skipped, the AIs are in path and query. First the AIs
 * are found, their values left percent-encoded in the raw text; then the values are decoded into
 * one flat text.
 *
 * Source: GS1 Digital Link Standard, URI syntax.
 */
#ifndef ROSETAG_GS1_DIGITAL_LINK_PARSER_H
#define ROSETAG_GS1_DIGITAL_LINK_PARSER_H

#include "core/text_buffer.h"
#include "gs1/ai_list.h"

namespace rosetag {

// Lays the cursor over path and query of a link, after its scheme and host. Of a text that has
// neither that is all. A text that only begins like the scheme is refused, unless it ends there:
// then it is an empty link.
EpcStatus digitalLinkSkipHost(TextCursor& cursor);

// Fills an empty list with slices of the raw text, which is all that lies under the cursor: it
// is at its begin.
EpcStatus digitalLinkParse(AiList& list, TextCursor& cursor);

// Decodes the values back to back into flat, which is empty, and moves the list over to it.
EpcStatus digitalLinkDecodeValues(AiList& list, const char* rawText, TextBuffer& flat);

} // namespace rosetag

#endif
