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

// Any characters; those of a code are digits.
constexpr std::size_t codeNumber(std::string_view code) {
    std::size_t number = 0;
    for (const char character : code) {
        number = number * 10 + static_cast<std::size_t>(character & 0xF);
    }
    return number;
}

// A table in which each AI of a key has a place of its own: its number modulo the size.
struct KeyPlaces {
    static constexpr std::size_t MOST = 64;
    std::size_t size;
    const Gs1KeyDefinition* keys[MOST];
};

// False if two AIs get the same place. Of two keys with one AI the first row counts.
constexpr bool fillPlaces(KeyPlaces& places) {
    for (const Gs1KeyDefinition& key : gs1KeyTable) {
        const Gs1KeyDefinition*& place = places.keys[codeNumber(key.primaryAi) % places.size];
        if (place != nullptr && place->primaryAi != key.primaryAi) {
            return false;
        }
        place = place != nullptr ? place : &key;
    }
    return true;
}

constexpr KeyPlaces keyPlacesMake() {
    KeyPlaces places{};
    do {
        places = {places.size + 1, {}};
    } while (places.size < KeyPlaces::MOST && !fillPlaces(places));
    return places;
}

constexpr KeyPlaces keyPlaces = keyPlacesMake();
static_assert(keyPlaces.size < KeyPlaces::MOST);

} // namespace

const Gs1KeyDefinition* gs1KeyFindByAi(std::string_view code) {
    const Gs1KeyDefinition* const key = keyPlaces.keys[codeNumber(code) % keyPlaces.size];
    return key != nullptr && key->primaryAi == code ? key : nullptr;
}

} // namespace rosetag
