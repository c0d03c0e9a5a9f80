/*
 * The GS1 Application Identifiers by their code.
 */
#ifndef ROSETAG_GS1_AI_CATALOGUE_H
#define ROSETAG_GS1_AI_CATALOGUE_H

#include "core/text_cursor.h"
#include "gs1/ai_prefix.h"
#include "gs1/ai_shape.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace rosetag {

// An AI code takes four digits and a NUL.
constexpr std::size_t AI_CODE_SIZE = EPC_AI_CODE_SIZE;

struct AiDefinition {
    char code[AI_CODE_SIZE]; // padded with NULs
    std::uint8_t codeLength;
    std::uint16_t packedCode;    // four bits a digit
    std::uint8_t linkKey;        // 1 and the index of its first row among the keys of links, or 0
    std::uint8_t componentCount; // 0 in an empty slot
    AiComponent components[AI_MAX_COMPONENTS];
};

inline std::string_view aiCodeOf(const AiDefinition& ai) {
    return {ai.code, ai.codeLength};
}

// True if two codes, padded with NULs, are the same.
inline bool aiCodesAreEqual(const char (&one)[AI_CODE_SIZE], const char (&other)[AI_CODE_SIZE]) {
    return std::memcmp(one, other, AI_CODE_SIZE - 1) == 0;
}

// Where the definitions of the codes with the same two leading digits are.
struct AiBlock {
    std::uint8_t codeDigits; // 0: no AI begins with these digits
    std::uint16_t firstSlot;
};

constexpr std::array<AiBlock, 101> aiBlocksMake() {
    // The slots, told apart by the digits after the two leading ones.
    constexpr std::uint16_t blockSizes[] = {0, 0, 1, 10, 100};
    std::array<AiBlock, 101> blocks{};
    for (std::size_t prefix = 0; prefix < aiPrefixes.size(); ++prefix) {
        const std::uint8_t codeDigits = aiPrefixes[prefix].codeDigits;
        blocks[prefix].codeDigits = codeDigits;
        blocks[prefix + 1].firstSlot =
            static_cast<std::uint16_t>(blocks[prefix].firstSlot + blockSizes[codeDigits]);
    }
    return blocks;
}

// By the two leading digits; one more marks the end of the slots.
inline constexpr std::array<AiBlock, 101> aiBlocks = aiBlocksMake();

// The slot of a code of digits, whose length is that of its block.
constexpr std::size_t aiSlotOf(std::string_view code) {
    const auto digitAt = [code](std::size_t place) {
        return static_cast<std::size_t>(code[place] - '0');
    };
    std::size_t number = 0;
    for (std::size_t place = 2; place < code.size(); ++place) {
        number = number * 10 + digitAt(place);
    }
    return aiBlocks[digitAt(0) * 10 + digitAt(1)].firstSlot + number;
}

// By aiSlotOf. The slot of a code that is not assigned is empty: it has no components.
using AiCatalogue = std::array<AiDefinition, aiBlocks.back().firstSlot>;
extern const AiCatalogue aiCatalogue;

// The definition in a slot, or null in an empty one.
inline const AiDefinition* aiAtSlot(std::size_t slot) {
    return aiCatalogue[slot].componentCount != 0 ? &aiCatalogue[slot] : nullptr;
}

// The definition of exactly this code, or null.
const AiDefinition* aiFind(std::string_view code);

// Reads the code at the cursor, whose span no digit follows. ai is an empty slot if the code is
// well formed but not assigned; EPC_ERR_UNKNOWN_AI if no AI begins with its two leading digits.
EpcStatus aiReadCode(TextCursor& cursor, const AiDefinition*& ai);

} // namespace rosetag

#endif
