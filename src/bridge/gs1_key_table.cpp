#include "bridge/gs1_key_table.h"

#include "gs1/ai_table.h"
#include "schemes/scheme_table.h"

#include <algorithm>
#include <array>
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

// Extra fields come between a key of fixed length and a tail.
constexpr bool extraFieldsAreConsistent(const Gs1KeyDefinition& key) {
    std::int32_t count = 0;
    for (const std::int32_t length : key.extraFieldLengths) {
        count += length > 0 ? 1 : 0;
    }
    return count == key.extraFieldCount &&
           (count == 0 || (key.hasTail == 1 && key.keyValueLength > 0));
}

// The longest company prefix fits each key of fixed length.
constexpr bool keyValueTakesLongestPrefix(const Gs1KeyDefinition& key) {
    const std::int32_t skipped = key.digitArrangement == KEY_DIGITS_AS_IS ? 0 : 1;
    return key.keyValueLength == 0 ||
           key.keyValueLength >= skipped + companyPrefixSizes[0].digits + key.hasCheckDigit;
}

constexpr bool nameIsUnique(const Gs1KeyDefinition& key) {
    return std::count_if(std::begin(gs1KeyTable), std::end(gs1KeyTable),
                         [&key](const Gs1KeyDefinition& other) {
                             return other.familyName == key.familyName;
                         }) == 1;
}

// The fixed part of the AI's value is the key with its extra fields.
constexpr bool keyValueIsThatOfItsAi(const Gs1KeyDefinition& key) {
    const AiTableRow* const ai = aiTableFind(key.primaryAi);
    std::int32_t length = key.keyValueLength;
    for (const std::int32_t extra : key.extraFieldLengths) {
        length += extra;
    }
    std::int32_t fixed = 0;
    for (const AiComponent& component : ai->components) {
        fixed += component.digitCount;
    }
    return key.keyValueLength == 0 || length == fixed;
}

// A plus scheme carries the AIs of its family's key if the family has one.
constexpr bool plusSchemeCarriesItsKey(const SchemeRow& row) {
    const Gs1KeyDefinition* const key = gs1KeyFindByName(row.familyWord);
    const auto ais = schemeKeyAis(row);
    return !schemeIsPlus(row) || key == nullptr ||
           (ais[0] == key->primaryAi && ais[1] == key->secondaryAi && ais[2].empty());
}

static_assert(std::all_of(schemeRows.begin(), schemeRows.end(), plusSchemeCarriesItsKey));
static_assert(holdsForKeys(keyValueIsThatOfItsAi));
static_assert(holdsForKeys(tailsAreConsistent));
static_assert(holdsForKeys(extraFieldsAreConsistent));
static_assert(holdsForKeys(keyValueTakesLongestPrefix));
static_assert(holdsForKeys(nameIsUnique));

// The first and last digits tell the AIs of the keys apart.
constexpr std::size_t placeOf(std::string_view code) {
    return static_cast<std::size_t>((code.front() & 0xF) << 4 | (code.back() & 0xF));
}

using KeyPlaces = std::array<std::uint8_t, 256>;

constexpr KeyPlaces keyPlacesMake() {
    KeyPlaces places{};
    for (std::size_t row = std::size(gs1KeyTable); row > 0; --row) {
        places[placeOf(gs1KeyTable[row - 1].primaryAi)] = static_cast<std::uint8_t>(row);
    }
    return places;
}

// The number of the row, from 1; 0 where there is no key. The first row of an AI counts.
constexpr KeyPlaces keyPlaces = keyPlacesMake();

static_assert(holdsForKeys([](const Gs1KeyDefinition& key) {
                  return gs1KeyTable[keyPlaces[placeOf(key.primaryAi)] - 1].primaryAi ==
                         key.primaryAi;
              }),
              "no two AIs have one place");

} // namespace

const Gs1KeyDefinition* gs1KeyFindByAi(std::string_view code) {
    const std::size_t row = code.empty() ? 0 : keyPlaces[placeOf(code)];
    const bool isFound = row != 0 && gs1KeyTable[row - 1].primaryAi == code;
    return isFound ? &gs1KeyTable[row - 1] : nullptr;
}

} // namespace rosetag
