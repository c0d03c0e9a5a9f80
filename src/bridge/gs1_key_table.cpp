#include "bridge/gs1_key_table.h"

#include <algorithm>
#include <iterator>

namespace rosetag {

namespace {

static_assert(std::size(gs1KeyTable) == 15);

constexpr bool tailsAreConsistent(const Gs1KeyDefinition& key) {
    const bool hasSecondaryAi = !key.secondaryAi.empty();
    const bool continuesKey = key.hasTail == 1 && key.tailIsSecondaryAi == 0;
    return hasSecondaryAi == (key.tailIsSecondaryAi == 1) && key.tailIsSecondaryAi <= key.hasTail &&
           (!continuesKey || key.keyValueLength > 0);
}

// Extra fields stand between a key of fixed length and a tail.
constexpr bool extraFieldsAreConsistent(const Gs1KeyDefinition& key) {
    std::int32_t count = 0;
    for (const std::int32_t length : key.extraFieldLengths) {
        count += length > 0 ? 1 : 0;
    }
    return count == key.extraFieldCount &&
           (count == 0 || (key.hasTail == 1 && key.keyValueLength > 0));
}

// A company prefix of 12 digits fits each key of fixed length.
constexpr bool keyValueTakesLongestPrefix(const Gs1KeyDefinition& key) {
    const std::int32_t skipped = key.digitArrangement == KEY_DIGITS_AS_IS ? 0 : 1;
    return key.keyValueLength == 0 || key.keyValueLength >= skipped + 12 + key.hasCheckDigit;
}

constexpr bool nameIsUnique(const Gs1KeyDefinition& key) {
    return std::count_if(std::begin(gs1KeyTable), std::end(gs1KeyTable),
                         [&key](const Gs1KeyDefinition& other) {
                             return other.familyName == key.familyName;
                         }) == 1;
}

static_assert(holdsForKeys(tailsAreConsistent));
static_assert(holdsForKeys(extraFieldsAreConsistent));
static_assert(holdsForKeys(keyValueTakesLongestPrefix));
static_assert(holdsForKeys(nameIsUnique));

const Gs1KeyDefinition* findFirst(std::string_view Gs1KeyDefinition::*field,
                                  std::string_view wanted) {
    const auto* const row =
        std::find_if(std::begin(gs1KeyTable), std::end(gs1KeyTable),
                     [=](const Gs1KeyDefinition& key) { return key.*field == wanted; });
    return row != std::end(gs1KeyTable) ? row : nullptr;
}

} // namespace

const Gs1KeyDefinition* gs1KeyFindByName(std::string_view familyName) {
    return findFirst(&Gs1KeyDefinition::familyName, familyName);
}

const Gs1KeyDefinition* gs1KeyFindByAi(std::string_view code) {
    return findFirst(&Gs1KeyDefinition::primaryAi, code);
}

} // namespace rosetag
