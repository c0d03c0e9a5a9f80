/*
 * From one GS1 text to another.
 */
#ifndef ROSETAG_GS1_TEXT_TO_TEXT_H
#define ROSETAG_GS1_TEXT_TO_TEXT_H

#include "core/text_buffer.h"
#include "core/text_cursor.h"
#include "gs1/ai_list.h"

namespace rosetag {

// A whole link, path and query, to a bracketed element string; dst is empty.
EpcStatus digitalLinkToElementString(TextCursor& cursor, TextBuffer& dst);

// A whole text to AI rows.
EpcStatus elementStringToAIs(std::string_view text, const AiRows& rows);
EpcStatus barcodeStringToAIs(std::string_view text, char separator, const AiRows& rows);
EpcStatus digitalLinkToAIs(std::string_view text, const AiRows& rows);

// A bracketed element string to a link; dst is empty.
EpcStatus elementStringToDigitalLink(TextCursor& cursor, TextBuffer& dst);

} // namespace rosetag

#endif
