/*
 * Writes a list of AIs as a bracketed element string, as the data of a barcode, or as path and
 * query of a Digital Link.
 *
 * Source: GS1 General Specifications, sections 3 and 7.8; GS1 Digital Link Standard, URI syntax.
 */
#ifndef ROSETAG_GS1_TEXT_WRITERS_H
#define ROSETAG_GS1_TEXT_WRITERS_H

#include "core/text_buffer.h"
#include "gs1/ai_list.h"

namespace rosetag {

// Both in list order, pass by pass.
EpcStatus elementStringWrite(TextBuffer& dst, const AiList& list, const char* baseText);
EpcStatus barcodeStringWrite(TextBuffer& dst, const AiList& list, const char* baseText);

// The key and its qualifiers in the path, all others in the query. Marks elements as consumed.
EpcStatus digitalLinkWrite(TextBuffer& dst, AiList& list, const char* baseText);

} // namespace rosetag

#endif
