#include "gs1/digital_link_keys.h"

#include <algorithm>
#include <iterator>

namespace rosetag {

namespace {

constexpr std::uint8_t REQUIRED = 0;
constexpr std::uint8_t OPTIONAL = 1;

// Rows of one key stand next to each other; of rows that fit equally well the first one counts.
constexpr DigitalLinkKeyChain digitalLinkKeyChains[] = {
    // key, qualifiers
    {"00", {}},
    {"01", {{"22", OPTIONAL}, {"10", OPTIONAL}, {"21", OPTIONAL}}},
    {"01", {{"235", REQUIRED}}},
    {"253", {}},
    {"255", {}},
    {"401", {}},
    {"402", {}},
    {"414", {{"254", OPTIONAL}}},
    {"414", {{"235", REQUIRED}}},
    {"415", {}},
    {"417", {}},
    {"417", {{"7040", REQUIRED}}},
    {"8003", {}},
    {"8004", {}},
    {"8004", {}},
    {"8006", {{"22", OPTIONAL}, {"10", OPTIONAL}, {"21", OPTIONAL}}},
    {"8010", {{"8011", OPTIONAL}}},
    {"8013", {}},
    {"8017", {{"8019", OPTIONAL}}},
    {"8018", {{"8019", OPTIONAL}}},
};
static_assert(std::size(digitalLinkKeyChains) == 20);

const DigitalLinkKeyChain* const endOfChains = std::end(digitalLinkKeyChains);

// Of a row whose required qualifiers are not all on the list.
constexpr std::int32_t NO_FIT = -1;
// Of a row whose required qualifiers are: above any count of optional ones.
constexpr std::int32_t REQUIREMENT_MET = 1 + std::size(digitalLinkKeyChains[0].qualifiers);

// The first row whose key is this AI, or the end.
const DigitalLinkKeyChain* findChain(const AiElement& element) {
    return std::find_if(
        std::begin(digitalLinkKeyChains), endOfChains,
        [&](const DigitalLinkKeyChain& row) { return aiCodesAreEqual(row.key, element.ai->code); });
}

// The first row of the one key that is on the list.
EpcStatus findKey(const AiList& list, const DigitalLinkKeyChain*& first) {
    first = endOfChains;
    for (std::uint8_t i = 0; i < list.count; ++i) {
        const DigitalLinkKeyChain* const chain = findChain(list.elements[i]);
        if (chain == endOfChains) {
            continue;
        }
        if (first != endOfChains && first != chain) {
            return EPC_ERR_KEY_CONFLICT;
        }
        first = chain;
    }
    return first == endOfChains ? EPC_ERR_NO_PRIMARY_KEY : EPC_OK;
}

bool isOnList(const AiList& list, const char (&code)[AI_CODE_SIZE]) {
    return std::any_of(list.elements, list.elements + list.count, [&](const AiElement& element) {
        return aiCodesAreEqual(element.ai->code, code);
    });
}

// The count of the row's optional qualifiers on the list, or one of the two marks above.
std::int32_t scoreOf(const DigitalLinkKeyChain& row, const AiList& list) {
    std::int32_t score = 0;
    for (const DigitalLinkQualifier& qualifier : qualifiersOf(row)) {
        if (isOnList(list, qualifier.ai)) {
            score += qualifier.optional == OPTIONAL ? 1 : REQUIREMENT_MET;
        } else if (qualifier.optional == REQUIRED) {
            return NO_FIT;
        }
    }
    return score;
}

} // namespace

EpcStatus digitalLinkChooseKey(const AiList& list, const DigitalLinkKeyChain*& row) {
    const DigitalLinkKeyChain* candidate = endOfChains;
    EPC_TRY(findKey(list, candidate));
    const char(&key)[AI_CODE_SIZE] = candidate->key;
    const DigitalLinkKeyChain* best = nullptr;
    for (std::int32_t bestScore = NO_FIT;
         candidate != endOfChains && aiCodesAreEqual(candidate->key, key); ++candidate) {
        const std::int32_t score = scoreOf(*candidate, list);
        if (score > bestScore) {
            bestScore = score;
            best = candidate;
        }
    }
    if (best == nullptr) {
        return EPC_ERR_NO_PRIMARY_KEY;
    }
    row = best;
    return EPC_OK;
}

} // namespace rosetag
