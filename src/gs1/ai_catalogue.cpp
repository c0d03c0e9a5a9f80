#include "gs1/ai_catalogue.h"

#include "gs1/ai_table.h"
#include "gs1/digital_link_keys.h"

#include <algorithm>

namespace rosetag {

namespace {

constexpr bool hasItsPrefix(const AiTableRow& row) {
    const std::string_view code = aiFirstCode(row);
    const AiPrefix prefix = aiPrefixOf(code[0], code[1]);
    const auto& [first, second] = row.components;
    const bool isVariable =
        first.digitCount == 0 || (second.kind != AI_KIND_NONE && second.digitCount == 0);
    return prefix.codeDigits == code.size() &&
           (prefix.valueLength == 0 ||
            (!isVariable && prefix.valueLength == first.digitCount + second.digitCount));
}
static_assert(std::all_of(aiTable.begin(), aiTable.end(), hasItsPrefix),
              "the leading digits of an AI determine the length of its code and of its value");

constexpr AiDefinition definitionOf(std::string_view code, const AiTableRow& row) {
    const DigitalLinkKeyChain* const link = digitalLinkKeyFind(code);
    AiDefinition definition{};
    for (const char digit : code) {
        definition.code[definition.codeLength++] = digit;
        definition.packedCode =
            static_cast<std::uint16_t>(definition.packedCode << 4 | (digit - '0'));
    }
    if (link != nullptr) {
        definition.linkKey = static_cast<std::uint8_t>(link - digitalLinkKeyChains + 1);
    }
    for (const AiComponent& component : row.components) {
        if (component.kind != AI_KIND_NONE) {
            definition.components[definition.componentCount++] = component;
        }
    }
    return definition;
}

// Each code of a row becomes a definition.
constexpr AiCatalogue aiCatalogueMake() {
    AiCatalogue catalogue{};
    for (const AiTableRow& row : aiTable) {
        const std::string_view first = aiFirstCode(row);
        char code[AI_CODE_SIZE] = {};
        char& lastDigit = *(std::copy(first.begin(), first.end(), code) - 1);
        for (; lastDigit <= aiLastCode(row).back(); ++lastDigit) {
            const std::string_view view = {code, first.size()};
            catalogue[aiSlotOf(view)] = definitionOf(view, row);
        }
    }
    return catalogue;
}

} // namespace

constexpr AiCatalogue aiCatalogue = aiCatalogueMake();

namespace {

constexpr std::ptrdiff_t codesInTable() {
    std::ptrdiff_t count = 0;
    for (const AiTableRow& row : aiTable) {
        count += aiLastCode(row).back() - aiFirstCode(row).back() + 1;
    }
    return count;
}
static_assert(std::count_if(aiCatalogue.begin(), aiCatalogue.end(),
                            [](const AiDefinition& slot) { return slot.componentCount != 0; }) ==
                  codesInTable(),
              "no two rows have a code in common");

// The digit of a character that is not one.
EpcStatus badCodeDigit(const TextCursor& cursor, const char* character) {
    return character == textCursorEnd(cursor) || *character == '\0' ? EPC_ERR_TRUNCATED
                                                                    : EPC_ERR_BAD_CHARACTER;
}

} // namespace

const AiDefinition* aiFind(std::string_view code) {
    if (code.size() < 2 || code.size() != aiPrefixOf(code[0], code[1]).codeDigits ||
        !std::all_of(code.begin(), code.end(), charIsDigit)) {
        return nullptr;
    }
    return aiAtSlot(aiSlotOf(code));
}

EpcStatus aiReadCode(TextCursor& cursor, const AiDefinition*& ai) {
    const char* const code = cursor.current;
    if (!charIsDigit(code[0])) {
        return badCodeDigit(cursor, code);
    }
    if (!charIsDigit(code[1])) {
        return badCodeDigit(cursor, code + 1);
    }
    const AiBlock block = aiBlocks[static_cast<std::size_t>((code[0] - '0') * 10 + code[1] - '0')];
    if (block.codeDigits == 0) {
        return EPC_ERR_UNKNOWN_AI;
    }
    std::size_t number = 0;
    for (std::size_t place = 2; place < block.codeDigits; ++place) {
        if (!charIsDigit(code[place])) {
            return badCodeDigit(cursor, code + place);
        }
        number = number * 10 + static_cast<std::size_t>(code[place] - '0');
    }
    cursor.current += block.codeDigits;
    ai = &aiCatalogue[block.firstSlot + number];
    return EPC_OK;
}

} // namespace rosetag
