/*
 * From the URI of an EPC to GS1 data: the digits of the body are arranged into the value of the
 * key's AI, the check digit is computed, the tail goes to its place. That a field holds digits, and
 * how many, is not looked at.
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

// The values of the AIs of an identity: the base text of its list.
constexpr std::int32_t IDENTITY_VALUES_SIZE = 1024;

// All read the body under the cursor up to its end, and append. values and list are empty.
EpcStatus identityToAiList(TextCursor& cursor, TextBuffer& values, AiList& list,
                           const Gs1KeyDefinition& key);
EpcStatus identityToBarcodeString(TextCursor& cursor, TextBuffer& dst, const Gs1KeyDefinition& key);
EpcStatus identityToElementString(TextCursor& cursor, TextBuffer& dst, const Gs1KeyDefinition& key);
EpcStatus identityToDigitalLink(TextCursor& cursor, TextBuffer& dst, const Gs1KeyDefinition& key);

// work: EpcStatus(AiList& list, const char* values), on the list of the body under the cursor
template <typename Work>
EpcStatus identityListFrame(TextCursor& cursor, const Gs1KeyDefinition& key, Work work) {
    char storage[IDENTITY_VALUES_SIZE];
    TextBuffer values = textBufferOver(storage);
    AiList list;
    aiListClear(list);
    EPC_TRY(identityToAiList(cursor, values, list, key));
    return work(list, storage);
}

} // namespace rosetag

#endif
