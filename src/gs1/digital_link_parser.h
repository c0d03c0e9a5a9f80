/*
 * Reads a Digital Link: scheme and host are skipped; the AIs are in the path and the query. First
 * the AIs are found, with their values still percent-encoded in the raw text; then the values are
 * decoded into one flat text.
 *
 * Source: GS1 Digital Link Standard, URI syntax.
 */
#ifndef ROSETAG_GS1_DIGITAL_LINK_PARSER_H
#define ROSETAG_GS1_DIGITAL_LINK_PARSER_H

#include "core/text_buffer.h"
#include "gs1/ai_list.h"

namespace rosetag {

// Lays the cursor over the path and query of a link; a text without scheme and host is all path and
// query. A text that only begins like the scheme is refused, unless it ends there: then it is an
// empty link.
EpcStatus digitalLinkSkipHost(TextCursor& cursor);

// Fills an empty list with slices of the raw text, which the cursor is at the beginning of.
EpcStatus digitalLinkParse(AiList& list, TextCursor& cursor);

// Room for the decoded values of a link together, where they go to AI rows.
constexpr std::int32_t LINK_VALUES_SIZE = 1800;

// Decodes the values back to back into flat, which is empty, and makes the list refer to it.
EpcStatus digitalLinkDecodeValues(AiList& list, const char* rawText, TextBuffer& flat);

} // namespace rosetag

#endif
