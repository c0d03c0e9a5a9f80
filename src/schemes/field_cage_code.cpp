#include "schemes/field_cage_code.h"

#include "schemes/field_chars.h"

namespace rosetag {

namespace {

constexpr std::uint64_t LEADING_SPACE = ' '; // the same value in 8 and in 6 bits
static_assert(char6FromBits(LEADING_SPACE) == ' ' && char6ToBits(' ') == LEADING_SPACE);

constexpr char charFromBits(std::uint64_t value, std::int32_t charBits) {
    return charBits == CHAR6_BITS ? char6FromBits(value)
                                  : static_cast<char>(static_cast<unsigned char>(value));
}

constexpr std::uint64_t charToBits(char character, std::int32_t charBits) {
    return charBits == CHAR6_BITS ? char6ToBits(character) : static_cast<unsigned char>(character);
}

} // namespace

EpcStatus fieldReadCageCode(BitBuffer& bits, TextBuffer& text, std::int32_t charBits) {
    for (std::int32_t i = 0; i < CAGE_CODE_CHARS; ++i) {
        std::uint64_t value = 0;
        EPC_TRY(bitBufferRead(bits, charBits, value));
        if (i == 0 && value == LEADING_SPACE) {
            continue;
        }
        const char character = charFromBits(value, charBits);
        if (!cageCodeHas(character)) {
            return EPC_ERR_BAD_CHARACTER;
        }
        EPC_TRY(textBufferPutChar(text, character));
    }
    return EPC_OK;
}

EpcStatus fieldWriteCageCode(TextCursor& cursor, BitBuffer& bits, std::int32_t charBits) {
    std::string_view code;
    EPC_TRY(textCursorReadUntil(cursor, '.', CAGE_CODE_CHARS + 1, code));
    const auto missing = CAGE_CODE_CHARS - static_cast<std::int32_t>(code.size());
    if (missing > 1) {
        return EPC_ERR_BAD_FORMAT;
    }
    if (missing == 1) {
        EPC_TRY(bitBufferWrite(bits, LEADING_SPACE, charBits));
    }
    for (const char character : code) {
        if (!cageCodeHas(character)) {
            return EPC_ERR_BAD_FORMAT;
        }
        EPC_TRY(bitBufferWrite(bits, charToBits(character, charBits), charBits));
    }
    return EPC_OK;
}

} // namespace rosetag
