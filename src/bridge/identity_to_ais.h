/*
 * From the URI of an EPC to GS1 data: the digits of the body are arranged into the value of the
 * key's AI, the check digit is computed, the tail goes to its place. Whether a field holds digits,
 * and how many, is not checked.
 *
 * Source: EPC Tag Data Standard, section 7 (correspondence between EPCs and GS1 keys).
 */
#ifndef ROSETAG_BRIDGE_IDENTITY_TO_AIS_H
#define ROSETAG_BRIDGE_IDENTITY_TO_AIS_H

#include "bridge/gs1_key_table.h"
#include "core/text_buffer.h"
#include "core/text_cursor.h"
#include "gs1/ai_list.h"

namespace rosetag {

// The AIs of an identity, and the text that their values are slices of.
struct IdentityAIs {
    char values[AI_VALUES_SIZE];
    AiList list;
};

// Each reads the body at the cursor to its end.
EpcStatus identityToAIs(TextCursor& cursor, const Gs1KeyDefinition& key, IdentityAIs& ais);
EpcStatus identityToBarcodeString(TextCursor& cursor, TextBuffer& dst, const Gs1KeyDefinition& key);
EpcStatus identityToElementString(TextCursor& cursor, TextBuffer& dst, const Gs1KeyDefinition& key);
EpcStatus identityToDigitalLink(TextCursor& cursor, TextBuffer& dst, const Gs1KeyDefinition& key);

// One of the three texts.
using IdentityToText = EpcStatus (*)(TextCursor& cursor, TextBuffer& dst,
                                     const Gs1KeyDefinition& key);

// A whole URI to one of them. The filter of a tag URI is checked and dropped: GS1 texts have none.
EpcStatus tagUriToGs1Text(TextCursor& cursor, TextBuffer& dst, IdentityToText write);
EpcStatus pureIdentityUriToGs1Text(TextCursor& cursor, TextBuffer& dst, IdentityToText write);

} // namespace rosetag

#endif
