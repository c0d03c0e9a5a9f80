#include "schemes/field_chars.h"

#include "core/field_run.h"

namespace rosetag {

namespace {

EpcStatus checkChar6(char character, std::int32_t index, HashRule hashRule) {
    if (!charIsOfClass(character, CHAR_CLASS_AI39)) {
        return EPC_ERR_BAD_CHARACTER;
    }
    const bool hashIsAllowed = hashRule == HashRule::HASH_ANYWHERE ||
                               (hashRule == HashRule::HASH_FIRST_ONLY && index == 0);
    return character != '#' || hashIsAllowed ? EPC_OK : EPC_ERR_BAD_CHARACTER;
}

// Reads the next character of a text. isEnd: the text or the field ended instead.
EpcStatus readCharOrEnd(TextCursor& cursor, char terminator, char& character, bool& isEnd) {
    isEnd = textCursorAtEnd(cursor);
    if (isEnd) {
        return EPC_OK;
    }
    EPC_TRY(textCursorReadEscapedChar(cursor, character));
    isEnd = character == terminator;
    return EPC_OK;
}

} // namespace

EpcStatus fieldReadChars7(BitBuffer& bits, TextBuffer& text, std::int32_t maxChars) {
    bool isFirst = true;
    bool isEnded = false;
    return fieldRunGet<CHAR7_BITS>(bits, maxChars, [&](std::uint64_t value) -> EpcStatus {
        if (isEnded) {
            return value == 0 ? EPC_OK : EPC_ERR_BAD_CHARACTER;
        }
        if (value == 0) {
            isEnded = true;
            return isFirst ? EPC_ERR_TRUNCATED : EPC_OK;
        }
        isFirst = false;
        const auto character = static_cast<char>(value);
        return charIsOfClass(character, CHAR_CLASS_AI82) ? textBufferPutEscapedChar(text, character)
                                                         : EPC_ERR_BAD_CHARACTER;
    });
}

EpcStatus fieldWriteChars7(TextCursor& cursor, BitBuffer& bits, std::int32_t maxChars) {
    if (textCursorAtEnd(cursor)) {
        return EPC_ERR_TRUNCATED;
    }
    return fieldRunPut<CHAR7_BITS>(bits, maxChars, [&cursor](std::uint64_t& value) -> EpcStatus {
        value = 0;
        if (textCursorAtEnd(cursor)) {
            return EPC_OK;
        }
        char character = 0;
        EPC_TRY(textCursorReadEscapedChar(cursor, character));
        value = static_cast<unsigned char>(character);
        return charIsOfClass(character, CHAR_CLASS_AI82) ? EPC_OK : EPC_ERR_BAD_CHARACTER;
    });
}

EpcStatus fieldReadChars6(BitBuffer& bits, TextBuffer& text, const Chars6Rule& rule) {
    for (std::int32_t i = 0; i <= rule.maxChars; ++i) {
        std::uint64_t value = 0;
        EPC_TRY(bitBufferRead(bits, CHAR6_BITS, value));
        if (value == 0) {
            return i == 0 && !rule.allowEmpty ? EPC_ERR_TRUNCATED : EPC_OK;
        }
        const char character = char6FromBits(value);
        EPC_TRY(checkChar6(character, i, rule.hashRule));
        EPC_TRY(textBufferPutEscapedChar(text, character));
    }
    return EPC_ERR_TRUNCATED;
}

EpcStatus fieldWriteChars6(TextCursor& cursor, BitBuffer& bits, const Chars6Rule& rule,
                           char terminator) {
    for (std::int32_t i = 0; i <= rule.maxChars; ++i) {
        char character = 0;
        bool isEnd = false;
        EPC_TRY(readCharOrEnd(cursor, terminator, character, isEnd));
        if (isEnd) {
            return i == 0 && !rule.allowEmpty ? EPC_ERR_TRUNCATED
                                              : bitBufferWrite(bits, 0, CHAR6_BITS);
        }
        EPC_TRY(checkChar6(character, i, rule.hashRule));
        EPC_TRY(bitBufferWrite(bits, char6ToBits(character), CHAR6_BITS));
    }
    return EPC_ERR_OUT_OF_RANGE;
}

} // namespace rosetag
