/*
 * From one GS1 text to the other.
 */
#ifndef ROSETAG_GS1_TEXT_TO_TEXT_H
#define ROSETAG_GS1_TEXT_TO_TEXT_H

#include "core/text_buffer.h"
#include "core/text_cursor.h"

// A whole link, path and query, to a bracketed element string; dst is empty.
EpcStatus digitalLinkToElementString(TextCursor& cursor, TextBuffer& dst);

// A bracketed element string to a link; dst is empty.
EpcStatus elementStringToDigitalLink(TextCursor& cursor, TextBuffer& dst);

#endif
