/*
 * Which AI of a list is the primary key of a Digital Link, and which others are qualifiers that
 * stand behind it in the path.
 *
 * Source: GS1 Digital Link Standard, URI syntax (primary keys and key qualifiers).
 */
#ifndef ROSETAG_GS1_DIGITAL_LINK_KEYS_H
#define ROSETAG_GS1_DIGITAL_LINK_KEYS_H

#include "gs1/ai_list.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace rosetag {

struct DigitalLinkQualifier {
    char ai[AI_CODE_SIZE]; // empty behind the last one
    std::uint8_t optional; // 1: may be absent; 0: the row applies only if it is present
};

struct DigitalLinkKeyChain {
    char key[AI_CODE_SIZE];
    DigitalLinkQualifier qualifiers[3]; // in the order in which they are written
};

inline std::span<const DigitalLinkQualifier> qualifiersOf(const DigitalLinkKeyChain& row) {
    const auto isEmpty = [](const DigitalLinkQualifier& entry) { return entry.ai[0] == '\0'; };
    return {std::begin(row.qualifiers),
            std::find_if(std::begin(row.qualifiers), std::end(row.qualifiers), isEmpty)};
}

// Chooses the row of the list's one key whose qualifiers fit best. EPC_ERR_NO_PRIMARY_KEY without a
// key, EPC_ERR_KEY_CONFLICT with two different ones.
EpcStatus digitalLinkChooseKey(const AiList& list, const DigitalLinkKeyChain*& row);

} // namespace rosetag

#endif
