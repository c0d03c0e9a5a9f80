/*
 * The primary keys of Digital Links, and their qualifiers, which follow them in the path.
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

enum class LinkQualifiers : std::uint8_t {
    OPTIONAL, // each may be absent
    REQUIRED, // the row applies only if all are present, and then wins over the first of its key
};

struct DigitalLinkKeyChain {
    char key[AI_CODE_SIZE];
    LinkQualifiers rule;
    char qualifiers[3]
                   [AI_CODE_SIZE]; // in the order in which they are written; empty after the last
};

// The rows of a key are adjacent, the one with optional qualifiers first.
inline constexpr DigitalLinkKeyChain digitalLinkKeyChains[] = {
    // clang-format off
    // key                             qualifiers
    {"00",   LinkQualifiers::OPTIONAL, {}},
    {"01",   LinkQualifiers::OPTIONAL, {"22", "10", "21"}},
    {"01",   LinkQualifiers::REQUIRED, {"235"}},
    {"253",  LinkQualifiers::OPTIONAL, {}},
    {"255",  LinkQualifiers::OPTIONAL, {}},
    {"401",  LinkQualifiers::OPTIONAL, {}},
    {"402",  LinkQualifiers::OPTIONAL, {}},
    {"414",  LinkQualifiers::OPTIONAL, {"254"}},
    {"414",  LinkQualifiers::REQUIRED, {"235"}},
    {"415",  LinkQualifiers::OPTIONAL, {}},
    {"417",  LinkQualifiers::OPTIONAL, {}},
    {"417",  LinkQualifiers::REQUIRED, {"7040"}},
    {"8003", LinkQualifiers::OPTIONAL, {}},
    {"8004", LinkQualifiers::OPTIONAL, {}},
    {"8006", LinkQualifiers::OPTIONAL, {"22", "10", "21"}},
    {"8010", LinkQualifiers::OPTIONAL, {"8011"}},
    {"8013", LinkQualifiers::OPTIONAL, {}},
    {"8017", LinkQualifiers::OPTIONAL, {"8019"}},
    {"8018", LinkQualifiers::OPTIONAL, {"8019"}},
    // clang-format on
};

// Those that are not empty.
constexpr std::span<const char[AI_CODE_SIZE]> qualifiersOf(const DigitalLinkKeyChain& row) {
    std::size_t count = 0;
    while (count < std::size(row.qualifiers) && row.qualifiers[count][0] != '\0') {
        ++count;
    }
    return {row.qualifiers, count};
}

// The first row of this key, or null.
constexpr const DigitalLinkKeyChain* digitalLinkKeyFind(std::string_view code) {
    const auto* const row =
        std::find_if(std::begin(digitalLinkKeyChains), std::end(digitalLinkKeyChains),
                     [&](const DigitalLinkKeyChain& candidate) { return candidate.key == code; });
    return row == std::end(digitalLinkKeyChains) ? nullptr : row;
}

constexpr bool aiIsLinkKey(std::string_view code) {
    return digitalLinkKeyFind(code) != nullptr;
}

// Chooses the row whose qualifiers best fit the list's one key. EPC_ERR_NO_PRIMARY_KEY if the list
// has no key, EPC_ERR_KEY_CONFLICT if it has two different ones.
EpcStatus digitalLinkChooseKey(const AiList& list, const DigitalLinkKeyChain*& row);

} // namespace rosetag

#endif
