#include "check/ai_rule.h"

#include "bridge/gs1_key_table.h"
#include "check/ai_rule_table.h"
#include "gs1/ai_catalogue.h"
#include "gs1/ai_prefix.h"
#include "gs1/ai_table.h"
#include "gs1/digital_link_keys.h"

#include <algorithm>
#include <iterator>

namespace rosetag {

namespace {

using namespace ai_rules;

constexpr bool replaces(const NewerLinkKey& newer, const DigitalLinkKeyChain& chain) {
    return newer.key == chain.key && newer.writtenQualifier == chain.qualifiers[0];
}
static_assert(std::all_of(std::begin(newerLinkKeyRows), std::end(newerLinkKeyRows),
                          [](const NewerLinkKey& newer) {
                              return std::count_if(std::begin(digitalLinkKeyChains),
                                                   std::end(digitalLinkKeyChains),
                                                   [&](const DigitalLinkKeyChain& chain) {
                                                       return replaces(newer, chain);
                                                   }) == 1;
                          }),
              "each replaces one row of the library");

using LinkKeys = std::array<LinkKey, std::size(digitalLinkKeyChains)>;

constexpr LinkKeys linkKeysMake() {
    LinkKeys keys{};
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const DigitalLinkKeyChain& chain = digitalLinkKeyChains[i];
        const auto qualifiers = qualifiersOf(chain);
        keys[i].key = chain.key;
        std::copy(qualifiers.begin(), qualifiers.end(), keys[i].qualifiers.begin());
        for (const NewerLinkKey& newer : newerLinkKeyRows) {
            keys[i].qualifiers = replaces(newer, chain) ? newer.qualifiers : keys[i].qualifiers;
        }
    }
    return keys;
}
constexpr LinkKeys linkKeyRows = linkKeysMake();

constexpr std::size_t SLOT_COUNT = 10000;

// The digits as the first of four, padded with 0: AI 01 is slot 100.
constexpr std::size_t slotOf(std::string_view code) {
    std::size_t slot = 0;
    for (std::size_t place = 0; place < AI_CODE_SIZE - 1; ++place) {
        const char digit = place < code.size() ? code[place] : '0';
        slot = charIsDigit(digit) ? slot * 10 + static_cast<std::size_t>(digit - '0') : SLOT_COUNT;
    }
    return slot;
}

constexpr bool covers(const AiRule& row, std::string_view code) {
    return row.first.size() == code.size() && row.first <= code && code <= row.last;
}

constexpr const AiRule* ruleRowOf(std::string_view code) {
    const auto* const row = std::find_if(std::begin(aiRuleRows), std::end(aiRuleRows),
                                         [&](const AiRule& rule) { return covers(rule, code); });
    return row == std::end(aiRuleRows) ? nullptr : row;
}

static_assert(std::all_of(aiTable.begin(), aiTable.end(),
                          [](const AiTableRow& row) {
                              const AiRule* const rule = ruleRowOf(aiFirstCode(row));
                              return rule != nullptr && rule == ruleRowOf(aiLastCode(row));
                          }),
              "every AI of the table has a row, and AIs of one title have the same");
static_assert(std::all_of(std::begin(newerAiRows), std::end(newerAiRows),
                          [](const NewerAi& ai) {
                              const AiRule* const rule = ruleRowOf(ai.code);
                              return rule != nullptr && rule->parts[0].most != 0 &&
                                     aiTableFind(ai.code) == nullptr;
                          }),
              "an AI that the table lacks has its parts here");

constexpr std::uint8_t companyPrefixPlace(KeyDigitArrangement arrangement) {
    return arrangement == KEY_DIGITS_AS_IS ? 1 : 2;
}
static_assert(holdsForKeys([](const Gs1KeyDefinition& key) {
                  return ruleRowOf(key.primaryAi)->companyPrefixAt ==
                         companyPrefixPlace(key.digitArrangement);
              }),
              "the prefix begins where the table of keys has it");

constexpr std::size_t partCount(const ValueParts& parts) {
    const auto isEmpty = [](const ValuePart& part) { return part.most == 0; };
    return static_cast<std::size_t>(std::find_if(parts.begin(), parts.end(), isEmpty) -
                                    parts.begin());
}

// What the AI table says of a component.
constexpr ValuePart partOf(const AiComponent& component) {
    const std::uint8_t most =
        component.digitCount != 0 ? component.digitCount : component.maxLength;
    const PartRule rule = component.checkKind == AI_CHECK_DIGIT  ? PartRule::CHECK_DIGIT
                          : component.checkKind == AI_CHECK_PAIR ? PartRule::CHECK_PAIR
                                                                 : PartRule::NONE;
    switch (component.kind) {
    case AI_KIND_NUMERIC:
    case AI_KIND_DIGITS:
        return fixed(n, most, rule);
    case AI_KIND_VAR_NUMERIC:
        return upTo(n, most);
    case AI_KIND_FLAG:
        return fixed(n, most, PartRule::FLAG);
    case AI_KIND_DATE:
        return dateOrMonth;
    case AI_KIND_LETTERS:
        return fixed(x, most, PartRule::COUNTRY_LETTERS);
    case AI_KIND_SIGN:
        return optional(fixed(x, most, PartRule::MINUS));
    case AI_KIND_TEXT:
    case AI_KIND_DIGITS_THEN_TEXT:
        return upTo(x, most, rule);
    default: // dates and times of several parts have rows
        return {};
    }
}

constexpr ValueParts partsOf(const AiComponent (&components)[AI_MAX_COMPONENTS]) {
    return {partOf(components[0]), partOf(components[1])};
}

// True if the parts of a row are as long as the AI table says. An IBAN is not: it has up to 34
// characters, of which a tag holds 24.
constexpr bool partsFit(const AiTableRow& row) {
    const AiRule& rule = *ruleRowOf(aiFirstCode(row));
    std::size_t most = 0;
    for (const ValuePart& part : rule.parts) {
        most += part.most;
    }
    std::size_t tableMost = 0;
    for (const AiComponent& component : row.components) {
        tableMost += component.digitCount != 0 ? component.digitCount : component.maxLength;
    }
    return most == 0 ? partCount(partsOf(row.components)) != 0
                     : tableMost == 0 || most == tableMost || rule.first == "8007";
}
static_assert(std::all_of(aiTable.begin(), aiTable.end(), partsFit));

constexpr KnownAi knownAiOfRow(const AiTableRow& row) {
    const AiRule& rule = *ruleRowOf(aiFirstCode(row));
    if (rule.parts[0].most != 0) {
        return {&rule, rule.parts, {}};
    }
    ValueParts parts = partsOf(row.components);
    parts[1].optional = parts[1].optional || rule.parts[1].optional;
    return {&rule, parts, {}};
}

// An AI that is not assigned, then those of each row of the AI table, then the newer ones.
constexpr std::size_t KNOWN_COUNT = 1 + aiTable.size() + std::size(newerAiRows);
constexpr std::array<KnownAi, KNOWN_COUNT> knownAisMake() {
    std::array<KnownAi, KNOWN_COUNT> known{};
    std::size_t count = 1;
    for (const AiTableRow& row : aiTable) {
        known[count++] = knownAiOfRow(row);
    }
    for (const NewerAi& ai : newerAiRows) {
        const AiRule& rule = *ruleRowOf(ai.code);
        known[count++] = {&rule, rule.parts, ai.title};
    }
    return known;
}
constexpr std::array<KnownAi, KNOWN_COUNT> knownAis = knownAisMake();

// The index in knownAis, by slot.
using Slots = std::array<std::uint8_t, SLOT_COUNT>;
static_assert(KNOWN_COUNT <= 256);

constexpr void fillSlots(Slots& slots, std::string_view first, std::string_view last,
                         std::size_t place) {
    const std::size_t step = first.size() == 4 ? 1 : first.size() == 3 ? 10 : 100;
    for (std::size_t slot = slotOf(first); slot <= slotOf(last); slot += step) {
        slots[slot] = static_cast<std::uint8_t>(place);
    }
}

constexpr Slots knownSlotsMake() {
    Slots slots{};
    std::size_t place = 1;
    for (const AiTableRow& row : aiTable) {
        fillSlots(slots, aiFirstCode(row), aiLastCode(row), place++);
    }
    for (const NewerAi& ai : newerAiRows) {
        fillSlots(slots, ai.code, ai.code, place++);
    }
    return slots;
}
constexpr Slots knownSlots = knownSlotsMake();

// The table of prefixes has no row for AI 03.
constexpr AiPrefix newPrefix = {2, GTIN_LENGTH};

AiPrefix knownAiPrefix(char first, char second) {
    const bool isNew = first == '0' && second == '3';
    return isNew ? newPrefix : aiPrefixOf(first, second);
}

} // namespace

const KnownAi& knownAiOf(std::string_view code) {
    const bool isCode =
        code.size() >= 2 && code.size() == knownAiPrefix(code[0], code[1]).codeDigits;
    const std::size_t slot = isCode ? slotOf(code) : SLOT_COUNT;
    return knownAis[slot < SLOT_COUNT ? knownSlots[slot] : 0];
}

std::size_t knownAiCodeLength(char first, char second) {
    return knownAiPrefix(first, second).codeDigits;
}

std::size_t predefinedValueLength(std::string_view code) {
    return code.size() < 2 ? 0 : knownAiPrefix(code[0], code[1]).valueLength;
}

std::span<const LinkKey> linkKeys() {
    return linkKeyRows;
}

} // namespace rosetag
